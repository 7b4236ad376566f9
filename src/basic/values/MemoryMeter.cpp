#include "basic/values/MemoryMeter.h"

#include "basic/values/RuntimeErrors.h"

#include <string>

namespace dorvik::basic {

void MemoryMeter::RaiseOutOfMemory() const {
    RaiseLimit(
        runtimeerror::kOutOfMemory,
        "the limit of " + std::to_string(m_limit) + " bytes was reached");
}

void MemoryMeter::RaiseOutOfStringSpace() const {
    RaiseLimit(
        runtimeerror::kOutOfStringSpace,
        "the limit of " + std::to_string(m_stringLimit) + " bytes for one string was reached");
}

}  // namespace dorvik::basic
