#include "Lexer.h"

#include "base/modUtf8.h"
#include "basic/syntax/Parser.h"

#include <algorithm>
#include <span>

namespace dorvik::basic {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsCaselessEqual(std::string_view text, std::string_view lower) {
    return text.size() == lower.size() &&
           std::equal(text.begin(), text.end(), lower.begin(), [](char a, char b) {
               return (a >= 'A' && a <= 'Z' ? a + ('a' - 'A') : a) == b;
           });
}

/// Whether a file number may follow the words: `Print #1`, `As #1`, but not `Debug.Print`.
bool TakesFileNumber(std::span<const Token> words) {
    if (words.empty() || (words.size() > 1 && words[words.size() - 2].Kind == TokenKind::Dot)) {
        return false;
    }
    const Keyword word = words.back().Word;
    constexpr Keyword kWords[] = {
        Keyword::As,
        Keyword::Close,
        Keyword::Get,
        Keyword::Input,
        Keyword::Lock,
        Keyword::Print,
        Keyword::Put,
        Keyword::Seek,
        Keyword::Unlock,
        Keyword::Width,
        Keyword::Write,
    };
    return std::find(std::begin(kWords), std::end(kWords), word) != std::end(kWords);
}

/// Blanks may follow the sign: they are invisible.
bool EndsWithContinuation(std::string_view line) {
    line = line.substr(0, line.find_last_not_of(" \t") + 1);
    return line.size() >= 2 && line.back() == '_' && IsBlank(line[line.size() - 2]);
}

}  // namespace

char Lexer::FirstCharacter() const {
    const std::string_view line = m_lines[m_line];
    const std::size_t at = line.find_first_not_of(" \t");
    return at == std::string_view::npos ? '\0' : line[at];
}

void Lexer::BeginPhysicalLine() {
    m_text = m_lines[m_line];
    m_at = 0;
    m_isAscii = modUtf8::IsAscii(m_text);
    m_countedOffset = 0;
    m_countedColumn = 1;
}

bool Lexer::ContinueOnNextLine() {
    if (m_line + 1 >= m_lines.size()) {
        return false;
    }
    ++m_line;
    BeginPhysicalLine();
    return true;
}

SourcePlace Lexer::PlaceAt(std::size_t offset) {
    const auto line = static_cast<std::int32_t>(m_line + 1);
    if (m_isAscii) {
        return {line, static_cast<std::int32_t>(offset + 1)};
    }
    while (m_countedOffset < offset) {
        m_countedOffset += modUtf8::CharacterSize(m_text, m_countedOffset);
        ++m_countedColumn;
    }
    return {line, m_countedColumn};
}

void Lexer::ReadLine(std::vector<Token>& tokens) {
    tokens.clear();
    BeginPhysicalLine();
    bool isContinued = false;
    while (true) {
        const bool blankBefore = SkipBlanks();
        if (AtContinuation()) {
            isContinued = ContinueOnNextLine();
            if (isContinued) {
                continue;
            }
            m_at = m_text.size();
        }
        if (m_at >= m_text.size()) {
            break;
        }
        if (m_text[m_at] == '\'' || AtRem(tokens)) {
            SkipComment();
            break;
        }
        if (tokens.size() >= static_cast<std::size_t>(kLongestLine)) {
            CutLongLine(tokens);
            break;
        }
        Token token;
        // A continuation does not count as a blank: `.x` at the start of the next line belongs to what comes before.
        token.BlankBefore = (blankBefore || m_at == 0) && !isContinued;
        isContinued = false;
        token.Place = PlaceAt(m_at);
        tokens.push_back(token);
        ReadToken(tokens);
    }
    Token end;
    end.Place = PlaceAt(std::min(m_at, m_text.size()));
    tokens.push_back(end);
    ++m_line;
}

void Lexer::SkipLine() {
    bool inComment = false;
    while (true) {
        const std::string_view line = m_lines[m_line++];
        bool inString = false;
        for (std::size_t i = 0; i < line.size() && !inComment; ++i) {
            if (line[i] == '"') {
                inString = !inString;
            } else if (line[i] == '\'' && !inString) {
                inComment = true;
            }
        }
        if (!EndsWithContinuation(line) || (inString && !inComment) || !HasLine()) {
            return;
        }
    }
}

bool Lexer::SkipBlanks() {
    const std::size_t start = m_at;
    while (m_at < m_text.size() && IsBlank(m_text[m_at])) {
        ++m_at;
    }
    return m_at != start;
}

bool Lexer::AtContinuation() const {
    return m_at < m_text.size() && m_at > 0 && m_text[m_at] == '_' && IsBlank(m_text[m_at - 1]) &&
           m_text.find_first_not_of(" \t", m_at + 1) == std::string_view::npos;
}

void Lexer::SkipComment() {
    while (EndsWithContinuation(m_text) && ContinueOnNextLine()) {
    }
    m_at = m_text.size();
}

/// `Rem` begins a comment where a statement may begin.
bool Lexer::AtRem(const std::vector<Token>& tokens) const {
    if ((m_text[m_at] | 0x20) != 'r' || !IsCaselessEqual(m_text.substr(m_at, 3), "rem")) {
        return false;
    }
    if (m_at + 3 < m_text.size() && !IsBlank(m_text[m_at + 3])) {
        return false;
    }
    if (tokens.empty()) {
        return true;
    }
    const Token& last = tokens.back();
    return last.Kind == TokenKind::Colon || last.Word == Keyword::Then ||
           last.Word == Keyword::Else || (last.Kind == TokenKind::Number && tokens.size() == 1);
}

void Lexer::CutLongLine(std::vector<Token>& tokens) {
    m_errors.AddText(
        parseerror::kSyntax,
        tokens.front().Place,
        "The line has more than " + std::to_string(kLongestLine) + " words and signs");
    tokens.clear();
    // The rest of the statement goes with it, as far as its continuations can be seen.
    while (EndsWithContinuation(m_text) && ContinueOnNextLine()) {
    }
    m_at = m_text.size();
}

void Lexer::ReadToken(std::vector<Token>& tokens) {
    Token& token = tokens.back();
    const char c = m_text[m_at];
    std::size_t size = 0;
    if (BeginsName(m_at, size)) {
        ReadWord(tokens, token);
    } else if (
        (c >= '0' && c <= '9') ||
        (c == '.' && CharacterAt(m_at + 1) >= '0' && CharacterAt(m_at + 1) <= '9')) {
        ReadNumber(token);
    } else if (c == '"') {
        ReadString(token);
    } else if (c == '[') {
        ReadBracketedName(token);
    } else if (c == '&') {
        if (const std::size_t digits = RadixDigits(tokens, token.BlankBefore)) {
            ReadRadixNumber(token, digits);
        } else {
            ReadSign(token);
        }
    } else if (c != '#' || !ReadDate(tokens, token)) {
        ReadSign(token);
    }
}

void Lexer::ReadString(Token& token) {
    const std::size_t start = m_at;
    token.Kind = TokenKind::String;
    ++m_at;
    while (true) {
        const std::size_t quote = m_text.find('"', m_at);
        if (quote == std::string_view::npos) {
            m_at = m_text.size();
            break;
        }
        m_at = quote + 1;
        if (CharacterAt(m_at) != '"') {
            break;
        }
        ++m_at;
    }
    token.Text = m_text.substr(start, m_at - start);
}

/// `#...#` with nothing between but what dates are written with. A `#` that begins the line begins a
/// directive, and one that opens a file number has no partner of that kind.
bool Lexer::ReadDate(const std::vector<Token>& tokens, Token& token) {
    constexpr std::size_t kLongestDate = 64;
    if (tokens.size() == 1 || TakesFileNumber(std::span(tokens).first(tokens.size() - 1))) {
        return false;
    }
    const std::size_t end = m_text.substr(0, m_at + kLongestDate).find('#', m_at + 1);
    if (end == std::string_view::npos) {
        return false;
    }
    const std::string_view text = m_text.substr(m_at + 1, end - m_at - 1);
    bool hasDigit = false;
    bool hasDivider = false;
    for (char c : text) {
        const bool isLetter = (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
        const bool isDigit = c >= '0' && c <= '9';
        if (!isLetter && !isDigit && std::string_view(" ,./:-").find(c) == std::string_view::npos) {
            return false;
        }
        hasDigit = hasDigit || isDigit;
        hasDivider = hasDivider || isLetter || c == '/' || c == ':' || c == '-';
    }
    if (!hasDigit || !hasDivider) {
        return false;
    }
    token.Kind = TokenKind::Date;
    token.Text = text;
    m_at = end + 1;
    return true;
}

}  // namespace dorvik::basic
