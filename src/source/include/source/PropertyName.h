#pragma once

#include <string_view>

/// The names of the properties, by which rules ask for them: the keys in the bag of a `VirtualObject`.
namespace dorvik::propertyname {

#define PROPERTY(number, name, type) inline constexpr std::string_view k##name = #name;
#define OWN(number, name, type, sentence) inline constexpr std::string_view k##name = #name;
#define UNNUMBERED(name) inline constexpr std::string_view k##name = #name;
#include "source/Properties.def"

}  // namespace dorvik::propertyname
