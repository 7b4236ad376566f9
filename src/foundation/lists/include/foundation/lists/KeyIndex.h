#pragma once

#include "foundation/lists/StringArrayList.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace dorvik {

/// Finds keys in a list as a scan without regard to case does, the first of equal ones counting, but
/// in constant time where a list is long and asked often. Short lists, which most are, are scanned.
/// A table of positions is made once the scans since the last change have cost as much as making it
/// does; keys that are appended join it, any other change drops it. So it never costs more than a
/// small multiple of the scans alone, and n additions with a test of each key take time linear in n.
///
/// Not for use by several threads at once, not even for lookups.
class KeyIndex {
public:
    KeyIndex() = default;
    /// A copy begins without a table.
    KeyIndex(const KeyIndex&) {}
    KeyIndex& operator=(const KeyIndex&) {
        Forget();
        return *this;
    }
    KeyIndex(KeyIndex&& other) noexcept = default;
    KeyIndex& operator=(KeyIndex&& other) noexcept = default;
    ~KeyIndex() = default;

    /// The first position of the key in the list; -1 if there is none.
    std::int32_t Find(const StringArrayList& keys, std::string_view key);
    /// The last key of the list is new.
    void Appended(const StringArrayList& keys);
    /// The list has changed in another way.
    void Forget();

private:
    using Table = std::vector<std::int32_t>;  // positions, 0 for a free slot

    void Build(const StringArrayList& keys);
    /// The slot of the key in the table, or the free one where it would be.
    std::int32_t& SlotOf(const StringArrayList& keys, std::string_view key) const;
    void Enter(const StringArrayList& keys, std::int32_t position) const;

    std::unique_ptr<Table> m_table;
    std::uint32_t m_scanned = 0;  // keys that scans may have looked at since the last change
};

}  // namespace dorvik
