#pragma once

#include "PreparedStatement.h"
#include "platform/database/JetSql.h"
#include "platform/host/FileInUseMark.h"
#include "platform/host/HostPath.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct sqlite3;

namespace dorvik {

/// The columns of a table, and the INSERT texts that were needed so far.
struct TableInfo {
    static constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

    std::string Name;
    std::vector<std::string> Columns;
    std::size_t KeyColumn = kNoColumn;                       // the counter
    std::vector<bool> IsYesNo;                               // by column
    std::unordered_map<std::string, std::string> InsertSql;  // by the positions of the columns set
};

/// An SQL text as it is understood, with the table whose rows it can edit, if any.
struct UnderstoodText {
    JetTranslation Translation;
    TableInfo* Table = nullptr;
};

/// An SQL text that is understood, with the values for its places.
struct BoundText {
    std::shared_ptr<const UnderstoodText> Text;
    SqlValues Literals;
};

/// A prepared statement and whether someone is using it.
struct StatementSlot {
    StatementSlot(sqlite3* engine, const std::string& sql) : Statement(engine, sql) {}

    PreparedStatement Statement;
    bool InUse = false;
};

class Connection;

/// The use of a prepared statement until this is dropped. It keeps the connection object alive, but a
/// closed connection takes the statement away: ask `Connection::IsOpen` first.
class StatementLease {
public:
    StatementLease() = default;
    StatementLease(std::shared_ptr<Connection> connection, StatementSlot& slot);
    StatementLease(StatementLease&& other) noexcept;
    StatementLease& operator=(StatementLease&& other) noexcept;
    ~StatementLease() { GiveBack(); }

    void GiveBack();
    PreparedStatement* operator->() const { return &m_slot->Statement; }
    PreparedStatement& operator*() const { return m_slot->Statement; }

private:
    std::shared_ptr<Connection> m_connection;
    StatementSlot* m_slot = nullptr;
};

/// One open database file with its prepared statements. `Database` and its recordsets share it; closing
/// takes all statements away at once.
class Connection : public std::enable_shared_from_this<Connection> {
public:
    /// `patience` holds from the first look into the file on.
    Connection(const HostPath& file, std::chrono::milliseconds patience);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool IsOpen() const { return m_engine != nullptr; }
    sqlite3* Engine() const { return m_engine; }
    /// Raises `databaseerror::kObjectInvalid` once it is closed.
    void RequireOpen() const;
    /// Checkpoints the log into the file, so that the file is complete by itself again.
    void Close();
    /// Leaves the file and its log as they were found.
    void CloseUntouched();
    void SetPatience(std::chrono::milliseconds patience);

    /// The caches are keyed by what stays the same: a text whose values are all parameters by itself, any
    /// other by its shape, and a statement by the text in the engine's spelling, which has no literals.
    BoundText Translate(std::string_view sql, SqlValues values = {});
    StatementLease Lease(const std::string& sql);

    /// To be called before rows are read, so that they are those of this moment.
    void BeginReading();
    /// Runs a statement that writes, as a transaction of its own. The first one turns write-ahead logging
    /// on.
    void Write(PreparedStatement& statement);
    std::int64_t LastInsertedKey() const;

private:
    /// What was understood of a text, by the number of its parameters where those are all its values.
    struct ParameterText {
        std::shared_ptr<const UnderstoodText> Text;
        std::size_t Parameters;
    };
    /// Lets a text be looked up without a copy.
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };

    std::shared_ptr<const UnderstoodText>
    TranslateShape(const JetTokens& tokens, std::string_view text);
    void Configure(std::chrono::milliseconds patience);
    void DropStatements();
    void CloseEngineUntouched();
    void TurnLoggingOn();
    void HoldSnapshot();
    void ReleaseSnapshot();
    void CheckpointLongLog();
    TableInfo& Table(const std::string& name);
    void RunUnprepared(const char* sql);

    sqlite3* m_engine = nullptr;
    bool m_hadLog = false;  // beside the file, when it was opened
    std::shared_ptr<FileInUseMark> m_mark;
    bool m_isLogging = false;
    // A write that follows another one at once finds the state of the file still held by this query and so
    // needs no locks but the one for writing. A read releases it first.
    std::unique_ptr<PreparedStatement> m_snapshot;
    bool m_isHolding = false;
    bool m_hasJustWritten = false;
    int m_logPages = 0;  // in the write-ahead log, after the last write
    int m_checkpointAtPages = 0;
    std::unordered_map<std::string, std::shared_ptr<const UnderstoodText>> m_texts;
    std::unordered_map<std::string, ParameterText, TextHash, std::equal_to<>> m_parameterTexts;
    std::unordered_map<std::string, std::vector<std::unique_ptr<StatementSlot>>> m_statements;
    std::unordered_map<std::string, std::unique_ptr<TableInfo>> m_tables;  // by lower-case name
};

}  // namespace dorvik
