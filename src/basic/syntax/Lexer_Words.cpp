#include "Lexer.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"

#include <algorithm>
#include <array>
#include <span>

// Names, numbers and signs.
namespace dorvik::basic {

namespace {

constexpr std::size_t kLongestName = 255;

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// A letter of another script than ASCII: everything from the first accented letter on that is no
/// sign, punctuation or private character.
bool IsOtherLetter(char32_t c) {
    if (c == 0xAA || c == 0xB5 || c == 0xBA) {
        return true;
    }
    if (c < 0xC0 || c == 0xD7 || c == 0xF7 || c == 0xFFFD || c >= 0xF0000) {
        return false;
    }
    return !(c >= 0x2000 && c <= 0x2BFF) && !(c >= 0x3000 && c <= 0x3003) &&
           !(c >= 0xE000 && c <= 0xF8FF);
}

struct PairRow {
    std::string_view Text;
    TokenKind Kind;
};
constexpr PairRow kPairs[] = {
    {":=", TokenKind::ColonEqual},
    {"<=", TokenKind::LessOrEqual},
    {"=<", TokenKind::LessOrEqual},
    {">=", TokenKind::GreaterOrEqual},
    {"=>", TokenKind::GreaterOrEqual},
    {"<>", TokenKind::NotEqual},
    {"><", TokenKind::NotEqual},
};

struct SignRow {
    char Sign;
    TokenKind Kind;
};
constexpr SignRow kSigns[] = {
    {'(', TokenKind::LeftParenthesis},
    {')', TokenKind::RightParenthesis},
    {',', TokenKind::Comma},
    {'.', TokenKind::Dot},
    {'!', TokenKind::Bang},
    {':', TokenKind::Colon},
    {';', TokenKind::Semicolon},
    {'=', TokenKind::Equal},
    {'<', TokenKind::Less},
    {'>', TokenKind::Greater},
    {'+', TokenKind::Plus},
    {'-', TokenKind::Minus},
    {'*', TokenKind::Star},
    {'/', TokenKind::Slash},
    {'\\', TokenKind::Backslash},
    {'^', TokenKind::Caret},
    {'&', TokenKind::Ampersand},
    {'#', TokenKind::Hash},
};

constexpr auto kKindOfSign = [] {
    std::array<TokenKind, 256> kinds{};
    kinds.fill(TokenKind::Invalid);
    for (const SignRow& row : kSigns) {
        kinds[static_cast<unsigned char>(row.Sign)] = row.Kind;
    }
    return kinds;
}();

bool BeginsStatement(const Token& token) {
    return token.Kind == TokenKind::Colon ||
           (token.Kind == TokenKind::Keyword &&
            (token.Word == Keyword::Then || token.Word == Keyword::Else));
}

/// Whether a jump may follow the words of a line: as a statement, after its line number, and after the value that `On` tests.
bool MayBeginJump(std::span<const Token> words) {
    const auto last = std::find_if(words.rbegin(), words.rend(), BeginsStatement);
    const auto statement = words.last(static_cast<std::size_t>(last - words.rbegin()));
    const bool isLabelled = words.size() == 1 && words[0].Kind == TokenKind::Number;
    return statement.empty() || isLabelled ||
           (statement[0].Kind == TokenKind::Keyword && statement[0].Word == Keyword::On);
}

bool EndsOperand(const Token& token) {
    return token.Kind == TokenKind::Name || token.Kind == TokenKind::Number ||
           token.Kind == TokenKind::String || token.Kind == TokenKind::Date ||
           token.Kind == TokenKind::RightParenthesis;
}

}  // namespace

bool Lexer::BeginsName(std::size_t offset, std::size_t& size) const {
    const char c = m_text[offset];
    size = 1;
    if (static_cast<unsigned char>(c) < 0x80) {
        return IsLetter(c);
    }
    const auto character = modUtf8::Decode(m_text, offset);
    size = character.Size;
    return character.Valid && IsOtherLetter(character.CodePoint);
}

void Lexer::ReadWord(std::vector<Token>& tokens, Token& token) {
    const std::size_t start = m_at;
    std::size_t size = 0;
    while (m_at < m_text.size()) {
        const char c = m_text[m_at];
        if (IsDigit(c) || c == '_') {
            ++m_at;
        } else if (BeginsName(m_at, size)) {
            m_at += size;
        } else {
            break;
        }
    }
    token.Text = m_text.substr(start, m_at - start);
    token.Word = FindKeyword(token.Text);
    const TokenKind before =
        tokens.size() > 1 ? tokens[tokens.size() - 2].Kind : TokenKind::EndOfLine;
    const bool isMember = before == TokenKind::Dot || before == TokenKind::Bang;
    token.Kind = IsReserved(token.Word) && !isMember ? TokenKind::Keyword : TokenKind::Name;
    if (token.Kind == TokenKind::Keyword) {
        JoinGo(tokens);
        return;
    }
    if (IsReserved(token.Word)) {
        token.Word = Keyword::None;
    }
    if (token.Text.size() > kLongestName && modUtf8::Length(token.Text) > kLongestName) {
        m_errors.Add(parseerror::kIdentifierTooLong, token.Place);
    }
    ReadSuffix(token);
}

/// `Go To` and `Go Sub` are one word where a jump is allowed. Elsewhere Go is a name: `For i = go To 5`.
void Lexer::JoinGo(std::vector<Token>& tokens) {
    const Keyword second = tokens.back().Word;
    const std::size_t place = tokens.size() - 2;
    if (tokens.size() < 2 || (second != Keyword::To && second != Keyword::Sub) ||
        !modTextCase::Equal(tokens[place].Text, "Go") || tokens[place].Suffix != 0 ||
        !MayBeginJump(std::span(tokens).first(place))) {
        return;
    }
    tokens.pop_back();
    tokens.back().Kind = TokenKind::Keyword;
    tokens.back().Word = second == Keyword::To ? Keyword::GoTo : Keyword::GoSub;
}

/// Whether an `&` here joins what comes before and after it: after a suffix neither is possible.
bool Lexer::JoinsTwo() const {
    std::size_t size = 0;
    const char next = CharacterAt(m_at + 1);
    return next != '\0' && (BeginsName(m_at + 1, size) || IsDigit(next) ||
                            std::string_view("\"[.#").find(next) != std::string_view::npos);
}

/// `!` before a name is the sign between an object and a key.
void Lexer::ReadSuffix(Token& token) {
    const char c = CharacterAt(m_at);
    if (c == '\0' || std::string_view("%&!#@$").find(c) == std::string_view::npos) {
        return;
    }
    if (token.Kind == TokenKind::Number && c == '$') {
        return;
    }
    std::size_t size = 0;
    const bool nameFollows =
        m_at + 1 < m_text.size() && (BeginsName(m_at + 1, size) || m_text[m_at + 1] == '[');
    if (c == '!' && nameFollows) {
        return;
    }
    if (c == '&' && JoinsTwo()) {
        return;
    }
    token.Suffix = c;
    ++m_at;
}

void Lexer::ReadBracketedName(Token& token) {
    const std::size_t end = m_text.find(']', m_at);
    token.Kind = TokenKind::Name;
    if (end == std::string_view::npos) {
        m_errors.Add(parseerror::kExpectedRightBracket, PlaceAt(m_text.size()));
        token.Text = m_text.substr(m_at + 1);
        m_at = m_text.size();
        return;
    }
    token.Text = m_text.substr(m_at + 1, end - m_at - 1);
    m_at = end + 1;
    if (token.Text.empty()) {
        m_errors.Add(parseerror::kExpectedIdentifier, token.Place);
    } else if (modUtf8::Length(token.Text) > kLongestName) {
        m_errors.Add(parseerror::kIdentifierTooLong, token.Place);
    }
    ReadSuffix(token);
}

void Lexer::ReadDigits() {
    while (IsDigit(CharacterAt(m_at))) {
        ++m_at;
    }
}

void Lexer::ReadExponent() {
    const char c = static_cast<char>(CharacterAt(m_at) | 0x20);
    if (c != 'e' && c != 'd') {
        return;
    }
    const char sign = CharacterAt(m_at + 1);
    const std::size_t digits = m_at + (sign == '+' || sign == '-' ? 2 : 1);
    if (!IsDigit(CharacterAt(digits))) {
        return;
    }
    m_at = digits;
    ReadDigits();
}

void Lexer::ReadNumber(Token& token) {
    const std::size_t start = m_at;
    token.Kind = TokenKind::Number;
    ReadDigits();
    if (CharacterAt(m_at) == '.') {
        ++m_at;
        ReadDigits();
    }
    ReadExponent();
    ReadSuffix(token);
    token.Text = m_text.substr(start, m_at - start);
}

/// Where the digits of `&H..`, `&O..` or `&..` begin, counted from the `&`; 0 if it is the operator.
std::size_t Lexer::RadixDigits(const std::vector<Token>& tokens, bool blankBefore) const {
    const bool behindOperand = tokens.size() > 1 && EndsOperand(tokens[tokens.size() - 2]);
    if (behindOperand && !blankBefore) {
        return 0;
    }
    const char c = static_cast<char>(CharacterAt(m_at + 1) | 0x20);
    const char digit = CharacterAt(m_at + 2);
    if (c == 'h' && IsHexDigit(digit)) {
        return 2;
    }
    if (c == 'o' && digit >= '0' && digit <= '7') {
        return 2;
    }
    const char octal = CharacterAt(m_at + 1);
    return !behindOperand && octal >= '0' && octal <= '7' ? 1 : 0;
}

void Lexer::ReadRadixNumber(Token& token, std::size_t digits) {
    const std::size_t start = m_at;
    token.Kind = TokenKind::Number;
    const bool isHex = (CharacterAt(m_at + 1) | 0x20) == 'h';
    m_at += digits;
    while (isHex ? IsHexDigit(CharacterAt(m_at)) : IsDigit(CharacterAt(m_at))) {
        ++m_at;
    }
    ReadSuffix(token);
    token.Text = m_text.substr(start, m_at - start);
}

void Lexer::ReadSign(Token& token) {
    const char next = CharacterAt(m_at + 1);
    token.Kind = kKindOfSign[static_cast<unsigned char>(m_text[m_at])];
    std::size_t size = 1;
    if (next == '=' || next == '<' || next == '>') {
        for (const PairRow& row : kPairs) {
            if (!m_text.substr(m_at).starts_with(row.Text)) {
                continue;
            }
            token.Kind = row.Kind;
            size = row.Text.size();
        }
    }
    if (token.Kind == TokenKind::Invalid) {
        size = modUtf8::CharacterSize(m_text, m_at);
    }
    token.Text = m_text.substr(m_at, size);
    m_at += size;
}

}  // namespace dorvik::basic
