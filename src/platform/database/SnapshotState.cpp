#include "RecordsetState.h"
#include "base/BasicError.h"
#include "platform/database/Database.h"

namespace dorvik {

namespace {

[[noreturn]] void RaiseReadOnly() {
    throw BasicError(databaseerror::kReadOnly, "Cannot update. Database or object is read-only.");
}

}  // namespace

SnapshotState::SnapshotState(
    std::shared_ptr<Connection> connection,
    const std::string& sql,
    std::vector<SqlLiteral> literals)
    : RecordsetState(std::move(connection)), m_literals(std::move(literals)) {
    m_statement = Store()->Lease(sql);
    RunQuery();
    m_isEmpty = m_isAtEnd;
}

void SnapshotState::RunQuery() {
    m_statement->Reset();
    Store()->BeginReading();
    m_statement->BindAll(m_literals);
    m_isAtEnd = !m_statement->Step();
    m_isOnFirst = true;
}

void SnapshotState::MoveFirst() {
    if (m_isEmpty) {
        throw BasicError(databaseerror::kNoCurrentRecord, "No current record.");
    }
    if (!m_isOnFirst) {
        RunQuery();
    }
}

void SnapshotState::MoveNext() {
    if (m_isAtEnd) {
        throw BasicError(databaseerror::kNoCurrentRecord, "No current record.");
    }
    m_isAtEnd = !m_statement->Step();
    m_isOnFirst = false;
}

Variant SnapshotState::Value(int position) {
    if (m_isAtEnd) {
        throw BasicError(databaseerror::kNoCurrentRecord, "No current record.");
    }
    return m_statement->Column(position);
}

void SnapshotState::AddNew() {
    RaiseReadOnly();
}

void SnapshotState::Edit() {
    RaiseReadOnly();
}

void SnapshotState::Update() {
    RaiseReadOnly();
}

std::int32_t SnapshotState::LastAddedKey() {
    throw BasicError(databaseerror::kNoCurrentRecord, "No current record.");
}

void SnapshotState::SetValue(int, Variant) {
    RaiseReadOnly();
}

int SnapshotState::FieldCount() const {
    return m_statement->ColumnCount();
}

std::string_view SnapshotState::FieldName(int position) const {
    return m_statement->ColumnName(position);
}

}  // namespace dorvik
