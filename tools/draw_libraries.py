#!/usr/bin/env python3
"""Draws the libraries and what they link: docs/libraries.svg, a box a library, and in docs/architecture.md the same as
text, a line a layer.
  tools/draw_libraries.py          writes both
  tools/draw_libraries.py check    ends with 1 if one of them is not what the sources give"""
import functools
import sys
from xml.sax.saxutils import escape

from source_tree import Closure, Libraries, ROOT

PICTURE = ROOT / "docs/libraries.svg"
PAGE = ROOT / "docs/architecture.md"
BEGIN = "<!-- Made by tools/draw_libraries.py. -->\n```\n"
END = "```\n<!-- End of what tools/draw_libraries.py makes. -->\n"

BOX_WIDTH, BOX_HEIGHT, GAP, ROW_HEIGHT, MARGIN = 176, 28, 22, 76, 20
COLOURS = {"base": "#eceff1", "platform": "#e3f2fd", "basic": "#fff3e0", "foundation": "#e8f5e9", "rulebase": "#fce4ec",
           "reports": "#ede7f6", "cli": "#fffde7"}


class Graph:
    """The libraries with their direct links, without those that another link brings along."""

    def __init__(self, libraries):
        self.Paths = {name: library.Path for name, library in libraries.items()}
        self.Links = {name: self.Direct(libraries, library.Links) for name, library in libraries.items()}

    @staticmethod
    def Direct(libraries, links):
        return sorted(link for link in links
                      if not any(link in Closure(libraries, other) for other in links if other != link))

    @functools.cache
    def Layer(self, name):
        """0 for a library that links none; otherwise one above the highest that it links."""
        return 1 + max((self.Layer(link) for link in self.Links[name]), default=-1)

    def Layers(self):
        """The names by layer, the lowest first; in a layer in the order of what they link, so that lines cross little."""
        layers = [[] for _ in range(1 + max(map(self.Layer, self.Links)))]
        for name in sorted(self.Links):
            layers[self.Layer(name)].append(name)
        place = {}
        for layer in layers:
            layer.sort(key=lambda name: (self.Middle(name, place), name))
            place.update({name: (index + 0.5) / len(layer) for index, name in enumerate(layer)})
        return layers

    def Middle(self, name, place):
        links = self.Links[name]
        return round(sum(place[link] for link in links) / len(links), 6) if links else 0.5


def Text(graph):
    """A line a layer, the highest first."""
    layers = graph.Layers()
    lines = [f"{number:3}  " + "  ".join(graph.Paths[name] for name in sorted(layer))
             for number, layer in reversed(list(enumerate(layers)))]
    return "\n".join(lines) + "\n"


def Picture(graph):
    layers = graph.Layers()
    width = max(map(len, layers)) * (BOX_WIDTH + GAP) - GAP + 2 * MARGIN
    height = (len(layers) - 1) * ROW_HEIGHT + BOX_HEIGHT + 2 * MARGIN
    corner = {}
    for number, layer in enumerate(layers):
        left = (width - len(layer) * (BOX_WIDTH + GAP) + GAP) / 2
        for index, name in enumerate(layer):
            corner[name] = (left + index * (BOX_WIDTH + GAP), height - MARGIN - BOX_HEIGHT - number * ROW_HEIGHT)
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" font-family="sans-serif" '
             f'font-size="12">', "<title>The libraries; a line leads down to what a library links.</title>",
             f'<rect width="{width}" height="{height}" fill="#ffffff"/>']
    for name in sorted(graph.Links):
        x, y = corner[name]
        for link in graph.Links[name]:
            to_x, to_y = corner[link]
            parts.append(f'<path d="M{x + BOX_WIDTH / 2:g} {y + BOX_HEIGHT:g} C{x + BOX_WIDTH / 2:g} {y + ROW_HEIGHT:g} '
                         f'{to_x + BOX_WIDTH / 2:g} {to_y - ROW_HEIGHT + BOX_HEIGHT:g} {to_x + BOX_WIDTH / 2:g} {to_y:g}" '
                         f'fill="none" stroke="#90a4ae"/>')
    for name in sorted(graph.Links):
        x, y = corner[name]
        colour = COLOURS.get(name.split("_")[0], "#f5f5f5")
        parts.append(f'<rect x="{x:g}" y="{y:g}" width="{BOX_WIDTH}" height="{BOX_HEIGHT}" rx="4" fill="{colour}" '
                     f'stroke="#546e7a"/>')
        parts.append(f'<text x="{x + BOX_WIDTH / 2:g}" y="{y + 18:g}" text-anchor="middle">'
                     f'{escape(graph.Paths[name])}</text>')
    return "\n".join(parts + ["</svg>", ""])


def Page(graph):
    page = PAGE.read_text(encoding="utf-8")
    before, _, rest = page.partition(BEGIN)
    _, end, after = rest.partition(END)
    if not end:
        raise SystemExit(f"{PAGE}: the lines for the libraries are missing")
    return before + BEGIN + Text(graph) + END + after


def main(arguments):
    graph = Graph(Libraries())
    wanted = {PICTURE: Picture(graph), PAGE: Page(graph)}
    if arguments == ["check"]:
        old = [path for path, text in wanted.items()
               if not path.exists() or path.read_text(encoding="utf-8") != text]
        for path in old:
            print(f"{path.relative_to(ROOT)}: not what the sources give; run tools/draw_libraries.py")
        return 1 if old else 0
    for path, text in wanted.items():
        path.write_text(text, encoding="utf-8")
    return 0


sys.exit(main(sys.argv[1:]))
