#pragma once

#include "base/DateTime.h"

namespace dorvik {

struct LocalTime {
    DateTime Time;
    double Fraction = 0;  // of the second; less than 1
};

namespace modHostClock {

/// By the clock of this machine.
LocalTime Now();

}  // namespace modHostClock

}  // namespace dorvik
