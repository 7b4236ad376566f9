#include "JetReader.h"
#include "RecordsetState.h"
#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "platform/database/Database.h"

#include <algorithm>

namespace dorvik {

namespace {

[[noreturn]] void RaiseNoCurrentRecord() {
    throw BasicError(databaseerror::kNoCurrentRecord, "No current record.");
}

}  // namespace

DynasetState::DynasetState(
    std::shared_ptr<Connection> connection,
    std::shared_ptr<const UnderstoodText> text,
    std::vector<SqlLiteral> literals)
    : RecordsetState(std::move(connection)),
      m_text(std::move(text)),
      m_table(*m_text->Table),
      m_literals(std::move(literals)) {
    Store()->Lease(m_text->Translation.KeySql);  // unknown tables and columns fail on opening
    for (const auto& field : m_text->Translation.EditableFields) {
        const auto column = std::find_if(
            m_table.Columns.begin(), m_table.Columns.end(), [&field](const std::string& name) {
                return modTextCase::Equal(name, field);
            });
        if (column == m_table.Columns.end()) {
            throw BasicError(
                databaseerror::kUnknownName, "no such column: " + m_table.Name + '.' + field);
        }
        m_columns.push_back(static_cast<int>(column - m_table.Columns.begin()));
    }
}

int DynasetState::FieldCount() const {
    return static_cast<int>(m_columns.empty() ? m_table.Columns.size() : m_columns.size());
}

std::string_view DynasetState::FieldName(int position) const {
    return m_table.Columns[TableColumn(position)];
}

std::size_t DynasetState::TableColumn(int position) const {
    const auto field = static_cast<std::size_t>(position);
    return m_columns.empty() ? field : static_cast<std::size_t>(m_columns[field]);
}

// ---- moving ----

/// Rows added before the query ran are not taken twice.
void DynasetState::LoadKeys() {
    if (m_isLoaded) {
        return;
    }
    Store()->BeginReading();
    const auto query = Store()->Lease(m_text->Translation.KeySql);
    query->BindAll(m_literals);
    while (query->Step()) {
        const auto key = query->WholeColumn(0);
        if (std::find(m_added.begin(), m_added.end(), key) == m_added.end()) {
            m_keys.push_back(key);
        }
    }
    m_isLoaded = true;
    m_position = m_keys.empty() ? kNowhere : 0;
}

bool DynasetState::BOF() {
    LoadKeys();
    return m_position == kNowhere;
}

bool DynasetState::AtEnd() {
    LoadKeys();
    return m_position >= m_keys.size() + m_added.size();  // nowhere is after everything
}

void DynasetState::MoveFirst() {
    LoadKeys();
    if (m_keys.empty() && m_added.empty()) {
        RaiseNoCurrentRecord();
    }
    m_position = 0;
    m_row.clear();
}

void DynasetState::MoveNext() {
    if (AtEnd()) {
        RaiseNoCurrentRecord();
    }
    ++m_position;
    m_row.clear();
}

// ---- reading ----

std::int64_t DynasetState::CurrentKey() {
    if (AtEnd()) {
        RaiseNoCurrentRecord();
    }
    return m_position < m_keys.size() ? m_keys[m_position] : m_added[m_position - m_keys.size()];
}

bool DynasetState::CurrentIsAdded() const {
    return m_position >= m_keys.size() && m_position < m_keys.size() + m_added.size();
}

void DynasetState::ReadRow() {
    std::string sql = "SELECT ";
    for (int field = 0; field < FieldCount(); ++field) {
        sql += (field == 0 ? "[" : ", [") + std::string(FieldName(field)) + ']';
    }
    sql += " FROM " + modJetSql::Bracketed(m_table.Name) + " WHERE rowid = ?";
    const auto key = CurrentKey();
    Store()->BeginReading();
    const auto query = Store()->Lease(sql);
    query->Bind(0, key);
    if (!query->Step()) {
        RaiseNoCurrentRecord();  // deleted in the meantime
    }
    for (int field = 0; field < FieldCount(); ++field) {
        m_row.push_back(query->Column(field));
    }
}

Variant DynasetState::Value(int position) {
    for (auto pending = m_pending.rbegin(); pending != m_pending.rend(); ++pending) {
        if (pending->first == position) {
            return pending->second;
        }
    }
    if (m_change == Change::NewRow) {
        return {};
    }
    if (m_row.empty()) {
        if (TableColumn(position) == m_table.KeyColumn && CurrentIsAdded()) {
            return static_cast<std::int32_t>(CurrentKey());  // known without reading the row
        }
        ReadRow();
    }
    return m_row[static_cast<std::size_t>(position)];
}

// ---- writing ----

void DynasetState::AddNew() {
    m_pending.clear();
    m_change = Change::NewRow;
}

void DynasetState::Edit() {
    CurrentKey();
    m_pending.clear();
    m_change = Change::ChangedRow;
}

void DynasetState::SetValue(int position, Variant value) {
    if (m_change == Change::None) {
        throw BasicError(
            databaseerror::kUpdateWithoutEdit, "Update or CancelUpdate without AddNew or Edit.");
    }
    if (m_table.IsYesNo[TableColumn(position)] && !value.IsEmpty()) {
        value = value.AsBoolean();
    }
    const auto same =
        std::find_if(m_pending.begin(), m_pending.end(), [position](const auto& entry) {
            return entry.first == position;
        });
    if (same != m_pending.end()) {
        same->second = std::move(value);
    } else {
        m_pending.emplace_back(position, std::move(value));
    }
}

void DynasetState::Update() {
    const auto change = std::exchange(m_change, Change::None);
    if (change == Change::None) {
        throw BasicError(
            databaseerror::kUpdateWithoutEdit, "Update or CancelUpdate without AddNew or Edit.");
    }
    if (change == Change::NewRow) {
        InsertRow();
    } else if (!m_pending.empty()) {
        ChangeRow();
    }
    m_pending.clear();
}

void DynasetState::InsertRow() {
    const auto insert = Store()->Lease(InsertSql());
    int parameter = 0;
    for (const auto& [field, value] : m_pending) {
        insert->Bind(parameter++, value);
    }
    Store()->Write(*insert);
    m_added.push_back(Store()->LastInsertedKey());
}

std::int32_t DynasetState::LastAddedKey() {
    if (m_added.empty()) {
        RaiseNoCurrentRecord();
    }
    return static_cast<std::int32_t>(m_added.back());
}

void DynasetState::ChangeRow() {
    const auto update = Store()->Lease(UpdateSql());
    int parameter = 0;
    for (const auto& [field, value] : m_pending) {
        update->Bind(parameter++, value);
    }
    update->Bind(parameter, CurrentKey());
    Store()->Write(*update);
    m_row.clear();
}

/// The text for the columns that are set, made once for each choice and order of columns.
const std::string& DynasetState::InsertSql() {
    std::string shape;
    for (const auto& [field, value] : m_pending) {
        shape += static_cast<char>(TableColumn(field));
    }
    std::string& sql = m_table.InsertSql[shape];
    if (sql.empty()) {
        std::string columns;
        std::string values;
        for (const auto& [field, value] : m_pending) {
            columns += (columns.empty() ? "[" : ", [") + std::string(FieldName(field)) + ']';
            values += values.empty() ? "?" : ", ?";
        }
        sql = "INSERT INTO " + modJetSql::Bracketed(m_table.Name);
        sql += columns.empty() ? " DEFAULT VALUES" : " (" + columns + ") VALUES (" + values + ')';
    }
    return sql;
}

std::string DynasetState::UpdateSql() const {
    std::string sql = "UPDATE " + modJetSql::Bracketed(m_table.Name);
    std::string separator = " SET [";
    for (const auto& [field, value] : m_pending) {
        sql += separator + std::string(FieldName(field)) + "] = ?";
        separator = ", [";
    }
    return sql + " WHERE rowid = ?";
}

}  // namespace dorvik
