#pragma once

#include "platform/regex/PatternReader.h"
#include "platform/regex/Prefilter.h"
#include "platform/regex/RegularExpression.h"

#include <string_view>

namespace dorvik {

/// Whether the prefilter of the expression's pattern leaves the text to the search. Every text with a match must
/// pass.
inline bool PrefilterAccepts(const RegularExpression& expression, std::string_view text) {
    PatternTree tree;
    PatternReader reader(expression.Pattern(), {expression.IgnoreCase(), expression.Multiline()});
    if (!reader.Read(tree)) {
        return true;
    }
    const Prefilter prefilter = PrefilterOf(tree);
    return prefilter.MayMatch(text, TextSignature(text)) && prefilter.HasLiterals(text);
}

}  // namespace dorvik
