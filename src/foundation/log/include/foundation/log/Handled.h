#pragma once

#include "base/BasicError.h"

#include <utility>

namespace dorvik {

/// Runs a part of an operation. A `BasicError` inside goes to `handle`, and continues to the enclosing trap
/// if that returns false. True if the body ran to its end.
template <typename Body, typename Handle>
bool Handled(Body&& body, Handle&& handle) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const BasicError& failure) {
        if (!handle(failure)) {
            throw;
        }
        return false;
    }
}

}  // namespace dorvik
