#pragma once

#include "base/BasicError.h"

#include <cstdint>

namespace dorvik::test {

/// The number of the error that `body` raises; 0 if it raises none.
template <typename Body>
std::int32_t NumberRaisedBy(Body&& body) {
    try {
        body();
    } catch (const BasicError& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace dorvik::test
