#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// Figures for the eyes of a person.
namespace modFigureText {

/// 1234567 as "1,234,567".
std::string Grouped(std::int32_t number);
/// "1 file", "1,200 files".
std::string Counted(std::int32_t number, std::string_view one, std::string_view many);

}  // namespace modFigureText

}  // namespace dorvik
