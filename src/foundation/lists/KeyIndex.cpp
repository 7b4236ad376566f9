#include "foundation/lists/KeyIndex.h"

#include "base/modTextCase.h"

#include <bit>

namespace dorvik {

namespace {

constexpr std::int32_t kShortList = 16;
/// Scans of the whole list that making a table costs as much as.
constexpr std::uint32_t kScansForATable = 16;

bool SameKey(const std::string& left, std::string_view right) {
    return ListElement<std::string>::Equal(left, right);
}

}  // namespace

std::int32_t KeyIndex::Find(const StringArrayList& keys, std::string_view key) {
    const std::int32_t count = keys.Count();
    if (m_table == nullptr && count >= kShortList) {
        m_scanned += static_cast<std::uint32_t>(count);
        if (m_scanned / kScansForATable > static_cast<std::uint32_t>(count)) {
            Build(keys);
        }
    }
    if (m_table == nullptr) {
        return keys.IndexOfValue(key);
    }
    const std::int32_t position = SlotOf(keys, key);
    return position == 0 ? -1 : position;
}

void KeyIndex::Appended(const StringArrayList& keys) {
    if (m_table == nullptr) {
        return;
    }
    const std::int32_t count = keys.Count();
    if (static_cast<std::size_t>(count) * 2 > m_table->size()) {
        Build(keys);
    } else {
        Enter(keys, count);
    }
}

void KeyIndex::Forget() {
    m_table.reset();
    m_scanned = 0;
}

void KeyIndex::Build(const StringArrayList& keys) {
    const std::int32_t count = keys.Count();
    m_table = std::make_unique<Table>(std::bit_ceil(static_cast<std::size_t>(count) * 4));
    for (std::int32_t position = 1; position <= count; ++position) {
        Enter(keys, position);
    }
}

std::int32_t& KeyIndex::SlotOf(const StringArrayList& keys, std::string_view key) const {
    Table& table = *m_table;
    const std::size_t mask = table.size() - 1;
    std::size_t slot = modTextCase::Hash(key) & mask;
    while (table[slot] != 0 && !SameKey(keys.Item(table[slot]), key)) {
        slot = (slot + 1) & mask;
    }
    return table[slot];
}

void KeyIndex::Enter(const StringArrayList& keys, std::int32_t position) const {
    std::int32_t& slot = SlotOf(keys, keys.Item(position));
    if (slot == 0) {
        slot = position;
    }
}

}  // namespace dorvik
