#pragma once

#include "ModuleScope.h"
#include "Variable.h"

namespace dorvik::basic {

/// What a name stands for at some point of a procedure.
struct NameMeaning {
    enum class Kind : std::uint8_t {
        Unknown,
        Variable,
        Constant,
        Procedure,
        External,
        Builtin,
        Extension,
        ErrObject,
        Type
    };
    Kind What = Kind::Unknown;
    basic::Variable Variable;
    bool IsResult = false;            // the variable is the function's result
    const Value* Constant = nullptr;  // null for a constant whose value is an error
    const basic::Symbol* Symbol = nullptr;
    const BuiltinFunction* Builtin = nullptr;
    const ExtensionEntry* Extension = nullptr;
};

}  // namespace dorvik::basic
