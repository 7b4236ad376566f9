#include "platform/Database.h"

#include "base/BasicError.h"
#include "platform/Connection.h"
#include "platform/FileInUseMark.h"
#include "platform/JetReader.h"
#include "platform/RecordsetState.h"
#include "platform/modFiles.h"

#include <array>

namespace dorvik {

namespace {
/// Behind the name of a file while it is being copied.
constexpr std::string_view kNewCopy = "-new";
}  // namespace

Database::Database() = default;
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&& other) noexcept {
    if (this != &other) {
        Close();
        m_connection = std::move(other.m_connection);
    }
    return *this;
}
Database::~Database() {
    Close();
}

void Database::Open(std::string_view path) {
    OpenAs(path, ConnectionMode::ReadWrite);
}

void Database::OpenUntouched(std::string_view path) {
    OpenAs(path, ConnectionMode::Untouched);
}

void Database::OpenAs(std::string_view path, ConnectionMode mode) {
    Close();
    if (!modFiles::FileExists(path)) {
        throw BasicError(
            databaseerror::kFileNotFound, "Could not find file '" + std::string(path) + "'.");
    }
    m_connection = std::make_shared<Connection>(modFiles::HostPath(path), mode);
}

bool Database::IsOpen() const {
    return m_connection != nullptr;
}

void Database::Close() {
    if (m_connection != nullptr) {
        m_connection->Close();
        m_connection.reset();
    }
}

Connection& Database::Store() const {
    if (m_connection == nullptr) {
        throw BasicError(databaseerror::kObjectInvalid, "Object invalid or no longer set.");
    }
    return *m_connection;
}

Recordset Database::OpenRecordset(std::string_view sql, RecordsetType type) {
    auto tokens = modJetSql::Tokenise(sql);
    auto text = Store().Understand(tokens, sql);
    if (!text->Translation.IsQuery) {
        throw BasicError(databaseerror::kSyntax, "SQL text returns no rows: " + std::string(sql));
    }
    if (type == RecordsetType::Snapshot) {
        return Recordset(std::make_unique<SnapshotState>(
            m_connection, text->Translation.Sql, std::move(tokens.Literals)));
    }
    if (text->Table == nullptr) {
        throw BasicError(
            databaseerror::kReadOnly, "Rows of this query cannot be updated: " + std::string(sql));
    }
    return Recordset(
        std::make_unique<DynasetState>(m_connection, std::move(text), std::move(tokens.Literals)));
}

void Database::Execute(std::string_view sql) {
    const auto tokens = modJetSql::Tokenise(sql);
    const auto text = Store().Understand(tokens, sql);
    if (text->Translation.IsQuery) {
        throw BasicError(databaseerror::kSyntax, "SQL text changes nothing: " + std::string(sql));
    }
    const auto statement = Store().Lease(text->Translation.Sql);
    statement->BindAll(tokens.Literals);
    Store().Write(*statement);
}

void Database::EnsureIndex(
    std::string_view name, std::string_view table, const std::vector<std::string>& columns) {
    std::string sql = "CREATE INDEX IF NOT EXISTS " + modJetSql::Bracketed(name) + " ON " +
                      modJetSql::Bracketed(table);
    std::string separator = " (";
    for (const std::string& column : columns) {
        sql += separator + modJetSql::Bracketed(column);
        separator = ", ";
    }
    Store().BeginReading();  // the state held between two writes would keep the index out
    PreparedStatement statement(Store().Engine(), sql + ')');
    Store().Write(statement);
}

void Database::AnalyseIndexes() {
    Store().BeginReading();
    // So many entries of an index are looked at, whatever its size.
    PreparedStatement(Store().Engine(), "PRAGMA analysis_limit = 1000").Run();
    PreparedStatement statement(Store().Engine(), "ANALYZE");
    Store().Write(statement);
}

void Database::CopyFile(std::string_view from, std::string_view to) {
    const std::string copy = std::string(to) + std::string(kNewCopy);
    modFiles::CopyFile(from, copy);
    std::error_code error;
    std::filesystem::rename(modFiles::HostPath(copy), modFiles::HostPath(to), error);
    if (error) {
        modFiles::DeleteFile(copy);
        RaiseRuntimeError(runtimeerror::kPathFileAccess, std::string(to));
    }
}

void Database::DeleteFile(std::string_view path) {
    if (modFiles::FileExists(path) && FileInUseMark::IsInUse(modFiles::HostPath(path))) {
        RaiseRuntimeError(runtimeerror::kPermissionDenied, std::string(path));
    }
    // In this order a process killed in between leaves a file that opens, and never a log that the next file
    // of this name would take for its own: the journal, which only a file being changed has, goes last.
    constexpr std::array<std::string_view, 5> kCompanions = {
        kNewCopy, "-wal", "-shm", "", "-journal"};
    for (const std::string_view companion : kCompanions) {
        const std::string file = std::string(path) + std::string(companion);
        if (modFiles::FileExists(file)) {
            modFiles::DeleteFile(file);
        }
    }
}

}  // namespace dorvik
