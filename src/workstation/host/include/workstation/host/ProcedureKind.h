#pragma once

#include <cstdint>
#include <string_view>

namespace dorvik {

/// The environment's numbers of the kinds of procedure.
enum class ProcedureKind : std::int32_t {
    SubOrFunction = 0,
    PropertyLet = 1,
    PropertySet = 2,
    PropertyGet = 3
};

/// By the type as results have it: "Property Get" and the like, without regard to case.
ProcedureKind ProcedureKindOf(std::string_view procedureType);

}  // namespace dorvik
