#pragma once

#include "base/Variant.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace dorvik {

class Connection;
class RecordsetState;
struct JetTokens;

/// Dynaset: the rows of one table, which can be edited and added to. Snapshot: rows for reading only.
enum class RecordsetType : int { Dynaset = 2, Snapshot = 4 };

/// The rows of a query, with a current row. Got from `Database::OpenRecordset`; movable, not copyable.
///
/// Fields are addressed by name without regard to case, or by position from 0. A new recordset is
/// on its first row, if it has one. A dynaset keeps the rows that it held when it was first looked at,
/// and after them those added through it, whether or not they match the query; an addition leaves the
/// current row where it was, so on an empty set `MoveFirst` goes to the added row. The query of a
/// dynaset runs when a row is first requested, so adding rows never runs it.
///
/// Failures raise BasicError with a number of `databaseerror`. Closing the database makes every
/// recordset of it invalid.
class Recordset {
public:
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    bool BOF();
    bool EOF_();
    /// Raises `kNoCurrentRecord` where there is no row at all.
    void MoveFirst();
    /// Raises `kNoCurrentRecord` after the last row.
    void MoveNext();

    /// Begins a new row; it is written by `Update`. Fields not set get the table's default.
    void AddNew();
    /// Begins a change of the current row; it is written by `Update`.
    void Edit();
    /// Writes the fields set since `AddNew` or `Edit`. The row is on disk when this returns.
    void Update();

    /// The counter of the row that was added last, known without reading any row. Raises
    /// `kNoCurrentRecord` where none was.
    std::int32_t LastAddedKey();

    /// The value of the current row; empty where the row holds nothing, a boolean for a yes/no column.
    Variant Value(std::string_view field);
    Variant Value(int position);
    /// REQUIRES: AddNew or Edit before. A boolean is stored as -1 or 0, an empty value as null.
    void SetValue(std::string_view field, Variant value);

    /// Further calls raise `kObjectInvalid`. Drops an AddNew or Edit that was not written.
    void Close();

private:
    friend class Database;
    explicit Recordset(std::unique_ptr<RecordsetState> state);
    RecordsetState& State();

    std::unique_ptr<RecordsetState> m_state;
};

}  // namespace dorvik
