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
/// leaves a hole until the table is built anew. As long as the keys are whole numbers that follow one
/// another, as those of an array do, their places need no table.
class DictionaryKeys {
public:
    struct Entry {
        Value Key;
        Value Item;
        std::uint32_t Hash = 0;
        bool IsAlive = true;
    };

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    bool IgnoresCase() const { return m_ignoresCase; }
    /// REQUIRES: there are no entries.
    void SetIgnoresCase(bool ignores) { m_ignoresCase = ignores; }

    std::size_t Count() const { return m_count; }
    /// The same as `Find(key, HashOfKey(key))`, faster for the text that was found last: what is read is often written next.
    std::size_t FindAgain(const Value& key) const {
        if (m_isRow && key.Type() == ValueType::Long) {
            return FindInRow(key.AsLong());
        }
        if (m_lastFound < m_entries.size() && IsSameText(m_entries[m_lastFound].Key, key)) {
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
    /// Adds a key that is not there and returns its place. REQUIRES: `BytesForOneMore` was answered.
    std::size_t Append(const Value& key, std::uint32_t hash, bool mayMove);
    void Remove(std::size_t place);
    /// Gives an entry another key, which no other entry has. It keeps its place.
    void Rename(std::size_t place, const Value& key, std::uint32_t hash);
    void Clear();

    /// All entries, holes too.
    std::vector<Entry>& Entries() { return m_entries; }
    const std::vector<Entry>& Entries() const { return m_entries; }
    /// The memory that the entries will take when one is added.
    std::size_t BytesForOneMore() const;

private:
    /// Whether both are texts with the same body, which is to be seen at once.
    static bool IsSameText(const Value& left, const Value& right) {
        return left.Type() == ValueType::String && right.Type() == ValueType::String &&
               left.TextBody() == right.TextBody();
    }

    struct Slot {
        std::uint32_t Place = kFree;
        std::uint32_t Hash = 0;
    };
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;
    static constexpr std::uint32_t kRemoved = 0xFFFFFFFE;

    /// REQUIRES: the keys are a row.
    std::size_t FindInRow(std::int64_t number) const {
        const auto place = static_cast<std::size_t>(number - m_rowStart);
        return place < m_entries.size() && m_entries[place].IsAlive ? place : kNone;
    }
    std::size_t FindInRow(const Value& key) const;
    bool ContinuesRow(const Value& key) const;
    void LeaveRow(bool mayMove);

    bool IsFull() const { return (m_used + 1) * 4 > m_slots.size() * 3; }
    std::size_t SlotsAfterGrowth() const;
    void Rebuild(bool mayMove);
    void FreeSlotOf(std::size_t place);
    void Place(std::uint32_t place, std::uint32_t hash);

    std::vector<Entry> m_entries;
    std::vector<Slot> m_slots;  // a power of two
    std::size_t m_count = 0;
    std::size_t m_used = 0;  // slots that are not free
    mutable std::size_t m_lastFound = kNone;
    bool m_ignoresCase = false;
    bool m_isRow = true;          // no slots then
    std::int64_t m_rowStart = 0;  // the first key
};

}  // namespace dorvik::basic
