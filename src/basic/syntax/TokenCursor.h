#pragma once

#include "ErrorList.h"
#include "Token.h"

#include <string>
#include <string_view>
#include <vector>

namespace dorvik::basic {

/// Gives the lines of a module, one by one.
class ITokenSource {
public:
    virtual ~ITokenSource() = default;
    /// Replaces `tokens` by the next line's, an `EndOfLine` last. False after the last line; `tokens` is then
    /// one `EndOfLine`.
    virtual bool NextLine(std::vector<Token>& tokens) = 0;
};

/// Is at a token of the current line. The first failure of a statement is reported; it puts the
/// cursor on the end of the line, where every loop over tokens ends, and what else fails before
/// `SkipStatement` is silent. So a caller need not look at every result.
/// REQUIRES: the error list outlives it.
class TokenCursor {
public:
    explicit TokenCursor(ErrorList& errors) : m_tokens(1), m_errors(errors) {}

    bool NextLine(ITokenSource& source);
    void Load(std::vector<Token> tokens);

    const Token& Peek(std::size_t ahead = 0) const;
    Token Take();
    bool At(TokenKind kind) const { return Peek().Kind == kind; }
    bool At(Keyword word) const { return Peek().Word == word; }
    bool TakeIf(TokenKind kind);
    bool TakeIf(Keyword word);
    /// Skips the rest of the statement, whatever it is.
    void TakeToEnd();
    /// At the end of a statement: end of line, `:`, or the `Else` of a single-line If.
    bool AtEnd() const;
    bool AtEndOfLine() const { return At(TokenKind::EndOfLine); }

    bool Expect(TokenKind kind, std::int32_t number);
    bool Expect(Keyword word, std::int32_t number);
    /// A name, or an empty text after a failure.
    Token ExpectName();

    /// Fails at the present token, with the number's own text followed by a detail. A character that
    /// begins nothing is reported in place of what was missing there.
    void Fail(std::int32_t number, std::string_view detail = {});
    void FailAt(SourcePlace place, std::int32_t number, std::string_view detail = {});
    void FailText(SourcePlace place, std::string text);  // 1002 with a text of its own
    bool HasFailed() const { return m_hasFailed; }
    /// Goes to the end of the statement and forgets the failure.
    void SkipStatement();
    void SkipLine();

    std::size_t Position() const { return m_position; }
    void Rewind(std::size_t position) { m_position = position; }
    const Token& TokenAt(std::size_t position) const { return m_tokens[position]; }
    /// The last word or sign of the line.
    const Token& LastOfLine() const {
        return m_tokens[m_tokens.size() < 2 ? 0 : m_tokens.size() - 2];
    }
    bool LineContains(Keyword word) const;
    SourcePlace Place() const { return Peek().Place; }
    ErrorList& Errors() { return m_errors; }

private:
    void Stop();

    std::vector<Token> m_tokens;
    std::size_t m_position = 0;
    std::size_t m_failedAt = 0;
    bool m_hasFailed = false;
    ErrorList& m_errors;
};

}  // namespace dorvik::basic
