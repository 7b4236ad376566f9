#pragma once

#include "base/BasicError.h"
#include "foundation/log/Trap.h"
#include "platform/database/Database.h"
#include "results/StoreFailures.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace dorvik {

/// The file of a results database: opens and closes it, runs statements, and counts the failures. The parts of
/// `ResultsDB` share one.
class ResultsStore {
public:
    /// Module of the log lines of everything that works on a results database.
    static constexpr std::string_view kModule = "C_ResultsDB";
    /// The only version of a database that is opened.
    static constexpr std::string_view kSchemaVersion = "6.02.0000";

    ResultsStore() = default;
    ~ResultsStore() { CloseDatabase(); }
    ResultsStore(const ResultsStore&) = delete;
    ResultsStore& operator=(const ResultsStore&) = delete;

    // ---- the file ----

    /// Starts with no failures. False for a file that is not a results database, or that has another version; it
    /// is not changed then.
    bool OpenDatabase(
        const std::string& filename, std::chrono::milliseconds patience = Database::kPatience);
    void CloseDatabase();
    /// Closes and deletes the file that was opened last.
    void DeleteDatabase();
    /// Full path of the file that was opened last, or that could not be opened.
    const std::string& Filename() const { return m_filename; }
    /// The version that this file states; nothing if it states none.
    const std::optional<std::string>& FoundVersion() const { return m_foundVersion; }
    /// How long an operation waits for a lock of another program. REQUIRES: a database is open.
    void SetPatience(std::chrono::milliseconds patience) { m_database.SetPatience(patience); }
    /// Adds the indexes that make a finished review fast to read. A failure is logged, but not counted.
    void AddIndexes();

    // ---- statements ----

    /// Nothing if the query fails, which is logged.
    std::optional<Recordset> GetEditableRecordset(std::string_view sql, SqlValues values = {});
    std::optional<Recordset> GetReadOnlyRecordset(std::string_view sql, SqlValues values = {});
    /// The same for an operation that needs the rows: raises if the query fails.
    Recordset RequireEditableRows(std::string_view sql, SqlValues values = {});
    Recordset RequireRows(std::string_view sql, SqlValues values = {});
    /// Rows for reading. Raises where they cannot be opened; the failure is neither logged nor counted.
    Recordset BindRows(std::string_view sql) { return OpenRows(sql, RecordsetType::Snapshot, {}); }
    /// The first field of the first row as text; empty without a row. Raises as `RequireRows` does.
    std::string FirstText(std::string_view sql);
    /// Runs an UPDATE; raises where it fails.
    void Execute(std::string_view sql, SqlValues values);

    // ---- failures ----

    /// The failures since the database was opened.
    const StoreFailures& Failures() const { return m_failures; }
    /// Counts a loss that happened before the database was reached. `reason` is shown after a colon.
    void NoteLoss(std::string_view reason);
    /// Whether a statement fails if a value contains a quote, as in earlier versions. Such rows are not counted
    /// as lost, since the caller requested it.
    void KeepKnownFaults(bool keep);
    /// Whether any row or answer was lost, except to known faults.
    bool HasLostRows() const { return m_failures.Count() > m_knownFaults; }

    /// `dorvik::Trap` that counts the failure too: once, if one operation fails because another did.
    template <typename Body>
    bool Trap(const LogOrigin& origin, Body&& body) {
        ++m_openTraps;
        const bool isDone =
            dorvik::Trap(origin, std::forward<Body>(body), [this](const BasicError& failure) {
                m_failures.NoteReason(failure);
                return false;
            });
        m_hasFailed = m_hasFailed || !isDone;
        if (--m_openTraps == 0 && std::exchange(m_hasFailed, false)) {
            CountFailure();
        }
        return isDone;
    }
    /// The same for an operation that returns a value: that of the body or, after a failure, `otherwise`.
    template <typename Body>
    auto Trapped(
        const LogOrigin& origin,
        std::type_identity_t<std::invoke_result_t<Body>> otherwise,
        Body&& body) -> std::invoke_result_t<Body> {
        Trap(origin, [&] { otherwise = std::forward<Body>(body)(); });
        return otherwise;
    }

private:
    Recordset OpenRows(std::string_view sql, RecordsetType type, SqlValues values);
    void RaiseKnownFault(const SqlValues& values);
    void CountFailure();

    Database m_database;
    bool m_isOpen = false;
    std::string m_filename;
    std::optional<std::string> m_foundVersion;
    StoreFailures m_failures;
    int m_openTraps = 0;
    bool m_hasFailed = false;  // of an operation that is still open
    bool m_keepsKnownFaults = false;
    bool m_isKnownFault = false;     // the last failure was a known fault
    std::int32_t m_knownFaults = 0;  // their number among the failures
};

}  // namespace dorvik
