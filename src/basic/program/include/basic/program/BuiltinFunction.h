#pragma once

#include "basic/values/Value.h"

#include <span>
#include <string_view>

namespace dorvik::basic {

class ScriptContext;

/// The functions that the compiler knows by more than their row.
enum class BuiltinId : std::uint8_t { None, DoEvents, InStr, LeftText, Len, LenB };

/// A function of the language itself. Arguments left out come as `Missing`; the compiler has checked
/// their number, put named ones in their order and knows the result's declared type.
struct BuiltinFunction {
    using Implementation = Value (*)(ScriptContext& context, std::span<const Value> arguments);

    std::string_view
        Name;  // as documented, "Mid"; the form with "$" is an entry of its own, "Mid$"
    std::string_view
        Parameters;  // names separated by blanks, optional ones after "?": "String Start ?Length"; "..." takes any number
    DeclaredKind Result;  // Variant unless always of one type
    Implementation Call;
    bool IsRefused = false;  // compiles, raises 70 when reached
    /// Who counts the work that the texts among the arguments make.
    enum class TextCost : std::uint8_t { CountedByCaller, CountedByItself };
    TextCost Cost = TextCost::CountedByCaller;
    bool IsConversion = false;  // of its one argument to the type of the result
    BuiltinId Id = BuiltinId::None;

    int LeastArguments() const;
    int MostArguments() const;  // -1: any number
};

}  // namespace dorvik::basic
