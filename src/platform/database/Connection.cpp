#include "Connection.h"

#include "JetFunctions.h"
#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "platform/database/Database.h"
#include "platform/host/modHostFolder.h"
#include "platform/host/modHostPath.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

/// Texts of a rulebase's or a user's making are few; this only keeps a long-lived reader from growing.
constexpr std::size_t kMaxCached = 400;

/// A checkpoint copies the log into the file whenever it has grown by so many pages.
constexpr int kCheckpointPages = 4000;

int NoteLogPages(void* logPages, sqlite3*, const char*, int pages) {
    *static_cast<int*>(logPages) = pages;
    return SQLITE_OK;
}

}  // namespace

StatementLease::StatementLease(std::shared_ptr<Connection> connection, StatementSlot& slot)
    : m_connection(std::move(connection)), m_slot(&slot) {
    slot.InUse = true;
}

StatementLease::StatementLease(StatementLease&& other) noexcept
    : m_connection(std::move(other.m_connection)), m_slot(std::exchange(other.m_slot, nullptr)) {}

StatementLease& StatementLease::operator=(StatementLease&& other) noexcept {
    if (this != &other) {
        GiveBack();
        m_connection = std::move(other.m_connection);
        m_slot = std::exchange(other.m_slot, nullptr);
    }
    return *this;
}

void StatementLease::GiveBack() {
    if (m_slot != nullptr && m_connection->IsOpen()) {
        m_slot->Statement.Reset();
        m_slot->InUse = false;
    }
    m_slot = nullptr;
    m_connection.reset();
}

Connection::Connection(const HostPath& file, std::chrono::milliseconds patience) {
    // Before the engine opens the file: it finds the log by the name, so a file that was deleted and replaced in
    // between would be read, and even repaired, with the log of the new one.
    m_mark = FileInUseMark::Set(file);
    m_hadLog = modHostFolder::KindOf(file.WithEnding("-wal")) != FileKind::Nothing;
    const std::string name = modHostPath::ForEngine(file);
    const int code = sqlite3_open_v2(
        name.c_str(), &m_engine, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    try {
        if (code != SQLITE_OK) {
            RaiseStoreError(m_engine, code, modHostPath::Shown(file));
        }
        Configure(patience);
    } catch (...) {  // a constructor that fails has no destructor: the engine must not leak
        CloseEngineUntouched();
        throw;
    }
}

Connection::~Connection() {
    Close();
}

void Connection::Configure(std::chrono::milliseconds patience) {
    SetPatience(patience);
    // Without this a misspelt column in double quotes would count as a text.
    sqlite3_db_config(m_engine, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    modJetFunctions::Register(m_engine);
    sqlite3_wal_hook(
        m_engine, &NoteLogPages, &m_logPages);  // instead of the engine's own checkpoints
    RunUnprepared("PRAGMA synchronous = NORMAL");
    RunUnprepared("SELECT count(*) FROM sqlite_master");  // a file of another kind fails here
}

void Connection::RequireOpen() const {
    if (!IsOpen()) {
        throw BasicError(databaseerror::kObjectInvalid, "Object invalid or no longer set.");
    }
}

void Connection::SetPatience(std::chrono::milliseconds patience) {
    sqlite3_busy_timeout(m_engine, static_cast<int>(patience.count()));
}

void Connection::Close() {
    if (!IsOpen()) {
        return;
    }
    DropStatements();
    // A file that a killed process left with its log is put together here too. It stays as it is where
    // that is not possible now: on a read-only disk, or with another reader, who will do it.
    sqlite3_exec(m_engine, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
    sqlite3_close_v2(std::exchange(m_engine, nullptr));
    m_mark.reset();  // after the engine: see FileInUseMark
}

void Connection::CloseUntouched() {
    if (!IsOpen()) {
        return;
    }
    DropStatements();
    CloseEngineUntouched();
    m_mark.reset();
}

/// A log that was there stays. An empty one, which reading alone made, goes again without a change of the file.
void Connection::CloseEngineUntouched() {
    if (m_engine == nullptr) {  // without memory the engine hands out nothing
        return;
    }
    sqlite3_db_config(m_engine, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, m_hadLog ? 1 : 0, nullptr);
    sqlite3_close_v2(std::exchange(m_engine, nullptr));
}

void Connection::DropStatements() {
    m_snapshot.reset();
    m_isHolding = false;
    m_statements.clear();
    m_texts.clear();
    m_parameterTexts.clear();
}

void Connection::RunUnprepared(const char* sql) {
    const int code = sqlite3_exec(m_engine, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
        RaiseStoreError(m_engine, code, sql);
    }
}

BoundText Connection::Translate(std::string_view sql, SqlValues values) {
    if (!values.empty()) {
        const auto known = m_parameterTexts.find(sql);
        if (known != m_parameterTexts.end() && known->second.Parameters == values.size()) {
            return {known->second.Text, std::move(values)};
        }
    }
    JetTokens tokens = modJetSql::Tokenise(sql, std::move(values));
    auto text = TranslateShape(tokens, sql);
    if (tokens.HasOnlyParameters && !tokens.Literals.empty()) {
        if (m_parameterTexts.size() >= kMaxCached) {
            m_parameterTexts.clear();
        }
        m_parameterTexts.insert_or_assign(
            std::string(sql), ParameterText{text, tokens.Literals.size()});
    }
    return {std::move(text), std::move(tokens.Literals)};
}

std::shared_ptr<const UnderstoodText>
Connection::TranslateShape(const JetTokens& tokens, std::string_view text) {
    if (const auto known = m_texts.find(tokens.Shape); known != m_texts.end()) {
        return known->second;
    }
    auto understood = std::make_shared<UnderstoodText>();
    understood->Translation = modJetSql::Translate(tokens, text);
    if (!understood->Translation.EditableTable.empty()) {
        understood->Table = &Table(understood->Translation.EditableTable);
    }
    if (m_texts.size() >= kMaxCached) {
        m_texts.clear();
    }
    m_texts.emplace(tokens.Shape, understood);
    return understood;
}

StatementLease Connection::Lease(const std::string& sql) {
    if (m_statements.size() >= kMaxCached) {
        std::erase_if(m_statements, [](const auto& entry) {
            return std::none_of(entry.second.begin(), entry.second.end(), [](const auto& slot) {
                return slot->InUse;
            });
        });
    }
    auto& slots = m_statements[sql];
    for (const auto& slot : slots) {
        if (!slot->InUse) {
            return {shared_from_this(), *slot};
        }
    }
    slots.push_back(std::make_unique<StatementSlot>(m_engine, sql));
    return {shared_from_this(), *slots.back()};
}

TableInfo& Connection::Table(const std::string& name) {
    auto& table = m_tables[modTextCase::ToLower(name)];
    if (table == nullptr) {
        auto read = std::make_unique<TableInfo>();
        read->Name = name;
        const auto lease = Lease("SELECT name, type, pk FROM pragma_table_info(?)");
        const Variant tableName(name);
        lease->Bind(0, tableName);
        while (lease->Step()) {
            if (lease->WholeColumn(2) == 1 &&
                modTextCase::Equal(lease->Column(1).AsText(), "INTEGER")) {
                read->KeyColumn = read->Columns.size();
            }
            read->Columns.push_back(lease->Column(0).AsText());
            read->IsYesNo.push_back(modTextCase::Equal(lease->Column(1).AsText(), "YESNO"));
        }
        table = std::move(read);
    }
    return *table;
}

void Connection::BeginReading() {
    m_hasJustWritten = false;
    ReleaseSnapshot();
}

void Connection::Write(PreparedStatement& statement) {
    if (!m_isLogging) {
        TurnLoggingOn();
    } else if (m_hasJustWritten && !m_isHolding) {
        HoldSnapshot();
    }
    // Another writer in between makes the held state an old one.
    const bool isDone = m_isHolding && statement.RunUnlessBusy();
    if (!isDone) {
        ReleaseSnapshot();
        statement.Run();
    }
    m_hasJustWritten = true;
    CheckpointLongLog();
}

void Connection::HoldSnapshot() {
    if (m_snapshot == nullptr) {
        m_snapshot =
            std::make_unique<PreparedStatement>(m_engine, "SELECT 1 FROM sqlite_master LIMIT 1");
    }
    m_isHolding = m_snapshot->Step();
}

void Connection::ReleaseSnapshot() {
    if (m_isHolding) {
        m_snapshot->Reset();
        m_isHolding = false;
    }
}

/// A failure here does not fail the write: the log keeps growing, and is checkpointed later or on closing.
void Connection::CheckpointLongLog() {
    if (m_logPages < kCheckpointPages) {
        m_checkpointAtPages = kCheckpointPages;
    } else if (m_logPages >= m_checkpointAtPages) {
        ReleaseSnapshot();
        sqlite3_wal_checkpoint_v2(m_engine, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
        m_checkpointAtPages = m_logPages + kCheckpointPages;
    }
}

void Connection::TurnLoggingOn() {
    // Where it cannot be turned on now (a read-only file, a row of this file being read), the write that
    // follows goes its own way: it works without the log or reports why it cannot.
    const auto noteMode = [](void* isLogging, int, char** values, char**) {
        *static_cast<bool*>(isLogging) = modTextCase::Equal(values[0], "wal");
        return 0;
    };
    sqlite3_exec(m_engine, "PRAGMA journal_mode = WAL", noteMode, &m_isLogging, nullptr);
}

std::int64_t Connection::LastInsertedKey() const {
    return sqlite3_last_insert_rowid(m_engine);
}

}  // namespace dorvik
