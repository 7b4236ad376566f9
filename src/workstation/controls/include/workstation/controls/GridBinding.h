#pragma once

#include "base/Variant.h"
#include "workstation/controls/GridArrangement.h"
#include "workstation/controls/GridColumn.h"
#include "workstation/controls/IGridRecords.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace dorvik {

/// The records of a grid: their keys, four bytes a record, and the values of the one that was read last. All operations
/// that read or write raise what the records raise.
class GridBinding {
public:
    /// Null for none. Forgets the record source. REQUIRES: `records` outlives the binding.
    void Bind(IGridRecords* records);
    const std::string& RecordSource() const { return m_recordSource; }
    void SetRecordSource(std::string recordSource) { m_recordSource = std::move(recordSource); }
    /// None without records or a record source, and where reading fails.
    void ReadKeys();

    std::size_t Count() const { return m_keys.size(); }
    /// Positions count from 0, in the order of the keys.
    std::int32_t Key(std::size_t position) const { return m_keys.at(position); }
    std::optional<std::size_t> PositionOf(std::int32_t key) const;

    /// Of all records. Those that the record source has lost since `ReadKeys` are read one by one.
    GridRanks Ranks(const GridColumn& column, const GridValueList& list);
    /// The value of a column, for which all are read.
    Variant Value(std::int32_t key, std::int32_t column, const std::vector<GridColumn>& columns);
    void WriteCheck(std::int32_t key, bool checked);

private:
    IGridRecords* m_records = nullptr;
    std::string m_recordSource;
    std::vector<std::int32_t> m_keys;       // ascending
    std::optional<std::int32_t> m_readKey;  // the record that was read last
    std::vector<Variant> m_readValues;      // by column
};

}  // namespace dorvik
