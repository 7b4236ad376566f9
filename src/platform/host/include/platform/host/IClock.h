#pragma once

#include "base/DateTime.h"

namespace dorvik {

/// Tells the local time. The program's own clock is the machine's; tests install one that stands still.
class IClock {
public:
    virtual ~IClock() = default;
    virtual DateTime Now() = 0;
};

}  // namespace dorvik
