#pragma once

#include "platform/database/JetSql.h"

#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// An expression in the spelling of SQLite.
struct JetExpression {
    std::string Sql;
    bool IsCondition =
        false;  // true or false, which the store counts as 1 and 0 rather than -1 and 0
    bool IsPlainNumber = false;
    std::string Column;     // the name, where it is nothing but a column
    std::string Qualifier;  // the table that the column is qualified with

    /// As a value: a condition that is true counts -1, also where it is compared, sorted or shown.
    std::string AsValue() const;
};

/// Reads the tokens of an SQL text from the first on, and translates the expressions among them; the
/// grammar is in JetSql.cpp. Whatever does not fit raises `databaseerror::kSyntax`.
class JetReader {
public:
    /// REQUIRES: both outlive this.
    JetReader(const JetTokens& tokens, std::string_view text)
        : m_tokens(tokens.Tokens), m_text(text) {}

    JetExpression Expression();

    const JetToken& Here() const { return m_tokens[m_at]; }
    /// The token so many places on; the last one from there on.
    const JetToken& Ahead(std::size_t count) const;
    bool IsWord(std::string_view word) const;
    bool IsSymbol(std::string_view symbol) const;
    /// A word that is not reserved, or a bracketed name.
    bool IsName() const;

    bool TakeWord(std::string_view word);
    bool TakeSymbol(std::string_view symbol);
    void ExpectWord(std::string_view word);
    void ExpectSymbol(std::string_view symbol);
    std::string ExpectName();

    [[noreturn]] void Fail() const { modJetSql::RaiseSyntaxError(m_text, Here().Position); }

    /// One level of brackets or operators; it ends with its scope.
    class Nesting {
    public:
        explicit Nesting(int& depth) : m_depth(depth) { ++m_depth; }
        ~Nesting() { --m_depth; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

    private:
        int& m_depth;
    };
    /// Fails for a text that nests deeper than the stack should go.
    [[nodiscard]] Nesting EnterNesting();

private:
    JetExpression And();
    JetExpression Not();
    JetExpression Comparison();
    JetExpression Joined();
    JetExpression Sum();
    JetExpression Product();
    JetExpression Sign();
    JetExpression Primary();
    bool IsFunction() const;
    JetExpression Function();
    JetExpression Column();

    const std::vector<JetToken>& m_tokens;
    std::string_view m_text;
    std::size_t m_at = 0;
    int m_depth = 0;
};

namespace modJetSql {
/// The name in the brackets that keep it from being a keyword.
std::string Bracketed(std::string_view name);
}  // namespace modJetSql

}  // namespace dorvik
