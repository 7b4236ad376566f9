#pragma once

namespace dorvik {

/// While it lives, Ctrl-C, a request to terminate, a terminal that goes away and an output whose reader went
/// away only set a flag, so that the work at hand can end in order. A second request ends the program at once,
/// and leaves no unfinished file behind. A signal that the caller wants ignored stays ignored.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    bool Requested() const;
};

}  // namespace dorvik
