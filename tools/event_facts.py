"""An event stream as a text that a person reads: each event with only what is new since the last one.

    28 begin Procedure @ frmInvoice.frm:30 [Procedure]
      statement = "Private Sub cmdAdd_Click()"
      scope = ["Project","VBP","File","Declarations","Procedure"]
      Procedure.Name = "cmdAdd_Click"
      - Procedure.CyclomaticComplexity

The first line of an event has its number and name, after @ the name of the file and the line, and in brackets the
objects whose properties it carries, with "lineStats" as the last one where it carries counts of lines. Below it
is a fact a line: a field or a property whose value differs from the one shown before, "-" for a property that
the object no longer has, "new" for an object whose properties come in another order, which are then all shown.

Nothing is lost. Who reads from the top and remembers the last value of each field, and of each object the properties
in the order in which they first came, has the whole event: `rebuilt` does, and `facts` refuses a stream that does not
come back as it was.
"""
import json
import re

FIELDS = ("location", "file", "physicalLines", "lineType", "statement", "scope")
STATISTICS = "lineStats"
HEADER = re.compile(r"(\d+) (.*?)(?: @ (.*):(\d+))?(?: \[(.*)\])?")
GONE = re.compile(r"  - (.*)")
NEW = re.compile(r"  new (.*)")
FACT = re.compile(r"  (.*?) = (.*)")


class NotReadable(Exception):
    """A stream or a text that is none."""


def compact(value):
    """A value as the program writes it."""
    return json.dumps(value, ensure_ascii=False, separators=(",", ":"))


def carried(event):
    """The objects of an event by name, its counts of lines among them."""
    objects = dict(event["objects"])
    if STATISTICS in event:
        objects[STATISTICS] = event[STATISTICS]
    return objects


def header(event):
    text = f"{event['event']} {event['name']}"
    if event["file"] is not None or event["line"]:
        text += f" @ {(event['file'] or '').split('/')[-1]}:{event['line']}"
    objects = carried(event)
    return text + (f" [{', '.join(objects)}]" if objects else "")


def changes(name, before, now):
    """The lines that lead from an object's properties as shown before to those that it has now."""
    kept = [key for key in before if key in now]
    lines = []
    if list(now)[:len(kept)] != kept:
        lines.append(f"  new {name}")
        before = {}
    lines += [f"  - {name}.{key}" for key in before if key not in now]
    lines += [f"  {name}.{key} = {compact(value)}" for key, value in now.items()
              if key not in before or compact(before[key]) != compact(value)]
    return lines


def facts(stream):
    """The text for a stream of events, one JSON object a line."""
    fields, objects, lines = {}, {}, []
    for text in stream.split("\n")[:-1]:
        event = json.loads(text)
        lines.append(header(event))
        for field in FIELDS:
            if field not in fields or fields[field] != event[field]:
                lines.append(f"  {field} = {compact(event[field])}")
            fields[field] = event[field]
        for name, now in carried(event).items():
            lines += changes(name, objects.get(name, {}), now)
            objects[name] = now
    text = "".join(line + "\n" for line in lines)
    if rebuilt(text) != stream:
        raise NotReadable("the text of the events does not hold all of them")
    return text


class Reader:
    """Goes through the text from the top."""

    def __init__(self):
        self.fields = {}
        self.objects = {}
        self.events = []  # number, name, line, names of the objects
        self.lines = []

    def finish(self):
        """The event whose facts have been read."""
        if not self.events:
            return
        number, name, line, names = self.events.pop()
        fields = self.fields
        event = {"event": number, "name": name, "location": fields["location"], "file": fields["file"], "line": line,
                 "physicalLines": fields["physicalLines"], "lineType": fields["lineType"],
                 "statement": fields["statement"], "scope": fields["scope"],
                 "objects": {key: self.objects.get(key, {}) for key in names if key != STATISTICS}}
        if STATISTICS in names:
            event[STATISTICS] = self.objects.get(STATISTICS, {})
        self.lines.append(compact(event))

    def begin(self, text):
        self.finish()
        match = HEADER.fullmatch(text)
        if not match:
            raise NotReadable(f"no event: {text}")
        number, name, _, line, names = match.groups()
        self.events.append((int(number), name, int(line or 0), names.split(", ") if names else []))

    def take(self, text):
        if match := GONE.fullmatch(text):
            name, key = match[1].split(".", 1)
            del self.objects[name][key]
        elif match := NEW.fullmatch(text):
            self.objects[match[1]] = {}
        elif match := FACT.fullmatch(text):
            name, dot, key = match[1].partition(".")
            place = self.objects.setdefault(name, {}) if dot else self.fields
            place[key if dot else name] = json.loads(match[2])
        else:
            raise NotReadable(f"no fact: {text}")


def rebuilt(text):
    """The stream that `facts` was given."""
    reader = Reader()
    for line in text.split("\n")[:-1]:
        if line.startswith("  "):
            reader.take(line)
        else:
            reader.begin(line)
    reader.finish()
    return "".join(line + "\n" for line in reader.lines)
