#include "platform/database/Database.h"

#include "Connection.h"
#include "JetReader.h"
#include "RecordsetState.h"
#include "base/BasicError.h"
#include "platform/host/FileInUse.h"
#include "platform/host/FileInUseMark.h"
#include "platform/host/HostError.h"
#include "platform/host/OutputRefusal.h"
#include "platform/host/UnfinishedFile.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHostFolder.h"
#include "platform/host/modHostPath.h"
#include "platform/host/modHostProcess.h"

#include <array>
#include <vector>

namespace dorvik {

namespace {

/// After the name of a file while it is being copied; the process and a number follow.
constexpr std::string_view kNewCopy = "-new";
constexpr std::string_view kLock = "-lock";

/// The files that the engine opens beside a database.
constexpr std::array<std::string_view, 3> kOfEngine = {"-wal", "-shm", "-journal"};

/// Raises for a place that cannot exist on this machine.
HostPath PossiblePlace(std::string_view path) {
    HostPath file = modHostPath::FromProgram(path);
    if (file.IsEmpty()) {
        RaiseHostError(HostFailure::NoFolder, path);
    }
    return file;
}

/// The copies of a file that processes left behind which were killed, and those under way.
std::vector<HostPath> CopiesOf(const HostPath& file) {
    std::vector<HostPath> copies;
    const std::string beginning = std::string(file.Name()) + std::string(kNewCopy);
    const HostPath folder = file.Folder();
    const modHostFolder::FolderContent content = modHostFolder::Entries(folder);
    for (const modHostFolder::Entry& entry : content.Entries) {
        if (entry.Name.starts_with(beginning)) {
            copies.push_back(folder / entry.Name);
        }
    }
    return copies;
}

/// In this order a process killed in between leaves a file that opens, and never a log that the next file of this
/// name would take for its own: the journal, which only a file being changed has, goes last.
void DeleteWithCompanions(std::string_view path) {
    for (const std::string_view companion : {"-wal", "-shm", "", "-journal"}) {
        const std::string file = std::string(path) + std::string(companion);
        if (modFiles::FileExists(file)) {
            modFiles::DeleteFile(file);
        }
    }
}

/// The engine opens the companions of the file that a link leads to.
void RequirePlainCompanions(const HostPath& file) {
    const HostPath real = modHostPath::RealPath(file).value_or(file);
    for (const std::string_view companion : kOfEngine) {
        modObstacles::NeedFile(real.WithEnding(companion));
    }
}

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

void Database::Open(std::string_view path, std::chrono::milliseconds patience) {
    Close();
    if (!modFiles::FileExists(path)) {
        throw BasicError(
            databaseerror::kFileNotFound, "Could not find file '" + std::string(path) + "'.");
    }
    const HostPath file = modHostPath::FromProgram(path);
    RequirePlainCompanions(file);
    m_connection = std::make_shared<Connection>(file, patience);
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

void Database::CloseUntouched() {
    if (m_connection != nullptr) {
        m_connection->CloseUntouched();
        m_connection.reset();
    }
}

void Database::SetPatience(std::chrono::milliseconds patience) {
    Store().SetPatience(patience);
}

Connection& Database::Store() const {
    if (m_connection == nullptr) {
        throw BasicError(databaseerror::kObjectInvalid, "Object invalid or no longer set.");
    }
    return *m_connection;
}

Recordset Database::OpenRecordset(std::string_view sql, RecordsetType type, SqlValues values) {
    auto [text, literals] = Store().Translate(sql, std::move(values));
    if (!text->Translation.IsQuery) {
        throw BasicError(databaseerror::kSyntax, "SQL text returns no rows: " + std::string(sql));
    }
    if (type == RecordsetType::Snapshot) {
        return Recordset(std::make_unique<SnapshotState>(
            m_connection, text->Translation.Sql, std::move(literals)));
    }
    if (text->Table == nullptr) {
        throw BasicError(
            databaseerror::kReadOnly, "Rows of this query cannot be updated: " + std::string(sql));
    }
    return Recordset(
        std::make_unique<DynasetState>(m_connection, std::move(text), std::move(literals)));
}

void Database::Execute(std::string_view sql, SqlValues values) {
    const auto [text, literals] = Store().Translate(sql, std::move(values));
    if (text->Translation.IsQuery) {
        throw BasicError(databaseerror::kSyntax, "SQL text changes nothing: " + std::string(sql));
    }
    const auto statement = Store().Lease(text->Translation.Sql);
    statement->BindAll(literals);
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

void Database::NeedRoom(std::string_view path) {
    const HostPath file = PossiblePlace(path);
    for (const std::string_view companion : {std::string_view(), kNewCopy, kLock}) {
        modObstacles::NeedFile(file.WithEnding(companion));
    }
    RequirePlainCompanions(file);
}

std::shared_ptr<FileInUseMark> Database::Reserve(std::string_view path, std::string_view holder) {
    return FileInUseMark::SetAlone(PossiblePlace(path).WithEnding(kLock), holder);
}

void Database::CopyFile(std::string_view from, std::string_view to) {
    static int counter = 0;
    const std::string copy = std::string(to) + std::string(kNewCopy) + "-" +
                             std::to_string(modHostProcess::OwnNumber()) + "-" +
                             std::to_string(++counter);
    const UnfinishedFile unfinished(copy);
    modFiles::CopyFile(from, copy);
    if (modHostFolder::Replace(modHostPath::FromProgram(copy), modHostPath::FromProgram(to))) {
        modFiles::DeleteFile(copy);
        RaiseRuntimeError(runtimeerror::kPathFileAccess, std::string(to));
    }
}

void Database::DeleteFile(std::string_view path) {
    const HostPath host = modHostPath::FromProgram(path);
    if (host.IsEmpty()) {
        return;
    }
    const bool isDeleted = FileInUseMark::WhileUnused(host, [&] {
        for (const HostPath& copy : CopiesOf(host)) {
            modHostFolder::Delete(copy);  // a failure does no harm
        }
        DeleteWithCompanions(path);
    });
    if (!isDeleted) {
        throw FileInUse(host);
    }
}

}  // namespace dorvik
