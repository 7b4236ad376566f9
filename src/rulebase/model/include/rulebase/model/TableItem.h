#pragma once

#include "foundation/lists/IListItem.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// A named table in a report definition. What a type and a key stand for is known to the code
/// that renders the report.
class TableItem final : public IListItem {
public:
    const std::string& TableKey() const { return m_tableKey; }
    /// Required: does not set `Dirty`, nor does `SetTableType`.
    void SetTableKey(std::string key);
    const std::string& TableTitle() const { return m_tableTitle; }
    /// Sets `Dirty` only when the value changes, as does `SetTableText`.
    void SetTableTitle(std::string title);
    const std::string& TableText() const { return m_tableText; }
    void SetTableText(std::string text);
    std::int32_t TableType() const { return m_tableType; }
    void SetTableType(std::int32_t type) { m_tableType = type; }
    bool Dirty() const { return m_dirty; }
    void SetDirty(bool dirty) { m_dirty = dirty; }

    std::string Key() const override { return m_tableKey; }
    std::string Title() const override { return m_tableTitle; }
    std::string Description() const override { return m_tableText; }
    /// Required: always 0.
    std::int32_t ID() const override { return 0; }

private:
    void SetKey(std::string_view key) override { m_tableKey = key; }

    std::string m_tableKey;
    std::string m_tableTitle;
    std::string m_tableText;
    std::int32_t m_tableType = 0;
    bool m_dirty = false;
};

}  // namespace dorvik
