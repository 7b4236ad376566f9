#pragma once

#include "basic/values/Value.h"

#include <cstdint>

namespace dorvik::basic {

/// Whether it is worth to ask.
inline bool MayHaveKnownFailure(const Value& value) {
    return value.Type() == ValueType::String || value.Type() == ValueType::Null;
}

/// The error that a conversion to a type is known to end with, for one who would rather not see it raised:
/// 13 for a text that is not a number, 94 for Null. 0 if it has to be tried.
std::int32_t KnownFailure(const Value& value, DeclaredKind kind);

}  // namespace dorvik::basic
