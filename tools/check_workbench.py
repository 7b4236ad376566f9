#!/usr/bin/env python3
"""Compares docs/workbench.md with the sources: each test that it names exists, and each menu item, setting and public
operation of the work bench is named. With --fix a test whose suite has another name by now gets that name on the
page."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGE = ROOT / "docs/workbench.md"
CASES = ROOT / "tests/workstation/session/cases"
WORKSTATION = ROOT / "src/workstation"
TEST = re.compile(r"^TEST(?:_F)?\(\s*(\w+),\s*(\w+)\)", re.MULTILINE)
NAME = re.compile(r"`([^`]+)`")
PUBLIC_PARTS = (WORKSTATION / "ide/include/workstation/ide/IDEHelper.h",
                WORKSTATION / "view/include/workstation/view/ResultsView.h")
OPERATION = re.compile(r"^    (?!///|//|~|explicit)[\w:<>*&,\s]*?\b([A-Z]\w+)\((?!.*= delete)", re.MULTILINE)
SETTING = re.compile(r"^    (?:bool|std::\w+|double|SettingRow<[^>]+>) (\w+)(?: = |\{|;)", re.MULTILINE)


def Tests():
    found = set()
    for path in (ROOT / "tests").rglob("*.cpp"):
        found |= {f"{suite}.{name}" for suite, name in TEST.findall(path.read_text(encoding="utf-8"))}
    return found | {f"cases/{path.stem}" for path in CASES.glob("*.session")}


def Operations(header):
    text = header.read_text(encoding="utf-8")
    public = text[text.index("public:"):text.index("private:")]
    return set(OPERATION.findall(public)) - {header.stem}


def FixSuites(missing, tests):
    text = PAGE.read_text(encoding="utf-8")
    for name in missing:
        found = [test for test in tests if test.split(".")[-1] == name.split(".")[-1]]
        if len(found) == 1:
            text = text.replace(f"`{name}`", f"`{found[0]}`")
    PAGE.write_text(text, encoding="utf-8")


def main():
    named = set(NAME.findall(PAGE.read_text(encoding="utf-8")))
    tests = Tests()
    missing = [name for name in sorted(named)
               if re.fullmatch(r"\w+\.[A-Z]\w+|cases/[\w-]+", name) and not name.startswith(("DORVIK", "cases/NAME"))
               and name not in tests]
    if "--fix" in sys.argv:
        FixSuites(missing, tests)
    faults = [f"no test is called '{name}'" for name in missing]
    items = (WORKSTATION / "ide/MenuItems.h").read_text(encoding="utf-8")
    wanted = set(re.findall(r'"(DORVIK[\w.]*)"', items))
    wanted |= set(SETTING.findall((ROOT / "src/settings/include/settings/DVKWorkData.h").read_text(encoding="utf-8")))
    for header in PUBLIC_PARTS:
        wanted |= Operations(header)
    faults += [f"'{name}' is not on the page" for name in sorted(wanted - named)]
    faults += [f"the session '{path.name}' has no .expected" for path in sorted(CASES.glob("*.session"))
               if not path.with_suffix(".expected").exists()]
    for fault in faults:
        print(f"docs/workbench.md: {fault}")
    print(f"workbench: {len(wanted)} names, {len(named & tests)} tests, {len(faults)} faults")
    return 1 if faults or not wanted else 0


sys.exit(main())
