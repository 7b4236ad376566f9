#include "basic/values/LikePattern.h"

#include "base/modTextCase.h"
#include "basic/values/Characters.h"
#include "basic/values/LongWork.h"
#include "basic/values/RuntimeErrors.h"

#include <cstddef>
#include <string>

namespace dorvik::basic {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

constexpr unsigned kAsciiEnd = 0x80;

constexpr std::string_view kElements = "*?#[";  // what is not a character of its own in a pattern
constexpr std::size_t kBytesAStep = 16;         // that a search skips in the time of a step

char32_t Next(std::string_view text, std::size_t& position) {
    const auto byte = static_cast<unsigned char>(text[position]);
    if (byte < kAsciiEnd) {
        ++position;
        return byte;
    }
    return modCharacters::Next(text, position);
}

/// The inside of a list, and where the pattern continues after it.
struct List {
    std::string_view Inside;
    std::size_t Behind = 0;
    bool IsNegated = false;

    bool IsNothing() const { return Inside.empty() && !IsNegated; }  // "[]"
};

/// The list whose "[" is at `position`. REQUIRES: it has an end.
List ListAt(std::string_view pattern, std::size_t position) {
    const std::size_t end = pattern.find(']', position);
    List list{pattern.substr(position + 1, end - position - 1), end + 1};
    if (list.Inside.starts_with('!')) {
        list.IsNegated = true;
        list.Inside.remove_prefix(1);
    }
    return list;
}

/// One character or range of a list.
struct Range {
    char32_t First;
    char32_t Last;
};

/// Takes the next range; a "-" that is not between two characters is itself.
Range NextRange(std::string_view inside, std::size_t& position) {
    const char32_t first = Next(inside, position);
    if (position + 1 >= inside.size() || inside[position] != '-') {
        return {first, first};
    }
    ++position;
    return {first, Next(inside, position)};
}

bool HasRanges(const List& list) {
    return list.Inside.find('-') != kNone;
}

bool Contains(const List& list, char32_t character) {
    if (character < kAsciiEnd && !HasRanges(list)) {
        const bool isIn = list.Inside.find(static_cast<char>(character)) != kNone;
        return isIn != list.IsNegated;
    }
    for (std::size_t position = 0; position < list.Inside.size();) {
        const Range range = NextRange(list.Inside, position);
        if (character >= range.First && character <= range.Last) {
            return !list.IsNegated;
        }
    }
    return list.IsNegated;
}

bool IsValidList(const List& list) {
    if (!HasRanges(list)) {
        return true;
    }
    for (std::size_t position = 0; position < list.Inside.size();) {
        const Range range = NextRange(list.Inside, position);
        if (range.First > range.Last) {
            return false;
        }
    }
    return true;
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

class Matcher {
public:
    Matcher(std::string_view text, std::string_view pattern) : m_text(text), m_pattern(pattern) {}

    bool Matches() {
        while (m_textAt < m_text.size() || m_patternAt < m_pattern.size()) {
            if (TakeStar()) {
                continue;
            }
            if (!Step() && !Retry()) {
                return false;
            }
        }
        return true;
    }

private:
    bool TakeStar() {
        if (m_patternAt >= m_pattern.size() || m_pattern[m_patternAt] != '*') {
            return false;
        }
        m_behindStar = ++m_patternAt;
        m_starEnd = m_textAt;
        SkipToLiteral();
        m_textAt = m_starEnd;
        return true;
    }

    /// A character of its own after the star: the star ends where that is, or takes all.
    void SkipToLiteral() {
        if (m_behindStar >= m_pattern.size() || kElements.find(m_pattern[m_behindStar]) != kNone) {
            return;
        }
        const std::size_t found = m_text.find(m_pattern[m_behindStar], m_starEnd);
        const std::size_t end = found == kNone ? m_text.size() : found;
        CountLongWork((end - m_starEnd) / kBytesAStep);
        m_starEnd = end;
    }

    /// The last star takes one character more. Earlier stars need no second try: whatever is
    /// between two stars was found as early as possible.
    bool Retry() {
        if (m_behindStar == kNone || m_starEnd >= m_text.size()) {
            return false;
        }
        CountLongWork(1 + m_patternAt - m_behindStar);
        Next(m_text, m_starEnd);
        SkipToLiteral();
        m_textAt = m_starEnd;
        m_patternAt = m_behindStar;
        return true;
    }

    /// Matches one element of the pattern.
    bool Step() {
        if (m_patternAt >= m_pattern.size()) {
            return false;
        }
        const char element = m_pattern[m_patternAt];
        if (element == '[') {
            return StepList();
        }
        if (m_textAt >= m_text.size()) {
            return false;
        }
        if (element == '?') {
            Next(m_text, m_textAt);
        } else if (element == '#' ? !IsDigit(m_text[m_textAt]) : m_text[m_textAt] != element) {
            return false;
        } else {
            ++m_textAt;  // of a longer character, byte by byte
        }
        ++m_patternAt;
        return true;
    }

    bool StepList() {
        const List list = ListAt(m_pattern, m_patternAt);
        if (!list.IsNothing()) {
            if (m_textAt >= m_text.size() || !Contains(list, Next(m_text, m_textAt))) {
                return false;
            }
        }
        m_patternAt = list.Behind;
        return true;
    }

    std::string_view m_text;
    std::string_view m_pattern;
    std::size_t m_textAt = 0;
    std::size_t m_patternAt = 0;
    std::size_t m_behindStar = kNone;
    std::size_t m_starEnd = 0;  // where the text of the last star ends
};

bool IsValidLike(std::string_view pattern) {
    for (std::size_t position = pattern.find('['); position != kNone;) {
        if (pattern.find(']', position) == kNone) {
            return false;
        }
        const List list = ListAt(pattern, position);
        if (!IsValidList(list)) {
            return false;
        }
        position = pattern.find('[', list.Behind);
    }
    return true;
}

}  // namespace

bool MatchesLike(std::string_view text, std::string_view pattern, bool ignoresCase) {
    if (ignoresCase) {
        const std::string lowerText = modTextCase::ToLower(text);
        const std::string lowerPattern = modTextCase::ToLower(pattern);
        return MatchesLike(lowerText, lowerPattern, false);
    }
    if (!IsValidLike(pattern)) {
        RaiseError(runtimeerror::kInvalidPattern);
    }
    return Matcher(text, pattern).Matches();
}

}  // namespace dorvik::basic
