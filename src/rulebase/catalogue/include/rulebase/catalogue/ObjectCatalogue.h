#pragma once

#include "rulebase/catalogue/ObjectType.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace dorvik {

/// What is known of an object type, except its properties.
struct ObjectRow {
    ObjectType Type;
    ObjectType
        Root;  // of its family, whose properties it has; an object in scope has the root's name
    std::string_view Name;
    std::string_view Text;         // the name as lists show it
    std::string_view Icon;         // empty for types above 28
    std::string_view TreeIcon;     // that of a tree, in which a family looks alike
    bool HasWorkfields;            // rule scripts may store values in it
    std::string_view Description;  // empty for types above 43
};

/// The table of the object types.
namespace modObjectCatalogue {

/// In the order of the numbers, which are the positions from 1.
std::span<const ObjectRow> Rows();
/// Null for a number that is not an object type.
const ObjectRow* Find(std::int32_t objectType);

}  // namespace modObjectCatalogue

}  // namespace dorvik
