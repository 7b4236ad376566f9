#!/usr/bin/env python3
"""Writes src/base/CaseTable.cpp from the Unicode data of this Python.

    tools/make_case_table.py > src/base/CaseTable.cpp

A row is a run of characters, each `step` after the one before, that have the same distance to
their other case. Only mappings of one character to one character count.
"""
import unicodedata


def simple_lower(code):
    lower = chr(code).lower()
    if len(lower) == 1:
        return ord(lower)
    return ord(lower[0])  # U+0130 alone: i with a dot above, whose one-character form is "i"


def simple_upper(code):
    for form in (chr(code).upper(), chr(code).title()):
        if len(form) == 1:
            return ord(form)
    return code


def runs(mapping):
    rows = []
    for code in range(0x80, 0x110000):
        if 0xD800 <= code <= 0xDFFF or mapping(code) == code:
            continue
        delta = mapping(code) - code
        if rows and rows[-1][3] == delta:
            first, last, step, _ = rows[-1]
            gap = code - last
            if gap == step or (first == last and gap <= 2):
                rows[-1] = (first, code, gap, delta)
                continue
        rows.append((code, code, 1, delta))
    return rows


def table(name, mapping):
    rows = runs(mapping)
    print(f"constexpr CaseRun k{name}Runs[] = {{")
    for first, last, step, delta in rows:
        print(f"    {{0x{first:04X}, 0x{last:04X}, {step}, {delta}}},")
    print("};")


def main():
    print("// Written by tools/make_case_table.py from the Unicode data "
          f"{unicodedata.unidata_version}. Do not edit.")
    print('#include "base/CaseTable.h"\n\nnamespace dorvik {\n\nnamespace {\n\n// clang-format off')
    table("Lower", simple_lower)
    print()
    table("Upper", simple_upper)
    print("// clang-format on\n\n}  // namespace\n")
    for name in ("Lower", "Upper"):
        print(f"std::span<const CaseRun> {name}Runs() {{\n    return k{name}Runs;\n}}\n")
    print("}  // namespace dorvik")


if __name__ == "__main__":
    main()
