#pragma once

#include "PatternTree.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// Why a pattern is malformed.
struct PatternFault {
    std::int32_t Number = 0;   // 5017 to 5020, or 0: the pattern is well formed
    std::size_t Position = 0;  // of the offending character, from 1; after the last one at the end
    std::string Detail;        // a sentence part for the user; empty if the number says it all
};

/// Reads a pattern in the grammar of ECMAScript's third edition, with what VBScript documents beyond it.
/// One object reads one pattern.
class PatternReader {
public:
    PatternReader(std::string_view pattern, PatternFlags flags);

    /// False for a malformed pattern; `Fault` says why, and the tree is of no use then.
    bool Read(PatternTree& tree);
    const PatternFault& Fault() const { return m_fault; }

private:
    struct ClassPart;

    static bool IsDigit(char32_t character) { return character >= '0' && character <= '9'; }

    bool AtEnd() const { return m_position == m_pattern.size(); }
    bool Sees(char32_t character) const { return !AtEnd() && m_pattern[m_position] == character; }
    bool Accept(std::u32string_view text);
    bool Fail(std::int32_t number, std::size_t at, std::string detail = {});

    bool ReadAlternatives(PatternNode& node);
    bool ReadSequence(PatternNode& node);
    bool ReadTerm(PatternNode& node);
    bool ReadAtom(PatternNode& node);
    bool ReadGroup(PatternNode& node);
    bool ReadEscape(PatternNode& node);
    bool ReadNumberEscape(PatternNode& node);
    bool ReadClass(PatternNode& node);
    bool ReadClassPart(ClassPart& part);
    bool ReadRepetition(PatternNode& node);
    bool SeesRepetition() const;
    std::uint32_t ReadDecimal();

    // In PatternReader_Characters.cpp, as `ReadEscape` and `ReadClass`.
    char32_t ReadEscapedCharacter();
    char32_t ReadHexadecimal(char32_t letter, std::size_t digits);
    char32_t ReadOctal();

    void MakeCharacter(PatternNode& node, char32_t character) const;
    /// Takes what the set has inside; `isNegated`: what it has not.
    void MakeSet(PatternNode& node, const CharacterSet& set, bool isNegated) const;

    std::u32string m_pattern;
    PatternFlags m_flags;
    std::size_t m_position = 0;
    std::size_t m_depth = 0;
    std::uint32_t m_groupCount = 0;  // in the whole pattern
    std::uint32_t m_nextGroup = 1;
    bool m_hasBackReference = false;
    PatternFault m_fault;
};

}  // namespace dorvik
