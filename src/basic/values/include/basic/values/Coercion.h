#pragma once

#include "basic/values/DecimalNumber.h"
#include "basic/values/Value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik::basic {

/// Converts for an assignment, an argument by value or a `CXxx` function. An object answers with its
/// default member unless an object is wanted. Arrays and records must match and come back copied whole.
/// To Variant an object stays what it is (an assignment without `Set` calls `LetValue` first), an
/// array comes back as a copy that can be redimensioned, and a record is rejected.
/// Raises 13, 6, 94, 91, 438, and 424 where an object is wanted.
Value CoerceTo(const Value& value, const DeclaredType& type);
Value CoerceTo(const Value& value, DeclaredKind scalarKind);

std::int32_t ToLong(const Value& value);  // half to even; 6, 13, 94
std::int16_t ToInteger(const Value& value);
std::uint8_t ToByte(const Value& value);  // True is 255
float ToSingle(const Value& value);
double ToDouble(const Value& value);
std::int64_t ToCurrency(const Value& value);  // ten thousandths, half to even
DecimalNumber ToDecimal(const Value& value);
double
ToDate(const Value& value);  // a text as `ReadDate` takes it; 6 outside the years 100 to 9999
bool ToBoolean(const Value& value);
std::string ToText(const Value& value);  // 94 for Null, 13 for an Error
/// The same without a copy where the value is a text already; `buffer` holds the text otherwise.
std::string_view ToText(const Value& value, std::string& buffer);

/// A text cut or filled with blanks to a number of characters, as a `String * n` keeps it.
Value ToFixedText(std::string_view text, std::int32_t characters);
/// "Error 2042": what `CStr` makes of an Error.
std::string ErrorText(const Value& error);

/// The value itself, or what the default member of the object gives (91, 438, 450).
Value LetValue(const Value& value);

/// The value that a variable of the type has at first. Records need the module's types and are made by
/// the machine. REQUIRES: not a Record. An array is undimensioned.
Value InitialValue(const DeclaredType& type);

/// What `TypeName` and `VarType` say.
std::string TypeNameOf(const Value& value);
std::int32_t VarTypeOf(const Value& value);

}  // namespace dorvik::basic
