"""Opens the modern report from disk in headless Chromium and uses it as a reader would, with the mouse,
with the keyboard, on a phone, in the dark, on paper and without scripts."""
import argparse
import base64
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from selenium import webdriver
from selenium.common.exceptions import NoAlertPresentException
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import Select, WebDriverWait

CHROMIUM = "/usr/bin/chromium"
CHROMEDRIVER = "/usr/bin/chromedriver"
HOSTILE_VIOLATIONS = 128
HOSTILE_LINES = [
    "    s = \"</script><script>window.harm = 1; alert(1)</script>\"",
    "    s = \"<img src=x onerror=window.harm=2>\" ' <b>bold</b>",
    "    <!-- <script> ' opens a comment and a script",
    "    s = \"&lt;i&gt; &amp; \\u003c\" & \"]]>\"",
    "    s = \"'\"\"><svg onload=alert(3)>\"",
]
options = None  # of the command line


def start_browser(profile):
    settings = Options()
    settings.binary_location = CHROMIUM
    for argument in ("--headless=new", "--disable-gpu", "--disable-dev-shm-usage", "--window-size=1280,900",
                     "--host-resolver-rules=MAP * ~NOTFOUND", f"--user-data-dir={profile}"):
        settings.add_argument(argument)
    if os.geteuid() == 0:
        settings.add_argument("--no-sandbox")  # Chromium refuses to start as root otherwise
    settings.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
    return webdriver.Chrome(service=Service(CHROMEDRIVER), options=settings)


class ModernReportTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="dorvik-browser-")
        cls.addClassCleanup(cls.folder.cleanup)
        subprocess.run([options.pages, cls.folder.name], check=True, timeout=300)
        cls.driver = start_browser(os.path.join(cls.folder.name, "profile"))
        cls.addClassCleanup(cls.driver.quit)
        cls.driver.get("about:blank")
        cls.driver.get_log("performance")  # the page that the browser itself begins with

    def setUp(self):
        self.screen(1280, 900)
        self.media()
        self.open("Hostile")

    def tearDown(self):
        # Whatever a test did: no error, no breach of the policy, nothing asked of any other place.
        self.assertEqual([], self.driver.get_log("browser"))
        self.assertEqual(set(), {url for url in self.requested() if not url.startswith("file:///")})
        with self.assertRaises(NoAlertPresentException):
            self.driver.switch_to.alert.accept()
        self.assertIsNone(self.run_script("return window.harm === undefined ? null : window.harm"))

    # ---- means ----

    def path(self, name):
        return pathlib.Path(self.folder.name, name + "_Review.html")

    def open(self, name, anchor=""):
        self.driver.get("about:blank")
        self.driver.get(self.path(name).as_uri() + anchor)

    def requested(self):
        for entry in self.driver.get_log("performance"):
            message = json.loads(entry["message"])["message"]
            if message["method"] == "Network.requestWillBeSent":
                url = message["params"]["request"]["url"]
                if not url.startswith(("about:", "data:")):
                    yield url

    def run_script(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def command(self, name, **arguments):
        return self.driver.execute_cdp_cmd(name, arguments)

    def screen(self, width, height, mobile=False):
        self.command("Emulation.setDeviceMetricsOverride",
                     width=width, height=height, deviceScaleFactor=1, mobile=mobile)

    def media(self, scheme="light", kind=""):
        self.command("Emulation.setEmulatedMedia", media=kind, features=[
            {"name": "prefers-color-scheme", "value": scheme},
            {"name": "prefers-reduced-motion", "value": "reduce"}])

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def find_all(self, selector):
        return self.driver.find_elements(By.CSS_SELECTOR, selector)

    def texts(self, selector):
        return self.run_script(
            "return [...document.querySelectorAll(arguments[0])].map(node => node.textContent)", selector)

    def click(self, selector):
        node = self.find(selector)
        self.run_script("arguments[0].scrollIntoView({block: 'center'})", node)
        node.click()

    def wait(self, condition, what):
        WebDriverWait(self.driver, 20).until(lambda _: condition(), what)

    def status(self, table="violations"):
        return self.find(f"#{table}-status").text

    def type_text(self, selector, text):
        self.find(selector).send_keys(text)

    def press(self, *keys):
        ActionChains(self.driver).send_keys(*keys).perform()

    def focused(self, script):
        return self.run_script("const node = document.activeElement; return " + script)

    def column(self, table, number):
        return self.texts(f"#{table}-table tbody tr:not(.details) td:nth-child({number})")

    def sort_of(self, table, key):
        return self.find(f'#{table}-table th[data-key="{key}"]').get_attribute("aria-sort")

    # ---- the document ----

    def test_thePolicyNamesTheHashesOfTheScriptAndTheStyleAsTheBuildMadeThem(self):
        page = self.path("Hostile").read_text(encoding="utf-8")
        policy = re.search(r'Content-Security-Policy" content="([^"]*)"', page).group(1)

        def digest(name):
            asset = pathlib.Path(options.assets, name).read_bytes()
            self.assertIn(asset.decode("utf-8"), page)
            return base64.b64encode(hashlib.sha256(asset).digest()).decode("ascii")

        self.assertEqual(
            f"default-src 'none'; script-src 'sha256-{digest('report.js')}'; "
            f"style-src 'sha256-{digest('report.css')}'; base-uri 'none'; form-action 'none'", policy)

    def test_thePolicyKeepsAnyOtherScriptFromRunning(self):
        self.run_script("""
            window.breaches = [];
            addEventListener("securitypolicyviolation", event => breaches.push(event.effectiveDirective));
            const script = document.createElement("script");
            script.textContent = "window.foreign = true";
            document.body.append(script);
            const image = document.createElement("img");
            image.src = "https://example.invalid/x.png";
            document.body.append(image);""")
        self.wait(lambda: len(self.run_script("return breaches")) == 2, "two breaches of the policy")
        self.assertEqual({"script-src-elem", "img-src"}, set(self.run_script("return breaches")))
        self.assertIsNone(self.run_script("return window.foreign || null"))
        # Both are in the logs, and were asked for.
        self.driver.get_log("browser")
        self.assertEqual(["https://example.invalid/x.png"],
                         [url for url in self.requested() if not url.startswith("file:///")])

    def test_idsAreUniqueAndEachLinkInsideThePageMeetsOne(self):
        identifiers = self.run_script("return [...document.querySelectorAll('[id]')].map(node => node.id)")
        self.assertEqual(len(identifiers), len(set(identifiers)))
        links = self.run_script(
            "return [...document.querySelectorAll('a')].map(node => node.getAttribute('href'))")
        self.assertGreater(len(links), 6)
        for link in links:
            self.assertTrue(link.startswith("#"), link)
            self.assertIn(link[1:], identifiers)

    def test_eachSectionOfTheBarOnTopIsShownWhenItsLinkIsFollowed(self):
        for link in self.find_all(".topbar nav a"):
            link.click()
            target = link.get_attribute("href").split("#")[1]
            box = self.run_script(
                "const box = document.getElementById(arguments[0]).getBoundingClientRect();"
                "return [box.top, box.bottom, innerHeight]", target)
            self.assertLess(box[0], box[2], target)
            self.assertGreater(box[1], 0, target)

    def test_textFromTheResultsStaysText(self):
        Select(self.find("#violations-category")).select_by_visible_text("Errors <script>alert(4)</script>")
        self.click("#violations-details")
        self.assertEqual(HOSTILE_LINES, self.texts(".details .source code"))
        self.assertEqual(["Markup in a <u>text</u>"] * 5, self.texts(".violation .opener"))
        self.assertIn("Line 0 holds </script><b>markup</b>.", self.texts(".details dd"))
        self.assertIn("Write it out & <em>escape</em> it.\r\nAlways.", self.texts(".details dd"))
        self.assertEqual("Billing <i>& Co</i>", self.find("h1").text)
        self.assertEqual("Billing <i>& Co</i>: Dorvik review", self.driver.title)
        self.assertEqual([], self.find_all("img, b, u, em, iframe, object, embed, link, form, svg[onload]"))
        self.assertEqual([], [text for text in self.texts("i")])
        self.assertEqual(2, len(self.find_all("script")))

    def test_aLineOfSourceIsColouredByItsWords(self):
        self.open("Hostile", "#v3")
        self.assertEqual(["Dim"], self.texts("#d3 .source .k"))
        self.open("Hostile", "#v5")
        self.assertEqual(['"<img src=x onerror=window.harm=2>"'], self.texts("#d5 .source .s"))
        self.assertEqual(["' <b>bold</b>"], self.texts("#d5 .source .c"))
        self.assertEqual(["101"], self.texts("#d5 .source .gutter"))

    # ---- the table of files ----

    def test_filesComeByImpactAndSortByEachHeading(self):
        self.assertEqual("descending", self.sort_of("files", "impact"))
        self.assertEqual(["frmMain.frm", "Billing.vbp", "clsÄrger.cls", "modTotals.bas"], self.column("files", 1))
        self.click('#files-table th[data-key="name"] button')
        self.assertEqual(["Billing.vbp", "clsÄrger.cls", "frmMain.frm", "modTotals.bas"], self.column("files", 1))
        self.assertEqual("ascending", self.sort_of("files", "name"))
        self.assertEqual("none", self.sort_of("files", "impact"))
        self.click('#files-table th[data-key="name"] button')
        self.assertEqual("descending", self.sort_of("files", "name"))
        self.assertEqual(["modTotals.bas", "frmMain.frm", "clsÄrger.cls", "Billing.vbp"], self.column("files", 1))
        self.click('#files-table th[data-key="lines"] button')
        self.assertEqual(["1,200", "240", "60", "–"], self.column("files", 5))

    def test_filesAreFilteredByNameAndVerdict(self):
        self.assertEqual("4 files", self.status("files"))
        Select(self.find("#files-show")).select_by_value("failed")
        self.assertEqual("1 of 4 files", self.status("files"))
        self.assertEqual(["FailedCritical Violation Count 5, limit 0"], self.column("files", 2))
        Select(self.find("#files-show")).select_by_value("all")
        self.type_text("#files-text", "ÄRGER")
        self.wait(lambda: self.status("files") == "1 of 4 files", "the filter by name")
        self.assertEqual(["clsÄrger.cls"], self.column("files", 1))

    def test_theNameOfAFileLeadsToItsViolations(self):
        self.click("#files-table tbody tr:nth-child(1) button.link")
        self.assertEqual(f"6 of {HOSTILE_VIOLATIONS} violations", self.status())
        self.assertEqual("frmMain.frm", Select(self.find("#violations-file")).first_selected_option.text)
        self.assertEqual("violations-file", self.focused("node.id"))

    # ---- the table of violations ----

    def test_violationsComeBySeverityAndSortByEachHeading(self):
        self.assertEqual("ascending", self.sort_of("violations", "severity"))
        self.assertEqual([" Critical"] * 5 + [" High", " Medium", " Low", " Info"],
                         self.column("violations", 1)[:9])
        self.click('#violations-table th[data-key="impact"] button')
        self.assertEqual(["900"] * 5 + ["300", "40", "20", "0"], self.column("violations", 5)[:9])
        self.click('#violations-table th[data-key="place"] button')
        self.assertEqual("Project", self.column("violations", 3)[0])
        self.assertEqual("Billing.vbp", self.column("violations", 3)[1])
        self.click('#violations-table th[data-key="title"] button')
        self.assertEqual("Component is not authorised", self.texts("#violations-table .opener")[0])

    def test_violationsAreFilteredBySeverityCategoryFileAndText(self):
        every = f"{HOSTILE_VIOLATIONS} violations"
        self.assertEqual(every, self.status())
        self.click("#severity-5")
        self.assertEqual(f"8 of {every}", self.status())
        self.click("#severity-1")
        self.assertEqual(f"3 of {every}", self.status())
        self.click("#violations-reset")
        self.assertEqual(every, self.status())
        Select(self.find("#violations-category")).select_by_visible_text('Naming & "style"')
        self.assertEqual(f"121 of {every}", self.status())
        Select(self.find("#violations-file")).select_by_visible_text("frmMain.frm")
        self.assertEqual(f"1 of {every}", self.status())
        self.click("#violations-reset")
        self.type_text("#violations-text", "number 17 HAS")
        self.wait(lambda: self.status() == f"1 of {every}", "the filter by text")
        self.assertEqual(["Rate (Get)"], self.texts("#violations-table .place .note"))
        self.type_text("#violations-text", "no such text")
        self.wait(lambda: self.status() == f"0 of {every}", "a filter that leaves nothing")
        self.assertEqual([], self.find_all("#violations-table tbody tr"))

    def test_aCategoryOfTheChartAndAHotspotLeadToTheirViolations(self):
        self.run_script("""[...document.querySelectorAll('th[data-category] button')]
            .find(node => node.textContent.startsWith('Naming')).click()""")
        self.assertEqual(f"121 of {HOSTILE_VIOLATIONS} violations", self.status())
        self.run_script("""[...document.querySelectorAll('th[data-procedure] button')]
            .find(node => node.textContent === 'cmdPay_Click').click()""")
        self.assertEqual(f"5 of {HOSTILE_VIOLATIONS} violations", self.status())

    def test_pagesAreTurnedWithTheButtons(self):
        self.assertEqual(50, len(self.find_all("tr.violation")))
        top = '.pager[data-table="violations"] '
        self.assertEqual("Page 1 of 3", self.find(top + ".page-number").text)
        self.assertEqual("true", self.find(top + '[data-step="-1"]').get_attribute("aria-disabled"))
        self.click("#violations > .pager [data-step='1']")
        self.assertEqual("Page 2 of 3", self.find(top + ".page-number").text)
        self.assertEqual("1", self.focused("node.dataset.step"))
        self.click(top + '[data-step="1"]')
        self.assertEqual(28, len(self.find_all("tr.violation")))
        self.click(top + '[data-step="1"]')
        self.assertEqual("Page 3 of 3", self.find(top + ".page-number").text)

    def test_aLinkToAViolationOpensItOnWhateverPageItIs(self):
        self.open("Hostile", "#v120")
        self.assertEqual("true", self.find("#v120 .opener").get_attribute("aria-expanded"))
        self.assertIn("The number 1904 has no name.", self.texts("#d120 dd"))
        self.assertEqual("v120", self.focused("node.closest('tr').id"))
        self.assertTrue(self.find("#v120").is_displayed())

    def test_aLinkToAViolationThatTheFilterLeavesOutResetsTheFilter(self):
        self.click("#severity-5")
        self.run_script("location.hash = '#v120'")
        self.wait(lambda: self.find_all("#d120"), "the violation")
        self.assertTrue(self.find("#severity-5").is_selected())

    # ---- keyboard ----

    def test_theFirstTabReachesTheSkipLink(self):
        self.press(Keys.TAB)
        self.assertEqual("Skip to the content", self.focused("node.textContent"))
        self.assertGreaterEqual(self.focused("node.getBoundingClientRect().top"), 0)
        self.press(Keys.ENTER)
        self.assertEqual("content", self.focused("node.id"))

    def test_tabReachesEveryControlInOrderAndEachShowsItsFocus(self):
        reached = []
        for _ in range(600):
            self.press(Keys.TAB)
            node = self.focused("""node === document.body ? null : {
                order: [...document.querySelectorAll('*')].indexOf(node), tag: node.tagName,
                outline: getComputedStyle(node).outlineStyle + getComputedStyle(node).outlineWidth,
                name: node.textContent || node.id}""")
            if node is None or (reached and node["order"] < reached[-1]["order"]):
                break
            reached.append(node)
        controls = self.run_script("""return [...document.querySelectorAll('a, button, input, select')]
            .filter(node => node.getClientRects().length > 0).length""")
        self.assertEqual(controls, len(reached))
        for node in reached:
            self.assertIn(node["tag"], {"A", "BUTTON", "INPUT", "SELECT"})
            self.assertEqual("solid2px", node["outline"], node["name"])

    def test_enterSortsAndOpensAndTheBlankBarTicks(self):
        self.run_script("document.querySelector('#files-table th[data-key=\"name\"] button').focus()")
        self.press(Keys.ENTER)
        self.assertEqual("ascending", self.sort_of("files", "name"))
        self.assertEqual("name", self.focused("node.parentElement.dataset.key"))
        self.run_script("document.getElementById('severity-5').focus()")
        self.press(Keys.SPACE)
        self.assertEqual(f"8 of {HOSTILE_VIOLATIONS} violations", self.status())
        self.run_script("document.querySelector('#violations-table .opener').focus()")
        self.press(Keys.ENTER)
        self.assertEqual("true", self.focused("node.getAttribute('aria-expanded')"))
        details = self.focused("node.getAttribute('aria-controls')")
        self.assertTrue(self.find("#" + details).is_displayed())
        self.press(Keys.ENTER)
        self.assertEqual("false", self.focused("node.getAttribute('aria-expanded')"))
        self.assertEqual([], self.find_all("#" + details))

    def test_everyControlHasAName(self):
        tree = self.command("Accessibility.getFullAXTree")["nodes"]
        controls = {"button", "link", "searchbox", "combobox", "checkbox"}
        found = [node for node in tree if not node["ignored"] and node["role"]["value"] in controls]
        self.assertGreater(len(found), 40)
        for node in found:
            self.assertTrue(node["name"]["value"].strip(), node)

    # ---- looks ----

    def brightness(self):
        colour = self.run_script("return getComputedStyle(document.body).backgroundColor")
        return sum(int(part) for part in re.findall(r"\d+", colour)[:3])

    def test_darkFollowsTheSystemAndTheSwitchOverrulesIt(self):
        self.run_script("try { localStorage.clear() } catch {}")
        self.open("Hostile")
        self.assertGreater(self.brightness(), 600)
        self.media("dark")
        self.assertLess(self.brightness(), 150)
        self.click("#theme")
        self.assertEqual("Theme: light", self.find("#theme").text)
        self.assertGreater(self.brightness(), 600)
        self.media("light")
        self.click("#theme")
        self.assertEqual("Theme: dark", self.find("#theme").text)
        self.assertLess(self.brightness(), 150)
        self.media("light", kind="print")
        self.assertGreater(self.brightness(), 600)
        self.media("light")
        self.click("#theme")
        self.assertEqual("Theme: automatic", self.find("#theme").text)

    def contrast_faults(self):
        return self.run_script("""
            const channel = value => (value /= 255) <= 0.03928 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4;
            const numbers = text => text.match(/[\\d.]+/g).map(Number);
            const light = ([r, g, b]) => 0.2126 * channel(r) + 0.7152 * channel(g) + 0.0722 * channel(b);
            const ground = node => {
                for (; node; node = node.parentElement) {
                    const colour = numbers(getComputedStyle(node).backgroundColor);
                    if (colour.length === 3 || colour[3] > 0.5) return colour;
                }
                return [255, 255, 255];
            };
            return [...document.querySelectorAll('body *')].filter(node =>
                node.getClientRects().length && !node.closest('[aria-disabled="true"], svg, script, option') &&
                [...node.childNodes].some(child => child.nodeType === 3 && child.textContent.trim()))
            .map(node => {
                const [one, other] = [light(numbers(getComputedStyle(node).color)), light(ground(node))];
                const ratio = (Math.max(one, other) + 0.05) / (Math.min(one, other) + 0.05);
                return ratio < 4.5 ? node.className + ' ' + node.textContent.slice(0, 30) + ' ' + ratio : '';
            }).filter(Boolean)""")

    def test_wordsStandOutFromTheirGroundInLightAndDark(self):
        self.click("#violations-details")
        for scheme in ("light", "dark"):
            self.media(scheme)
            self.assertEqual([], self.contrast_faults(), scheme)

    def test_aSeverityIsNeverToldByColourAlone(self):
        for row in self.find_all("tr.violation")[:9]:
            word = row.find_element(By.CSS_SELECTOR, ".severity-word")
            self.assertIn(word.text.strip(), {"Critical", "High", "Medium", "Low", "Info"})
        shapes = self.run_script(
            "return [...document.querySelectorAll('.severity-chart use')].map(node => node.getAttribute('href'))")
        self.assertEqual([f"#shape-{level}" for level in range(1, 6)], shapes)

    def test_aPhoneOf360PixelsNeverScrollsSideways(self):
        for name in ("Hostile", "Large"):
            self.screen(360, 740, mobile=True)
            self.open(name)
            self.click("#violations-details")
            self.assertEqual([360, 360], self.run_script(
                "return [document.documentElement.scrollWidth, innerWidth]"), name)
            outside = self.run_script("""return [...document.querySelectorAll('main *, .topbar *')].filter(node =>
                !node.closest('.unseen, .snippet') && node.getBoundingClientRect().right > 360.5)
                .map(node => node.outerHTML.slice(0, 80))""")
            self.assertEqual([], outside, name)

    # ---- paper, and no script ----

    def test_paperHasEveryRowWithItsDetailsAndTheScreenComesBack(self):
        self.run_script("dispatchEvent(new Event('beforeprint'))")
        self.assertEqual(HOSTILE_VIOLATIONS, len(self.find_all("tr.violation")))
        self.assertEqual(HOSTILE_VIOLATIONS, len(self.find_all("tr.details")))
        advice = [text for text in self.texts(".details dd") if text.startswith("Advice on Mind")]
        self.assertEqual(1, len(advice))
        self.run_script("dispatchEvent(new Event('afterprint'))")
        self.assertEqual(50, len(self.find_all("tr.violation")))
        self.assertEqual([], self.find_all("tr.details"))
        printed = base64.b64decode(self.command("Page.printToPDF")["data"])
        self.assertGreater(printed.count(b"/Type /Page\n"), 3)

    def test_withoutScriptsTheSummaryIsThereAndSaysWhatIsMissing(self):
        self.command("Emulation.setScriptExecutionDisabled", value=True)
        try:
            self.open("Hostile")
            text = self.find("body").text
            self.assertIn("Scripts are switched off", text)
            self.assertIn("Failed", text)
            self.assertIn("By category", text)
            self.assertIn("cmdPay_Click", text)
            self.assertIn("House rules", text)
            self.assertFalse(self.find("#violations").is_displayed())
            self.assertFalse(self.find("#files").is_displayed())
            self.assertFalse(self.find("#theme").is_displayed())
        finally:
            self.command("Emulation.setScriptExecutionDisabled", value=False)

    # ---- size ----

    def test_fiveThousandViolationsStayUnderAMegabyteAndAnswerAtOnce(self):
        self.assertLess(self.path("Large").stat().st_size, 1_000_000)
        self.open("Large")
        self.assertEqual("5,000 violations", self.status())
        taken = self.run_script("""
            const start = performance.now();
            document.querySelector('#violations-table th[data-key="title"] button').click();
            return performance.now() - start""")
        self.assertLess(taken, 2000)
        self.run_script("dispatchEvent(new Event('beforeprint'))")
        self.assertEqual("5,000 violations, of which the first 2,000 are printed", self.status())


def main():
    global options
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--pages", required=True, help="the program that writes the pages")
    arguments.add_argument("--assets", required=True, help="the folder of the script and the style")
    arguments.add_argument("tests", nargs="*", help="names of tests; all without any")
    options = arguments.parse_args()
    unittest.main(argv=[sys.argv[0], *("ModernReportTest." + name for name in options.tests)], verbosity=2)


main()
