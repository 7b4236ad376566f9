#!/usr/bin/env python3
"""Prints src/platform/host/CodePageTables.cpp: the upper halves of the single-byte code pages.

    tools/make_code_pages.py > src/platform/host/CodePageTables.cpp

A byte that a page leaves undefined gets the character of its own number. For 81, 8D, 8F, 90 and 9D
of Windows-1252 that is the control character that Windows gives, too.
"""

PAGES = {
    437: "cp437", 850: "cp850", 866: "cp866", 874: "cp874",
    1250: "cp1250", 1251: "cp1251", 1252: "cp1252", 1253: "cp1253", 1254: "cp1254",
    1255: "cp1255", 1256: "cp1256", 1257: "cp1257", 1258: "cp1258", 28591: "latin-1",
}
UNDEFINED_IN_1252 = [0x81, 0x8D, 0x8F, 0x90, 0x9D]


def upper_half(codec):
    characters, undefined = [], []
    for byte in range(0x80, 0x100):
        try:
            characters.append(ord(bytes([byte]).decode(codec)))
        except UnicodeDecodeError:
            characters.append(byte)
            undefined.append(byte)
    return characters, undefined


def checked_upper_half(number, codec):
    characters, undefined = upper_half(codec)
    assert number != 1252 or undefined == UNDEFINED_IN_1252, undefined
    assert len(set(characters)) == 128, f"{codec}: two bytes become one character"
    assert all(0x80 <= character < 0xD800 or 0xE000 <= character < 0x10000 for character in characters)
    return characters


def main():
    print("// Made by tools/make_code_pages.py; change the script, not this file.")
    print('#include "platform/CodePageTables.h"\n\n#include <algorithm>\n')
    print("namespace dorvik {\n\nnamespace {\n\n// clang-format off")
    print(f"constexpr std::array<CodePageTable, {len(PAGES)}> kTables{{{{")
    for number, codec in sorted(PAGES.items()):
        characters = checked_upper_half(number, codec)
        print(f"    {{{number}, {{")
        for start in range(0, 128, 8):
            print("        " + " ".join(f"0x{c:04X}," for c in characters[start:start + 8]))
        print("    }},")
    print("}};\n// clang-format on\n\n}  // namespace\n")
    print("const CodePageTable* FindCodePageTable(int codePage) {")
    print("    const auto* found = std::ranges::find(kTables, codePage, &CodePageTable::CodePage);")
    print("    return found == kTables.end() ? nullptr : found;\n}\n\n}  // namespace dorvik")


if __name__ == "__main__":
    main()
