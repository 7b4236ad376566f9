"""Opens the classic report pages from disk in headless Chromium, in a folder that was moved after they were
written, and follows every link as a reader would."""
import argparse
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service

SAMPLES = ("Billing", "Clinic", "Warehouse")
AWKWARD = "Größe 100% #1.vbp"
AWKWARD_MODULES = {"modA": "Straße 50%.bas", "modB": "#b&c.bas"}
options = None  # of the command line

# What a page offers to a reader: its heading, and each link with the address that the browser makes of it.
READ_PAGE = """
    return {
        heading: document.querySelector("h1").textContent,
        links: [...document.links].map((link) => link.href),
    };"""
# Whether the browser is where the address says: the target of the anchor is a heading or a table.
READ_TARGET = """
    const target = document.querySelector(":target");
    return target === null ? null : target.tagName;"""


def start_browser(profile):
    settings = Options()
    settings.binary_location = "/usr/bin/chromium"
    for argument in ("--headless=new", "--disable-gpu", "--disable-dev-shm-usage",
                     "--host-resolver-rules=MAP * ~NOTFOUND", f"--user-data-dir={profile}"):
        settings.add_argument(argument)
    if os.geteuid() == 0:
        settings.add_argument("--no-sandbox")  # Chromium refuses to start as root otherwise
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=settings)


class ClassicPagesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        holder = tempfile.TemporaryDirectory(prefix="dorvik-browser-")
        cls.addClassCleanup(holder.cleanup)
        folder = pathlib.Path(holder.name)
        (folder / "state").mkdir()
        for sample in SAMPLES:
            shutil.copytree(options.samples / sample, folder / sample,
                            ignore=shutil.ignore_patterns("Dorvik"))
        cls.write_awkward_project(folder)
        subprocess.run(
            [options.program, "review", *SAMPLES, AWKWARD, "--rulebase", options.rulebase, "--quiet",
             "--tolerance", "CVC=0", "--report", "detailed", "--reports", "pages"],
            cwd=folder, env={"XDG_STATE_HOME": str(folder / "state"), "PATH": "/usr/bin:/bin"},
            timeout=120, check=False)
        cls.pages = folder / "moved #2 %41"
        (folder / "pages").rename(cls.pages)
        cls.driver = start_browser(folder / "profile")
        cls.addClassCleanup(cls.driver.quit)

    @staticmethod
    def write_awkward_project(folder):
        lines = ["Type=Exe"] + [f"Module={name}; {file}" for name, file in AWKWARD_MODULES.items()]
        (folder / AWKWARD).write_bytes("\r\n".join(lines + ['Name="Awkward"', ""]).encode("cp1252"))
        for name, file in AWKWARD_MODULES.items():
            (folder / file).write_bytes(
                f'Attribute VB_Name = "{name}"\r\nSub Preis()\r\n    Debug.Print "für 5 €"\r\nEnd Sub\r\n'
                .encode("cp1252"))

    def test_every_page_is_reached_and_every_anchor_met(self):
        first = (self.pages / "Review_batch_BatchSummary.html").as_uri()
        to_visit, seen, anchors = [first], set(), 0
        while to_visit:
            page = to_visit.pop()
            seen.add(page)
            self.driver.get(page)
            content = self.driver.execute_script(READ_PAGE)
            self.assertTrue(content["heading"], page)
            for link in content["links"]:
                address, anchor = urllib.parse.urldefrag(link)
                if address.endswith("_DORVIK.txt"):
                    continue  # the log: a full path of the machine
                if anchor:
                    self.assertEqual(page, address)
                    self.driver.get(link)
                    self.assertIn(self.driver.execute_script(READ_TARGET), ("H3", "TABLE"), link)
                    anchors += 1
                elif address not in seen and address not in to_visit:
                    to_visit.append(address)
        self.assertEqual({page.as_uri() for page in self.pages.glob("*.html")},
                         {urllib.parse.urljoin(first, self.same_spelling(page)) for page in seen})
        self.assertGreater(anchors, 150)

    @staticmethod
    def same_spelling(address):
        """Browsers and Python do not percent-encode the same characters of a path."""
        return pathlib.Path(urllib.parse.unquote(urllib.parse.urlparse(address).path)).as_uri()

    def test_letters_outside_ascii_are_shown_although_no_page_names_a_character_set(self):
        for page in self.pages.glob("*_modA_Detail.html"):
            self.driver.get(page.as_uri())
            text = self.driver.execute_script("return document.body.innerText")
            self.assertIn("Straße 50%.bas", text)
            self.assertIn('Debug.Print "für 5 €"', text)
            return
        self.fail("the page of modA is not there")


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", type=pathlib.Path, required=True)
    parser.add_argument("--samples", type=pathlib.Path, required=True)
    parser.add_argument("--rulebase", type=pathlib.Path, required=True)
    options, rest = parser.parse_known_args()
    options.program = options.program.resolve()
    options.rulebase = options.rulebase.resolve()
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)
