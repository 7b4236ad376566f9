#pragma once

#include "basic/values/Value.h"

#include <span>
#include <string_view>

namespace dorvik::basic {

class ScriptContext;

/// The functions that the compiler treats specially.
enum class BuiltinId : std::uint8_t { None, DoEvents, InStr, LeftText, Len, LenB };

/// A function of the language itself. Omitted arguments are passed as `Missing`; the compiler has checked
/// their number, ordered named ones and knows the declared type of the result.
struct BuiltinFunction {
    using Implementation = Value (*)(ScriptContext& context, std::span<const Value> arguments);

    std::string_view
        Name;  // as documented, "Mid"; the form with "$" is an entry of its own, "Mid$"
    std::string_view
        Parameters;  // names separated by blanks, optional ones after "?": "String Start ?Length"; "..." takes any number
    DeclaredKind Result;  // Variant unless always of one type
    Implementation Call;
    bool IsRefused = false;  // compiles, raises 70 when reached
    /// Whether the caller or the function counts the work that text arguments cause.
    enum class TextCost : std::uint8_t { CountedByCaller, CountedByItself };
    TextCost Cost = TextCost::CountedByCaller;
    bool IsConversion = false;  // of its one argument to the type of the result
    BuiltinId Id = BuiltinId::None;

    int LeastArguments() const;
    int MostArguments() const;  // -1: any number
};

}  // namespace dorvik::basic
