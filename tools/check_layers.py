#!/usr/bin/env python3
"""Proves that includes point down the floors only, that no circle of files exists, and that no file
has a name that says nothing (util, helper, misc, common)."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
# From the ground up; folders on one line stand on one floor and must not include each other.
FLOORS = [["base"], ["platform"], ["foundation", "basic"], ["settings", "typelib"], ["source"], ["parser"],
          ["rulebase"], ["criteria"], ["results"], ["enforcement", "reports"], ["review"], ["workstation"]]
FLOOR_OF = {folder: number for number, floor in enumerate(FLOORS) for folder in floor}
INCLUDE = re.compile(r'^#include "([^"]+)"', re.MULTILINE)
EMPTY_NAMES = re.compile(r"^(utils?|helpers?|misc|common)\b", re.IGNORECASE)


def includes(path):
    return INCLUDE.findall(path.read_text(encoding="utf-8"))


def wrong_directions(files):
    for path in files:
        folder = path.parent.name
        for target in includes(path):
            other = target.split("/")[0]
            if other not in FLOOR_OF:
                yield f"{path}: \"{target}\" is in no known folder"
            elif other != folder and FLOOR_OF[other] >= FLOOR_OF[folder]:
                yield f"{path}: \"{target}\" points up or across from {folder}"


def circles(headers):
    graph = {str(h.relative_to(ROOT / "src")): includes(h) for h in headers}
    done, path = set(), []

    def visit(name):
        if name in path:
            yield "circle: " + " -> ".join(path[path.index(name):] + [name])
        elif name not in done and name in graph:
            path.append(name)
            for target in graph[name]:
                yield from visit(target)
            path.pop()
            done.add(name)

    for name in graph:
        yield from visit(name)


def main():
    files = sorted(p for p in (ROOT / "src").rglob("*") if p.suffix in (".h", ".cpp"))
    faults = list(wrong_directions(files)) + list(circles([p for p in files if p.suffix == ".h"]))
    faults += [f"{p}: name the topic" for p in files if EMPTY_NAMES.match(p.stem)]
    for fault in faults:
        print(fault)
    print(f"layers: {len(files)} files, {len(faults)} faults")
    return 1 if faults or not files else 0


sys.exit(main())
