#pragma once

#include <cstddef>

namespace dorvik::basic {

/// Counts the steps (elements looked at, characters compared) of an operation that may take long, so that
/// the machine that runs can look at its limits and ask its host now and then. Raises the machine's
/// uncatchable stop; whoever calls it has nothing half done.
void CountLongWork(std::size_t steps);

}  // namespace dorvik::basic
