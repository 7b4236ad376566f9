#pragma once

#include "Arguments.h"
#include "basic/program/BuiltinFunction.h"

namespace dorvik::basic {

/// The form with "$" of a function whose bare form gives Null for Null: there it raises 94.
template <BuiltinFunction::Implementation kBareForm>
Value StrictForm(ScriptContext& context, std::span<const Value> arguments) {
    Value result = kBareForm(context, arguments);
    if (result.Type() == ValueType::Null) {
        RaiseError(runtimeerror::kInvalidUseOfNull);
    }
    return result;
}

}  // namespace dorvik::basic
