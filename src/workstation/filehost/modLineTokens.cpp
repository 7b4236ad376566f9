#include "workstation/filehost/modLineTokens.h"

#include "base/modTextCase.h"

#include <algorithm>
#include <array>
#include <utility>

namespace dorvik::modLineTokens {

namespace {

// clang-format off
constexpr auto kKeywords = std::to_array<std::string_view>({
    "addressof", "alias", "and", "any", "as", "base", "binary", "boolean", "byref", "byte", "byval", "call", "case",
    "close", "compare", "const", "currency", "date", "debug", "decimal", "declare", "defbool", "defbyte", "defcur",
    "defdate", "defdbl", "defint", "deflng", "defobj", "defsng", "defstr", "defvar", "dim", "do", "double", "each",
    "else", "elseif", "empty", "end", "enum", "eqv", "erase", "error", "event", "exit", "explicit", "false", "for",
    "friend", "function", "get", "global", "gosub", "goto", "if", "imp", "implements", "in", "input", "integer", "is",
    "let", "lib", "like", "line", "lock", "long", "loop", "lset", "me", "mod", "module", "name", "new", "next", "not",
    "nothing", "null", "object", "on", "open", "option", "optional", "or", "output", "paramarray", "preserve", "print",
    "private", "property", "public", "put", "raiseevent", "random", "read", "redim", "rem", "resume", "return", "rset",
    "seek", "select", "set", "shared", "single", "static", "step", "stop", "string", "sub", "text", "then", "to",
    "true", "type", "typeof", "unlock", "until", "variant", "wend", "while", "with", "withevents", "write", "xor",
});
// clang-format on
static_assert(std::ranges::is_sorted(kKeywords));

constexpr std::string_view kSuffixes = "$%&!#@";

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsNameStart(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           static_cast<unsigned char>(character) >= 0x80;
}

bool IsNamePart(char character) {
    return IsNameStart(character) || IsDigit(character) || character == '_';
}

bool IsBlank(char character) {
    return character == ' ' || character == '\t';
}

bool IsKeyword(std::string_view word) {
    constexpr std::size_t kLongest = 10;
    return word.size() <= kLongest &&
           std::ranges::binary_search(kKeywords, std::string_view(modTextCase::ToLower(word)));
}

/// Whether a statement may begin after that keyword.
bool LeadsToStatement(std::string_view word) {
    return modTextCase::Equal(word, "Then") || modTextCase::Equal(word, "Else");
}

class Tokeniser {
public:
    Tokeniser(std::string_view line, LineStart start)
        : m_line(line), m_atStatement(start == LineStart::Statement) {
        if (start == LineStart::ContinuedComment) {
            TakeComment();
        }
    }

    TokenisedLine Run() {
        while (m_place < m_line.size()) {
            if (IsBlank(m_line[m_place])) {
                ++m_place;
            } else {
                TakePart();
            }
        }
        return std::move(m_result);
    }

private:
    char At(std::size_t place) const { return place < m_line.size() ? m_line[place] : '\0'; }

    void Add(TokenKind kind, std::size_t end) {
        m_result.Tokens.push_back({kind, m_place, end - m_place});
        m_place = end;
    }

    template <typename Test>
    std::size_t EndOf(std::size_t place, Test test) const {
        while (place < m_line.size() && test(m_line[place])) {
            ++place;
        }
        return place;
    }

    void TakePart() {
        const char character = m_line[m_place];
        if (character == '\'') {
            TakeComment();
        } else if (character == '"') {
            TakeText();
        } else if (IsNameStart(character)) {
            TakeWord();
        } else if (IsDigit(character) || (character == '.' && IsDigit(At(m_place + 1)))) {
            TakeNumber();
        } else if (character == '&' && IsRadix(At(m_place + 1))) {
            Take(TokenKind::Number, WithSuffix(EndOf(m_place + 2, IsNamePart)));
        } else if (character == '#') {
            TakeHash();
        } else if (character == '[') {
            const std::size_t close = m_line.find(']', m_place);
            Take(
                close == std::string_view::npos ? TokenKind::Operator : TokenKind::Name,
                close == std::string_view::npos ? m_place + 1 : close + 1);
        } else if (character == '_' && IsLast(m_place)) {
            m_result.Next = LineStart::ContinuedStatement;
            Take(TokenKind::Continuation, m_place + 1);
        } else {
            Take(TokenKind::Operator, m_place + 1);
            m_atStatement = character == ':';
            m_afterPoint = character == '.' || character == '!';
        }
    }

    /// A part after which no statement begins.
    void Take(TokenKind kind, std::size_t end) {
        Add(kind, end);
        m_atStatement = false;
        m_afterPoint = false;
    }

    static bool IsRadix(char character) {
        return character == 'H' || character == 'h' || character == 'O' || character == 'o';
    }

    bool IsLast(std::size_t place) const {
        return EndOf(place + 1, IsBlank) == m_line.size() &&
               (place == 0 || IsBlank(m_line[place - 1]));
    }

    std::size_t WithSuffix(std::size_t end) const {
        return kSuffixes.find(At(end)) != std::string_view::npos && At(end) != '\0' ? end + 1 : end;
    }

    void TakeComment() {
        const std::size_t last = m_line.find_last_not_of(" \t");
        const bool isContinued =
            last != std::string_view::npos && m_line[last] == '_' && IsLast(last);
        m_result.Next = isContinued ? LineStart::ContinuedComment : LineStart::Statement;
        if (m_place < m_line.size()) {
            Add(TokenKind::Comment, m_line.size());
        }
    }

    void TakeText() {
        std::size_t end = m_place + 1;
        while (end < m_line.size() && (m_line[end] != '"' || At(end + 1) == '"')) {
            end += m_line[end] == '"' ? 2 : 1;
        }
        Take(TokenKind::Text, std::min(end + 1, m_line.size()));
    }

    void TakeWord() {
        const std::size_t end = EndOf(m_place, IsNamePart);
        const std::string_view word = m_line.substr(m_place, end - m_place);
        const bool isName = m_afterPoint || !IsKeyword(word);
        if (m_atStatement && !isName && modTextCase::Equal(word, "Rem") &&
            (end == m_line.size() || IsBlank(m_line[end]))) {
            TakeComment();
            return;
        }
        Take(
            isName ? TokenKind::Name : TokenKind::Keyword,
            isName || At(end) == '$' ? WithSuffixOfName(end) : end);
        m_atStatement = !isName && LeadsToStatement(word);
    }

    /// `a!b` has a member, `a! + 1` a number with its type.
    std::size_t WithSuffixOfName(std::size_t end) const {
        const bool isMember = At(end) == '!' && (IsNameStart(At(end + 1)) || At(end + 1) == '[');
        const bool isJoined = At(end) == '&' && (IsNamePart(At(end + 1)) || At(end + 1) == '"');
        return isMember || isJoined ? end : WithSuffix(end);
    }

    void TakeNumber() {
        const bool isLineNumber = m_atStatement && m_result.Tokens.empty();
        std::size_t end = EndOf(m_place, IsDigit);
        if (At(end) == '.') {
            end = EndOf(end + 1, IsDigit);
        }
        const bool isExponent =
            At(end) == 'E' || At(end) == 'e' || At(end) == 'D' || At(end) == 'd';
        const std::size_t digits = At(end + 1) == '+' || At(end + 1) == '-' ? end + 2 : end + 1;
        if (isExponent && IsDigit(At(digits))) {
            end = EndOf(digits, IsDigit);
        }
        Take(TokenKind::Number, WithSuffix(end));
        m_atStatement = isLineNumber;
    }

    /// A directive, a date, or the sign in front of a file number.
    void TakeHash() {
        const std::size_t wordEnd = EndOf(m_place + 1, IsNamePart);
        if (m_result.Tokens.empty() &&
            IsKeyword(m_line.substr(m_place + 1, wordEnd - m_place - 1))) {
            Take(TokenKind::Keyword, wordEnd);
            return;
        }
        const auto isDatePart = [](char character) {
            return IsNamePart(character) || IsBlank(character) || character == '/' ||
                   character == '-' || character == ':' || character == ',';
        };
        const std::size_t close = EndOf(m_place + 1, isDatePart);
        const bool isDate = At(close) == '#' && close > m_place + 1;
        Take(isDate ? TokenKind::Number : TokenKind::Operator, isDate ? close + 1 : m_place + 1);
    }

    std::string_view m_line;
    std::size_t m_place = 0;
    bool m_atStatement;
    bool m_afterPoint = false;  // what follows is a member, whatever its name
    TokenisedLine m_result;
};

}  // namespace

TokenisedLine Tokenise(std::string_view line, LineStart start) {
    return Tokeniser(line, start).Run();
}

}  // namespace dorvik::modLineTokens
