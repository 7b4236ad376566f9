#!/usr/bin/env python3
"""Names every place that clang-format 14 would write otherwise, in all sources of the project.

usage: tools/check_format.py [--fix]
"""
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ("src", "apps", "tests", "bench", "fuzz")
FORMATTER = "clang-format-14"  # two versions of it format differently


def main():
    if not shutil.which(FORMATTER):
        print(f"{FORMATTER} is missing: sudo apt-get install -y clang-format-14")
        return 2
    files = [path for folder in FOLDERS for path in sorted((ROOT / folder).rglob("*")) if path.suffix in (".h", ".cpp")]
    action = ["-i"] if sys.argv[1:] == ["--fix"] else ["--dry-run", "-Werror", "--ferror-limit=3"]
    done = subprocess.run([FORMATTER, *action, *files], cwd=ROOT)
    if done.returncode:
        print("tools/check_format.py --fix formats them.")
    return 1 if done.returncode else 0


sys.exit(main())
