#pragma once

#include "base/Variant.h"
#include "basic/values/Value.h"

/// The way of values between the property bags of a review and the scripts. Nothing gets lost on the
/// way to a bag and back: kinds that a bag does not know (dates, whole numbers of 16 bits, Null,
/// arrays, objects ...) are held as they are.
namespace dorvik::modScriptValues {

/// An object is kept by reference, an array by a copy of its own.
Variant ToVariant(const basic::Value& value);
basic::Value ToValue(const Variant& variant);

}  // namespace dorvik::modScriptValues
