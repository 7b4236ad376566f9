#pragma once

#include "basic/values/ArrayBody.h"
#include "basic/values/ScriptObject.h"
#include "basic/values/Value.h"

#include <cstddef>
#include <span>

/// What the operations on arrays share with the uses of members, which may turn out to be array elements.
namespace dorvik::basic {

/// The index of an element among all of them. Raises 9, or what the coercion of an index raises.
std::size_t OffsetOf(const ArrayBody& array, std::span<const Value> indices);
/// REQUIRES: an array.
Value ElementFrom(const Value& array, std::span<const Value> indices);
/// Assigns as a Let or a Set does.
void StoreElement(ArrayBody& array, std::size_t offset, const Value& value, bool isSet);

/// Raises 91 for Nothing, 438 for an object without a default member. REQUIRES: an object or Nothing.
ScriptObject& ObjectWithDefault(const Value& value);

}  // namespace dorvik::basic
