#pragma once

#include "foundation/log/Trap.h"

#include <string>
#include <utility>
#include <vector>

namespace dorvik {

/// Runs a part of the reading of a file. What a `BasicError` in it says joins the faults, and the
/// other parts of the file are still read. True if it ran to its end.
template <typename Body>
bool Attempt(std::vector<std::string>& faults, Body&& body) {
    return Trap({"FaultList", "Attempt"}, std::forward<Body>(body), [&](const BasicError& failure) {
        faults.emplace_back(failure.what());
        return true;
    });
}

}  // namespace dorvik
