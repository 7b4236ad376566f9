#include "base/BasicError.h"
#include "platform/database/Database.h"
#include "platform/database/JetSql.h"

#include <charconv>

namespace dorvik::modJetSql {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Letters, the underscore and every byte of a character outside ASCII.
bool BeginsWord(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// Cuts one text. Lives for one call of `Tokenise`.
class Cutter {
public:
    Cutter(std::string_view text, SqlValues values) : m_text(text), m_values(std::move(values)) {
        constexpr std::size_t kUsualToken = 5;  // characters, with the space after it
        m_result.Shape.reserve(text.size() + text.size() / kUsualToken);
        m_result.Tokens.reserve(text.size() / kUsualToken + 2);
    }

    JetTokens Cut() {
        for (;;) {
            while (m_position < m_text.size() && IsBlank(m_text[m_position])) {
                ++m_position;
            }
            m_token = {JetToken::Kind::End, {}, m_position, 0};
            if (m_position == m_text.size()) {
                if (m_nextValue != m_values.size()) {
                    RaiseParameterCount();
                }
                m_result.HasOnlyParameters = m_result.Literals.size() == m_values.size();
                m_result.Tokens.push_back(m_token);
                return std::move(m_result);
            }
            CutToken(m_text[m_position]);
            m_result.Tokens.push_back(m_token);
        }
    }

private:
    void CutToken(char first) {
        if (BeginsWord(first)) {
            CutWord();
        } else if (IsDigit(first)) {
            CutNumber();
        } else if (first == '\'' || first == '"') {
            CutText(first);
        } else if (first == '[') {
            CutBracketedName();
        } else if (first == '?') {
            CutParameter();
        } else {
            CutSymbol();
        }
    }

    void Finish(JetToken::Kind kind, std::size_t end) {
        m_token.Type = kind;
        m_token.Spelling = m_text.substr(m_position, end - m_position);
        m_position = end;
    }

    void FinishWithSpelling(JetToken::Kind kind, std::size_t end) {
        Finish(kind, end);
        m_result.Shape += m_token.Spelling;
        m_result.Shape += ' ';
    }

    void FinishWithLiteral(JetToken::Kind kind, std::size_t end, SqlLiteral value) {
        Finish(kind, end);
        m_token.Literal = m_result.Literals.size();
        m_result.Literals.push_back(std::move(value));
        m_result.Shape += "? ";
    }

    void CutWord() {
        auto end = m_position + 1;
        while (end < m_text.size() && (BeginsWord(m_text[end]) || IsDigit(m_text[end]))) {
            ++end;
        }
        FinishWithSpelling(JetToken::Kind::Word, end);
    }

    void CutNumber() {
        const char* const begin = m_text.data() + m_position;
        const char* const limit = m_text.data() + m_text.size();
        std::int64_t whole = 0;
        const auto asWhole = std::from_chars(begin, limit, whole);
        double fraction = 0;
        const auto asFraction = std::from_chars(begin, limit, fraction);
        const bool isWhole = asWhole.ec == std::errc{} && asWhole.ptr == asFraction.ptr;
        const auto end = static_cast<std::size_t>(asFraction.ptr - m_text.data());
        if (end < m_text.size() && BeginsWord(m_text[end])) {
            RaiseSyntaxError(m_text, m_position);  // "12abc" is neither a number nor a name
        }
        FinishWithLiteral(
            JetToken::Kind::Number, end, isWhole ? SqlLiteral(whole) : SqlLiteral(fraction));
    }

    /// A doubled quote inside the text stands for one.
    void CutText(char quote) {
        std::string value;
        auto end = m_position + 1;
        for (;; ++end) {
            if (end == m_text.size()) {
                RaiseSyntaxError(m_text, m_position);
            }
            if (m_text[end] == quote) {
                ++end;
                if (end == m_text.size() || m_text[end] != quote) {
                    break;
                }
            }
            value += m_text[end];
        }
        FinishWithLiteral(JetToken::Kind::Text, end, std::move(value));
    }

    void CutBracketedName() {
        const auto closing = m_text.find(']', m_position);
        if (closing == std::string_view::npos || closing == m_position + 1) {
            RaiseSyntaxError(m_text, m_position);
        }
        FinishWithSpelling(JetToken::Kind::BracketedName, closing + 1);
        m_token.Spelling = m_token.Spelling.substr(1, m_token.Spelling.size() - 2);
    }

    void CutParameter() {
        if (m_nextValue == m_values.size()) {
            RaiseParameterCount();
        }
        SqlLiteral& value = m_values[m_nextValue++];
        const bool isText = std::holds_alternative<std::string>(value);
        FinishWithLiteral(
            isText ? JetToken::Kind::Text : JetToken::Kind::Number,
            m_position + 1,
            std::move(value));
    }

    [[noreturn]] void RaiseParameterCount() const {
        throw BasicError(
            databaseerror::kSyntax,
            std::to_string(m_values.size()) +
                " values are not as many as the parameters of the SQL text: " +
                std::string(m_text));
    }

    void CutSymbol() {
        const auto pair = m_text.substr(m_position, 2);
        const bool isPair = pair == "<>" || pair == "<=" || pair == ">=";
        FinishWithSpelling(JetToken::Kind::Symbol, m_position + (isPair ? 2 : 1));
    }

    std::string_view m_text;
    SqlValues m_values;
    std::size_t m_nextValue = 0;
    std::size_t m_position = 0;
    JetToken m_token;
    JetTokens m_result;
};

}  // namespace

void RaiseSyntaxError(std::string_view text, std::size_t position) {
    constexpr std::size_t kQuoted = 60;  // enough to find the place, short enough for a log line
    std::string description = "SQL syntax error ";
    if (position >= text.size()) {
        description += "at its end";
    } else {
        description += "at \"";
        description += text.substr(position, kQuoted);
        description += '"';
    }
    description += ": ";
    description += text;
    throw BasicError(databaseerror::kSyntax, description);
}

JetTokens Tokenise(std::string_view text, SqlValues values) {
    return Cutter(text, std::move(values)).Cut();
}

}  // namespace dorvik::modJetSql
