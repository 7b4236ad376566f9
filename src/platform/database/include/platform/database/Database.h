#pragma once

#include "platform/database/JetSql.h"
#include "platform/database/Recordset.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class FileInUseMark;

/// Numbers of the failures of a store.
namespace databaseerror {
inline constexpr std::int32_t kNoCurrentRecord = 3021;
inline constexpr std::int32_t kUpdateWithoutEdit = 3020;
inline constexpr std::int32_t kFileNotFound = 3024;
inline constexpr std::int32_t kReadOnly = 3027;
inline constexpr std::int32_t kSyntax = 3075;
inline constexpr std::int32_t kUnknownName = 3061;
inline constexpr std::int32_t kLocked = 3260;
inline constexpr std::int32_t kUnknownField = 3265;
inline constexpr std::int32_t kNotADatabase = 3343;
inline constexpr std::int32_t kObjectInvalid = 3420;
inline constexpr std::int32_t kWrongType = 3421;
inline constexpr std::int32_t kStoreFailed =
    3146;  // anything else; the description has the store's text
}  // namespace databaseerror

/// One database file, open for reading and writing. SQL texts are in the Jet spelling (`modJetSql`).
/// Each shape of text (texts alike but for literals and blanks) is understood and prepared once; a text
/// whose values are all parameters is not even looked at again.
///
/// Locks. Reading and writing wait while another process keeps them out, as long as `SetPatience` says. A
/// reader is kept out for moments only: when the first row is written, and when the file is closed.
///
/// Durability. Every `Execute` and `Update` is a transaction of its own. A process that ends in any way
/// leaves a file that opens with every row written before. After a crash of the whole machine the file
/// still opens and is consistent, but the last rows may be missing.
///
/// The first write puts the file into write-ahead logging, with two companions beside it; `Close` makes it
/// one file again. A database that is only read is never changed. Texts compare without regard to case.
class Database {
public:
    static constexpr std::chrono::seconds kPatience{30};  // where nothing else is said

    Database();
    ~Database();
    Database(Database&&) noexcept;
    Database& operator=(Database&&) noexcept;

    /// Opens an existing file, which no one can `DeleteFile` until `Close`. Raises `kFileNotFound`,
    /// `kNotADatabase`, `runtimeerror::kPermissionDenied` (70) where the system denies access to the file, or an
    /// `OutputRefusal` where a companion is something that the engine would wait for. `patience` is as for `SetPatience`.
    void Open(std::string_view path, std::chrono::milliseconds patience = kPatience);
    bool IsOpen() const;
    /// Makes the file one file again, also one that a killed process left with its log.
    void Close();
    /// The same, but leaves the file and the log beside it as they were found. For a database that turns out
    /// not to be one of ours.
    void CloseUntouched();

    /// How long reading and writing wait for a lock of another process. For the open database.
    void SetPatience(std::chrono::milliseconds patience);

    Recordset OpenRecordset(
        std::string_view sql, RecordsetType type = RecordsetType::Dynaset, SqlValues values = {});
    /// Runs an UPDATE.
    void Execute(std::string_view sql, SqlValues values = {});

    /// Adds an index where there is none of that name. It changes how fast rows are found and nothing else.
    void EnsureIndex(
        std::string_view name, std::string_view table, const std::vector<std::string>& columns);

    /// Notes how the values of the indexes are spread, so that the best one is taken for each query.
    void AnalyseIndexes();

    /// Copies a database file that no one has open. Whenever the process ends, the copy is either whole or
    /// not there.
    static void CopyFile(std::string_view from, std::string_view to);
    /// Deletes a database file, read-only or not, and its companions. A file that does not exist is not
    /// a failure. Raises `FileInUse` (70) while this or another process has it open.
    static void DeleteFile(std::string_view path);
    /// Raises an `OutputRefusal` where a database is to be, or one of its companions, and something else
    /// is there: a link, a pipe, a folder.
    static void NeedRoom(std::string_view path);
    /// Reserves the place of a database that is about to be replaced for the caller alone, whether there is
    /// one yet or not; no one is kept from reading one. `holder` is shown to the second caller, who gets
    /// a `FileInUse`.
    static std::shared_ptr<FileInUseMark> Reserve(std::string_view path, std::string_view holder);

private:
    Connection& Store() const;

    std::shared_ptr<Connection> m_connection;
};

}  // namespace dorvik
