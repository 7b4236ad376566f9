#pragma once

#include <optional>
#include <string>

namespace dorvik {

/// Why the work bench refuses a command of a session; nothing where the command was done.
using SessionRefusal = std::optional<std::string>;

}  // namespace dorvik
