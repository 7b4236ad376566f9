"""Rulebases that are whole only at first sight."""
import os
import re

import bench
from bench import FAILED, INCOMPLETE, NOTHING_DONE, PASSED, HostileCase


class BrokenRulebases(HostileCase):
    def setUp(self):
        super().setUp()
        sample = os.path.join(os.path.dirname(bench.PROGRAM), "Data", "Sample.dvk")
        with open(sample, encoding="utf-8") as file:
            self.sample = file.read()
        self.write_project()

    def review_with(self, text, *arguments):
        self.write("broken.dvk", text)
        return self.review("A.vbp", "--rulebase", "broken.dvk", *arguments)

    def changed(self, pattern, to):
        text, count = re.subn(pattern, to, self.sample, count=1)
        self.assertEqual(count, 1, pattern)
        return text

    def test_an_identifier_that_cannot_be_read_ends_the_review(self):
        broken = self.changed(r'RuleID="50(\d\d)"', r'RuleID="50\1x"')
        run = self.review_with(broken)
        self.assertEqual(run.code, NOTHING_DONE, str(run))
        for word in ("broken.dvk", "RuleID"):
            self.assertIn(word, run.error)
        self.assertFalse(self.database().exists())
        checked = self.run_program("rulebase", "check", "broken.dvk")
        self.assertIn("RuleID", checked.output + checked.error)
        self.assertIn(self.review_with(broken, "--accept-faults").code, (PASSED, FAILED, INCOMPLETE))

    def test_so_does_a_tolerance_that_is_missing(self):
        run = self.review_with(self.changed(r'\s+ToleranceCount="[^"]*"', ""))
        self.assertEqual(run.code, NOTHING_DONE, str(run))
        self.assertIn("ToleranceCount", run.error)

    def test_a_save_that_fails_leaves_the_file_as_it_was(self):
        last = self.changed(r'(?<!Schema)Version="[\d.]+"', 'Version="32767.9999.9999"')
        path = self.write("last.dvk", last)
        run = self.run_program("rulebase", "save", "last.dvk")
        again = self.run_program("rulebase", "check", "last.dvk")
        self.assertEqual(again.code, PASSED, str(again))
        if run.code != PASSED:
            self.assertEqual(path.read_text(encoding="utf-8"), last)
            self.assertNotIn("Saved", run.output)

    def test_thousands_of_unknown_tags_end_nothing(self):
        tags = " ".join(f"%Nobody.Tag{number}%" for number in range(20_000))
        broken = self.changed(r'Description="[^"]*"', f'Description="{tags}"')
        self.write("broken.dvk", broken)
        self.run_program("rulebase", "check", "broken.dvk")
        with open(bench.RULEBASE, encoding="utf-8") as file:
            keywords = file.read()
        rule = re.sub(r'(Advice|ViolDesc\w*|ViolationDesc\w*)="[^"]*"', rf'\1="{tags}"', keywords)
        self.assertNotEqual(rule, keywords)
        self.review_with(rule, "--accept-faults")

    def test_a_rule_that_fails_in_the_review_is_not_a_clean_review(self):
        with open(bench.RULEBASE, encoding="utf-8") as file:
            keywords = file.read()
        broken, count = re.subn(r'Condition="[^"]*"', 'Condition="(((("', keywords, count=1)
        self.assertEqual(count, 1)
        run = self.review_with(broken, "--accept-faults")
        self.assertEqual(run.code, INCOMPLETE, str(run))
