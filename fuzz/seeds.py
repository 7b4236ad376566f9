#!/usr/bin/env python3
"""Writes the scripts of tests/basic/*.cases as seeds, one file a case: fuzz/seeds.py FOLDER"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
HAS_MAIN = re.compile(r"^\s*((Public|Private)\s+)?Sub\s+Main\b", re.IGNORECASE | re.MULTILINE)


def scripts(file):
    """The sources of a file's cases: what stands between a name (###) and the first outcome (---)."""
    for case in re.split(r"^### .*\n", file.read_text(encoding="utf-8"), flags=re.MULTILINE)[1:]:
        source = re.split(r"^--- ", case, maxsplit=1, flags=re.MULTILINE)[0]
        yield source if HAS_MAIN.search(source) else f"Sub Main\n{source}End Sub\n"


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    count = 0
    for file in sorted(ROOT.glob("tests/basic/*.cases")):
        for number, source in enumerate(scripts(file), start=1):
            (folder / f"{file.stem}-{number:03}").write_text(source, encoding="utf-8")
            count += 1
    print(f"{count} seeds in {folder}")


if __name__ == "__main__":
    main()
