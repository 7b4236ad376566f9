"""Disks and moments in which results get lost."""
import os
import signal
import sqlite3
import subprocess
import time

from bench import FAILED, INCOMPLETE, NOTHING_DONE, PASSED, HostileCase


class SmallDisk:
    """A file system of its own that is soon full."""

    def __init__(self, folder, size):
        self.folder, self.size = folder, size

    def __enter__(self):
        self.folder.mkdir()
        done = subprocess.run(
            ["mount", "-t", "tmpfs", "-o", f"size={self.size}", "tmpfs", str(self.folder)],
            capture_output=True, check=False)
        self.mounted = done.returncode == 0
        return self

    def __exit__(self, *_):
        if self.mounted:
            subprocess.run(["umount", str(self.folder)], check=False)


class LostResults(HostileCase):
    def test_a_full_disk_gives_no_verdict(self):
        self.write_long_project(files=10, procedures=40)
        whole = self.review("A.vbp")
        self.assertEqual(whole.code, FAILED, str(whole))
        disk = self.home / "disk"
        tried = 0
        for size in ("192k", "256k", "320k", "400k", "500k"):
            with SmallDisk(disk, size) as small:
                if not small.mounted:
                    self.skipTest("this user cannot mount a small disk")
                run = self.review("A.vbp", "--results", str(disk))
                self.assertIn(run.code, (INCOMPLETE, NOTHING_DONE), f"{size}: {run}")
                self.assertNotIn("passed", run.output, str(run))
                self.assertIn("full", run.error, str(run))
                database = disk / "A_DORVIK.mdb"
                if database.exists():
                    later = self.run_program("results", str(database), "summary")
                    self.assertNotIn("passed", later.output, str(later))
                    tried += 1
            disk.rmdir()
        self.assertGreater(tried, 0, "no disk was large enough for a database")

    def test_a_lock_of_two_seconds_costs_nothing(self):
        self.write_long_project(files=40, procedures=60)
        undisturbed = self.review("A.vbp")
        expected = self.violations()
        self.database().unlink()
        process = self.start("review", "A.vbp")
        locked = self.lock_for(2, process)
        output, error = process.communicate(timeout=120)
        self.assertTrue(locked, "the review was over before it could be disturbed")
        self.assertEqual(process.returncode, undisturbed.code, (output, error))
        self.assertEqual(self.violations(), expected)

    def lock_for(self, seconds, process):
        """Holds the write lock of the database while the review is writing into it. The review is halted while the lock
        is tried for, since it could come to its end in the meantime."""
        while process.poll() is None:
            process.send_signal(signal.SIGSTOP)
            connection = None
            try:
                connection = sqlite3.connect(f"file:{self.database()}?mode=rw", uri=True, timeout=0,
                                             isolation_level=None)
                is_locked = connection.execute("SELECT COUNT(*) FROM Violations").fetchone()[0] > 10
                if is_locked:
                    connection.execute("BEGIN IMMEDIATE")
            except sqlite3.Error:
                is_locked = False
            process.send_signal(signal.SIGCONT)
            if is_locked:
                time.sleep(seconds)
                connection.execute("COMMIT")
                return process.poll() is None
            if connection is not None:
                connection.close()
            time.sleep(0.001)
        return False


class DisturbedReviews(HostileCase):
    def test_a_killed_review_is_read_and_called_incomplete(self):
        self.write_long_project(files=40, procedures=60)
        for delay in (0.05, 0.1, 0.2, 0.3):
            with self.subTest(delay=delay):
                process = self.start("review", "A.vbp")
                while not self.database().exists() and process.poll() is None:
                    time.sleep(0.002)
                time.sleep(delay)
                process.send_signal(signal.SIGKILL)
                process.communicate()
                run = self.run_program("results", str(self.database()), "summary")
                self.assertNotIn("damaged", run.error)
                self.assertNotIn("passed", run.output)
                self.assertNotEqual(run.output + run.error, "")
                self.run_program("report", str(self.database()), "--quiet")
        self.assertEqual(self.review("A.vbp").code, FAILED)

    def test_readers_do_not_fail_while_a_review_writes(self):
        self.write_long_project(files=60, procedures=60)
        self.review("A.vbp")
        process = self.start("review", "A.vbp")
        reads = 0
        while process.poll() is None:
            if self.database().exists():
                run = self.run_program("results", str(self.database()), "violations")
                if self.database().exists() and process.poll() is None and run.code != PASSED:
                    # The moment between the deletion of the old results and the first row of the new.
                    self.assertNotIn("damaged", run.error, str(run))
                reads += run.code == PASSED
        process.communicate()
        self.assertGreater(reads, 0)

    def test_of_reviews_at_once_one_writes_and_the_others_say_who(self):
        self.write_long_project(files=6, procedures=30)
        self.review("A.vbp")
        expected = self.violations()
        for _ in range(12):
            processes = [self.start("review", "A.vbp") for _ in range(3)]
            ends = [process.communicate(timeout=120) + (process.returncode,) for process in processes]
            codes = [code for _, _, code in ends]
            self.assertIn(FAILED, codes, ends)
            self.assertTrue(set(codes) <= {FAILED, NOTHING_DONE}, ends)
            for _, error, code in ends:
                if code == NOTHING_DONE:
                    self.assertIn(b"another review", error)
            self.assertEqual(self.violations(), expected)
            self.assertEqual(self.results_left()[:1], ["A_DORVIK.mdb"])


class EndedReviews(HostileCase):
    def expect_nothing_left(self, signals, delay, pause=0.0):
        process = self.start("review", "A.vbp")
        while not self.database().exists() and process.poll() is None:
            time.sleep(0.002)
        time.sleep(delay)
        for number in signals:
            if process.poll() is None:
                process.send_signal(number)
            time.sleep(pause)
        _, error = process.communicate(timeout=60)
        if process.returncode in (PASSED, FAILED):
            return False  # it was over before
        self.assertEqual([name for name in self.results_left() if not name.endswith(".lock")], [],
                         (signals, process.returncode, error))
        return True

    def test_a_signal_leaves_no_half_database(self):
        self.write_long_project(files=40, procedures=60)
        ended = 0
        for signals in ([signal.SIGINT], [signal.SIGTERM], [signal.SIGHUP],
                        [signal.SIGINT, signal.SIGINT], [signal.SIGTERM, signal.SIGINT, signal.SIGHUP]):
            for delay, pause in ((0.0, 0.0), (0.02, 0.0), (0.05, 0.002), (0.1, 0.0005)):
                ended += self.expect_nothing_left(signals, delay, pause)
        self.assertGreater(ended, 10)

    def test_a_closed_pipe_leaves_no_half_database(self):
        self.write_long_project(files=10, procedures=20)
        process = self.start("review", "A.vbp", "--progress")
        process.stdout.close()
        process.stderr.close()
        process.wait(timeout=60)
        self.assertIn(self.results_left(), ([], ["A_DORVIK.mdb"]))
        if self.results_left():
            self.assertNotEqual(self.rows("SELECT COUNT(*) FROM Violations")[0][0], 0)

    def test_output_onto_a_full_disk_is_told(self):
        self.write_project()
        self.review("A.vbp")
        database = str(self.database())
        for arguments in (["review", "A.vbp"], ["results", database, "summary"],
                          ["results", database, "violations", "--json"], ["results", database, "files", "--csv"],
                          ["events", "A.vbp"], ["catalogue"], ["--help"], ["--version"], ["review", "--help"]):
            with self.subTest(arguments=arguments), open("/dev/full", "wb") as full:
                run = self.run_program(*arguments, stdout=full)
                self.assertEqual(run.code, NOTHING_DONE, str(run))
                self.assertIn("standard output", run.error)

    def test_a_working_folder_that_is_gone_is_told(self):
        gone = self.root / "gone"
        self.write_project()

        def leave():
            gone.mkdir()
            os.chdir(gone)
            gone.rmdir()

        for arguments in (["review", "A.vbp"], ["results", "x.mdb", "summary"], ["events", "A.vbp"],
                          ["report", "x.mdb"], ["rulebase", "check", "x.dvk"]):
            with self.subTest(arguments=arguments):
                run = self.run_program(*arguments, preexec_fn=leave)
                self.assertEqual(run.code, NOTHING_DONE, str(run))
                self.assertNotIn("terminate", run.error)
        self.review(str(self.checkout / "A.vbp"), preexec_fn=leave)

    def test_a_folder_that_cannot_be_read_is_named(self):
        if os.geteuid() != 0:
            self.skipTest("needs a second user")
        self.write_project()
        closed = self.checkout / "closed"
        closed.mkdir(mode=0o700)
        for path in [self.root, *self.root.rglob("*")]:
            if path.is_dir() and path != closed:
                path.chmod(0o777)
        run = self.review(".", user=65534, group=65534)
        self.assertEqual(run.code, INCOMPLETE, str(run))
        self.assertIn("closed", run.error)
