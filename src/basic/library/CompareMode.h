#pragma once

#include "Arguments.h"

namespace dorvik::basic {

/// Whether a `Compare` argument (0 binary, 1 text) says to ignore case; raises 5 for another number.
bool IgnoresCaseAt(Arguments arguments, std::size_t position, bool byDefault);

}  // namespace dorvik::basic
