#pragma once

#include <cstdint>
#include <string>

namespace dorvik {

/// What one slot of a prefix or suffix contributes to the pattern of a name.
enum class PrefixSuffixType : std::int32_t {
    psNone = 0,         // nothing: the slot is unused
    psText = 1,         // `Value` itself, which may be a regular expression
    psControlTag = 2,   // the tag of the object's control type
    psDataTypeTag = 3,  // the tag of the object's data type
    psScopeTag = 4,     // the tag of the object's scope
    psProperty = 5,     // a property of an object in scope; `Value` is "Object.Property"
    psArrayTag = 6,     // the rulebase's `ArrayTag` if the object is an array
};
using enum PrefixSuffixType;

/// One slot of a prefix or suffix. It has no dirty flag: its editor marks the rule.
struct PrefixSuffixItem {
    /// A `PrefixSuffixType`; kept as the number so that a file's unknown types survive.
    std::int32_t PSType = 0;
    std::string Value;
};

}  // namespace dorvik
