#include "basic/program/Superinstructions.h"

#include "base/modUtf8.h"
#include "basic/operations/Operations.h"

#include <string_view>

// Each does its sequence in one step, or only the first instruction of it, and the loop continues with the second.

namespace dorvik::basic::modOperations {

namespace {

/// A longer text costs more than a step, and the functions themselves count that.
constexpr std::size_t kShortText = 1024;

bool IsShortText(const Value& value) {
    return value.Type() == ValueType::String && value.AsText().size() <= kShortText;
}

const Value& ConstantOf(const MachineState& state, const Instruction& load) {
    return state.Program->Constants[static_cast<std::size_t>(load.Wide())];
}

std::string_view
StartOf(const MachineState& state, const Value& text, const Instruction& loadCount) {
    return text.AsText().substr(0, static_cast<std::size_t>(ConstantOf(state, loadCount).AsLong()));
}

}  // namespace

void GetTextProperty(MachineState& state, Instruction in, Value* base) {
    const TextPropertySequence sequence(state.At);
    const Value& object = ConstantOf(state, in);
    const ExtensionCall& call = state.Program->ExtensionCalls[sequence.Call().Target()];
    const Value* const answer =
        call.Answers->Find(call.Member, object, ConstantOf(state, sequence.Property()));
    if (answer == nullptr || answer->Type() != ValueType::String) {
        base[in.A] = object;
        return;
    }
    base[sequence.Store().A] = *answer;
    state.Next = sequence.End();
}

void SelectLeft(MachineState& state, Instruction in, Value* base) {
    const SelectLeftSequence sequence(state.At);
    const Value& source = base[in.B];
    const bool isText = source.Type() == ValueType::String;
    const std::string_view start =
        isText ? StartOf(state, source, sequence.Count()) : std::string_view();
    if (!isText || !modUtf8::IsAscii(start)) {
        base[in.A] = source;
        return;
    }
    const Instruction* at = sequence.End();
    while (at->Code != Opcode::Jump) {
        const TextCaseSequence one(at);
        if (ConstantOf(state, one.Constant()).AsText() == start) {
            state.Next = state.Frames.Code() + one.Target().Wide();
            return;
        }
        at = one.End();
    }
    state.Next = at;
}

void JumpByLeft(MachineState& state, Instruction in, Value* base) {
    const JumpByLeftSequence sequence(state.At);
    const Value& source = base[in.B];
    if (source.Type() != ValueType::String) {
        base[in.A] = source;
        return;
    }
    // Only bytes of ASCII equal the constant, so bytes may be counted as characters.
    const bool isSame =
        StartOf(state, source, sequence.Count()) == ConstantOf(state, sequence.Constant()).AsText();
    const Instruction* const jump = sequence.End();
    state.Next = isSame == (sequence.Comparison().Code == Opcode::JumpTextEqual)
                     ? state.Frames.Code() + jump->Wide()
                     : jump + 1;
}

void InStrOfConstant(MachineState& state, Instruction in, Value* base) {
    const InStrSequence sequence(state.At);
    const Value& source = base[in.B];
    if (IsShortText(source)) {
        const std::string_view text = source.AsText();
        const std::size_t offset = text.find(ConstantOf(state, sequence.Sought()).AsText());
        const bool isFound = offset != std::string_view::npos;
        if (!isFound || modUtf8::IsAscii(text.substr(0, offset))) {
            base[sequence.Call().A] =
                Value::Long(isFound ? static_cast<std::int32_t>(offset) + 1 : 0);
            state.Next = sequence.End();
            return;
        }
    }
    base[in.A] = source;
}

}  // namespace dorvik::basic::modOperations
