#include "basic/library/ContainerMemory.h"

#include "basic/values/MemoryMeter.h"

namespace dorvik::basic {

ContainerMemory::~ContainerMemory() {
    MemoryMeter::Current().Refund(m_bytes);
}

void ContainerMemory::SetBytes(std::size_t bytes) {
    if (bytes > m_bytes) {
        MemoryMeter::Current().Charge(bytes - m_bytes);
    } else {
        MemoryMeter::Current().Refund(m_bytes - bytes);
    }
    m_bytes = bytes;
}

}  // namespace dorvik::basic
