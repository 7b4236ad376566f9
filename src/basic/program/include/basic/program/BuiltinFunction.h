#pragma once

#include "basic/values/Value.h"

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

}  // namespace dorvik::basic
