#pragma once

#include "rulebase/catalogue/PropertyNumber.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace dorvik {

/// The type of a property's value.
enum class PropertyType {
    None,  // not known
    String,
    Long,
    Boolean,
    LongOrString,  // a number or a text, by the object
};

/// A property as it is for every object that has it.
struct PropertyRow {
    PropertyNumber Number;
    std::string_view Name;
    PropertyType Type;
    std::string_view Icon;
};

/// The table of the properties.
namespace modPropertyCatalogue {

/// In the order of the numbers. There is no row for a number that is not in use.
std::span<const PropertyRow> Rows();
/// Null for a number outside the table or not in use.
const PropertyRow* Find(std::int32_t propertyNumber);
/// The word for the type in a declaration, "Long/String" for either; empty for `None`.
std::string_view TypeText(PropertyType type);

}  // namespace modPropertyCatalogue

}  // namespace dorvik
