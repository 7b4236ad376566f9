#pragma once

#include "base/BasicError.h"
#include "foundation/log/modLog.h"

#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace dorvik {

/// Where a failure is trapped, as a line of the log names it: the class (or the tag of a module of
/// functions) and the operation.
struct Place {
    std::string_view Module;
    std::string_view Procedure;
};

/// Runs the body of an operation. A failure inside is logged under `place` and goes no further.
/// True if the body ran to its end. What the body assigned before a failure stays assigned, so the
/// caller gives its result the default first. Costs nothing as long as nothing fails.
///
/// A log that cannot be written to does no more harm: `modLog::FirstUnwritten` tells of it.
template <typename Body>
bool Trap(const Place& place, Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const std::exception& failure) {
        modLog::LogFailure(failure, place.Procedure, place.Module);
        return false;
    }
}

/// The same for an operation that has words of its own for some failures: each `BasicError` goes to
/// `handle` first, and one for which that returns true is not logged.
template <typename Body, typename Handle>
bool Trap(const Place& place, Body&& body, Handle&& handle) {
    return Trap(place, [&] {
        try {
            std::forward<Body>(body)();
        } catch (const BasicError& failure) {
            if (!handle(failure)) {
                throw;
            }
        }
    });
}

/// Runs a part of an operation. A `BasicError` inside goes on to whoever traps around, with the text
/// that `detail` returns appended to its description: what the part was about.
template <typename Body, typename Detail>
void Explain(Body&& body, Detail&& detail) {
    try {
        std::forward<Body>(body)();
    } catch (const BasicError& failure) {
        throw BasicError(
            failure.Number(), failure.what() + std::string(detail()), failure.Source());
    }
}

}  // namespace dorvik
