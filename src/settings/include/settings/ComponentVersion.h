#pragma once

#include <string>

namespace dorvik {

/// The version of this component as it is shown everywhere: major in plain decimal, minor with two
/// digits, revision with four, as in "6.02.0001".
std::string ComponentVersion();

}  // namespace dorvik
