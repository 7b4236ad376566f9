#pragma once

#include "PatternMachine.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// A pattern that the PCRE2 library has compiled; everything that knows the library is here. The limits are
/// far above what a sane pattern needs on a line of source, and reached in well under a second.
class LibraryPattern {
public:
    /// For which operation it is compiled.
    enum class Use {
        Search,  // in any bytes: those that are not UTF-8 match nothing
        Longest  // in valid UTF-8 only
    };
    enum class Outcome { NoMatch, Match, GivenUp };

    /// Of a pattern from `PatternRewriter`.
    LibraryPattern(const std::string& rewritten, Use use);
    ~LibraryPattern();
    LibraryPattern(const LibraryPattern&) = delete;
    LibraryPattern& operator=(const LibraryPattern&) = delete;

    /// False if the library cannot hold the pattern; no search may be made then.
    bool IsUsable() const { return m_code != nullptr; }

    /// The first match that begins at or after `from`.
    Outcome Find(std::string_view text, std::size_t from, PatternSpan& span) const;
    /// The same with its groups: the whole, then `groupCount` groups.
    Outcome Find(
        std::string_view text,
        std::size_t from,
        std::size_t groupCount,
        std::vector<PatternSpan>& spans) const;
    /// The longest match that begins at `start`. REQUIRES: made for `Longest`; the text is valid UTF-8.
    Outcome FindLongest(std::string_view text, std::size_t start, PatternSpan& span) const;

    /// The limit that stopped the last search of this thread.
    static const std::string& Limit();

private:
    struct Code;

    std::unique_ptr<Code> m_code;
};

}  // namespace dorvik
