#include "platform/regex/RegularExpression.h"

#include "CompiledPattern.h"
#include "base/modUtf8.h"

#include <algorithm>

namespace dorvik {

namespace {

std::string_view TextOf(std::string_view text, const PatternSpan& span) {
    return span.IsSet() ? text.substr(span.Start, span.End - span.Start) : std::string_view();
}

/// Writes one replacement.
class ReplacementWriter {
public:
    ReplacementWriter(
        std::string_view text,
        const std::vector<PatternSpan>& groups,
        const RegularExpression::Progress& progress,
        std::string& result)
        : m_text(text), m_groups(groups), m_progress(progress), m_result(result) {}

    void Write(std::string_view replacement) {
        for (std::size_t at = 0; at < replacement.size();) {
            const std::size_t sign = std::min(replacement.find('$', at), replacement.size());
            m_result += replacement.substr(at, sign - at);
            at = sign + WriteReference(replacement.substr(sign));
            if (m_progress) {
                m_progress(m_result.size());
            }
        }
    }

private:
    /// Of what begins with "$", or is empty; the number of bytes that it took.
    std::size_t WriteReference(std::string_view reference) {
        const PatternSpan& whole = m_groups[0];
        switch (reference.size() > 1 ? reference[1] : '\0') {
            case '$': m_result += '$'; return 2;
            case '&': m_result += TextOf(m_text, whole); return 2;
            case '`': m_result += m_text.substr(0, whole.Start); return 2;
            case '\'': m_result += m_text.substr(whole.End); return 2;
            default: break;
        }
        // Two digits, if there is such a group; otherwise one.
        for (const std::size_t digits : {2U, 1U}) {
            const std::size_t group = GroupNumber(reference, digits);
            if (group > 0 && group < m_groups.size()) {
                m_result += TextOf(m_text, m_groups[group]);
                return 1 + digits;
            }
        }
        m_result += reference.substr(0, 1);
        return std::min<std::size_t>(reference.size(), 1);
    }

    static std::size_t GroupNumber(std::string_view reference, std::size_t digits) {
        if (reference.size() <= digits) {
            return 0;
        }
        std::size_t number = 0;
        for (const char character : reference.substr(1, digits)) {
            if (character < '0' || character > '9') {
                return 0;
            }
            number = number * 10 + static_cast<std::size_t>(character - '0');
        }
        return number;
    }

    std::string_view m_text;
    const std::vector<PatternSpan>& m_groups;
    const RegularExpression::Progress& m_progress;
    std::string& m_result;
};

}  // namespace

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

void RegularExpression::SetMultiline(bool multiline) {
    if (multiline != m_multiline) {
        m_multiline = multiline;
        m_compiled.reset();
    }
}

const CompiledPattern& RegularExpression::FromStore() {
    if (!m_compiled) {
        m_compiled = CompiledPattern::Of(m_pattern, {m_ignoreCase, m_multiline});
    }
    return *m_compiled;
}

const CompiledPattern& RegularExpression::Compiled() {
    const CompiledPattern& compiled = FromStore();
    compiled.RequireValid();
    return compiled;
}

bool RegularExpression::IsMalformed() {
    return !FromStore().IsValid();
}

bool RegularExpression::Test(std::string_view text) {
    return Compiled().IsIn(text);
}

/// Calls `visit` with the whole and the groups of each match that counts.
template <typename Visit>
void RegularExpression::ForEachMatch(std::string_view text, Visit&& visit) {
    const CompiledPattern& compiled = Compiled();
    std::vector<PatternSpan> groups;
    for (std::size_t from = 0; from <= text.size() && compiled.Find(text, from, groups);) {
        visit(groups);
        if (!m_global) {
            break;
        }
        from = groups[0].End;
        if (groups[0].Start == groups[0].End) {
            // An empty match does not move the search on by itself.
            from += from < text.size() ? modUtf8::CharacterSize(text, from) : 1;
        }
    }
}

std::vector<Match> RegularExpression::Execute(std::string_view text, const Progress& progress) {
    std::vector<Match> matches;
    std::size_t bytes = 0;
    std::size_t counted = 0;  // bytes of which the characters have been counted
    std::size_t index = 0;
    ForEachMatch(text, [&](const std::vector<PatternSpan>& groups) {
        index += modUtf8::Length(text.substr(counted, groups[0].Start - counted));
        counted = groups[0].Start;
        Match& match = matches.emplace_back();
        match.Index = index;
        match.Value = TextOf(text, groups[0]);
        for (std::size_t group = 1; group < groups.size(); ++group) {
            match.SubMatches.push_back(
                {std::string(TextOf(text, groups[group])), groups[group].IsSet()});
            bytes += sizeof(SubMatch) + match.SubMatches.back().Value.size();
        }
        bytes += sizeof(Match) + match.Value.size();
        if (progress) {
            progress(bytes);
        }
    });
    return matches;
}

std::string RegularExpression::Replace(
    std::string_view text, std::string_view replacement, const Progress& progress) {
    std::string result;
    std::size_t copied = 0;
    ForEachMatch(text, [&](const std::vector<PatternSpan>& groups) {
        result += text.substr(copied, groups[0].Start - copied);
        copied = groups[0].End;
        ReplacementWriter(text, groups, progress, result).Write(replacement);
        if (progress) {
            progress(result.size());
        }
    });
    return result + std::string(text.substr(copied));
}

std::optional<Match> RegularExpression::LongestMatch(std::string_view text) {
    const std::optional<PatternSpan> span = Compiled().FindLongest(text);
    if (!span) {
        return std::nullopt;
    }
    return Match{
        modUtf8::Length(text.substr(0, span->Start)), std::string(TextOf(text, *span)), {}};
}

}  // namespace dorvik
