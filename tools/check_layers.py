#!/usr/bin/env python3
"""Checks what the compiler alone would let pass: that the links of the libraries make no circle, that a library shows
others nothing but its public headers, that no two headers include each other, that nothing but the sources for one
system knows that system, nor anything but the desktop program Qt, and that the name of a file says what is in it."""
import re
import sys

from source_tree import Closure, Includes, Libraries, ROOT, SOURCE_ROOTS, CODE

# Where the system is known: a folder for each one.
SYSTEM_SOURCES = ROOT / "src/platform/host"
SYSTEMS = ("linux", "windows")
# Every other header whose name ends in ".h" belongs to a system, or to C.
LIBRARY_HEADERS = re.compile(r"(CLI|libxml|libxslt|rapidjson)/|(iconv|pcre2|sqlite3)\.h$|Q\w+$|Qsci/")
QT_HEADER = re.compile(r"Q[A-Zts]\w+$|Qsci/")
QT_FOLDER = ROOT / "apps/workstation"
SYSTEM_HEADERS = {"cerrno", "csignal", "ctime", "filesystem", "fstream", "iostream"}
SYSTEM_WORDS = re.compile(
    r"std::filesystem|\berrno\b|\b(?:fopen|getenv|gmtime|gmtime_r|localtime|localtime_r|popen|system)\(")
ANGLE_INCLUDE = re.compile(r"^\s*#\s*include <([^>]+)>", re.MULTILINE)
COMMENT = re.compile(r"//[^\n]*")

EMPTY_NAMES = re.compile(r"^(utils?|helpers?|misc|common)\b", re.IGNORECASE)


def link_faults(libraries):
    for name, library in libraries.items():
        for link in library.Links:
            if link not in libraries:
                yield f"{library.Folder / 'CMakeLists.txt'}: no library is called '{link}'"
        if name in Closure(libraries, name):
            yield f"{library.Folder / 'CMakeLists.txt'}: '{name}' links itself through others"


def include_faults(libraries):
    public = {f"{library.Path}/{header.name}": library.Name
              for library in libraries.values() for header in library.PublicFolder.glob("*.[hd]*")}
    for name, library in libraries.items():
        reachable = Closure(libraries, name) | {name}
        for path in library.Files:
            for target in Includes(path):
                if target in public:
                    if public[target] not in reachable:
                        yield f"{path}: '{name}' does not link '{public[target]}', the library of \"{target}\""
                elif "/" in target:
                    yield f"{path}: \"{target}\" is not a public header of any library"
                elif not (path.parent / target).exists():
                    yield f"{path}: \"{target}\" is not in the folder of the file"
                elif library.PublicFolder in path.parents:
                    yield f"{path}: a public header includes a public header by its full name, not \"{target}\""


def circles(libraries):
    graph = {}
    for library in libraries.values():
        for path in library.Files:
            if path.suffix != ".cpp":
                is_public = path.parent == library.PublicFolder
                key = f"{library.Path}/{path.name}" if is_public else f"{path}"
                graph[key] = [t if "/" in t else f"{path.parent / t}" for t in Includes(path)]
    done, trail = set(), []

    def visit(name):
        if name in trail:
            yield "circle: " + " -> ".join(trail[trail.index(name):] + [name])
        elif name not in done and name in graph:
            trail.append(name)
            for target in graph[name]:
                yield from visit(target)
            trail.pop()
            done.add(name)

    for name in graph:
        yield from visit(name)


def name_faults(libraries):
    for library in libraries.values():
        headers = {p.stem for p in library.Files if p.suffix == ".h"}
        for path in library.Files:
            if EMPTY_NAMES.match(path.stem):
                yield f"{path}: name the topic"
            owner = path.stem.split("_")[0]
            if "_" in path.stem and owner not in headers:
                yield f"{path}: a part of '{owner}', but there is no {owner}.h in the library"


def is_for_one_system(path):
    return any(SYSTEM_SOURCES / system in path.parents for system in SYSTEMS)


def system_faults(libraries):
    programs = [path for path in sorted((ROOT / "apps").glob("*/*")) if path.suffix in CODE]
    for path in [file for library in libraries.values() for file in library.Files] + programs:
        if is_for_one_system(path):
            continue
        text = COMMENT.sub("", path.read_text(encoding="utf-8"))
        for header in ANGLE_INCLUDE.findall(text):
            if header in SYSTEM_HEADERS or (header.endswith(".h") and not LIBRARY_HEADERS.match(header)):
                yield f"{path}: <{header}> belongs to the system; src/platform/host offers what is needed of it"
            if QT_HEADER.match(header) and QT_FOLDER not in path.parents:
                yield f"{path}: <{header}> is of Qt, which only apps/workstation knows"
        for word in sorted(set(SYSTEM_WORDS.findall(text))):
            yield f"{path}: '{word}' is of the system; src/platform/host offers what is needed of it"


def homeless(libraries):
    known = {p for library in libraries.values() for p in library.Files}
    for root in SOURCE_ROOTS:
        for path in sorted((ROOT / root).rglob("*")):
            is_program = path.parent in (ROOT / "apps/cli", ROOT / "apps/workstation")
            if path.suffix in CODE and path not in known and not is_program:
                yield f"{path}: belongs to no library"


def main():
    libraries = Libraries()
    faults = [*link_faults(libraries), *include_faults(libraries), *circles(libraries), *name_faults(libraries),
              *system_faults(libraries), *homeless(libraries)]
    for fault in faults:
        print(fault.replace(f"{ROOT}/", ""))
    count = sum(len(library.Files) for library in libraries.values())
    print(f"layers: {len(libraries)} libraries, {count} files, {len(faults)} faults")
    return 1 if faults or not libraries else 0


sys.exit(main())
