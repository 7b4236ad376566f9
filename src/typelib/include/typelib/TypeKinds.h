#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace dorvik {

/// A kind of type in a library: its number as TYPEKIND of OLE Automation, the word for it in the type
/// catalogue and in what the program prints, and the word for several.
struct TypeKindRow {
    std::int32_t Kind;
    std::string_view Word;
    std::string_view Plural;
};

inline constexpr std::array<TypeKindRow, 8> kTypeKinds{{
    {0, "enum", "enums"},
    {1, "record", "records"},
    {2, "module", "modules"},
    {3, "interface", "interfaces"},
    {4, "dispatch", "dispatch interfaces"},
    {5, "class", "classes"},
    {6, "alias", "aliases"},
    {7, "union", "unions"},
}};

/// The word for a kind; "unknown" for a number that no kind has.
constexpr std::string_view TypeKindWord(std::int32_t kind) {
    for (const TypeKindRow& row : kTypeKinds) {
        if (row.Kind == kind) {
            return row.Word;
        }
    }
    return "unknown";
}

}  // namespace dorvik
