#pragma once

#include "basic/values/ValueType.h"

namespace dorvik::basic {

/// Numbers, Booleans and dates: what a plain slot may hold.
bool IsPlainKind(DeclaredKind kind);
bool IsPlain(const DeclaredType& type);
/// Byte, Boolean, Integer and Long: their values can be read as a Long.
bool IsWholeKind(DeclaredKind kind);
/// The kind that holds a value of that type exactly; Variant where there is none.
DeclaredKind KindOf(ValueType type);
/// The type of the values of a plain kind or String. REQUIRES: one of those.
ValueType ValueTypeOf(DeclaredKind kind);

}  // namespace dorvik::basic
