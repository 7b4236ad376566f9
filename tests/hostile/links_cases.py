"""What lies in the way of results: links to files of the user, pipes, folders."""
import os
import shutil

from bench import INCOMPLETE, NOTHING_DONE, HostileCase


class SomethingInTheWay(HostileCase):
    REVIEW = ("A.vbp", "--report", "detailed", "--report-style", "modern")

    def written_names(self):
        """Names of all that a review writes, and of what the database writes on the way."""
        self.write_project()
        self.review(*self.REVIEW)
        folder = self.checkout / "Dorvik"
        names = {path.name for path in folder.iterdir()}
        self.assertGreater(len(names), 3)
        for ending in ("", "-new", "-wal", "-shm", "-journal"):
            names.add("A_DORVIK.mdb" + ending)
        self.empty(folder)
        return folder, sorted(names)

    @staticmethod
    def empty(folder):
        shutil.rmtree(folder)
        folder.mkdir()

    def expect_refused(self, run, path):
        self.assertIn(run.code, (INCOMPLETE, NOTHING_DONE), f"{path.name}: {run}")
        self.assertIn(path.name, run.error)

    def test_nothing_is_written_through_a_link_to_a_file(self):
        folder, names = self.written_names()
        for name in names:
            for clear in ((), ("--clear-log",)):
                with self.subTest(name=name, clear=clear):
                    self.empty(folder)
                    victim = self.home / ".bashrc"
                    victim.write_text("mine")
                    path = folder / name
                    path.symlink_to(victim)
                    before = self.picture(folder)
                    run = self.review(*self.REVIEW, *clear)
                    self.assertEqual(self.picture(folder), before)
                    self.expect_refused(run, path)

    def test_nor_through_one_to_a_file_that_does_not_exist(self):
        folder, names = self.written_names()
        for name in names:
            with self.subTest(name=name):
                self.empty(folder)
                (self.home / "new-file").unlink(missing_ok=True)
                path = folder / name
                path.symlink_to(self.home / "new-file")
                self.review(*self.REVIEW)
                self.assertFalse((self.home / "new-file").exists())

    def test_nor_through_a_link_to_a_folder(self):
        folder, _ = self.written_names()
        folder.rmdir()
        elsewhere = self.home / "elsewhere"
        elsewhere.mkdir()
        folder.symlink_to(elsewhere)
        run = self.review(*self.REVIEW)
        self.assertEqual(list(elsewhere.iterdir()), [], str(run))
        self.expect_refused(run, folder)

    def test_a_checkout_that_the_user_reaches_through_a_link_is_reviewed(self):
        self.write_project()
        (self.home / "work").symlink_to(self.checkout)
        direct = self.review("A.vbp")
        run = self.review(str(self.home / "work" / "A.vbp"))
        self.assertEqual(run.code, direct.code, str(run))
        results = self.home / "results"
        (self.home / "chosen").symlink_to(results)
        results.mkdir()
        run = self.review("A.vbp", "--results", str(self.home / "chosen"))
        self.assertEqual(run.code, direct.code, str(run))

    def test_pipes_and_folders_are_refused_and_do_not_block(self):
        folder, names = self.written_names()
        for name in names:
            for make in (os.mkfifo, lambda path: (path / "sub").mkdir(parents=True)):
                with self.subTest(name=name):
                    self.empty(folder)
                    path = folder / name
                    make(path)
                    run = self.review(*self.REVIEW)
                    self.expect_refused(run, path)
