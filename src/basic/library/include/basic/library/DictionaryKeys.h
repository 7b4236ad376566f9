#pragma once

#include "basic/values/Value.h"

#include <cstdint>
#include <vector>

namespace dorvik::basic {

/// A hash of a dictionary's key. Numbers of all types with the same value are the same key, a number and
/// a text never are. Raises 13 for an array or a record.
std::uint32_t HashOfKey(const Value& key, bool ignoresCase);
/// REQUIRES: both have a hash.
bool IsSameKey(const Value& left, const Value& right, bool ignoresCase);

/// Keys and items in the order of their insertion, with a hash table of their places. A removed entry
/// leaves a hole until the table is built anew. As long as all keys are Integers, or all are Longs, that follow one
/// another, as the indices of an array do, they are a row: the place of an item is its key, and neither keys
/// nor a table are kept.
class DictionaryKeys {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    bool IgnoresCase() const { return m_ignoresCase; }
    /// REQUIRES: there are no entries.
    void SetIgnoresCase(bool ignores) { m_ignoresCase = ignores; }

    std::size_t Count() const { return m_count; }
    /// The same as `Find(key, HashOfKey(key))`, faster for the text that was found last: what is read is often written
    /// next.
    std::size_t FindAgain(const Value& key) const {
        if (m_isRow && IsRowType(key.Type())) {
            return FindInRow(key.AsLong());
        }
        if (m_lastFound < m_keys.size() && IsSameText(m_keys[m_lastFound].Key, key)) {
            return m_lastFound;
        }
        return Find(key, HashOf(key));
    }
    /// Like `HashOfKey`.
    std::uint32_t HashOf(const Value& key) const {
        if (key.Type() == ValueType::String && !m_ignoresCase && key.TextBody() != nullptr) {
            return key.TextBody()->Hash();
        }
        return HashOfKey(key, m_ignoresCase);
    }
    /// The place of a key, `kNone` if it is not there.
    std::size_t Find(const Value& key, std::uint32_t hash) const;
    /// Whether a key that is not there would make the row longer.
    bool ContinuesRow(const Value& key) const {
        return m_isRow && (m_items.empty() ? IsRowType(key.Type())
                                           : key.Type() == m_rowType && key.AsLong() == RowEnd());
    }
    /// Adds such a key and returns its place. REQUIRES: `HasRoom`, or `BytesForOneMore` was charged.
    std::size_t AppendToRow(const Value& key);
    /// The same for any key that is not there. REQUIRES: !ContinuesRow(key).
    std::size_t Append(const Value& key, std::uint32_t hash, bool mayMove);
    void Remove(std::size_t place);
    /// Gives an entry another key, which no other entry has. It keeps its place.
    void Rename(std::size_t place, const Value& key, std::uint32_t hash);
    void Clear();

    /// How many places there are, holes too.
    std::size_t Places() const { return m_items.size(); }
    bool IsAlive(std::size_t place) const { return m_isRow || m_keys[place].IsAlive; }
    Value KeyAt(std::size_t place) const { return m_isRow ? KeyInRow(place) : m_keys[place].Key; }
    Value& ItemAt(std::size_t place) { return m_items[place]; }
    const Value& ItemAt(std::size_t place) const { return m_items[place]; }
    /// Whether one more entry takes no more memory than there is.
    bool HasRoom() const { return m_items.size() < m_items.capacity() && (m_isRow || !IsFull()); }
    /// The memory that the entries will take when one is added; those of a row may need as much as all others at any
    /// moment.
    std::size_t BytesForOneMore() const;

private:
    /// Whether both are texts with the same body, which is to be seen at once.
    static bool IsSameText(const Value& left, const Value& right) {
        return left.Type() == ValueType::String && right.Type() == ValueType::String &&
               left.TextBody() == right.TextBody();
    }

    struct StoredKey {
        Value Key;
        std::uint32_t Hash = 0;
        bool IsAlive = true;
    };
    struct Slot {
        std::uint32_t Place = kFree;
        std::uint32_t Hash = 0;
    };
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;
    static constexpr std::uint32_t kRemoved = 0xFFFFFFFE;

    static bool IsRowType(ValueType type) {
        return type == ValueType::Long || type == ValueType::Integer;
    }
    /// The key that would come next. REQUIRES for this and the following: the keys are a row.
    std::int64_t RowEnd() const { return m_rowStart + static_cast<std::int64_t>(m_items.size()); }
    std::size_t FindInRow(std::int64_t number) const {
        const auto place = static_cast<std::size_t>(number - m_rowStart);
        return place < m_items.size() ? place : kNone;
    }
    std::size_t FindInRow(const Value& key) const;
    Value KeyInRow(std::size_t place) const;
    void LeaveRow();

    bool IsFull() const { return (m_used + 1) * 4 > m_slots.size() * 3; }
    static std::size_t SlotsFor(std::size_t entries);
    void Rebuild(bool mayMove);
    void CloseHoles();
    void FreeSlotOf(std::size_t place);
    void FillSlot(std::uint32_t place, std::uint32_t hash);

    std::vector<Value> m_items;
    std::vector<StoredKey> m_keys;  // of the same places; none in a row
    std::vector<Slot> m_slots;      // a power of two; none in a row
    std::size_t m_count = 0;
    std::size_t m_used = 0;  // slots that are not free
    mutable std::size_t m_lastFound = kNone;
    bool m_ignoresCase = false;
    bool m_isRow = true;
    ValueType m_rowType = ValueType::Long;  // of all keys of the row
    std::int64_t m_rowStart = 0;            // the first of them
};

}  // namespace dorvik::basic
