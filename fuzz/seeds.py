#!/usr/bin/env python3
"""Writes seeds: the scripts of tests/basic/*.cases, one file a case, and the libraries of
tests/typelib/libraries, loose and as resources of a program: fuzz/seeds.py SCRIPTS LIBRARIES"""

import pathlib
import re
import struct
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
HAS_MAIN = re.compile(r"^\s*((Public|Private)\s+)?Sub\s+Main\b", re.IGNORECASE | re.MULTILINE)


def scripts(file):
    """The sources of a file's cases: what stands between a name (###) and the first outcome (---)."""
    for case in re.split(r"^### .*\n", file.read_text(encoding="utf-8"), flags=re.MULTILINE)[1:]:
        source = re.split(r"^--- ", case, maxsplit=1, flags=re.MULTILINE)[0]
        yield source if HAS_MAIN.search(source) else f"Sub Main\n{source}End Sub\n"


def program(libraries):
    """A 32-bit program whose only section has the libraries as the resources TYPELIB 1, 2 and so on."""
    count = len(libraries)
    directory = lambda named, numbered: struct.pack("<12xHH", named, numbered)
    entry = lambda name, target: struct.pack("<II", name, target)
    name, high = struct.pack("<H14s2x", 7, "TYPELIB".encode("utf-16-le")), 1 << 31
    numbers = 24 + len(name)
    leaves = numbers + 16 + 8 * count
    data = leaves + 40 * count  # a leaf is a directory with one entry, and what that leads to
    tree = directory(1, 0) + entry(24 | high, numbers | high) + name + directory(0, count)
    tree += b"".join(entry(number + 1, leaves + 40 * number | high) for number in range(count))
    for number, library in enumerate(libraries):
        tree += directory(0, 1) + entry(0, leaves + 40 * number + 24)
        tree += struct.pack("<IIII", 0x1000 + data, len(library), 0, 0)
        data += len(library)
    tree += b"".join(libraries)
    dos = struct.pack("<2s58xI", b"MZ", 64)
    header = struct.pack("<4sHH12xHH", b"PE", 0x14C, 1, 224, 0)
    optional = struct.pack("<H90xI16xI108x", 0x10B, 16, 0x1000)
    section = struct.pack("<8sIIII16x", b".rsrc", len(tree), 0x1000, len(tree), 64 + 24 + 224 + 40)
    return dos + header + optional + section + tree


def write_libraries(folder):
    """The libraries, each alone, and a program with all of them."""
    folder.mkdir(parents=True, exist_ok=True)
    files = sorted(ROOT.glob("tests/typelib/libraries/*.tlb"))
    for file in files:
        (folder / file.name).write_bytes(file.read_bytes())
        (folder / f"{file.stem}.dll").write_bytes(program([file.read_bytes()]))
    (folder / "all.dll").write_bytes(program([file.read_bytes() for file in files]))
    print(f"{2 * len(files) + 1} seeds in {folder}")


def main():
    write_libraries(pathlib.Path(sys.argv[2]))
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
