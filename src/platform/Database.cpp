#include "platform/Database.h"

#include "base/BasicError.h"
#include "platform/Connection.h"
#include "platform/FileInUseMark.h"
#include "platform/RecordsetState.h"
#include "platform/modFiles.h"

namespace dorvik {

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
    Close();
    if (!modFiles::FileExists(path)) {
        throw BasicError(
            databaseerror::kFileNotFound, "Could not find file '" + std::string(path) + "'.");
    }
    m_connection = std::make_shared<Connection>(modFiles::HostPath(path));
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
    Store().BeginWriting();
    const auto statement = Store().Lease(text->Translation.Sql);
    statement->BindAll(tokens.Literals);
    statement->Run();
}

void Database::DeleteFile(std::string_view path) {
    if (modFiles::FileExists(path) && FileInUseMark::IsInUse(modFiles::HostPath(path))) {
        RaiseRuntimeError(runtimeerror::kPermissionDenied, std::string(path));
    }
    for (const std::string_view companion : {"", "-wal", "-shm", "-journal"}) {
        const std::string file = std::string(path) + std::string(companion);
        if (modFiles::FileExists(file)) {
            modFiles::DeleteFile(file);
        }
    }
}

}  // namespace dorvik
