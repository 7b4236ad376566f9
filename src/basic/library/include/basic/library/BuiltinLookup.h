#pragma once

#include "basic/program/BuiltinFunction.h"

namespace dorvik::basic {

/// Finds a built-in function by its name in any case, suffix included; null if there is none.
const BuiltinFunction* FindBuiltin(std::string_view name);
/// All of them, in the order of the names: for the compiler's tooling and the documents.
std::span<const BuiltinFunction> AllBuiltins();

/// A built-in constant (vbCrLf, vbTextCompare, ...), its name in any case; null if there is none.
const Value* FindBuiltinConstant(std::string_view name);

/// Makes an object by its programmatic identifier ("Scripting.Dictionary", any case) or raises 429.
Value CreateScriptObject(std::string_view programId);
/// True for a programmatic identifier of which an object can be made.
bool IsScriptObject(std::string_view programId);
/// Makes an object by its class name in `New` (Collection, Dictionary, RegExp); null value if unknown.
Value NewScriptObject(ObjectClass which);

}  // namespace dorvik::basic
