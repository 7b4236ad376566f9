#pragma once

#include "base/DateTime.h"

namespace dorvik {

/// Gives the local time. The program's own clock is the machine's; tests install one that is still.
class IClock {
public:
    virtual ~IClock() = default;
    virtual DateTime Now() = 0;
};

}  // namespace dorvik
