"""The libraries of this tree, read from its CMake files and its includes: for the checks and for the picture in
docs/architecture.md."""
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCE_ROOTS = ("src", "apps")
CODE = (".h", ".cpp", ".def")
INCLUDE = re.compile(r'^\s*#\s*include "([^"]+)"', re.MULTILINE)
LIBRARY = re.compile(r"dorvik_(?:qt_)?library\((\S+)(?:\s+LINKS\s+([\w ]+?))?(?:\s+(?:SYSTEM|QT)\s+[\w: ]+)?\)")


class Library:
    """A folder that dorvik_library() names: its path ("basic/values"), its folder and the libraries it links."""

    def __init__(self, path, folder, links):
        self.Path, self.Folder, self.Links = path, folder, links
        self.PublicFolder = folder / "include" / path
        # A generated file is in the build tree and does not count here.
        self.Files = sorted(p for p in folder.rglob("*") if p.suffix in CODE)

    @property
    def Name(self):
        return self.Path.replace("/", "_")


def Libraries():
    """All libraries by name ("basic_values")."""
    found = {}
    for root in SOURCE_ROOTS:
        for cmake in sorted((ROOT / root).rglob("CMakeLists.txt")):
            match = LIBRARY.search(cmake.read_text(encoding="utf-8"))
            if match:
                library = Library(match[1], cmake.parent, (match[2] or "").split())
                found[library.Name] = library
    return found


def Closure(libraries, name):
    """The names of all libraries that a library links, directly or not; itself too when the links make a circle."""
    seen, waiting = set(), list(libraries[name].Links)
    while waiting:
        link = waiting.pop()
        if link not in seen:
            seen.add(link)
            waiting += libraries[link].Links if link in libraries else []
    return seen


def Includes(path):
    """What a file includes in quotes, in its order."""
    return INCLUDE.findall(path.read_text(encoding="utf-8"))
