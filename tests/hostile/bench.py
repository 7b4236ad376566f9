"""What the hostile cases share: a folder of their own, projects to write, and the program to run."""
import os
import pathlib
import shutil
import sqlite3
import subprocess
import tempfile
import unittest

# Set by `run` before any case starts.
PROGRAM = None
RULEBASE = None
SANITIZED = False

PASSED, FAILED, NOTHING_DONE, INCOMPLETE, INTERRUPTED = 0, 1, 2, 3, 130
LONGEST_RUN = 120  # seconds; a run that takes longer hangs

CLEAN_MODULE = ["Option Explicit", "Public Sub Work()", "    DoEvents", "End Sub"]


class Run:
    """What a finished run of the program left."""

    def __init__(self, code, output, error):
        self.code, self.output, self.error = code, output, error

    def __str__(self):
        return f"exit code {self.code}\n--- output\n{self.output}\n--- error\n{self.error}"


class HostileCase(unittest.TestCase):
    """A case with a home of a user, a checkout of a stranger in it, and a state folder."""

    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="dorvik-hostile-"))
        self.addCleanup(shutil.rmtree, self.root, ignore_errors=True)
        self.home = self.root / "home"
        self.checkout = self.home / "checkout"
        self.state = self.root / "state"
        for folder in (self.checkout, self.state):
            folder.mkdir(parents=True)

    # ---- what lies in the checkout ----

    def write(self, name, content):
        """Lines, text or bytes, below the checkout. Lines get CR LF."""
        path = self.checkout / name
        path.parent.mkdir(parents=True, exist_ok=True)
        if isinstance(content, list):
            content = "".join(line + "\r\n" for line in content)
        if isinstance(content, str):
            content = content.encode("utf-8")
        path.write_bytes(content)
        return path

    def write_module(self, name, body=None):
        lines = CLEAN_MODULE if body is None else body
        return self.write(f"{name}.bas", [f'Attribute VB_Name = "{name}"'] + lines)

    def write_project(self, name="A", members=None, title=None):
        """A project of the members (lines of the project file), or of one module of its name."""
        if members is None:
            self.write_module("mod" + name)
            members = [f"Module=mod{name}; mod{name}.bas"]
        return self.write(f"{name}.vbp", ["Type=Exe"] + members + [f'Name="{title or name}"'])

    def write_long_project(self, files, procedures, name="A"):
        """A project that takes long enough to be disturbed in the middle."""
        members = []
        for number in range(files):
            lines = [f'Attribute VB_Name = "mod{number}"', "Option Explicit"]
            for procedure in range(procedures):
                lines += [f"Public Sub Work{procedure}()", "    DoEvents", "    GoTo 10", "10 End", "End Sub"]
            self.write(f"mod{number}.bas", lines)
            members.append(f"Module=mod{number}; mod{number}.bas")
        return self.write_project(name, members)

    # ---- the program ----

    def environment(self):
        kept = {key: os.environ[key] for key in ("PATH", "LANG") if key in os.environ}
        kept.update(HOME=str(self.home), XDG_STATE_HOME=str(self.state))
        if SANITIZED:
            kept["ASAN_OPTIONS"] = "detect_leaks=0"
        return kept

    def command(self, *arguments):
        """A review that names no rulebase takes the small one of the tests."""
        arguments = list(arguments)
        if arguments[:1] == ["review"] and "--rulebase" not in arguments:
            arguments += ["--rulebase", RULEBASE]
        return [PROGRAM] + arguments

    def start(self, *arguments, **settings):
        settings.setdefault("cwd", self.checkout)
        settings.setdefault("stdout", subprocess.PIPE)
        settings.setdefault("stderr", subprocess.PIPE)
        return subprocess.Popen(
            self.command(*arguments), stdin=subprocess.DEVNULL, env=self.environment(), **settings)

    def run_program(self, *arguments, **settings):
        process = self.start(*arguments, **settings)
        try:
            output, error = process.communicate(timeout=LONGEST_RUN)
        except subprocess.TimeoutExpired:
            process.kill()
            process.communicate()
            self.fail(f"the program hung: {arguments}")
        text = [(part or b"").decode("utf-8", "surrogateescape") for part in (output, error)]
        run = Run(process.returncode, *text)
        self.assertIn(
            run.code, (PASSED, FAILED, NOTHING_DONE, INCOMPLETE, INTERRUPTED), f"crashed: {run}")
        for line in run.error.splitlines():
            self.assertTrue(line.startswith("dorvik: "), f"not a sentence of the program: {line}")
        return run

    def review(self, *arguments, **settings):
        return self.run_program("review", *arguments, **settings)

    # ---- what it left ----

    def database(self, name="A"):
        return self.checkout / "Dorvik" / f"{name}_DORVIK.mdb"

    def rows(self, sql, database=None):
        with sqlite3.connect(str(database or self.database())) as connection:
            return connection.execute(sql).fetchall()

    def violations(self, database=None):
        """The findings of a review in an order that is its own."""
        return sorted(self.rows("SELECT Title, LineNum, ItemID, ItemType FROM Violations", database))

    def picture(self, *but):
        """Every file below the root with its bytes, but what lies below the folders named."""
        seen = {}
        for path in sorted(self.root.rglob("*")):
            if any(folder == path or folder in path.parents for folder in (self.state,) + but):
                continue
            if path.is_symlink():
                seen[path] = "link to " + os.readlink(path)
            elif path.is_file():
                seen[path] = path.read_bytes()
        return seen

    def results_left(self):
        """Names of the files of results that lie below the checkout."""
        folder = self.checkout / "Dorvik"
        return sorted(path.name for path in folder.glob("*") if "mdb" in path.name)
