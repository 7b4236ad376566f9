#include "JetReader.h"

#include "base/modTextCase.h"

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

using Kind = JetToken::Kind;
using modJetSql::Bracketed;

constexpr std::array<std::string_view, 20> kReserved = {
    "SELECT", "DISTINCT", "FROM", "WHERE", "GROUP", "ORDER", "BY", "UNION", "ALL", "INNER",
    "LEFT",   "RIGHT",    "JOIN", "ON",    "AS",    "AND",   "OR", "NOT",   "SET", "UPDATE"};
constexpr std::array<std::string_view, 5> kFunctions = {"Count", "Sum", "Max", "Min", "Avg"};

template <class Table>
bool IsOneOf(std::string_view word, const Table& table) {
    return std::any_of(table.begin(), table.end(), [word](std::string_view entry) {
        return modTextCase::Equal(word, entry);
    });
}

JetExpression Value(std::string sql) {
    return {std::move(sql), false, false, {}, {}};
}

JetExpression Condition(std::string sql) {
    return {std::move(sql), true, false, {}, {}};
}

/// Between two conditions the operator is a logical one; with a number on either side it works bit by
/// bit, on -1 and 0 for the condition.
JetExpression
Combined(const JetExpression& left, std::string_view sign, const JetExpression& right) {
    if (left.IsCondition && right.IsCondition) {
        return Condition(left.Sql + ' ' + std::string(sign) + ' ' + right.Sql);
    }
    const std::string function = sign == "AND" ? "JetAnd(" : "JetOr(";
    return Value(function + left.AsValue() + ", " + right.AsValue() + ')');
}

}  // namespace

std::string modJetSql::Bracketed(std::string_view name) {
    std::string result = "[";
    result += name;
    result += ']';
    return result;
}

std::string JetExpression::AsValue() const {
    return IsCondition ? "(-(" + Sql + "))" : Sql;
}

const JetToken& JetReader::Ahead(std::size_t count) const {
    return m_tokens[std::min(m_at + count, m_tokens.size() - 1)];
}

bool JetReader::IsWord(std::string_view word) const {
    return Here().Type == Kind::Word && modTextCase::Equal(Here().Spelling, word);
}

bool JetReader::IsSymbol(std::string_view symbol) const {
    return Here().Type == Kind::Symbol && Here().Spelling == symbol;
}

bool JetReader::IsName() const {
    return Here().Type == Kind::BracketedName ||
           (Here().Type == Kind::Word && !IsOneOf(Here().Spelling, kReserved));
}

bool JetReader::TakeWord(std::string_view word) {
    const bool taken = IsWord(word);
    m_at += taken ? 1 : 0;
    return taken;
}

bool JetReader::TakeSymbol(std::string_view symbol) {
    const bool taken = IsSymbol(symbol);
    m_at += taken ? 1 : 0;
    return taken;
}

void JetReader::ExpectWord(std::string_view word) {
    if (!TakeWord(word)) {
        Fail();
    }
}

void JetReader::ExpectSymbol(std::string_view symbol) {
    if (!TakeSymbol(symbol)) {
        Fail();
    }
}

std::string JetReader::ExpectName() {
    if (!IsName()) {
        Fail();
    }
    return std::string(m_tokens[m_at++].Spelling);
}

JetReader::Nesting JetReader::EnterNesting() {
    constexpr int kMaxNesting = 200;
    if (m_depth >= kMaxNesting) {
        Fail();
    }
    return Nesting(m_depth);
}

JetExpression JetReader::Expression() {
    const auto nesting = EnterNesting();
    JetExpression left = And();
    while (TakeWord("OR")) {
        left = Combined(left, "OR", And());
    }
    return left;
}

JetExpression JetReader::And() {
    JetExpression left = Not();
    while (TakeWord("AND")) {
        left = Combined(left, "AND", Not());
    }
    return left;
}

JetExpression JetReader::Not() {
    if (TakeWord("NOT")) {
        const auto nesting = EnterNesting();
        const JetExpression operand = Not();
        return operand.IsCondition ? Condition("NOT " + operand.Sql)
                                   : Value("~(" + operand.Sql + ")");
    }
    return Comparison();
}

JetExpression JetReader::Comparison() {
    JetExpression left = Joined();
    if (TakeWord("IS")) {
        const bool isNegated = TakeWord("NOT");
        ExpectWord("NULL");
        return Condition(left.AsValue() + (isNegated ? " IS NOT NULL" : " IS NULL"));
    }
    for (const std::string_view sign : {"=", "<>", "<=", ">=", "<", ">"}) {
        if (TakeSymbol(sign)) {
            return Condition(left.AsValue() + ' ' + std::string(sign) + ' ' + Joined().AsValue());
        }
    }
    return left;
}

/// Joining texts binds looser than a sum here and tightest in the other spelling.
JetExpression JetReader::Joined() {
    JetExpression left = Sum();
    while (TakeSymbol("&")) {
        left = Value("(ifnull(" + left.AsValue() + ", '') || ifnull(" + Sum().AsValue() + ", ''))");
    }
    return left;
}

JetExpression JetReader::Sum() {
    JetExpression left = Product();
    for (;;) {
        if (TakeSymbol("+")) {
            left = Value(left.AsValue() + " + " + Product().AsValue());
        } else if (TakeSymbol("-")) {
            left = Value(left.AsValue() + " - " + Product().AsValue());
        } else {
            return left;
        }
    }
}

JetExpression JetReader::Product() {
    JetExpression left = Sign();
    for (;;) {
        if (TakeSymbol("*")) {
            left = Value(left.AsValue() + " * " + Sign().AsValue());
        } else if (TakeSymbol("/")) {  // never a whole division
            left = Value("1.0 * " + left.AsValue() + " / " + Sign().AsValue());
        } else {
            return left;
        }
    }
}

JetExpression JetReader::Sign() {
    if (!TakeSymbol("-")) {
        return Primary();
    }
    const auto nesting = EnterNesting();
    const JetExpression operand = Sign();
    JetExpression result = Value("-(" + operand.AsValue() + ")");
    result.IsPlainNumber = operand.IsPlainNumber;
    return result;
}

JetExpression JetReader::Primary() {
    if (Here().Type == Kind::Number || Here().Type == Kind::Text) {
        JetExpression result = Value("?");
        result.IsPlainNumber = Here().Type == Kind::Number;
        ++m_at;
        return result;
    }
    if (TakeSymbol("(")) {
        JetExpression inner = Expression();
        ExpectSymbol(")");
        inner.Sql = '(' + inner.Sql + ')';
        inner.Column.clear();
        return inner;
    }
    if (TakeWord("TRUE")) {
        return Value("-1");
    }
    if (TakeWord("FALSE")) {
        return Value("0");
    }
    if (TakeWord("NULL")) {
        return Value("NULL");
    }
    return IsFunction() ? Function() : Column();
}

bool JetReader::IsFunction() const {
    return Here().Type == Kind::Word && Ahead(1).Spelling == "(" &&
           IsOneOf(Here().Spelling, kFunctions);
}

JetExpression JetReader::Function() {
    std::string sql(m_tokens[m_at].Spelling);
    m_at += 2;
    const bool countsRows = modTextCase::Equal(sql, "Count") && TakeSymbol("*");
    sql += '(' + (countsRows ? "*" : Expression().AsValue()) + ')';
    ExpectSymbol(")");
    return Value(std::move(sql));
}

JetExpression JetReader::Column() {
    JetExpression result;
    result.Column = ExpectName();
    if (TakeSymbol(".")) {
        result.Qualifier = std::move(result.Column);
        result.Column = ExpectName();
        result.Sql = Bracketed(result.Qualifier) + '.';
    }
    result.Sql += Bracketed(result.Column);
    return result;
}

}  // namespace dorvik
