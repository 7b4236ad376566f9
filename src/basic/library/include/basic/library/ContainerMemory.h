#pragma once

#include "basic/values/MemoryMeter.h"

#include <cstddef>

namespace dorvik::basic {

/// The bytes that one object has reported to the memory meter; given back with the object.
class ContainerMemory {
public:
    ContainerMemory() = default;
    ContainerMemory(const ContainerMemory&) = delete;
    ContainerMemory& operator=(const ContainerMemory&) = delete;
    ~ContainerMemory();

    std::size_t Bytes() const { return m_bytes; }
    /// Raises 7, and changes nothing, when the memory limit would be passed.
    void SetBytes(std::size_t bytes) {
        if (bytes > m_bytes) {
            MemoryMeter::Current().Charge(bytes - m_bytes);
        } else {
            MemoryMeter::Current().Refund(m_bytes - bytes);
        }
        m_bytes = bytes;
    }

private:
    std::size_t m_bytes = 0;
};

}  // namespace dorvik::basic
