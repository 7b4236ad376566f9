#pragma once

#include <cstdint>

namespace dorvik {

/// The properties that a rule can ask an object for, by the numbers with which rules and screens refer to them.
enum class PropertyNumber : std::int32_t {
#define PROPERTY(number, name, type) name = number,
#define OWN(number, name, type, sentence) name = number,
#include "source/Properties.def"
};

}  // namespace dorvik
