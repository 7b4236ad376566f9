#!/usr/bin/env python3
"""Names every source file of more than 500 lines and fails over 800; pure tables are exempt."""
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLES = {"src/base/CaseTable.cpp", "src/platform/host/CodePageTables.cpp"}
NAMED, REFUSED = 500, 800


def main():
    refused = 0
    for folder in ("src", "apps", "tests", "bench"):
        for path in sorted((ROOT / folder).rglob("*")):
            name = path.relative_to(ROOT).as_posix()
            if path.suffix not in (".h", ".cpp") or name in TABLES:
                continue
            lines = len(path.read_text(encoding="utf-8").splitlines())
            if lines > NAMED:
                print(f"{name}: {lines} lines")
            refused += lines > REFUSED
    return 1 if refused else 0


sys.exit(main())
