#pragma once

#include "base/Variant.h"
#include "platform/database/JetSql.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace dorvik {

/// Raises the BasicError for a failure of the engine; the description holds the engine's text and `sql`.
[[noreturn]] void RaiseStoreError(sqlite3* engine, int code, std::string_view sql);

/// One prepared statement of the engine. Positions of parameters and columns begin at 0.
class PreparedStatement {
public:
    PreparedStatement(sqlite3* engine, std::string_view sql);
    PreparedStatement(PreparedStatement&& other) noexcept;
    PreparedStatement& operator=(PreparedStatement&&) = delete;
    ~PreparedStatement();
    PreparedStatement(const PreparedStatement&) = delete;
    PreparedStatement& operator=(const PreparedStatement&) = delete;

    /// The value must live until `Reset`.
    void Bind(int position, const Variant& value);
    void Bind(int position, const SqlLiteral& value);
    void Bind(int position, std::int64_t value);
    /// REQUIRES: as many literals as the statement has parameters.
    void BindAll(const std::vector<SqlLiteral>& literals);

    /// True when it is on a row.
    bool Step();
    /// Steps to the end and makes it ready for new values, also where it fails.
    void Run();
    /// The same, except that it does nothing, and can be run again with the same values, where the engine
    /// is busy. False then.
    bool RunUnlessBusy();
    void Reset();

    int ColumnCount() const;
    std::string_view ColumnName(int position) const;
    /// A boolean for a yes/no column; empty for null.
    Variant Column(int position) const;
    std::int64_t WholeColumn(int position) const;

private:
    void Check(int code);
    int StepToEnd();
    [[noreturn]] void FailAfterReset(int code);

    sqlite3* m_engine;
    sqlite3_stmt* m_statement = nullptr;
    std::vector<bool> m_isYesNo;  // by column
};

}  // namespace dorvik
