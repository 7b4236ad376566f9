#pragma once

#include "base/modKyErrors.h"
#include "foundation/lists/KeyIndex.h"
#include "foundation/lists/StringArrayList.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace dorvik {

/// A list of keys and a plain list of values in lockstep: the base of `KeyedArrayList`,
/// `ObjectKeyedArrayList` and `StringKeyedArrayList`, which add the way to `Add`. A key is found as by
/// a scan without regard to case: the first one counts. `KeyIndex` spares long lists the scan.
///
/// An entry is named by its position from 1 or by its key. A text of digits is a key, never a
/// position. An unknown key, or a position outside 1 to `Count`, raises `kyErrNoSuchItem` to the
/// caller. The empty key is a key like others.
///
/// `Dirty` and the Selected flags are those of the values.
template <typename Values>
class KeyedList {
public:
    using Value = typename Values::ValueType;
    using Sought = typename Values::Sought;

    bool Dirty() const { return m_values.Dirty(); }
    void SetDirty(bool dirty) { m_values.SetDirty(dirty); }

    std::int32_t Count() const { return m_values.Count(); }

    bool Selected(std::int32_t index) const { return m_values.Selected(Tested(index, kSelected)); }
    bool Selected(std::string_view key) const { return m_values.Selected(Found(key, kSelected)); }
    void SetSelected(std::int32_t index, bool selected);
    void SetSelected(std::string_view key, bool selected);
    std::int32_t SelectedCount() const { return m_values.SelectedCount(); }

    const Value& Item(std::int32_t index) const { return m_values.Item(Tested(index, kItem)); }
    const Value& Item(std::string_view key) const { return m_values.Item(Found(key, kItem)); }
    void SetItem(std::int32_t index, Value item);
    void SetItem(std::string_view key, Value item);

    /// The value under that key, or null: `Contains` and `Item` in one scan. Valid until the list changes.
    const Value* Find(std::string_view key) const;

    const std::string& Key(std::int32_t index) const { return m_keys.Item(Tested(index, kKey)); }

    void Remove(std::int32_t index);
    void Remove(std::string_view key) { Remove(Found(key, kRemove)); }
    /// Removes the first entry with that value, if there is one.
    void RemoveByValue(Sought value);

    bool Contains(std::string_view key) const { return FindIndexByKey(key) != -1; }
    /// The first position under that key; -1 if there is none.
    std::int32_t FindIndexByKey(std::string_view key) const { return m_index.Find(m_keys, key); }

    /// "Item1", "Item2" and so on. The list itself is not looked at: a key of that form that a caller
    /// chose may come again. `Clear` does not begin the numbers anew.
    std::string NewUniqueKey();

    void Clear();

    bool ContainsValue(Sought value) const { return m_values.ContainsValue(value); }
    std::int32_t IndexOfValue(Sought value) const { return m_values.IndexOfValue(value); }
    void MoveItem(std::int32_t from, std::int32_t to);

    /// The values in the order of their positions, for a range-based `for`. Valid until the list changes.
    auto begin() const { return m_values.begin(); }
    auto end() const { return m_values.end(); }
    /// The keys in the same order.
    const StringArrayList& Keys() const { return m_keys; }

protected:
    /// Returns the new position. Raises `kyErrKeyInUse` to the caller if the key is to be tested
    /// and there already.
    std::int32_t AddEntry(std::string_view key, Value item, bool selected, bool ensureUniqueKey) {
        return Add(key, std::move(item), selected, ensureUniqueKey);
    }

    /// The new key is not tested.
    void ReplaceKey(std::int32_t index, std::string_view key);

private:
    // All keyed lists raise under the one name, whichever of them it is.
    static constexpr std::string_view kSelected = "KeyedArrayList::Selected";
    static constexpr std::string_view kItem = "KeyedArrayList::Item";
    static constexpr std::string_view kKey = "KeyedArrayList::Key";
    static constexpr std::string_view kRemove = "KeyedArrayList::Remove";
    static constexpr std::string_view kAdd = "KeyedArrayList::Add";

    static constexpr std::string_view kClassName = ListElement<Value>::kKeyedListName;

    std::int32_t Tested(std::int32_t index, std::string_view source) const;
    std::int32_t Found(std::string_view key, std::string_view source) const {
        return Tested(FindIndexByKey(key), source);
    }

    std::int32_t Add(std::string_view key, Value item, bool selected, bool ensureUniqueKey);

    StringArrayList m_keys;
    mutable KeyIndex m_index;  // of m_keys
    Values m_values;
    std::string m_uniqueKeyPrefix;
    std::int32_t m_uniqueKeyCounter = 0;
};

template <typename Values>
std::int32_t KeyedList<Values>::Tested(std::int32_t index, std::string_view source) const {
    if (index > Count() || index < 1) {
        modKyErrors::RaiseError(modKyErrors::kyErrNoSuchItem, source);
    }
    return index;
}

template <typename Values>
void KeyedList<Values>::SetSelected(std::int32_t index, bool selected) {
    m_values.SetSelected(Tested(index, kSelected), selected);
}

template <typename Values>
void KeyedList<Values>::SetSelected(std::string_view key, bool selected) {
    m_values.SetSelected(Found(key, kSelected), selected);
}

template <typename Values>
void KeyedList<Values>::SetItem(std::int32_t index, Value item) {
    m_values.SetItem(Tested(index, kItem), std::move(item));
}

template <typename Values>
void KeyedList<Values>::SetItem(std::string_view key, Value item) {
    m_values.SetItem(Found(key, kItem), std::move(item));
}

template <typename Values>
auto KeyedList<Values>::Find(std::string_view key) const -> const Value* {
    const std::int32_t index = FindIndexByKey(key);
    return index == -1 ? nullptr : &m_values.Item(index);
}

template <typename Values>
void KeyedList<Values>::Remove(std::int32_t index) {
    Tested(index, kRemove);
    Trap({kClassName, "Remove"}, [&] {
        m_index.Forget();
        m_values.Remove(index);
        m_keys.Remove(index);
    });
}

template <typename Values>
void KeyedList<Values>::RemoveByValue(Sought value) {
    const std::int32_t index = IndexOfValue(value);
    if (index != -1) {
        Remove(index);
    }
}

template <typename Values>
std::string KeyedList<Values>::NewUniqueKey() {
    if (m_uniqueKeyPrefix.empty()) {
        m_uniqueKeyPrefix = "Item";
    }
    ++m_uniqueKeyCounter;
    return m_uniqueKeyPrefix + std::to_string(m_uniqueKeyCounter);
}

template <typename Values>
void KeyedList<Values>::Clear() {
    m_index.Forget();
    m_keys.Clear();
    m_values.Clear();
}

template <typename Values>
void KeyedList<Values>::MoveItem(std::int32_t from, std::int32_t to) {
    if (from != to) {
        m_index.Forget();
        m_values.MoveItem(from, to);
        m_keys.MoveItem(from, to);
    }
}

template <typename Values>
std::int32_t
KeyedList<Values>::Add(std::string_view key, Value item, bool selected, bool ensureUniqueKey) {
    if (ensureUniqueKey && Contains(key)) {
        modKyErrors::RaiseError(modKyErrors::kyErrKeyInUse, kAdd, key);
    }
    std::int32_t index = 0;
    Trap({kClassName, "Add"}, [&] {
        index = m_values.Add(std::move(item));
        m_values.SetSelected(index, selected);
        m_keys.Add(std::string(key));
        m_index.Appended(m_keys);
    });
    return index;
}

template <typename Values>
void KeyedList<Values>::ReplaceKey(std::int32_t index, std::string_view key) {
    // Required: the keys alone become dirty by this, so the list itself does not.
    m_keys.SetItem(Tested(index, kKey), std::string(key));
    m_index.Forget();
}

}  // namespace dorvik
