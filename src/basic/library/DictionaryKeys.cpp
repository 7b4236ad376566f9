#include "basic/library/DictionaryKeys.h"

#include "Arguments.h"
#include "base/modTextCase.h"
#include "basic/values/Coercion.h"

#include <algorithm>
#include <bit>

namespace dorvik::basic {

namespace {

constexpr std::size_t kFewestSlots = 8;

std::uint32_t Mixed(std::uint64_t bits) {
    bits *= 0x9E3779B97F4A7C15ULL;
    return static_cast<std::uint32_t>(bits >> 32U);
}

/// Eight neighbours stay neighbours in the table, which is one line of the processor's cache: most numbers
/// that are keys come in a row.
std::uint32_t HashOfWhole(std::int64_t number) {
    const auto bits = static_cast<std::uint64_t>(number);
    return (Mixed(bits >> 3U) & ~7U) | static_cast<std::uint32_t>(bits & 7U);
}

/// The value of a key that is a number of any type.
double NumberOf(const Value& key) {
    switch (key.Type()) {
        case ValueType::Integer:
        case ValueType::Long:
        case ValueType::Boolean:
        case ValueType::Byte: return key.AsLong();
        case ValueType::Double:
        case ValueType::Date: return key.AsDouble();
        case ValueType::Empty:
        case ValueType::Null:
        case ValueType::Single:
        case ValueType::Currency:
        case ValueType::String:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Decimal:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return ToDouble(key);
}

bool IsNumberKey(const Value& key) {
    return key.IsNumber() || key.Type() == ValueType::Decimal;
}

/// Whether a number is a whole one, and then which.
bool ReadWhole(double number, std::int64_t& whole) {
    constexpr double kAllWhole = 9007199254740992.0;  // 2^53
    if (!(number >= -kAllWhole && number <= kAllWhole)) {
        return false;
    }
    whole = static_cast<std::int64_t>(number);
    return static_cast<double>(whole) == number;
}

/// The same for a key, which may be no number.
bool ReadWhole(const Value& key, std::int64_t& whole) {
    if (key.Type() == ValueType::Long || key.Type() == ValueType::Integer) {
        whole = key.AsLong();
        return true;
    }
    return IsNumberKey(key) && ReadWhole(NumberOf(key), whole);
}

/// Equal numbers of all types meet: a whole one is hashed as such, whatever its type.
std::uint32_t HashOfNumber(double number) {
    if (std::int64_t whole = 0; ReadWhole(number, whole)) {
        return HashOfWhole(whole);
    }
    const auto bits = std::bit_cast<std::uint64_t>(number);
    return Mixed(bits ^ (bits >> 32U));  // the lower half alone may be all zeros
}

}  // namespace

std::uint32_t HashOfKey(const Value& key, bool ignoresCase) {
    switch (key.Type()) {
        case ValueType::String:
            if (ignoresCase) {
                return static_cast<std::uint32_t>(modTextCase::Hash(key.AsText()));
            }
            return key.TextBody() != nullptr ? key.TextBody()->Hash() : 0;
        case ValueType::Integer:
        case ValueType::Long:
        case ValueType::Boolean:
        case ValueType::Byte: return HashOfWhole(key.AsLong());
        case ValueType::Single:
        case ValueType::Double:
        case ValueType::Currency:
        case ValueType::Date:
        case ValueType::Decimal: return HashOfNumber(NumberOf(key));
        case ValueType::Object: return Mixed(std::bit_cast<std::uintptr_t>(key.AsObject()));
        case ValueType::Error: return Mixed(static_cast<std::uint32_t>(key.AsLong()));
        case ValueType::Empty:
        case ValueType::Null: return static_cast<std::uint32_t>(key.Type());
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    RaiseError(runtimeerror::kTypeMismatch);
}

bool IsSameKey(const Value& left, const Value& right, bool ignoresCase) {
    if (left.Type() == ValueType::String && right.Type() == ValueType::String) {
        return ignoresCase ? modTextCase::Equal(left.AsText(), right.AsText())
                           : left.AsText() == right.AsText();
    }
    if (left.Type() == ValueType::Long && right.Type() == ValueType::Long) {
        return left.AsLong() == right.AsLong();
    }
    if (IsNumberKey(left) && IsNumberKey(right)) {
        return NumberOf(left) == NumberOf(right);
    }
    if (left.Type() != right.Type()) {
        return false;
    }
    if (left.Type() == ValueType::Object) {
        return left.AsObject() == right.AsObject();
    }
    return left.Type() != ValueType::Error || left.AsLong() == right.AsLong();
}

std::size_t DictionaryKeys::Find(const Value& key, std::uint32_t hash) const {
    if (m_isRow) {
        return FindInRow(key);
    }
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t index = hash & mask;; index = (index + 1) & mask) {
        const Slot& slot = m_slots[index];
        if (slot.Place == kFree) {
            return kNone;
        }
        if (slot.Hash != hash || slot.Place == kRemoved) {
            continue;
        }
        const Value& present = m_keys[slot.Place].Key;
        if (IsSameText(present, key) || IsSameKey(present, key, m_ignoresCase)) {
            m_lastFound = slot.Place;
            return slot.Place;
        }
    }
}

std::size_t DictionaryKeys::AppendToRow(const Value& key) {
    if (m_items.empty()) {
        m_rowType = key.Type();
        m_rowStart = key.AsLong();
    }
    m_items.emplace_back();
    return m_count++;
}

std::size_t DictionaryKeys::Append(const Value& key, std::uint32_t hash, bool mayMove) {
    if (m_isRow) {
        LeaveRow();
    }
    if (IsFull()) {
        Rebuild(mayMove);
    }
    const std::size_t place = m_items.size();
    m_items.emplace_back();
    m_keys.push_back({key, hash, true});
    FillSlot(static_cast<std::uint32_t>(place), hash);
    ++m_count;
    return place;
}

std::size_t DictionaryKeys::FindInRow(const Value& key) const {
    std::int64_t whole = 0;
    return ReadWhole(key, whole) ? FindInRow(whole) : kNone;
}

Value DictionaryKeys::KeyInRow(std::size_t place) const {
    const auto number = static_cast<std::int32_t>(m_rowStart + static_cast<std::int64_t>(place));
    return m_rowType == ValueType::Long ? Value::Long(number)
                                        : Value::Integer(static_cast<std::int16_t>(number));
}

void DictionaryKeys::LeaveRow() {
    m_keys.reserve(m_items.capacity());
    for (std::size_t place = 0; place < m_items.size(); ++place) {
        const Value key = KeyInRow(place);
        m_keys.push_back({key, HashOf(key), true});
    }
    m_isRow = false;
    Rebuild(false);
}

void DictionaryKeys::FreeSlotOf(std::size_t place) {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t index = m_keys[place].Hash & mask;
    while (m_slots[index].Place != place) {
        index = (index + 1) & mask;
    }
    m_slots[index].Place = kRemoved;
}

void DictionaryKeys::Remove(std::size_t place) {
    if (m_isRow) {
        LeaveRow();
    }
    FreeSlotOf(place);
    --m_count;
    m_keys[place].IsAlive = false;
    // The values go last: what dies with them may come back here.
    const Value key = std::move(m_keys[place].Key);
    const Value item = std::move(m_items[place]);
}

void DictionaryKeys::Rename(std::size_t place, const Value& key, std::uint32_t hash) {
    if (m_isRow) {
        LeaveRow();
    }
    FreeSlotOf(place);
    m_keys[place].Hash = hash;
    const Value old = std::move(m_keys[place].Key);
    m_keys[place].Key = key;
    if (IsFull()) {
        Rebuild(false);
    } else {
        FillSlot(static_cast<std::uint32_t>(place), hash);
    }
}

void DictionaryKeys::Clear() {
    std::vector<StoredKey> dyingKeys;
    dyingKeys.swap(m_keys);
    std::vector<Value> dyingItems;
    dyingItems.swap(m_items);
    m_slots.clear();
    m_count = 0;
    m_used = 0;
    m_isRow = true;
}

/// The slots of a new table.
std::size_t DictionaryKeys::SlotsFor(std::size_t entries) {
    return std::max(kFewestSlots, std::bit_ceil(2 * entries));
}

std::size_t DictionaryKeys::BytesForOneMore() const {
    constexpr std::size_t kBytesOfEntry = sizeof(Value) + sizeof(StoredKey);
    const bool grows = m_items.size() == m_items.capacity();
    const std::size_t entries = m_items.capacity() * (grows ? 2 : 1);
    const std::size_t slots = m_isRow    ? SlotsFor(entries)
                              : IsFull() ? SlotsFor(m_count + 1)
                                         : m_slots.size();
    return slots * sizeof(Slot) + entries * kBytesOfEntry;
}

void DictionaryKeys::Rebuild(bool mayMove) {
    if (mayMove && m_count < m_items.size()) {
        CloseHoles();
    }
    m_slots.assign(SlotsFor(m_count + 1), Slot());
    m_used = 0;
    for (std::size_t place = 0; place < m_keys.size(); ++place) {
        if (m_keys[place].IsAlive) {
            FillSlot(static_cast<std::uint32_t>(place), m_keys[place].Hash);
        }
    }
}

/// Holes hold nothing: their values are gone since they were removed.
void DictionaryKeys::CloseHoles() {
    std::size_t kept = 0;
    for (std::size_t place = 0; place < m_keys.size(); ++place) {
        if (!m_keys[place].IsAlive) {
            continue;
        }
        if (kept != place) {
            m_keys[kept] = std::move(m_keys[place]);
            m_items[kept] = std::move(m_items[place]);
        }
        ++kept;
    }
    m_keys.resize(kept);
    m_items.resize(kept);
}

void DictionaryKeys::FillSlot(std::uint32_t place, std::uint32_t hash) {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t index = hash & mask;
    while (m_slots[index].Place != kFree) {
        index = (index + 1) & mask;
    }
    m_slots[index] = {place, hash};
    ++m_used;
}

}  // namespace dorvik::basic
