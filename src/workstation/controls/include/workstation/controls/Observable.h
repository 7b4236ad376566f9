#pragma once

#include "workstation/controls/Event.h"

#include <utility>

namespace dorvik {

/// A value that a screen shows: the text of a box, a check mark, whether a button is enabled. `Changed` is
/// raised when another value is set, after it has been set.
template <typename T>
class Observable {
public:
    Observable() = default;
    explicit Observable(T value) : m_value(std::move(value)) {}
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;

    const T& Value() const { return m_value; }
    void Set(T value) {
        if (!(m_value == value)) {
            m_value = std::move(value);
            Changed.Raise(m_value);
        }
    }

    Event<const T&> Changed;

private:
    T m_value{};
};

}  // namespace dorvik
