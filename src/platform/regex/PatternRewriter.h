#pragma once

#include "PatternTree.h"

#include <string>

namespace dorvik {

/// Writes a pattern in the syntax of the PCRE2 library, compiled with the options for UTF-8, with "." for any
/// character at all, "$" at the very end only, and case that counts. The texts that match are those of the
/// dialect; `modPatternFacts` finds where the library prefers another of them or keeps other groups.
class PatternRewriter {
public:
    /// False if the library cannot hold the pattern, because it counts too far.
    bool Rewrite(const PatternTree& tree);
    const std::string& Text() const { return m_text; }

private:
    bool Write(const PatternNode& node);
    bool WriteRepetition(const PatternNode& node);
    /// As one piece, to which a count may be appended.
    bool WriteUnit(const PatternNode& node);
    bool WriteGrouped(const char* opener, const PatternNode& node);
    void WriteLetter(char32_t character, bool isAnyCase);
    void WriteSet(const CharacterSet& set);
    void WriteCharacter(char32_t character);
    void WritePlain(const char* text);
    void SetAnyCase(bool isAnyCase);

    PatternFlags m_flags;
    std::string m_text;
    bool m_isAnyCase = false;  // where the text has got to
};

}  // namespace dorvik
