#pragma once

#include "CodeWriter.h"

namespace dorvik::basic {

/// What is to be done after a call for an argument that could not be passed as it is.
struct AfterCall {
    enum class Kind : std::uint8_t { CopyBack, CopyElement, Unpin };
    Kind What = Kind::Unpin;
    Register Reference = 0;  // to the argument's variable
    Register Slot = 0;       // the temporary, the array or the pin
    DeclaredType Type;       // of the variable
    DeclaredType ValueType;  // of the temporary
    std::uint16_t Element = 0;
};

}  // namespace dorvik::basic
