#pragma once

#include "Connection.h"
#include "base/Variant.h"
#include "platform/database/Recordset.h"

#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik {

/// The implementation of a `Recordset`, one class for each kind. The operations are those of `Recordset`.
class RecordsetState {
public:
    explicit RecordsetState(std::shared_ptr<Connection> connection)
        : m_connection(std::move(connection)) {}
    virtual ~RecordsetState() = default;
    RecordsetState(const RecordsetState&) = delete;
    RecordsetState& operator=(const RecordsetState&) = delete;

    virtual bool BOF() = 0;
    virtual bool AtEnd() = 0;
    virtual void MoveFirst() = 0;
    virtual void MoveNext() = 0;
    virtual void AddNew() = 0;
    virtual void Edit() = 0;
    virtual void Update() = 0;
    virtual std::int32_t LastAddedKey() = 0;
    virtual Variant Value(int position) = 0;
    virtual void SetValue(int position, Variant value) = 0;

    /// Raises `kObjectInvalid` once the database is closed.
    void RequireOpen() const { m_connection->RequireOpen(); }
    /// The position of the field from 0. Raises `kUnknownField`.
    int FieldPosition(std::string_view name);

    virtual int FieldCount() const = 0;

protected:
    virtual std::string_view FieldName(int position) const = 0;
    const std::shared_ptr<Connection>& Store() const { return m_connection; }

private:
    std::shared_ptr<Connection> m_connection;
    int m_lastField = -1;  // fields are read in their order more often than not
};

/// Rows read one after the other while the caller moves on.
class SnapshotState : public RecordsetState {
public:
    SnapshotState(
        std::shared_ptr<Connection> connection,
        const std::string& sql,
        std::vector<SqlLiteral> literals);

    bool BOF() override { return m_isEmpty; }
    bool AtEnd() override { return m_isAtEnd; }
    void MoveFirst() override;
    void MoveNext() override;
    void AddNew() override;
    void Edit() override;
    void Update() override;
    std::int32_t LastAddedKey() override;
    Variant Value(int position) override;
    void SetValue(int position, Variant value) override;

    int FieldCount() const override;

protected:
    std::string_view FieldName(int position) const override;

private:
    void RunQuery();

    std::vector<SqlLiteral> m_literals;
    StatementLease m_statement;
    bool m_isEmpty = false;
    bool m_isAtEnd = false;
    bool m_isOnFirst = false;
};

/// The keys of rows of one table. The query and the rows are read when they are needed.
class DynasetState : public RecordsetState {
public:
    DynasetState(
        std::shared_ptr<Connection> connection,
        std::shared_ptr<const UnderstoodText> text,
        std::vector<SqlLiteral> literals);

    bool BOF() override;
    bool AtEnd() override;
    void MoveFirst() override;
    void MoveNext() override;
    void AddNew() override;
    void Edit() override;
    void Update() override;
    std::int32_t LastAddedKey() override;
    Variant Value(int position) override;
    void SetValue(int position, Variant value) override;

    int FieldCount() const override;

protected:
    std::string_view FieldName(int position) const override;

private:
    enum class Change : int { None, NewRow, ChangedRow };
    static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

    void LoadKeys();
    std::int64_t CurrentKey();
    bool CurrentIsAdded() const;
    void ReadRow();
    void InsertRow();
    void ChangeRow();
    const std::string& InsertSql();
    std::string UpdateSql() const;
    std::size_t TableColumn(int position) const;

    std::shared_ptr<const UnderstoodText> m_text;
    TableInfo& m_table;
    std::vector<SqlLiteral> m_literals;
    std::vector<int> m_columns;  // of the table, by field; empty where all are fields
    bool m_isLoaded = false;
    std::vector<std::int64_t> m_keys;   // in the order of the query
    std::vector<std::int64_t> m_added;  // in the order of adding
    std::size_t m_position = kNowhere;  // in the keys, then in those added
    std::vector<Variant> m_row;         // of the current row, by field; empty until read
    Change m_change = Change::None;
    std::vector<std::pair<int, Variant>> m_pending;  // field and value, in the order of setting
};

}  // namespace dorvik
