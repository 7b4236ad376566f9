#pragma once

#include <cstdint>
#include <string>

/// How many of the files of a project, or of the projects of a batch, passed.
namespace dorvik::modPassRate {

/// The share of those that passed among all, as a percentage.
// Required: without any of them the divisor is zero, which raises "Division by zero".
std::string Text(std::int32_t passed, std::int32_t failed, std::int32_t errors);

}  // namespace dorvik::modPassRate
