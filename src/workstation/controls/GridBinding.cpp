#include "workstation/controls/GridBinding.h"

#include "GridRanking.h"

#include <algorithm>
#include <string_view>

namespace dorvik {

void GridBinding::Bind(IGridRecords* records) {
    m_records = records;
    m_recordSource.clear();
}

void GridBinding::ReadKeys() {
    m_keys.clear();
    m_readKey.reset();
    if (m_records == nullptr || m_recordSource.empty()) {
        m_keys.shrink_to_fit();
        return;
    }
    std::vector<std::int32_t> keys;
    m_records->VisitKeys(m_recordSource, [&](std::int32_t key) { keys.push_back(key); });
    std::sort(keys.begin(), keys.end());
    keys.shrink_to_fit();
    m_keys = std::move(keys);
}

std::optional<std::size_t> GridBinding::PositionOf(std::int32_t key) const {
    const auto found = std::lower_bound(m_keys.begin(), m_keys.end(), key);
    return found == m_keys.end() || *found != key
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - m_keys.begin()));
}

GridRanks GridBinding::Ranks(const GridColumn& column, const GridValueList& list) {
    if (m_keys.empty()) {
        return {};
    }
    GridRanking ranking(column.Ordering, list, m_keys.size());
    std::size_t next = 0;  // most record sources give their records in the order of their keys
    m_records->VisitField(
        m_recordSource, column.Field, [&](std::int32_t key, const Variant& value) {
            const bool isNext = next < m_keys.size() && m_keys[next] == key;
            if (const auto position = isNext ? std::optional(next) : PositionOf(key)) {
                ranking.Add(*position, value);
                next = *position + 1;
            }
        });
    ranking.ForEachMissing([&](std::size_t position) {
        ranking.Add(position, m_records->ReadRecord(m_keys[position], {column.Field}).at(0));
    });
    return ranking.Take();
}

Variant
GridBinding::Value(std::int32_t key, std::int32_t column, const std::vector<GridColumn>& columns) {
    if (m_readKey != key) {
        std::vector<std::string_view> fields;
        fields.reserve(columns.size());
        for (const GridColumn& shown : columns) {
            fields.emplace_back(shown.Field);
        }
        m_readKey.reset();
        m_readValues = m_records->ReadRecord(key, fields);
        m_readKey = key;
    }
    return m_readValues.at(static_cast<std::size_t>(column) - 1);
}

void GridBinding::WriteCheck(std::int32_t key, bool checked) {
    m_readKey.reset();
    m_records->WriteCheck(key, checked);
}

}  // namespace dorvik
