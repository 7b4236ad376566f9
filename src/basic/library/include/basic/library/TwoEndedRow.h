#pragma once

#include <cstddef>
#include <memory>
#include <utility>

namespace dorvik::basic {

/// A row of elements in which every element is found at once, and both ends are cheap to reach. An insertion or
/// a removal elsewhere moves the elements of the shorter side.
template <class Element>
class TwoEndedRow {
public:
    std::size_t Size() const { return m_size; }
    Element& operator[](std::size_t place) { return m_slots[SlotOf(place)]; }
    const Element& operator[](std::size_t place) const { return m_slots[SlotOf(place)]; }

    /// REQUIRES: place <= Size().
    void Insert(std::size_t place, Element element) {
        if (m_size == m_capacity) {
            Grow();
        }
        ++m_size;
        if (place + 1 == m_size) {
            (*this)[place] = std::move(element);
            return;
        }
        if (place < m_size / 2) {
            m_first = (m_first - 1) & (m_capacity - 1);
            for (std::size_t moved = 0; moved < place; ++moved) {
                (*this)[moved] = std::move((*this)[moved + 1]);
            }
        } else {
            for (std::size_t moved = m_size - 1; moved > place; --moved) {
                (*this)[moved] = std::move((*this)[moved - 1]);
            }
        }
        (*this)[place] = std::move(element);
    }

    /// Removes an element. REQUIRES: place < Size().
    Element Take(std::size_t place) {
        Element taken = std::exchange((*this)[place], Element());
        if (place < m_size / 2) {
            for (std::size_t moved = place; moved > 0; --moved) {
                (*this)[moved] = std::move((*this)[moved - 1]);
            }
            m_first = SlotOf(1);
        } else {
            for (std::size_t moved = place; moved + 1 < m_size; ++moved) {
                (*this)[moved] = std::move((*this)[moved + 1]);
            }
        }
        --m_size;
        return taken;
    }

    void Clear() {
        const auto dying = std::move(m_slots);  // what dies may come back here
        m_capacity = 0;
        m_first = 0;
        m_size = 0;
    }

private:
    std::size_t SlotOf(std::size_t place) const { return (m_first + place) & (m_capacity - 1); }

    void Grow() {
        constexpr std::size_t kFewest = 8;
        const std::size_t capacity = m_capacity == 0 ? kFewest : 2 * m_capacity;
        auto slots = std::make_unique<Element[]>(capacity);
        for (std::size_t place = 0; place < m_size; ++place) {
            slots[place] = std::move((*this)[place]);
        }
        m_slots = std::move(slots);
        m_capacity = capacity;
        m_first = 0;
    }

    std::unique_ptr<Element[]> m_slots;
    std::size_t m_capacity = 0;  // how many slots: a power of two, or none
    std::size_t m_first = 0;     // the slot of the first element
    std::size_t m_size = 0;
};

}  // namespace dorvik::basic
