#pragma once

#include <cstdint>

namespace dorvik {

/// The environment's numbers of the kinds of procedure.
enum class ProcedureKind : std::int32_t {
    SubOrFunction = 0,
    PropertyLet = 1,
    PropertySet = 2,
    PropertyGet = 3
};

}  // namespace dorvik
