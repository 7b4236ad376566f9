#pragma once

#include "base/Variant.h"
#include "basic/values/Value.h"

/// Converts values between the property bags of a review and the scripts. No information is lost in a conversion to a
/// bag and back: values of types that a bag does not have (dates, 16-bit integers, Null, arrays, objects ...) are
/// stored in the bag as script values.
namespace dorvik::modScriptValues {

/// An object is stored by reference, an array as a copy.
Variant ToVariant(const basic::Value& value);
basic::Value ToValue(const Variant& variant);

}  // namespace dorvik::modScriptValues
