#include "PreparedStatement.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "platform/database/Database.h"
#include "platform/host/HostFailure.h"

#include <sqlite3.h>

#include <limits>
#include <utility>

namespace dorvik {

namespace {

/// Whether the system denied more room for the file or for the log beside it. A quota, or a limit of a
/// file's size, is to its user what a full disk is.
bool HasNoRoom(sqlite3* engine) {
    int ofFile = 0;
    int ofLog = 0;
    sqlite3_file* log = nullptr;
    sqlite3_file_control(engine, "main", SQLITE_FCNTL_LAST_ERRNO, &ofFile);
    sqlite3_file_control(engine, "main", SQLITE_FCNTL_JOURNAL_POINTER, static_cast<void*>(&log));
    if (log != nullptr && log->pMethods != nullptr) {
        log->pMethods->xFileControl(log, SQLITE_FCNTL_LAST_ERRNO, &ofLog);
    }
    const auto isNoRoom = [](int number) {
        const HostFailure failure = modHostFailure::OfSystemNumber(number);
        return failure == HostFailure::DiskFull || failure == HostFailure::TooLong;
    };
    return isNoRoom(ofFile) || isNoRoom(ofLog);
}

/// Whether another process has deleted the file, before it was opened or since.
bool IsGone(sqlite3* engine, int code) {
    const bool isNotFound =
        (code & 0xFF) == SQLITE_CANTOPEN &&
        modHostFailure::OfSystemNumber(sqlite3_system_errno(engine)) == HostFailure::NoFile;
    return isNotFound || sqlite3_extended_errcode(engine) == SQLITE_READONLY_DBMOVED;
}

std::int32_t ErrorNumber(sqlite3* engine, int code) {
    if (engine != nullptr && IsGone(engine, code)) {
        return databaseerror::kFileNotFound;
    }
    if ((code & 0xFF) == SQLITE_IOERR && engine != nullptr && HasNoRoom(engine)) {
        return runtimeerror::kDiskFull;
    }
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED: return databaseerror::kLocked;
        case SQLITE_READONLY: return databaseerror::kReadOnly;
        case SQLITE_PERM:
        case SQLITE_AUTH:
        case SQLITE_CANTOPEN: return runtimeerror::kPermissionDenied;
        case SQLITE_FULL: return runtimeerror::kDiskFull;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB: return databaseerror::kNotADatabase;
        case SQLITE_ERROR: return databaseerror::kUnknownName;  // the grammar is checked before
        case SQLITE_MISMATCH:
        case SQLITE_TOOBIG: return databaseerror::kWrongType;
        default: return databaseerror::kStoreFailed;
    }
}

}  // namespace

void RaiseStoreError(sqlite3* engine, int code, std::string_view sql) {
    std::string description = engine != nullptr ? sqlite3_errmsg(engine) : sqlite3_errstr(code);
    if (!sql.empty()) {
        description += ": ";
        description += sql;
    }
    throw BasicError(ErrorNumber(engine, code), description);
}

PreparedStatement::PreparedStatement(sqlite3* engine, std::string_view sql) : m_engine(engine) {
    const int code = sqlite3_prepare_v3(
        engine,
        sql.data(),
        static_cast<int>(sql.size()),
        SQLITE_PREPARE_PERSISTENT,
        &m_statement,
        nullptr);
    if (code != SQLITE_OK) {
        RaiseStoreError(engine, code, sql);
    }
    for (int column = 0; column < ColumnCount(); ++column) {
        const char* const type = sqlite3_column_decltype(m_statement, column);
        m_isYesNo.push_back(type != nullptr && modTextCase::Equal(type, "YESNO"));
    }
}

PreparedStatement::PreparedStatement(PreparedStatement&& other) noexcept
    : m_engine(other.m_engine),
      m_statement(std::exchange(other.m_statement, nullptr)),
      m_isYesNo(std::move(other.m_isYesNo)) {}

PreparedStatement::~PreparedStatement() {
    sqlite3_finalize(m_statement);
}

void PreparedStatement::Check(int code) {
    if (code != SQLITE_OK) {
        RaiseStoreError(m_engine, code, sqlite3_sql(m_statement));
    }
}

void PreparedStatement::Bind(int position, const Variant& value) {
    const int index = position + 1;
    if (value.IsText()) {
        const std::string& text = value.Text();
        Check(sqlite3_bind_text(
            m_statement, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC));
    } else if (value.IsDouble()) {
        Check(sqlite3_bind_double(m_statement, index, modText::LeadingNumber(value.AsText())));
    } else if (value.IsHeld()) {
        const std::string text = value.AsText();
        Check(sqlite3_bind_text(
            m_statement, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT));
    } else if (value.IsEmpty()) {
        Check(sqlite3_bind_null(m_statement, index));
    } else {
        Check(sqlite3_bind_int(m_statement, index, value.AsLong()));
    }
}

void PreparedStatement::Bind(int position, const SqlLiteral& value) {
    const int index = position + 1;
    if (const auto* const text = std::get_if<std::string>(&value)) {
        Check(sqlite3_bind_text(
            m_statement, index, text->data(), static_cast<int>(text->size()), SQLITE_STATIC));
    } else if (const auto* const fraction = std::get_if<double>(&value)) {
        Check(sqlite3_bind_double(m_statement, index, *fraction));
    } else {
        Bind(position, std::get<std::int64_t>(value));
    }
}

void PreparedStatement::Bind(int position, std::int64_t value) {
    Check(sqlite3_bind_int64(m_statement, position + 1, value));
}

void PreparedStatement::BindAll(const std::vector<SqlLiteral>& literals) {
    int position = 0;
    for (const auto& literal : literals) {
        Bind(position++, literal);
    }
}

bool PreparedStatement::Step() {
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW) {
        return true;
    }
    if (code != SQLITE_DONE) {
        Check(code);
    }
    return false;
}

int PreparedStatement::StepToEnd() {
    int code = SQLITE_ROW;
    while (code == SQLITE_ROW) {
        code = sqlite3_step(m_statement);
    }
    return code;
}

/// The text of the failure is the engine's only until the reset.
void PreparedStatement::FailAfterReset(int code) {
    const BasicError failure(
        ErrorNumber(m_engine, code),
        std::string(sqlite3_errmsg(m_engine)) + ": " + sqlite3_sql(m_statement));
    Reset();
    throw failure;
}

void PreparedStatement::Run() {
    if (const int code = StepToEnd(); code != SQLITE_DONE) {
        FailAfterReset(code);
    }
    Reset();
}

bool PreparedStatement::RunUnlessBusy() {
    const int code = StepToEnd();
    constexpr int kPlainCode = 0xFF;
    if ((code & kPlainCode) == SQLITE_BUSY) {
        sqlite3_reset(m_statement);
        return false;
    }
    if (code != SQLITE_DONE) {
        FailAfterReset(code);
    }
    Reset();
    return true;
}

void PreparedStatement::Reset() {
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

int PreparedStatement::ColumnCount() const {
    return sqlite3_column_count(m_statement);
}

std::string_view PreparedStatement::ColumnName(int position) const {
    return sqlite3_column_name(m_statement, position);
}

Variant PreparedStatement::Column(int position) const {
    switch (sqlite3_column_type(m_statement, position)) {
        case SQLITE_NULL: return {};
        case SQLITE_FLOAT: return sqlite3_column_double(m_statement, position);
        case SQLITE_INTEGER: {
            const auto value = WholeColumn(position);
            if (m_isYesNo[static_cast<std::size_t>(position)]) {
                return value != 0;
            }
            using Limits = std::numeric_limits<std::int32_t>;
            if (value < Limits::min() || value > Limits::max()) {
                return static_cast<double>(value);  // a sum can leave the range of a single row
            }
            return static_cast<std::int32_t>(value);
        }
        default: break;
    }
    const void* const bytes = sqlite3_column_blob(m_statement, position);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_statement, position));
    return std::string(static_cast<const char*>(bytes), bytes == nullptr ? 0 : size);
}

std::int64_t PreparedStatement::WholeColumn(int position) const {
    return sqlite3_column_int64(m_statement, position);
}

}  // namespace dorvik
