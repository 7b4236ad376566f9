#pragma once

#include "base/BasicError.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace dorvik {

/// A setting of several values of one kind, numbered from 1: the widths of a table's columns, say.
/// A number outside raises `kSubscriptOutOfRange`.
template <typename T, std::size_t Size>
class SettingRow {
public:
    explicit constexpr SettingRow(const std::array<T, Size>& defaults) : m_values(defaults) {}

    static constexpr std::int32_t Count() { return static_cast<std::int32_t>(Size); }
    const T& Item(std::int32_t index) const { return m_values[Slot(index)]; }
    T& Item(std::int32_t index) { return m_values[Slot(index)]; }
    void SetItem(std::int32_t index, T value) { m_values[Slot(index)] = value; }

private:
    static std::size_t Slot(std::int32_t index) {
        if (index < 1 || index > Count()) {
            RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
        }
        return static_cast<std::size_t>(index) - 1;
    }

    std::array<T, Size> m_values;
};

}  // namespace dorvik
