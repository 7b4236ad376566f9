#pragma once

#include "basic/Value.h"

#include <string>

namespace dorvik::basic {

/// Converts for an assignment, an argument by value or a `CXxx` function. An object answers with its
/// default member unless an object is wanted. Arrays and records must match and come back copied whole.
/// Raises 13, 6, 94, 91, 438.
Value CoerceTo(const Value& value, const DeclaredType& type);
Value CoerceTo(const Value& value, DeclaredKind scalarKind);

std::int32_t ToLong(const Value& value);  // half to even; 6, 13, 94
std::int16_t ToInteger(const Value& value);
double ToDouble(const Value& value);
bool ToBoolean(const Value& value);
std::string ToText(const Value& value);  // 94 for Null, 13 for an Error
/// The same without a copy where the value is a text already; `buffer` holds the text otherwise.
std::string_view ToText(const Value& value, std::string& buffer);

/// The value itself, or what the default member of the object gives (91, 438, 450).
Value LetValue(const Value& value);

/// The value that a variable of the type has at first. Records need the module's types and are made by
/// the machine. REQUIRES: not a Record. An array is undimensioned.
Value InitialValue(const DeclaredType& type);

/// What `TypeName` and `VarType` say.
std::string TypeNameOf(const Value& value);
std::int32_t VarTypeOf(const Value& value);

}  // namespace dorvik::basic
