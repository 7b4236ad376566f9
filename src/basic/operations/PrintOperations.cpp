#include "basic/operations/Operations.h"
#include "basic/values/Coercion.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>
#include <string>

namespace dorvik::basic::modOperations {

namespace {

constexpr std::size_t kZone = 14;
constexpr std::int32_t kWidestGap = 32'767;

/// What Debug.Print shows of a value.
std::string ShownText(const Value& value) {
    if (value.IsMissing()) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    if (value.Type() == ValueType::Object) {
        return ShownText(LetValue(value));
    }
    if (value.Type() == ValueType::Null) {
        return "Null";
    }
    if (value.Type() == ValueType::Error) {
        return ErrorText(value);
    }
    std::string text = ToText(value);
    const bool isShownAsNumber =
        value.IsNumber() && value.Type() != ValueType::Boolean && value.Type() != ValueType::Date;
    if (!isShownAsNumber) {
        return text;
    }
    // Required: a number has a column for its sign before it and a blank after it.
    return (text.starts_with('-') ? "" : " ") + text + " ";
}

void PrintBlanks(MachineState& state, std::size_t count) {
    state.Printed.Append(std::string(count, ' '));
}

}  // namespace

void PrintValue(MachineState& state, Instruction in, Value* base) {
    if (base[in.A].Type() == ValueType::String) {
        state.Printed.Append(base[in.A].AsText());
    } else {
        state.Printed.Append(ShownText(base[in.A]));
    }
}

void PrintSpaces(MachineState& state, Instruction in, Value* base) {
    PrintBlanks(state, static_cast<std::size_t>(std::clamp(base[in.A].AsLong(), 0, kWidestGap)));
}

void PrintTab(MachineState& state, Instruction in, Value* base) {
    const std::int32_t wanted = std::clamp(base[in.A].AsLong(), 1, kWidestGap);
    const auto column = static_cast<std::size_t>(wanted - 1);
    if (column < state.Printed.Column()) {
        state.Printed.End();
    }
    PrintBlanks(state, column - state.Printed.Column());
}

void PrintZone(MachineState& state, Instruction, Value*) {
    PrintBlanks(state, kZone - state.Printed.Column() % kZone);
}

void PrintEnd(MachineState& state, Instruction, Value*) {
    state.Printed.End();
}

}  // namespace dorvik::basic::modOperations
