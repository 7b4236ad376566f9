#!/usr/bin/env python3
"""Looks for what is too large: files, classes and functions.

usage: tools/check_sizes.py [--lower]

  a file of source     over 500 lines is named, over 800 refused; pure tables are exempt
  a class              over 40 methods, those of all its files and its private ones, is refused
  a function           over 80 lines or over 6 parameters is refused

What was too large when these limits came is in tools/size_exceptions.txt with the size that it has. It may only
shrink: what has grown is refused, and so is a number that is no longer true. --lower writes the smaller numbers there
and takes out what keeps the limits by now; it never raises one.
"""
import json
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
EXCEPTIONS = ROOT / "tools" / "size_exceptions.txt"
FOLDERS = ("src", "apps", "tests", "bench", "fuzz")
TABLES = {"src/base/CaseTable.cpp", "src/platform/host/CodePageTables.cpp"}
NAMED, REFUSED = 500, 800
LIMITS = {"methods": 40, "lines": 80, "parameters": 6}


def sources():
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                yield path.relative_to(ROOT).as_posix()


def large_files():
    """Names the files that are large; how many are refused."""
    refused = 0
    for name in sources():
        lines = len((ROOT / name).read_text(encoding="utf-8").splitlines())
        if lines > NAMED and name not in TABLES:
            print(f"{name}: {lines} lines")
            refused += lines > REFUSED
    return refused


def tags():
    """What the parser of ctags finds in the sources."""
    command = ["ctags", "--languages=C++", "--langmap=C++:+.h", "--kinds-C++=csfp", "--fields=+neSsk", "--extras=-F",
               "--output-format=json", "-f", "-", "-L", "-"]
    done = subprocess.run(command, cwd=ROOT, input="\n".join(sources()), capture_output=True, encoding="utf-8",
                          check=True)
    return [json.loads(line) for line in done.stdout.splitlines()]


def bare(name):
    """A name without the namespace of the project and without those that have no name."""
    return "::".join(part for part in name.split("::") if part != "dorvik" and not part.startswith("__anon"))


def whole(tag):
    return f"{tag['scope']}::{tag['name']}" if "scope" in tag else tag["name"]


def methods(found):
    """(class, number of methods declared in it), overloads counted one by one."""
    classes = {}
    for tag in found:
        if tag["kind"] in ("class", "struct") and "end" in tag:
            classes.setdefault(whole(tag), []).append((tag["path"], tag["line"], tag["end"]))
    declared = {}
    for tag in found:
        if tag["kind"] not in ("prototype", "function"):
            continue
        for path, first, last in classes.get(tag.get("scope"), ()):
            if path == tag["path"] and first <= tag["line"] <= last:
                declared.setdefault((path, tag["scope"]), set()).add(tag["line"])
    return [(bare(scope), len(lines)) for (_, scope), lines in declared.items()]


def parameters(signature):
    text = signature[1:signature.rindex(")")]
    depth, count = 0, 1 if text.strip() not in ("", "void") else 0
    for character in text:
        depth += (character in "(<{[") - (character in ")>}]")
        count += character == "," and depth == 0
    return count


def measures():
    """Each measure with its (thing, size) pairs. A function is known by its name and its file, whatever its folder."""
    found = tags()
    functions = [(f"{bare(whole(tag))} in {pathlib.PurePath(tag['path']).name}", tag) for tag in found
                 if tag["kind"] == "function" and "end" in tag]
    return {
        "methods": methods(found),
        "lines": [(thing, tag["end"] - tag["line"] + 1) for thing, tag in functions],
        "parameters": [(thing, parameters(tag["signature"])) for thing, tag in functions if "signature" in tag],
    }


def too_large():
    """(measure, thing) -> size, for all that exceeds its limit; the largest where a name is overloaded."""
    sizes = {}
    for measure, pairs in measures().items():
        for thing, size in pairs:
            if size > LIMITS[measure]:
                sizes[measure, thing] = max(size, sizes.get((measure, thing), 0))
    return sizes


def exceptions():
    """(measure, thing) -> size, as the table has it."""
    rows = {}
    for line in EXCEPTIONS.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            measure, size, thing = line.split(" ", 2)
            rows[measure, thing] = int(size)
    return rows


def faults(sizes, allowed):
    """A sentence for each thing that is larger, or smaller, than the table says."""
    for (measure, thing), size in sorted(sizes.items()):
        if size > allowed.get((measure, thing), LIMITS[measure]):
            yield f"{thing}: {size} {measure}, at most {allowed.get((measure, thing), LIMITS[measure])}"
    for (measure, thing), size in sorted(allowed.items()):
        if sizes.get((measure, thing), 0) < size:
            yield f"{thing}: fewer than {size} {measure} by now; run tools/check_sizes.py --lower"


def lower(sizes, allowed):
    """Writes the table anew, the comments at its top kept."""
    head = [line for line in EXCEPTIONS.read_text(encoding="utf-8").splitlines() if line.startswith("#")]
    rows = [f"{key[0]} {min(size, sizes[key])} {key[1]}" for key, size in sorted(allowed.items()) if key in sizes]
    EXCEPTIONS.write_text("\n".join(head + rows) + "\n", encoding="utf-8")


def main():
    sizes, allowed = too_large(), exceptions()
    if sys.argv[1:] == ["--lower"]:
        lower(sizes, allowed)
        allowed = exceptions()
    found = list(faults(sizes, allowed))
    for sentence in found:
        print(sentence)
    return 1 if large_files() + len(found) else 0


if __name__ == "__main__":
    sys.exit(main())
