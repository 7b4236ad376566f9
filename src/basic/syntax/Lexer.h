#pragma once

#include "ErrorList.h"
#include "Token.h"

#include <string_view>
#include <vector>

namespace dorvik::basic {

/// Splits a module into logical lines of tokens: continuations joined, comments gone. Characters that
/// begin nothing come as `Invalid` tokens; the lexer itself reports only names that are too long, a
/// missing `]` and lines beyond `kLongestLine`.
/// REQUIRES: the lines and the error list outlive it.
class Lexer {
public:
    Lexer(const std::vector<std::string_view>& lines, ErrorList& errors)
        : m_lines(lines), m_errors(errors) {}

    bool HasLine() const { return m_line < m_lines.size(); }
    /// The first character of the line that comes next, 0 for a blank one.
    char FirstCharacter() const;
    /// Replaces `tokens` by the next line's; the last one is an `EndOfLine`.
    void ReadLine(std::vector<Token>& tokens);
    /// Skips the next line with its continuations.
    void SkipLine();

private:
    void BeginPhysicalLine();
    bool ContinueOnNextLine();
    bool SkipBlanks();
    bool AtContinuation() const;
    void SkipComment();
    bool AtRem(const std::vector<Token>& tokens) const;
    void ReadToken(std::vector<Token>& tokens);
    void ReadWord(std::vector<Token>& tokens, Token& token);
    void ReadSuffix(Token& token);
    bool JoinsTwo() const;
    static void JoinGo(std::vector<Token>& tokens);
    void ReadBracketedName(Token& token);
    void ReadNumber(Token& token);
    void ReadDigits();
    void ReadExponent();
    void ReadRadixNumber(Token& token, std::size_t digits);
    std::size_t RadixDigits(const std::vector<Token>& tokens, bool blankBefore) const;
    void ReadString(Token& token);
    bool ReadDate(const std::vector<Token>& tokens, Token& token);
    void ReadSign(Token& token);
    void CutLongLine(std::vector<Token>& tokens);

    char CharacterAt(std::size_t offset) const {
        return offset < m_text.size() ? m_text[offset] : '\0';
    }
    SourcePlace PlaceAt(std::size_t offset);
    bool BeginsName(std::size_t offset, std::size_t& size) const;

    const std::vector<std::string_view>& m_lines;
    ErrorList& m_errors;
    std::size_t m_line = 0;  // index of the physical line that is read, or comes next
    std::string_view m_text;
    std::size_t m_at = 0;
    bool m_isAscii = true;
    // Columns of a line with other characters are counted from the place asked for last.
    std::size_t m_countedOffset = 0;
    std::int32_t m_countedColumn = 1;
};

}  // namespace dorvik::basic
