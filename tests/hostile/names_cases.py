"""Names of a stranger: in paths of pages, in statements of the database, on terminals, in tables."""
import csv
import io
import shutil
import sqlite3
import unicodedata

from bench import FAILED, INCOMPLETE, PASSED, HostileCase

# Names that reach for a file outside of the folder of the results. The NUL cuts an ending off where a
# name is handed to the system.
REACHING_NAMES = [
    "..\\..\\victim",
    "..\\..\\victim\0.x",
    "../../victim",
    "../../victim\0.x",
    "..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\tmp\\dorvik-hostile-victim\0.x",
    "x\\..\\..\\..\\victim\0",
    "\0",
    "..",
]


class NamesInPaths(HostileCase):
    def expect_nothing_outside(self, *arguments, folders=("Dorvik",)):
        allowed = [self.checkout / folder for folder in folders]
        before = self.picture(*allowed)
        run = self.review("A.vbp", *arguments)
        self.assertEqual(self.picture(*allowed), before, str(run))
        return run

    def write_reaching_project(self, name):
        (self.home / "victim").write_text("mine")
        (self.home / "victim.html").write_text("mine")
        self.write_module("modA")
        self.write("A.vbp", f'Type=Exe\r\nModule={name}; modA.bas\r\nName="{name}"\r\nTitle="{name}"\r\n')

    def test_the_name_of_a_member_writes_no_page_outside_of_the_results(self):
        for name in REACHING_NAMES:
            for style in ("classic", "modern"):
                with self.subTest(name=name, style=style):
                    self.write_reaching_project(name)
                    self.expect_nothing_outside("--report", "detailed", "--report-style", style)

    def test_nor_with_folders_of_their_own_for_results_and_pages(self):
        for name in REACHING_NAMES:
            with self.subTest(name=name):
                self.write_reaching_project(name)
                self.expect_nothing_outside(
                    "--results", "results", "--reports", "pages", "--report", "detailed",
                    folders=("results", "pages"))

    def test_nor_out_of_the_database_of_a_stranger(self):
        for name in REACHING_NAMES:
            with self.subTest(name=name):
                self.write_reaching_project("modA")
                self.review("A.vbp")
                # A statement takes no text with a NUL in it; a bound value does.
                with sqlite3.connect(str(self.database())) as connection:
                    connection.execute("UPDATE SourceFiles SET Name = ?, Filename = ?", (name, name))
                    connection.execute("UPDATE Projects SET Name = ?", (name,))
                before = self.picture(self.checkout / "Dorvik")
                for style in ("classic", "modern"):
                    run = self.run_program(
                        "report", str(self.database()), "--detailed", "--report-style", style)
                    self.assertEqual(self.picture(self.checkout / "Dorvik"), before, str(run))

    def test_two_members_whose_names_differ_in_what_is_left_out_have_a_page_each(self):
        self.write_module("modA")
        self.write_module("modB")
        self.write_project(members=["Module=x/y; modA.bas", "Module=x:y; modB.bas"])
        run = self.review("A.vbp", "--report", "detailed")
        pages = [path.read_text() for path in (self.checkout / "Dorvik").glob("*.htm*")]
        self.assertEqual(sum("modA.bas" in page and "modB.bas" not in page for page in pages), 1, str(run))
        self.assertEqual(sum("modB.bas" in page and "modA.bas" not in page for page in pages), 1, str(run))


class NamesInStatements(HostileCase):
    INJECTION = "x' OR Filename<>'.bas"

    def test_a_file_name_with_quotes_has_a_row_and_results_of_its_own(self):
        self.write_module("modA")
        self.write(self.INJECTION, ['Attribute VB_Name = "x"', "Public Sub X()", "    DoEvents", "End Sub"])
        self.write_project(members=["Module=modA; modA.bas", f"Module=x; {self.INJECTION}"])
        run = self.review("A.vbp")
        names = [row[0] for row in self.rows("SELECT Filename FROM SourceFiles WHERE Name <> 'A'")]
        self.assertEqual(len(names), 2, str(run))
        found = self.rows(
            "SELECT COUNT(*) FROM Violations V JOIN Procedures P ON P.ProcID = V.ItemID "
            "WHERE V.ItemType = 3 GROUP BY P.SourceID")
        self.assertEqual(found, [(1,), (1,)], str(run))
        self.assertIn("2 files", run.output)

    def test_a_folder_with_a_quote_changes_nothing(self):
        self.write_project()
        plain = self.review("A.vbp")
        expected = self.violations()
        moved = self.checkout / "O'Brien"
        moved.mkdir()
        for name in ("A.vbp", "modA.bas"):
            shutil.copy(self.checkout / name, moved / name)
        quoted = self.review("O'Brien/A.vbp")
        self.assertEqual(quoted.code, plain.code, str(quoted))
        self.assertIn("1 file", quoted.output)
        self.assertEqual(self.violations(moved / "Dorvik" / "A_DORVIK.mdb"), expected)

    def test_the_fault_of_older_versions_is_there_for_whoever_asks(self):
        folder = self.checkout / "O'Brien"
        folder.mkdir()
        self.write_project()
        for name in ("A.vbp", "modA.bas"):
            shutil.copy(self.checkout / name, folder / name)
        run = self.review("O'Brien/A.vbp", "--keep-known-faults")
        self.assertEqual(run.code, INCOMPLETE, str(run))
        self.assertNotIn("passed", run.output)


def unclean(text):
    """Characters that do something to a terminal instead of standing on it."""
    return [character for character in text
            if character not in "\n" and unicodedata.category(character) in ("Cc", "Cf", "Cs")
            and not "\udc80" <= character <= "\udcff"]


class NamesOnTerminals(HostileCase):
    NAME = "mod\x1b[31mRed\x07\x9b2J\u202e"

    def expect_clean(self, run):
        self.assertEqual(unclean(run.output), [], str(run))
        self.assertEqual(unclean(run.error), [], str(run))

    def test_no_control_character_of_a_project_reaches_a_terminal(self):
        self.write_module("modA")
        self.write("\x1b[31m.bas", ['Attribute VB_Name = "x"', "Public Sub X()", "    DoEvents", "End Sub"])
        project = f'Type=Exe\r\nModule={self.NAME}; modA.bas\r\nModule=x; \x1b[31m.bas\r\n' \
                  f'Module=y; gone\x1b[2J.bas\r\nName="{self.NAME}"\r\n'
        self.write("A.vbp", "\ufeff" + project)
        self.expect_clean(self.review("A.vbp", "--report", "detailed"))
        database = str(self.database())
        for arguments in (["summary"], ["files"], ["procedures"], ["violations", "--long"], ["criteria"],
                          ["tolerances"], ["files", "--csv"], ["violations", "--csv"]):
            run = self.run_program("results", database, *arguments)
            self.assertEqual(run.code, PASSED, str(run))
            self.assertEqual([c for c in unclean(run.output) if c != "\r"], [], str(run))

    def test_nor_one_of_a_path_or_an_argument(self):
        self.write_project()
        (self.checkout / "A.vbp").rename(self.checkout / "\x1b[31m.vbp")
        self.expect_clean(self.review("\x1b[31m.vbp", "--report", "summary"))
        self.expect_clean(self.review("gone\x1b[31m.vbp"))
        self.expect_clean(self.run_program("\x1b[31m"))
        self.expect_clean(self.run_program("events", "gone\x1b[31m.vbp"))
        self.expect_clean(self.run_program("review", "--\x1b[31m"))
        self.expect_clean(self.run_program("review", "x.vbp", "--tolerance", "\x1b[31m=1"))

    def test_no_cell_of_a_table_is_a_formula(self):
        self.write_module("modA")
        for number, start in enumerate("=+-@"):
            self.write(f"m{number}.bas", CLEAN)
        members = [f"Module={start}SUM(1+1)|x; m{number}.bas" for number, start in enumerate("=+-@")]
        self.write_project(members=members)
        self.review("A.vbp")
        for what in ("files", "procedures", "violations"):
            run = self.run_program("results", str(self.database()), what, "--csv")
            for row in csv.reader(io.StringIO(run.output, newline="")):
                for cell in row:
                    number = cell.lstrip("-").replace(".", "", 1).isdigit()
                    self.assertFalse(cell[:1] in ("=", "+", "-", "@", "\t", "\r") and not number, str(run))


CLEAN = ["Public Sub X()", "    DoEvents", "End Sub"]
