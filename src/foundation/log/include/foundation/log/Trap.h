#pragma once

#include "base/BasicError.h"
#include "foundation/log/modLog.h"

#include <exception>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace dorvik {

/// Where a failure is trapped, as a line of the log names it: the class (or the tag of a module of
/// functions) and the operation.
struct LogOrigin {
    std::string_view Module;
    std::string_view Procedure;
};

/// Runs the body of an operation. A failure inside is logged under `origin` and goes no further.
/// True if the body ran to its end; what it assigned before a failure stays assigned. For an operation
/// that returns a value there is `Trapped`. Costs nothing as long as nothing fails.
///
/// A log that cannot be written to does no more harm: `modLog::FirstUnwritten` reports it.
template <typename Body>
bool Trap(const LogOrigin& origin, Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const std::exception& failure) {
        modLog::LogFailure(failure, origin.Procedure, origin.Module);
        return false;
    }
}

/// Runs the body of an operation that returns a value, and returns that value; after a failure, which is
/// logged under `origin`, `otherwise`.
template <typename Body>
auto Trapped(
    const LogOrigin& origin,
    std::type_identity_t<std::invoke_result_t<Body>> otherwise,
    Body&& body) -> std::invoke_result_t<Body> {
    try {
        return std::forward<Body>(body)();
    } catch (const std::exception& failure) {
        modLog::LogFailure(failure, origin.Procedure, origin.Module);
        return otherwise;
    }
}

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

/// `Trap` for an operation that has words of its own for some failures: each `BasicError` goes to
/// `handle` first, and one for which that returns true is not logged.
template <typename Body, typename Handle>
bool Trap(const LogOrigin& origin, Body&& body, Handle&& handle) {
    return Trap(origin, [&] { Handled(std::forward<Body>(body), std::forward<Handle>(handle)); });
}

/// Runs a part of an operation. A `BasicError` inside continues to the enclosing trap, with the text
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
