"""Gives tools/check_words.py good and bad texts, and expects exactly what it says of them."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).resolve().parent.parent.parent / "tools/check_words.py"


def check(name, text):
    """The exit code, and what was found as "line word"."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / name
        path.write_text(text, encoding="utf-8")
        result = subprocess.run([sys.executable, str(CHECK), str(path)], capture_output=True, encoding="utf-8")
    lines = [line for line in result.stdout.splitlines() if line.startswith(str(path))]
    assert result.stderr == "", result.stderr
    return result.returncode, [line[len(str(path)) + 1:].split(":")[0] + " " + line.split("'")[1] for line in lines]


class CheckWords(unittest.TestCase):
    def test_a_comment_with_a_bad_word_fails(self):
        self.assertEqual(check("a.cpp", "int a;\n/// The byte behind the number.\nint b;\n"), (1, ["2 behind"]))

    def test_a_text_of_the_program_with_a_bad_word_fails(self):
        self.assertEqual(check("a.cpp", 'Print("\'" + name + "\' is no project file");\n'), (1, ["1 is no project"]))

    def test_a_phrase_is_found_across_lines_of_a_comment(self):
        self.assertEqual(check("a.h", "// a comment\n// of lines that the parser passes\n// over\n"),
                         (1, ["2 passes over"]))

    def test_code_is_not_prose(self):
        self.assertEqual(check("a.cpp", "const auto behind = told(lies);\n"), (0, []))

    def test_documents_are_checked_but_not_their_code(self):
        text = "Nobody tells it.\n```vb\n' behind\n```\n"
        self.assertEqual(check("a.md", text), (1, ["1 tells", "1 Nobody"]))

    def test_good_english_with_the_same_words_passes(self):
        for text in ("SQLite is behind an interface.", "What a killed review left behind.", "It stands for a page.",
                     "There is no such file.", "It is no longer there.", "An argument passed by value."):
            with self.subTest(text):
                self.assertEqual(check("a.md", text + "\n"), (0, []))

    def test_comments_of_rule_scripts_are_checked_and_their_strings_are_not(self):
        self.assertEqual(check("a.dvs", "' Somebody else.\nx = \"nobody's\" ' told\n"), (1, ["1 Somebody", "2 told"]))

    def test_texts_of_violations_stay_as_they_are(self):
        text = '<Rule Description="It lies there.">\n<ViolationDefinition Advice="Nobody"/>\n</Rule>\n'
        self.assertEqual(check("a.xml", text), (1, ["1 lies"]))

    def test_every_row_of_the_table_finds_something(self):
        sys.path.insert(0, str(CHECK.parent))
        import check_words
        bad = ("behind stands lies tells whoever switch off passed over the log is folded | log is folded the house "
               "is no file in one go worked out turned down goes on without a look asks lets it pass not waited for")
        import re
        for pattern, _, _ in check_words.WORDS:
            with self.subTest(pattern):
                self.assertTrue(re.search(pattern, bad))


if __name__ == "__main__":
    unittest.main()
