#pragma once

#include "basic/values/DecimalDigits.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers by patterns ("#,##0.00;(#,##0.00)"), by named formats and by the settings of
/// `FormatNumber` and its relatives. Halves round away from zero.
namespace dorvik::basic::modFormatNumbers {

/// By a pattern of up to four sections: positive, negative, zero, Null.
std::string ByPattern(std::string_view pattern, DecimalDigits number);
/// What a pattern gives for Null: its fourth section, or nothing.
std::string NullByPattern(std::string_view pattern);

/// The pattern of a named numeric format, in any case; nothing for another name.
std::optional<std::string_view> NamedPattern(std::string_view name);

/// The arguments of `FormatNumber` and its relatives.
struct Settings {
    std::int32_t Places = 2;
    bool HasLeadingZero = true;
    bool HasParentheses = false;  // around negative numbers
    bool HasGroups = true;
    std::string_view Before;  // "$"
    std::string_view Behind;  // "%"
};
std::string BySettings(const Settings& settings, DecimalDigits number);

}  // namespace dorvik::basic::modFormatNumbers
