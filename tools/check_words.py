#!/usr/bin/env python3
"""Keeps words out of comments, texts of the program and documents that a reader from the field would have to decode:
docs/glossary.md has the words that this project uses instead.
  tools/check_words.py               the whole tree; ends with 1 if a word is found
  tools/check_words.py --count       how often each word is found, by folder
  tools/check_words.py FILE...       these files only, wherever they are"""
import collections
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PLACES = ("README.md", "CONTRIBUTING.md", "docs", "src", "apps", "data/sample", "tools", "cmake", "bench")
CODE = (".h", ".cpp", ".def")
DOCUMENTS = (".md",)
RULEBASE = (".xml", ".dvs")
SCRIPTS = (".py", ".sh", ".cmake", "")
# What a rule of the sample rulebase writes into the results stays as it is, so that results of two versions can be
# compared: the texts of its violation, its title, and the strings of its script.
VIOLATION_TEXT = re.compile(r'<ViolationDefinition\b[^>]*>|\b(?:\w*Advice|Title)="[^"]*"')
BASIC_COMMENT = re.compile(r'"[^"\n]*"|\'([^\n]*)')

# These have to name the words.
NAME_THE_WORDS = ("docs/glossary.md", "tools/check_words.py")

# What is found, what to write instead, and which longer texts around it are good English.
WORDS = (
    (r"\b[Bb]ehind\b", "after, following; 'behind' is for seams only", (r"behind `[\w/.]+`", r"\b(?:left|leaves?|leaving|stay(?:s|ed)?) (?:\w+ ){0,3}behind\b", r"behind (?:an?|the|this|these|its|small|one|which) (?:\w+ )?(?:interfaces?|seams?|functions?)",)),
    (r"\b(?:[Ss]tands|[Ss]tood|(?<!under)[Ss]tand)\b", "is, is stored, is written", (r"\b(?:stands?|stood) (?:for|out|alone)\b", r"stands? (?:up )?to reason", r"stand-?in")),
    (r"\b[Ll]ies\b|\blay\b(?! out)", "is, is stored, is located", (r"\blay(?:s|ing)? (?:it |them )?out\b",)),
    (r"\b(?:[Tt]ells|[Tt]old|[Tt]elling)\b", "reports, is reported, says, shows", (r"tell(?:s|ing)? \w+(?: \w+)? apart", r"told apart")),
    (r"\b(?:[Ww]hoever|[Nn]obody|[Aa]nybody|[Ss]omebody)\b", "callers, the caller, no one, another process; or name the class", ()),
    (r"\b[Ss]witch(?:es|ed|ing)? (?:\w+ )?off\b", "disable", (r"Scripts are switched off",)),
    (r"\b[Pp]ass(?:es|ed|ing)? (?:over|by)\b", "skip, ignore", (r"pass(?:es|ed|ing)? by (?:value|reference|pointer)", r"window passes over it")),
    (r"\b[Ff]old(?:s|ed|ing)? (?:into|the log|back)\b|\b(?:log|it) is folded\b|\blast folding\b", "checkpoint", ()),
    (r"\b(?:the|this|our) house\b|\b[Hh]ouse rules?\b|\b[Ff]loors?\b", "the layout, the architecture, a layer", (r"[Ff]loor(?:ed|ing)?\(",)),
    (r"(?<![Tt]here )\b(?:is|are) no (?!longer\b|more than\b|different\b|matter\b|less\b|\w+er\b)[\w'-]+", "is not a ..., is not ...", (r"(?:[Tt]here|where|of which|that|if|as|which) (?:is|are) no", r"(?:is|are) no (?:such|need|reason|way|longer)")),
    (r"\bin one go\b", "at once, in one step", ()),
    (r"\b(?:[Ww]orks?|[Ww]orked|[Ww]orking) out\b|\b[Rr]eckoned\b", "compute, find, determine", (r"IIf works out both results",)),
    (r"\bturned down\b", "rejected", ()),
    (r"\b(?:goes|went|going) on\b", "continues", (r"what (?:is|was) going on",)),
    (r"\bwithout a look\b|\b(?:has|have|take|takes) a look\b|\bhad a look\b", "check, without checking", ()),
    (r"\b(?:is|are|was|were|be|been) asked\b(?! for\b)|\b[Aa]sks\b", "query, test, read; 'asks for' is 'requests'", ()),
    (r"\bis let through\b|\blets? \w+ pass\b|\bsteps? aside\b", "does not apply, is accepted", ()),
    (r"\b(?:not|nothing) waited for\b|\bforetell\b|\bdone in rows\b", "name the fact", ()),
)

LITERAL = re.compile(r'(?<!u8)R"(\w*)\((.*?)\)\1"|"((?:[^"\\\n]|\\.)*)"|//([^\n]*)|/\*(.*?)\*/|\'(?:[^\'\\\n]|\\.)+\'', re.DOTALL)
HASH_COMMENT = re.compile(r"(?:^|\s)#(?!!)([^\n]*)|\"\"\"(.*?)\"\"\"|\"([^\"\n]*)\"", re.DOTALL)
CODE_BLOCK = re.compile(r"^```(?:vb|cpp|python|xml|json|asm|catalogue).*?^```", re.DOTALL | re.MULTILINE)


def Blanked(text, pattern):
    return pattern.sub(lambda match: re.sub(r"[^\n]", " ", match[0]), text)


def Prose(path, text):
    """(position, text) of what people read in a file."""
    if path.suffix in DOCUMENTS:
        yield 0, Blanked(text, CODE_BLOCK)
        return
    if path.suffix == ".xml":
        yield 0, Blanked(text, VIOLATION_TEXT)
        return
    pattern = LITERAL if path.suffix in CODE else BASIC_COMMENT if path.suffix == ".dvs" else HASH_COMMENT
    for match in pattern.finditer(text):
        for group in range(1, pattern.groups + 1):
            if match[group] and not (pattern is LITERAL and group == 1):
                yield match.start(group), match[group]


def Flat(text):
    """The text with each line end, the marks of a comment and runs of blanks as one blank, so that a phrase may cross
    lines; and where each of its characters was."""
    flat, places, end = [], [], 0
    for match in re.finditer(r"(?:\s*\n[ \t]*(?:///?|#|'|\*)?)?[ \t]+|\s*\n[ \t]*(?:///?|#|'|\*)?", text):
        flat += text[end:match.start()] + " "
        places += range(end, match.start() + 1)
        end = match.end()
    return "".join(flat) + text[end:], [*places, *range(end, len(text) + 1)]


def Merged(pieces, text):
    """Comment lines that follow each other, as one piece."""
    merged = []
    for start, piece in pieces:
        if merged:
            first, joined = merged[-1]
            end = first + len(joined)
            if re.fullmatch(r"[ \t]*\n[ \t]*(?:///?|#|')", text[end:start]):
                merged[-1] = (first, text[first:start + len(piece)])
                continue
        merged.append((start, piece))
    return merged


def Findings(path):
    """(line, what was found, what to write instead) for each of the words in a file."""
    text = path.read_text(encoding="utf-8")
    for start, piece in Merged(list(Prose(path, text)), text):
        flat, places = Flat(piece)
        for pattern, instead, exceptions in WORDS:
            good = [m.span() for exception in exceptions for m in re.finditer(exception, flat)]
            for match in re.finditer(pattern, flat):
                if not any(a <= match.start() < b or a < match.end() <= b for a, b in good):
                    yield text.count("\n", 0, start + places[match.start()]) + 1, match[0], instead


def Files():
    for place in PLACES:
        top = ROOT / place
        for path in [top] if top.is_file() else sorted(top.rglob("*")):
            name = path.relative_to(ROOT).as_posix()
            if path.is_file() and path.suffix in CODE + DOCUMENTS + RULEBASE + SCRIPTS and name not in NAME_THE_WORDS:
                if path.suffix or path.read_bytes()[:2] == b"#!":
                    yield name, path


def Count():
    table = collections.Counter()
    for name, path in Files():
        folder = "/".join(name.split("/")[:-1]).split("/include")[0] or "."
        for _, found, _ in Findings(path):
            table[(folder, found.lower())] += 1
    for folder in sorted({folder for folder, _ in table}):
        words = sorted(((n, w) for (f, w), n in table.items() if f == folder), reverse=True)
        print(f"{folder}: {sum(n for n, _ in words)}  " + ", ".join(f"{w} {n}" for n, w in words[:8]))
    print(f"all: {sum(table.values())}")
    return 0


def main(arguments):
    if arguments == ["--count"]:
        return Count()
    files = [(name, pathlib.Path(name)) for name in arguments] or list(Files())
    count = 0
    for name, path in files:
        for line, found, instead in Findings(path):
            print(f"{name}:{line}: '{found}': {instead}")
            count += 1
    print(f"words: {len(files)} files, {count} faults")
    return 1 if count or not files else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
