#pragma once

#include "basic/values/ValueType.h"

#include <cstdint>

namespace dorvik::basic {

/// Where a variable is: a slot of the frame, what a slot refers to (a parameter by reference), or a variable of the
/// module.
enum class Storage : std::uint8_t { Local, Reference, Global };

/// A variable that a name stands for.
struct Variable {
    Storage Where = Storage::Local;
    std::uint32_t Index = 0;  // the slot, or the number of the global
    DeclaredType Type;
    bool IsFixedArray = false;
    bool IsNew = false;  // declared `As New`
};

}  // namespace dorvik::basic
