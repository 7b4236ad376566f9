#!/usr/bin/env python3
"""Tests of tools/event_facts.py: its text is what it says, and gives the stream back byte for byte."""
import json
import pathlib
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tools"))
from event_facts import NotReadable, facts, rebuilt  # noqa: E402


def event(number, name, line=0, objects=None, statistics=None, **fields):
    row = {"event": number, "name": name, "location": 4, "file": "$SAMPLES/B/frmA.frm", "line": line,
           "physicalLines": 1, "lineType": 3, "statement": "", "scope": ["Project"], "objects": objects or {}}
    row.update(fields)
    if statistics is not None:
        row["lineStats"] = statistics
    return row


def stream(*events):
    return "".join(json.dumps(row, ensure_ascii=False, separators=(",", ":")) + "\n" for row in events)


FIRST = event(28, "begin Procedure", 30, {"Procedure": {"Name": "A", "Scope": "", "IsStatic": "False"}})


def text_behind_first(*events):
    """What the text of events has behind that of FIRST."""
    return facts(stream(FIRST, *events))[len(facts(stream(FIRST))):]


class Text(unittest.TestCase):
    def test_the_first_event_shows_everything(self):
        self.assertEqual(
            facts(stream(FIRST)),
            '28 begin Procedure @ frmA.frm:30 [Procedure]\n'
            '  location = 4\n'
            '  file = "$SAMPLES/B/frmA.frm"\n'
            '  physicalLines = 1\n'
            '  lineType = 3\n'
            '  statement = ""\n'
            '  scope = ["Project"]\n'
            '  Procedure.Name = "A"\n'
            '  Procedure.Scope = ""\n'
            '  Procedure.IsStatic = "False"\n')

    def test_another_event_shows_what_is_new_and_what_is_gone(self):
        self.assertEqual(
            text_behind_first(event(34, "end Procedure", 31,
                                    {"Procedure": {"Name": "B", "IsStatic": "False", "Complexity": "1"}})),
            '34 end Procedure @ frmA.frm:31 [Procedure]\n'
            '  - Procedure.Scope\n'
            '  Procedure.Name = "B"\n'
            '  Procedure.Complexity = "1"\n')

    def test_an_event_that_changes_nothing_is_one_line(self):
        self.assertEqual(text_behind_first(event(30, "Procedure <body>", 31)), "30 Procedure <body> @ frmA.frm:31\n")

    def test_an_event_of_the_project_has_no_place(self):
        self.assertEqual(text_behind_first(event(2, "end Project", file=None)), "2 end Project\n  file = null\n")

    def test_properties_in_another_order_are_all_shown(self):
        self.assertEqual(
            text_behind_first(event(28, "begin Procedure", 30,
                                    {"Procedure": {"IsStatic": "False", "Name": "A", "Scope": ""}})),
            '28 begin Procedure @ frmA.frm:30 [Procedure]\n'
            '  new Procedure\n'
            '  Procedure.IsStatic = "False"\n'
            '  Procedure.Name = "A"\n'
            '  Procedure.Scope = ""\n')


class RoundTrip(unittest.TestCase):
    def comes_back(self, *events):
        self.assertEqual(rebuilt(facts(stream(*events))), stream(*events))

    def test_no_events(self):
        self.comes_back()

    def test_an_object_that_comes_back_later(self):
        self.comes_back(FIRST, event(30, "body"), FIRST, event(3, "File", 1, {"File": {}}), FIRST)

    def test_two_objects_and_their_order(self):
        one, two = {"A": "1"}, {"B": "2"}
        self.comes_back(event(1, "x", 1, {"One": one, "Two": two}), event(1, "x", 1, {"Two": two, "One": one}))

    def test_a_property_in_front_of_those_that_were(self):
        self.comes_back(FIRST, event(28, "x", 1, {"Procedure": {"New": "1", "Name": "A", "Scope": ""}}))

    def test_counts_of_lines(self):
        self.comes_back(event(34, "x", 1, {"P": {}}, {"Total": 1}), event(34, "x", 2),
                        event(35, "y", 3, {}, {"Total": 2, "Code": 1}))

    def test_values_that_look_like_the_text(self):
        hard = ['a = b', '  - A.B', ' @ f:1 [X]', 'line\nfeed\r\n', '"', "\\", "Größe \u2028", "", "a.b", "]"]
        for value in hard:
            self.comes_back(event(4, "Source Line", 7, {"Source": {"Line": value, "A.B": value}}, statement=value),
                            event(4, "Source Line", 8, {"Source": {"Line": value, "A.B": "x"}}))

    def test_files_with_odd_names(self):
        for file in ("$S/a:1 [b].bas", "$S/ @ .bas", "$S/x", ""):
            self.comes_back(event(4, "Source Line", 7, file=file), event(4, "Source Line", 0, file=file))

    def test_a_number_is_not_its_text(self):
        self.comes_back(event(1, "x", 1, {"P": {"N": "1"}}), event(1, "x", 1, {"P": {"N": 1}}),
                        event(1, "x", 1, {"P": {"N": True}}))

    def test_what_does_not_come_back_is_refused(self):
        with self.assertRaises(NotReadable):
            facts(stream(FIRST).replace('"line":30', '"line": 30'))

    def test_golden_files_are_texts_of_streams(self):
        files = sorted((ROOT / "tests" / "golden").glob("*.events.expected"))
        self.assertTrue(files)
        for file in files:
            text = file.read_bytes().decode("utf-8")
            self.assertEqual(facts(rebuilt(text)), text, file.name)


if __name__ == "__main__":
    unittest.main()
