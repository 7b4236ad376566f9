#pragma once

namespace dorvik {

/// While it lives, the first Ctrl-C (or a request to terminate) only sets a flag, so that the work
/// at hand can end in order; a second one ends the program at once.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    bool Requested() const;
};

}  // namespace dorvik
