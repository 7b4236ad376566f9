#pragma once

#include "base/BasicError.h"
#include "foundation/lists/ListElement.h"
#include "foundation/log/Trap.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace dorvik {

/// A growable array whose positions begin at 1 and whose elements each carry a Selected flag. The
/// base of `ArrayList`, `LongArrayList`, `ObjectArrayList` and `StringArrayList`.
///
/// Capacity begins at 10, doubles when an `Add` exceeds it and halves, down to 1, when a `Remove`
/// leaves less than half of it in use. It says which positions exist: those from `Count` + 1 to
/// `Capacity` hold nothing, or what a `Remove` left there, and may be read and written
/// without an effect on `Count`. Memory is taken with the first element, not before.
///
/// `Dirty` is set by what changes elements and cleared by `Clear` and its owner only; the Selected
/// flags do not touch it.
///
/// Errors: a position outside 1 to `Capacity` raises `kSubscriptOutOfRange` from `Item`, `SetItem`,
/// `Selected` and `SetSelected`. The other operations log a failure and return.
template <typename T>
class PlainList {
public:
    using ValueType = T;
    using Sought = typename ListElement<T>::Sought;

    static constexpr std::int32_t kInitialCapacity = 10;

    bool Dirty() const { return m_dirty; }
    void SetDirty(bool dirty) { m_dirty = dirty; }

    std::int32_t Count() const { return m_count; }
    std::int32_t Capacity() const { return m_capacity; }

    const T& Item(std::int32_t index) const;
    void SetItem(std::int32_t index, T item);

    bool Selected(std::int32_t index) const;
    void SetSelected(std::int32_t index, bool selected);
    /// Number of selected elements, counted afresh on each call.
    std::int32_t SelectedCount() const;

    /// Appends the element, not selected, and returns its position.
    std::int32_t Add(T item);
    /// An index above `Count` removes nothing, but sets `Dirty` all the same.
    void Remove(std::int32_t index);
    /// Removes the first element of that value; changes nothing, `Dirty` included, if there is none.
    void RemoveByValue(Sought value);
    void Clear();

    bool ContainsValue(Sought value) const { return IndexOfValue(value) != -1; }
    /// The first position with that value; -1 if there is none.
    std::int32_t IndexOfValue(Sought value) const;

    /// Moves an element with its flag; those between shift one position toward `from`.
    void MoveItem(std::int32_t from, std::int32_t to);

    /// The elements at the positions 1 to `Count`, for a range-based `for`. Valid until the list changes.
    const T* begin() const { return m_items.data(); }
    const T* end() const { return m_items.data() + m_count; }

protected:
    /// The same elements, for an algorithm of a derived list that moves them. It leaves flags and `Dirty` alone.
    T* MutableBegin() { return m_items.data(); }
    T* MutableEnd() { return m_items.data() + m_count; }

private:
    static std::size_t Slot(std::int32_t index) { return static_cast<std::size_t>(index) - 1; }
    void TestPosition(std::int32_t index) const;
    void StoreItem(std::int32_t index, T item);
    void StoreFlag(std::int32_t index, bool selected);
    void ShiftDown(std::int32_t index);
    void Shrink();

    // Slots after the end of either vector, up to the capacity, are empty: no value, not selected.
    std::vector<T> m_items;
    std::vector<bool> m_selected;
    std::int32_t m_count = 0;
    std::int32_t m_capacity = kInitialCapacity;
    bool m_dirty = false;
};

template <typename T>
void PlainList<T>::TestPosition(std::int32_t index) const {
    if (index < 1 || index > m_capacity) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
}

template <typename T>
const T& PlainList<T>::Item(std::int32_t index) const {
    if (static_cast<std::size_t>(index) - 1 < m_items.size()) {
        return m_items[Slot(index)];
    }
    TestPosition(index);
    static const T kEmpty{};
    return kEmpty;
}

template <typename T>
void PlainList<T>::SetItem(std::int32_t index, T item) {
    TestPosition(index);
    StoreItem(index, std::move(item));
    m_dirty = true;
}

template <typename T>
bool PlainList<T>::Selected(std::int32_t index) const {
    TestPosition(index);
    return Slot(index) < m_selected.size() && m_selected[Slot(index)];
}

template <typename T>
void PlainList<T>::SetSelected(std::int32_t index, bool selected) {
    TestPosition(index);
    StoreFlag(index, selected);
}

template <typename T>
std::int32_t PlainList<T>::SelectedCount() const {
    const auto used =
        static_cast<std::ptrdiff_t>(std::min(m_selected.size(), static_cast<std::size_t>(m_count)));
    return static_cast<std::int32_t>(
        std::count(m_selected.begin(), m_selected.begin() + used, true));
}

template <typename T>
std::int32_t PlainList<T>::Add(T item) {
    std::int32_t index = 0;
    Trap({ListElement<T>::kListName, "Add"}, [&] {
        const std::int32_t next = m_count + 1;
        const std::int32_t capacity = next > m_capacity ? m_capacity * 2 : m_capacity;
        if (m_items.capacity() < static_cast<std::size_t>(next)) {
            m_items.reserve(static_cast<std::size_t>(capacity));
        }
        StoreItem(next, std::move(item));
        StoreFlag(next, false);
        m_capacity = capacity;
        m_count = next;
        m_dirty = true;
        index = next;
    });
    return index;
}

template <typename T>
void PlainList<T>::Remove(std::int32_t index) {
    Trap({ListElement<T>::kListName, "Remove"}, [&] {
        if (index <= m_count) {
            if (index == m_count) {
                SetItem(index, T{});
            } else {
                ShiftDown(index);
            }
            --m_count;
            Shrink();
        }
        m_dirty = true;
    });
}

template <typename T>
void PlainList<T>::ShiftDown(std::int32_t index) {
    TestPosition(index);
    const auto at = [&](std::int32_t position) {
        return m_items.begin() + static_cast<std::ptrdiff_t>(Slot(position));
    };
    std::move(at(index + 1), at(m_count) + 1, at(index));
    // Required: the slot that falls free keeps its content until an Add overwrites it.
    *at(m_count) = *at(m_count - 1);
    for (std::int32_t position = index; position < m_count; ++position) {
        StoreFlag(position, Selected(position + 1));
    }
}

template <typename T>
void PlainList<T>::Shrink() {
    const std::int32_t half = m_capacity / 2;
    if (m_count >= half) {
        return;
    }
    m_capacity = half;
    const std::size_t slots = static_cast<std::size_t>(half);
    if (m_items.size() > slots) {
        m_items.resize(slots);
    }
    if (m_selected.size() > slots) {
        m_selected.resize(slots);
    }
}

template <typename T>
void PlainList<T>::RemoveByValue(Sought value) {
    const std::int32_t index = IndexOfValue(value);
    if (index != -1) {
        Remove(index);
    }
}

template <typename T>
void PlainList<T>::Clear() {
    m_items.clear();
    m_selected.clear();
    m_count = 0;
    m_capacity = kInitialCapacity;
    m_dirty = false;
}

template <typename T>
std::int32_t PlainList<T>::IndexOfValue(Sought value) const {
    for (std::int32_t index = 1; index <= m_count; ++index) {
        if (ListElement<T>::Equal(m_items[Slot(index)], value)) {
            return index;
        }
    }
    return -1;
}

template <typename T>
void PlainList<T>::MoveItem(std::int32_t from, std::int32_t to) {
    if (from == to) {
        return;
    }
    Trap({ListElement<T>::kListName, "MoveItem"}, [&] {
        T item = Item(from);
        const bool selected = Selected(from);
        const std::int32_t step = from > to ? -1 : 1;
        for (std::int32_t index = from; index != to; index += step) {
            StoreItem(index, Item(index + step));
            StoreFlag(index, Selected(index + step));
        }
        StoreItem(to, std::move(item));
        StoreFlag(to, selected);
        m_dirty = true;
    });
}

template <typename T>
void PlainList<T>::StoreItem(std::int32_t index, T item) {
    const std::size_t slot = Slot(index);
    if (slot == m_items.size()) {
        m_items.push_back(std::move(item));
        return;
    }
    if (slot > m_items.size()) {
        m_items.resize(slot + 1);
    }
    m_items[slot] = std::move(item);
}

template <typename T>
void PlainList<T>::StoreFlag(std::int32_t index, bool selected) {
    const std::size_t slot = Slot(index);
    if (slot >= m_selected.size()) {
        if (!selected) {
            return;
        }
        m_selected.resize(slot + 1);
    }
    m_selected[slot] = selected;
}

}  // namespace dorvik
