#include "cli/output/Interrupt.h"

#include "platform/host/modHostInterrupt.h"

namespace dorvik {

Interrupt::Interrupt() {
    modHostInterrupt::Watch();
}

Interrupt::~Interrupt() {
    modHostInterrupt::Unwatch();
}

bool Interrupt::Requested() const {
    return modHostInterrupt::Requested();
}

}  // namespace dorvik
