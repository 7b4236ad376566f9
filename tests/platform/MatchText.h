#pragma once

#include "platform/regex/RegularExpression.h"

#include <string>
#include <string_view>

namespace dorvik {

/// A search as a row of a table gives it.
struct PatternCase {
    const char* Pattern;
    const char* Flags;  // of "gim"
    std::string_view Text;
    std::string Expected;  // as `MatchText` writes it
};

void PrintTo(const PatternCase& row, std::ostream* stream);

RegularExpression ExpressionOf(std::string_view pattern, std::string_view flags);

/// "index:value", then each group behind a comma, "~" for one that took no part; matches joined with ";",
/// "none" without any, "error 5017 at 3" for a malformed pattern.
std::string MatchText(RegularExpression& expression, std::string_view text);

}  // namespace dorvik
