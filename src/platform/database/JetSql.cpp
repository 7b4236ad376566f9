#include "platform/database/JetSql.h"

#include "JetReader.h"
#include "base/modTextCase.h"

#include <optional>

// The grammar, from the loosest binding to the tightest:
//
//   statement   query | update
//   query       select { UNION [ALL] select }
//   select      SELECT [DISTINCT] item {, item} FROM source [WHERE or] [GROUP BY or {, or}]
//               [ORDER BY term {, term}]
//   update      UPDATE name SET name = or {, name = or} [WHERE or]
//   item        "*" | name "." "*" | or [AS name]
//   source      join {, join}
//   join        table { (INNER | LEFT | RIGHT) JOIN table ON or }
//   table       name [[AS] name] | "(" join ")" | "(" query ")" [[AS] name]
//   or          and { OR and }
//   and         not { AND not }
//   not         NOT not | comparison
//   comparison  joined [ operator joined | IS [NOT] NULL ]
//   joined      sum { "&" sum }
//   sum         product { ("+" | "-") product }
//   product     sign { ("*" | "/") sign }
//   sign        "-" sign | primary
//   primary     literal | TRUE | FALSE | NULL | function "(" ... ")" | name ["." name] | "(" or ")"
//
// A sort term takes a whole "or": an AND after ORDER BY belongs to the last sort term. AND, OR and NOT
// work bit by bit where an operand is a number: "Impact AND Severity <> 1" is the impact where the
// comparison holds (-1, all bits) and 0 where it does not.

namespace dorvik::modJetSql {

namespace {

using Kind = JetToken::Kind;

/// The select list of one SELECT.
struct SelectList {
    std::string Sql;
    bool OnlyPlainColumns = true;  // "*" or unqualified columns under their own names
    bool OnlyStar = false;
    std::vector<std::string> Columns;
    std::optional<std::string> CommonQualifier;  // the one table that all items are qualified with
};

/// Reads the tokens of one statement. Lives for one call of `Translate`.
class Translator {
public:
    Translator(const JetTokens& tokens, std::string_view text) : m_reader(tokens, text) {}

    JetTranslation Translate() {
        JetTranslation result;
        if (m_reader.IsWord("UPDATE")) {
            result.Sql = Update();
        } else {
            result.IsQuery = true;
            result.Sql = Query(&result);
        }
        if (m_reader.Here().Type != Kind::End) {
            m_reader.Fail();
        }
        return result;
    }

private:
    std::string Update() {
        m_reader.ExpectWord("UPDATE");
        std::string sql = "UPDATE " + Bracketed(m_reader.ExpectName());
        m_reader.ExpectWord("SET");
        std::string separator = " SET ";
        do {
            sql += separator + Bracketed(m_reader.ExpectName()) + " = ";
            m_reader.ExpectSymbol("=");
            sql += m_reader.Expression().AsValue();
            separator = ", ";
        } while (m_reader.TakeSymbol(","));
        return sql + Where();
    }

    /// `result`, when given, learns whether the rows can be edited.
    std::string Query(JetTranslation* result) {
        std::string sql = Select(result);
        while (m_reader.TakeWord("UNION")) {
            sql += m_reader.TakeWord("ALL") ? " UNION ALL " : " UNION ";
            sql += Select(nullptr);
            if (result != nullptr) {
                result->EditableTable.clear();
            }
        }
        return sql;
    }

    std::string Select(JetTranslation* result) {
        m_reader.ExpectWord("SELECT");
        const bool isDistinct = m_reader.TakeWord("DISTINCT");
        const SelectList list = Items();
        m_reader.ExpectWord("FROM");
        std::string onlyTable;
        const std::string source = Source(onlyTable);
        const std::string where = Where();
        const std::string groups = GroupBy();
        const std::string order = OrderBy();
        if (result != nullptr && !isDistinct && groups.empty() && !onlyTable.empty() &&
            list.OnlyPlainColumns) {
            result->EditableTable = onlyTable;
            result->EditableFields = list.Columns;
            result->KeySql = "SELECT rowid FROM " + source + where + order;
        }
        m_commonQualifier = list.CommonQualifier;
        return (isDistinct ? "SELECT DISTINCT " : "SELECT ") + list.Sql + " FROM " + source +
               where + groups + order;
    }

    SelectList Items() {
        SelectList list;
        bool isFirst = true;
        do {
            list.Sql += isFirst ? "" : ", ";
            Item(list, isFirst);
            isFirst = false;
        } while (m_reader.TakeSymbol(","));
        list.OnlyPlainColumns = list.OnlyPlainColumns && (!list.OnlyStar || list.Columns.empty());
        return list;
    }

    void Item(SelectList& list, bool isFirst) {
        if (m_reader.TakeSymbol("*")) {
            list.Sql += '*';
            list.OnlyStar = isFirst;
            list.OnlyPlainColumns = list.OnlyPlainColumns && isFirst;
            list.CommonQualifier.reset();
            return;
        }
        if (m_reader.IsName() && IsQualifiedStar()) {
            const std::string table = m_reader.ExpectName();
            m_reader.ExpectSymbol(".");
            m_reader.ExpectSymbol("*");
            list.Sql += Bracketed(table) + ".*";
            list.OnlyPlainColumns = false;
            NoteQualifier(list, table, isFirst);
            return;
        }
        const JetExpression expression = m_reader.Expression();
        const bool hasAlias = m_reader.TakeWord("AS");
        list.OnlyPlainColumns = list.OnlyPlainColumns && !hasAlias && !expression.Column.empty() &&
                                expression.Qualifier.empty();
        list.Columns.push_back(expression.Column);
        NoteQualifier(list, expression.Qualifier, isFirst);
        list.Sql += expression.AsValue() + " AS ";
        if (hasAlias) {
            list.Sql += Bracketed(m_reader.ExpectName());
        } else if (!expression.Column.empty()) {
            list.Sql += Bracketed(expression.Column);
        } else {
            list.Sql += "[Expr" + std::to_string(m_nextUnnamed++) + ']';
        }
    }

    bool IsQualifiedStar() const {
        return m_reader.Ahead(1).Spelling == "." && m_reader.Ahead(2).Type == Kind::Symbol &&
               m_reader.Ahead(2).Spelling == "*";
    }

    static void NoteQualifier(SelectList& list, const std::string& qualifier, bool isFirst) {
        if (isFirst && !qualifier.empty()) {
            list.CommonQualifier = qualifier;
        } else if (list.CommonQualifier && !modTextCase::Equal(*list.CommonQualifier, qualifier)) {
            list.CommonQualifier.reset();
        }
    }

    /// `onlyTable` gets the name where the source is one table under its own name.
    std::string Source(std::string& onlyTable) {
        if (m_reader.IsName() && EndsSource(m_reader.Ahead(1))) {
            onlyTable = m_reader.Here().Spelling;
        }
        std::string sql = Join();
        while (m_reader.TakeSymbol(",")) {
            sql += ", " + Join();
        }
        return sql;
    }

    /// True for what can follow the one table of a source.
    static bool EndsSource(const JetToken& token) {
        return token.Type == Kind::End ||
               (token.Type == Kind::Word && (modTextCase::Equal(token.Spelling, "WHERE") ||
                                             modTextCase::Equal(token.Spelling, "GROUP") ||
                                             modTextCase::Equal(token.Spelling, "ORDER") ||
                                             modTextCase::Equal(token.Spelling, "UNION")));
    }

    std::string Join() {
        std::string sql = Table();
        for (;;) {
            if (m_reader.TakeWord("INNER")) {
                sql += " INNER JOIN ";
            } else if (m_reader.TakeWord("LEFT")) {
                sql += " LEFT JOIN ";
            } else if (m_reader.TakeWord("RIGHT")) {
                sql += " RIGHT JOIN ";
            } else {
                return sql;
            }
            m_reader.ExpectWord("JOIN");
            sql += Table();
            m_reader.ExpectWord("ON");
            sql += " ON " + m_reader.Expression().Sql;
        }
    }

    std::string Table() {
        std::string sql;
        std::string inheritedName;
        if (m_reader.TakeSymbol("(")) {
            const bool isQuery = m_reader.IsWord("SELECT");
            const auto nesting = m_reader.EnterNesting();
            sql = '(' + (isQuery ? Query(nullptr) : Join()) + ')';
            m_reader.ExpectSymbol(")");
            if (!isQuery) {
                return sql;
            }
            // A sub-query without a name still answers to the table that its columns come from.
            inheritedName = m_commonQualifier.value_or("");
        } else {
            sql = Bracketed(m_reader.ExpectName());
        }
        if (m_reader.TakeWord("AS") || m_reader.IsName()) {
            return sql + " AS " + Bracketed(m_reader.ExpectName());
        }
        return inheritedName.empty() ? sql : sql + " AS " + Bracketed(inheritedName);
    }

    std::string Where() {
        return m_reader.TakeWord("WHERE") ? " WHERE " + m_reader.Expression().Sql : std::string();
    }

    std::string GroupBy() {
        std::string sql;
        if (m_reader.TakeWord("GROUP")) {
            m_reader.ExpectWord("BY");
            do {
                sql += (sql.empty() ? " GROUP BY " : ", ") + SortedValue();
            } while (m_reader.TakeSymbol(","));
        }
        return sql;
    }

    std::string OrderBy() {
        std::string sql;
        if (m_reader.TakeWord("ORDER")) {
            m_reader.ExpectWord("BY");
            do {
                sql += (sql.empty() ? " ORDER BY " : ", ") + SortedValue();
                if (m_reader.TakeWord("DESC")) {
                    sql += " DESC";
                } else if (m_reader.TakeWord("ASC")) {
                    sql += " ASC";
                }
            } while (m_reader.TakeSymbol(","));
        }
        return sql;
    }

    /// A bare number would name a position of the select list, and numbers are parameters here.
    std::string SortedValue() {
        const JetExpression expression = m_reader.Expression();
        if (expression.IsPlainNumber) {
            m_reader.Fail();
        }
        return expression.AsValue();
    }

    JetReader m_reader;
    int m_nextUnnamed = 1000;
    std::optional<std::string> m_commonQualifier;  // of the SELECT read last
};

}  // namespace

JetTranslation Translate(const JetTokens& tokens, std::string_view text) {
    return Translator(tokens, text).Translate();
}

}  // namespace dorvik::modJetSql
