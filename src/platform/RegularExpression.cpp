#include "platform/RegularExpression.h"

#include "base/modUtf8.h"
#include "platform/CompiledPattern.h"

#include <optional>

namespace dorvik {

void RegularExpression::SetPattern(std::string_view pattern) {
    if (pattern != m_pattern) {
        m_pattern = pattern;
        m_compiled.reset();
    }
}

void RegularExpression::SetIgnoreCase(bool ignoreCase) {
    if (ignoreCase != m_ignoreCase) {
        m_ignoreCase = ignoreCase;
        m_compiled.reset();
    }
}

const CompiledPattern& RegularExpression::Compiled() {
    if (!m_compiled) {
        m_compiled = CompiledPattern::Of(m_pattern, m_ignoreCase);
    }
    m_compiled->RequireValid();
    return *m_compiled;
}

bool RegularExpression::Test(std::string_view text) {
    return Compiled().Find(text, 0).has_value();
}

bool RegularExpression::Test(std::string_view text, const ByteSet& present) {
    const CompiledPattern& compiled = Compiled();
    if (!present.ContainsAll(compiled.Needs().Bytes) ||
        text.find(compiled.Needs().Literal) == std::string_view::npos) {
        return false;
    }
    return compiled.Find(text, 0).has_value();
}

std::vector<Match> RegularExpression::Execute(std::string_view text) {
    const CompiledPattern& compiled = Compiled();
    std::vector<Match> matches;
    std::size_t counted = 0;  // bytes of which the characters have been counted
    std::size_t index = 0;
    for (std::size_t from = 0; from <= text.size();) {
        const std::optional<CompiledPattern::Span> found = compiled.Find(text, from);
        if (!found) {
            break;
        }
        index += modUtf8::Length(text.substr(counted, found->Start - counted));
        counted = found->Start;
        matches.push_back(
            {index, std::string(text.substr(found->Start, found->End - found->Start))});
        if (!m_global) {
            break;
        }
        from = found->End;
        if (found->Start == found->End) {
            // An empty match does not move the search on by itself.
            from += from < text.size() ? modUtf8::CharacterSize(text, from) : 1;
        }
    }
    return matches;
}

}  // namespace dorvik
