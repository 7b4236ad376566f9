#pragma once

#include "basic/Value.h"

#include <span>
#include <string_view>

namespace dorvik::basic {

class ScriptContext;

/// A function of the language itself. Arguments left out come as `Missing`; the compiler has checked
/// their number, sorted named ones to their places and knows the result's declared type.
struct BuiltinFunction {
    using Body = Value (*)(ScriptContext& context, std::span<const Value> arguments);

    std::string_view
        Name;  // as documented, "Mid"; the form with "$" is an entry of its own, "Mid$"
    std::string_view
        Parameters;  // names separated by blanks, optional ones behind "?": "String Start ?Length"; "..." takes any number
    DeclaredKind Result;  // Variant unless always of one type
    Body Call;
    bool IsRefused = false;  // compiles, raises 70 when reached
    /// Who counts the work that the texts among the arguments make.
    enum class TextCost : std::uint8_t { CountedByCaller, CountedByItself };
    TextCost Cost = TextCost::CountedByCaller;
    bool IsConversion = false;  // of its one argument to the type of the result

    int LeastArguments() const;
    int MostArguments() const;  // -1: any number
};

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
