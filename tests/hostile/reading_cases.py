"""Sources that are not what they seem: encodings, lines without end, forms at fault."""
import os
import resource

import bench
from bench import INCOMPLETE, NOTHING_DONE, PASSED, HostileCase

BODY = ["Option Explicit", "Public Sub Work()"] + ["    DoEvents", "    GoTo Out"] * 20 + ["Out:", "End Sub"]


def text_of(lines):
    return "".join(line + "\r\n" for line in lines)


class Encodings(HostileCase):
    def findings(self, source):
        self.write("modA.bas", source)
        self.write_project(members=["Module=modA; modA.bas"])
        run = self.review("A.vbp")
        return run, self.violations()

    def setUp(self):
        super().setUp()
        self.text = 'Attribute VB_Name = "modA"\r\n' + text_of(BODY)
        self.plain, self.expected = self.findings(self.text)
        self.assertGreaterEqual(len(self.expected), 40, str(self.plain))

    def test_utf_16_is_read_with_a_mark_and_without(self):
        for encoding in ("utf-16-le", "utf-16-be"):
            for mark in ("", "\ufeff"):
                with self.subTest(encoding=encoding, mark=mark):
                    run, found = self.findings((mark + self.text).encode(encoding))
                    self.assertEqual(found, self.expected, str(run))
                    self.assertEqual(run.code, self.plain.code, str(run))

    def test_what_is_no_text_is_named_and_never_passes(self):
        with open("/proc/self/exe", "rb") as program:
            binary = program.read(100_000)
        for source in (self.text.encode("utf-32-le"), self.text.encode("utf-32-be"),
                       ("\ufeff" + self.text).encode("utf-32-le"), binary, bytes(5_000)):
            with self.subTest(start=source[:16]):
                run, _ = self.findings(source)
                self.assertEqual(run.code, INCOMPLETE, str(run))
                self.assertIn("modA.bas", run.error)
                self.assertNotIn("passed", run.output)

    def test_no_control_hides_a_statement(self):
        # A file with a NUL in every line is no text.
        for byte, lines in ((b"\0", 3), (b"\x0c", -1), (b"\xa0", -1), (b" \x0c\xa0 ", -1)):
            with self.subTest(byte=byte):
                source = self.text.encode()
                for statement in (b"DoEvents", b"GoTo"):
                    source = source.replace(b"    " + statement, byte + statement, lines)
                run, found = self.findings(source)
                self.assertEqual(found, self.expected, str(run))

    def test_texts_of_old_code_pages_stay_texts(self):
        letters = "'Ueberschrift " + "".join(map(chr, range(0x410, 0x450)))
        for page, encoding in (("1251", "cp1251"), ("936", "gbk"), ("932", "cp932")):
            with self.subTest(page=page):
                source = (self.text + letters + "\r\n").encode(encoding) + b"\x1a"
                self.write("modA.bas", source)
                run = self.review("A.vbp", "--code-page", page)
                self.assertEqual(run.code, self.plain.code, str(run))
                self.assertEqual(self.violations(), self.expected)


class LongLines(HostileCase):
    def test_many_names_on_a_line_do_not_cost_the_square_of_its_length(self):
        names = ", ".join(f"a{number}" for number in range(4000))
        self.write_module("modA", ["Public Sub Work()", f"    Dim {names}", "End Sub"])
        self.write_project(members=["Module=modA; modA.bas"])
        sample = os.path.join(os.path.dirname(bench.PROGRAM), "Data", "Sample.dvk")
        self.review("A.vbp", "--rulebase", sample)
        count = self.rows("SELECT COUNT(*) FROM Violations")[0][0]
        self.assertGreater(count, 4000)
        self.assertLess(self.database().stat().st_size, 16_000_000)

    def test_nor_do_many_arguments(self):
        names = ", ".join(f"a{number}" for number in range(3000))
        self.write_module("modA", [f"Public Sub Work({names})", "End Sub"])
        self.write_project(members=["Module=modA; modA.bas"])
        sample = os.path.join(os.path.dirname(bench.PROGRAM), "Data", "Sample.dvk")
        self.review("A.vbp", "--rulebase", sample)
        self.assertLess(self.database().stat().st_size, 16_000_000)

    def test_a_line_of_a_megabyte_is_stored_in_short(self):
        self.write_module("modA", ["Public Sub Work()", "    DoEvents '" + "x" * 1_000_000, "End Sub"])
        self.write_project(members=["Module=modA; modA.bas"])
        self.review("A.vbp")
        self.assertEqual(len(self.violations()), 1)
        self.assertLess(self.database().stat().st_size, 1_000_000)


def form(name, twice):
    key = ['      Tag = "2"'] if twice else []
    return ["VERSION 5.00", f"Begin VB.Form {name}", '   Caption = "x"', "   Begin VB.TextBox txtOne",
            '      Tag = "1"'] + key + [
                "   End", "   Begin VB.TextBox txtTwo", '      Tag = "1"', "   End", "End",
                f'Attribute VB_Name = "{name}"', "Option Explicit",
                "Private Sub Form_Load()", "    DoEvents", "End Sub"]


class PartsOfFiles(HostileCase):
    def review_forms(self, *twice):
        members = []
        for number, fault in enumerate(twice):
            self.write(f"frm{number}.frm", form(f"frm{number}", fault))
            members.append(f"Form=frm{number}.frm")
        self.write_project(members=members)
        return self.review("A.vbp")

    def lines_of(self, name):
        return self.rows(f"SELECT COUNT(*) FROM SourceFiles WHERE Filename LIKE '%{name}.frm'")[0][0]

    def test_a_form_at_fault_costs_only_itself_and_is_named(self):
        self.review_forms(False, False, False)
        whole = self.rows("SELECT Name, SourceID, Type FROM Procedures")
        run = self.review_forms(False, True, False)
        self.assertEqual(run.code, INCOMPLETE, str(run))
        self.assertIn("frm1.frm", run.error)
        self.assertNotIn("frm2.frm", run.error)
        self.assertIn("Tag", run.error)
        self.assertNotIn("passed", run.output)
        of_last = [row for row in self.rows("SELECT Name, SourceID, Type FROM Procedures") if row[1] == 4]
        self.assertEqual(of_last, [row for row in whole if row[1] == 4])

    def test_later_pages_and_summaries_do_not_let_it_pass(self):
        self.review_forms(False, True, False)
        run = self.run_program("results", str(self.database()), "summary")
        self.assertNotIn("passed", run.output)
        pages = self.checkout / "pages"
        self.run_program("report", str(self.database()), "--detailed", "--reports", str(pages))
        page = "".join(path.read_text() for path in pages.glob("A*"))
        self.assertIn("Not reviewed", page)

    def test_the_fault_of_older_versions_is_there_for_whoever_asks(self):
        self.review_forms(False, True, False)
        new = self.review("A.vbp")
        old = self.review("A.vbp", "--keep-known-faults")
        self.assertNotEqual(old.error, new.error)
        self.assertEqual(old.code, INCOMPLETE, str(old))


class TooLittleMemory(HostileCase):
    def test_a_source_that_does_not_fit_is_never_reviewed_successfully(self):
        if bench.SANITIZED:
            self.skipTest("the sanitizer reserves the address space")
        with open(self.checkout / "modA.bas", "wb") as module:
            module.write(b'Attribute VB_Name = "modA"\r\n' + b"x" * 400_000_000 + b"\r\n")
        self.write_module("modB")
        self.write_project(members=["Module=modA; modA.bas", "Module=modB; modB.bas"])

        def limit():
            resource.setrlimit(resource.RLIMIT_AS, (300_000_000, 300_000_000))

        run = self.review("A.vbp", preexec_fn=limit)
        self.assertIn(run.code, (INCOMPLETE, NOTHING_DONE), str(run))
        self.assertNotIn("passed", run.output)
        self.assertNotEqual(run.code, PASSED)
