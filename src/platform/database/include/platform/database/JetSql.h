#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace dorvik {

/// A literal of an SQL text: a whole number, a fraction or a text.
using SqlLiteral = std::variant<std::int64_t, double, std::string>;

/// The values for the parameters of an SQL text, each a "?" in it, in their order. Whatever a value holds, it
/// is never read as a part of the text.
using SqlValues = std::vector<SqlLiteral>;

/// One token of an SQL text in the Jet spelling.
struct JetToken {
    enum class Kind : int { Word, BracketedName, Number, Text, Symbol, End };

    Kind Type = Kind::End;
    std::string_view Spelling;  // as written; the name without its brackets
    std::size_t Position = 0;   // byte offset in the text
    std::size_t Literal = 0;    // index of the value, for Number and Text
};

/// An SQL text cut into tokens. The views point into the text that was cut.
struct JetTokens {
    std::vector<JetToken> Tokens;    // the last one is of kind End
    SqlValues Literals;              // with the values of parameters, in their order of appearance
    std::string Shape;               // equal for texts that differ only in literals and blanks
    bool HasOnlyParameters = false;  // no literal is in the text itself
};

/// What the store is to do, in the spelling of SQLite, with "?" for each literal in order.
struct JetTranslation {
    std::string Sql;
    bool IsQuery = false;
    /// Set where the rows of a query can be edited: one table, plain columns. Otherwise empty.
    std::string EditableTable;
    /// The fields of the query on `EditableTable`; empty for all columns.
    std::vector<std::string> EditableFields;
    /// The query with the row key as its only column, for `EditableTable`.
    std::string KeySql;
};

/// Turns the Jet spelling of SQL into that of SQLite: by tokens and a grammar, never by replacing
/// text, so nothing inside a literal or a bracketed name is ever touched.
///
/// Understood are SELECT (DISTINCT, joins in brackets, sub-queries in FROM, WHERE, GROUP BY, ORDER BY,
/// UNION) and UPDATE, with names in square brackets, texts in either kind of quote, "?" for a value that is
/// handed over beside the text, `&` for joining
/// texts (nothing counts as an empty text) and True and False as -1 and 0. A comparison used as a value
/// is -1 or 0 too. Everything else raises a `databaseerror::kSyntax` that quotes the place.
namespace modJetSql {

/// Raises `databaseerror::kSyntax` with the part of the text that begins at `position`.
[[noreturn]] void RaiseSyntaxError(std::string_view text, std::size_t position);

/// Raises `databaseerror::kSyntax` for a quote or bracket without its partner, and where there are not as
/// many values as parameters.
JetTokens Tokenise(std::string_view text, SqlValues values = {});
/// `text` is the text that the tokens were cut from; errors quote it.
JetTranslation Translate(const JetTokens& tokens, std::string_view text);

}  // namespace modJetSql

}  // namespace dorvik
