#include "basic/library/ContainerMemory.h"

namespace dorvik::basic {

ContainerMemory::~ContainerMemory() {
    MemoryMeter::Current().Refund(m_bytes);
}

}  // namespace dorvik::basic
