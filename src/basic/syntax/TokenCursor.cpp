#include "TokenCursor.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

bool TokenCursor::NextLine(ITokenSource& source) {
    m_position = 0;
    m_hasFailed = false;
    return source.NextLine(m_tokens);
}

void TokenCursor::Load(std::vector<Token> tokens) {
    m_tokens = std::move(tokens);
    m_position = 0;
    m_hasFailed = false;
}

const Token& TokenCursor::Peek(std::size_t ahead) const {
    return m_tokens[std::min(m_position + ahead, m_tokens.size() - 1)];
}

Token TokenCursor::Take() {
    const Token token = Peek();
    if (m_position + 1 < m_tokens.size()) {
        ++m_position;
    }
    return token;
}

bool TokenCursor::TakeIf(TokenKind kind) {
    if (!At(kind)) {
        return false;
    }
    Take();
    return true;
}

bool TokenCursor::TakeIf(Keyword word) {
    if (!At(word)) {
        return false;
    }
    Take();
    return true;
}

void TokenCursor::TakeToEnd() {
    while (!AtEnd()) {
        Take();
    }
}

bool TokenCursor::LineContains(Keyword word) const {
    return std::any_of(m_tokens.begin(), m_tokens.end(), [word](const Token& token) {
        return token.Word == word;
    });
}

bool TokenCursor::AtEnd() const {
    const Token& token = Peek();
    return token.Kind == TokenKind::EndOfLine || token.Kind == TokenKind::Colon ||
           (token.Kind == TokenKind::Keyword && token.Word == Keyword::Else);
}

bool TokenCursor::Expect(TokenKind kind, std::int32_t number) {
    if (TakeIf(kind)) {
        return true;
    }
    Fail(number);
    return false;
}

bool TokenCursor::Expect(Keyword word, std::int32_t number) {
    if (TakeIf(word)) {
        return true;
    }
    Fail(number);
    return false;
}

Token TokenCursor::ExpectName() {
    if (At(TokenKind::Name)) {
        return Take();
    }
    if (At(TokenKind::Keyword)) {
        Fail(
            parseerror::kExpectedIdentifier,
            "'" + std::string(Peek().Text) + "' is a reserved word");
    } else {
        Fail(parseerror::kExpectedIdentifier);
    }
    return {};
}

void TokenCursor::Fail(std::int32_t number, std::string_view detail) {
    const Token token = Peek();
    if (token.Kind == TokenKind::Invalid) {
        FailAt(token.Place, parseerror::kInvalidCharacter, "'" + std::string(token.Text) + "'");
    } else {
        FailAt(token.Place, number, detail);
    }
}

void TokenCursor::FailAt(SourcePlace place, std::int32_t number, std::string_view detail) {
    if (!m_hasFailed) {
        m_errors.Add(number, place, detail);
    }
    Stop();
}

void TokenCursor::FailText(SourcePlace place, std::string text) {
    if (!m_hasFailed) {
        m_errors.AddText(parseerror::kSyntax, place, std::move(text));
    }
    Stop();
}

void TokenCursor::Stop() {
    if (m_hasFailed) {
        return;
    }
    m_hasFailed = true;
    m_failedAt = m_position;
    m_position = m_tokens.size() - 1;
}

void TokenCursor::SkipStatement() {
    if (m_hasFailed) {
        m_position = m_failedAt;
    }
    m_hasFailed = false;
    while (!At(TokenKind::EndOfLine) && !At(TokenKind::Colon)) {
        ++m_position;
    }
}

void TokenCursor::SkipLine() {
    m_hasFailed = false;
    m_position = m_tokens.size() - 1;
}

}  // namespace dorvik::basic
