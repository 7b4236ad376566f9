#pragma once

#include "basic/Arguments.h"

namespace dorvik::basic {

/// Whether a `Compare` argument (0 binary, 1 text) asks to ignore case; raises 5 for another number.
bool IgnoresCaseAt(Arguments arguments, std::size_t position, bool byDefault);

/// Steps of a long loop of a function after which the host is asked whether to go on.
inline constexpr std::size_t kWorkBetweenBreaths = 4096;

}  // namespace dorvik::basic
