#include "basic/operations/ErrorRecovery.h"
#include "basic/operations/Operations.h"
#include "basic/operations/ScriptStop.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>

namespace dorvik::basic::modOperations {

namespace {

constexpr std::int32_t kHighestSelector = 255;
constexpr std::int32_t kHighestError = 65'535;
/// Of a jump that may be the only one back in a loop.
constexpr std::size_t kJumpCost = 10;

void SetHandler(MachineState& state, std::int32_t handler) {
    state.Error.Clear();
    state.Frames.Top().Handler = handler;
}

/// The statement whose error is being handled, which is done with.
const StatementMark& TakeFailedStatement(MachineState& state) {
    Frame& frame = state.Frames.Top();
    if (!frame.IsHandling) {
        RaiseError(runtimeerror::kResumeWithoutError);
    }
    frame.IsHandling = false;
    state.Error.Clear();
    return frame.Procedure->MarkOf(frame.ErrorPosition);
}

void JumpAtCost(MachineState& state, std::uint32_t target) {
    state.Next = state.Frames.Code() + target;
    state.Budget.Spend(kJumpCost);
}

const SwitchTable& TableOf(const MachineState& state, Instruction in) {
    return state.Program->Switches[static_cast<std::size_t>(in.Wide())];
}

/// Where `On ... GoTo` and `On ... GoSub` go; null if the selector names no label.
const Instruction* SelectedTarget(MachineState& state, Instruction in, std::int32_t selector) {
    if (selector < 0 || selector > kHighestSelector) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    state.Budget.Spend(kJumpCost);
    const auto& targets = TableOf(state, in).Targets;
    const auto number = static_cast<std::size_t>(selector);
    return number == 0 || number > targets.size() ? nullptr
                                                  : state.Frames.Code() + targets[number - 1];
}

}  // namespace

void HandlerTo(MachineState& state, Instruction in, Value*) {
    SetHandler(state, in.Wide());
}

void HandlerNext(MachineState& state, Instruction, Value*) {
    SetHandler(state, Frame::kResumeNext);
}

void HandlerOff(MachineState& state, Instruction, Value*) {
    SetHandler(state, Frame::kNoHandler);
}

void HandlerEnd(MachineState& state, Instruction, Value*) {
    state.Error.Clear();
    state.Frames.Top().IsHandling = false;
}

void ClearHandledError(MachineState& state, Instruction, Value*) {
    if (state.Frames.Top().IsHandling) {
        state.Error.Clear();
    }
}

void ResumeSame(MachineState& state, Instruction, Value*) {
    JumpAtCost(state, TakeFailedStatement(state).Again);
}

void ResumeNext(MachineState& state, Instruction, Value*) {
    JumpAtCost(state, TakeFailedStatement(state).Next);
}

void ResumeLabel(MachineState& state, Instruction in, Value*) {
    TakeFailedStatement(state);
    JumpAtCost(state, static_cast<std::uint32_t>(in.Wide()));
}

void RaiseNumber(MachineState& state, Instruction in, Value* base) {
    const std::int32_t number = base[in.A].AsLong();
    const bool isValid = number > 0 && number <= kHighestError;
    Fail(state, isValid ? number : runtimeerror::kInvalidProcedureCall);
}

void Raise(MachineState&, Instruction in, Value*) {
    RaiseError(in.A);
}

void Refuse(MachineState&, Instruction, Value*) {
    RaiseError(runtimeerror::kPermissionDenied);  // its name is there for the disassembly
}

void LineNumber(MachineState& state, Instruction in, Value*) {
    state.LineNumber = in.Wide();
}

void GoSub(MachineState& state, Instruction in, Value*) {
    state.Frames.PushGoSub(state.Next);
    JumpAtCost(state, static_cast<std::uint32_t>(in.Wide()));
}

void ReturnFromGoSub(MachineState& state, Instruction, Value*) {
    if (!state.Frames.HasGoSub()) {
        RaiseError(runtimeerror::kReturnWithoutGoSub);
    }
    state.Next = state.Frames.PopGoSub();
    state.Budget.Spend(kJumpCost);
}

void OnJump(MachineState& state, Instruction in, Value* base) {
    if (const auto* const target = SelectedTarget(state, in, base[in.A].AsLong())) {
        state.Next = target;
    }
}

void OnGoSub(MachineState& state, Instruction in, Value* base) {
    if (const auto* const target = SelectedTarget(state, in, base[in.A].AsLong())) {
        state.Frames.PushGoSub(state.Next);
        state.Next = target;
    }
}

void SwitchSparse(MachineState& state, Instruction in, Value* base) {
    const SwitchTable& table = TableOf(state, in);
    const std::int32_t key = base[in.A].AsLong();
    const auto found = std::lower_bound(table.Keys.begin(), table.Keys.end(), key);
    const bool isThere = found != table.Keys.end() && *found == key;
    const auto index = static_cast<std::size_t>(found - table.Keys.begin());
    state.Next = state.Frames.Code() + (isThere ? table.Targets[index] : table.Else);
}

void End(MachineState&, Instruction, Value*) {
    throw ScriptStop{};
}

void Yield(MachineState& state, Instruction, Value*) {
    state.Budget.AskHost();
}

}  // namespace dorvik::basic::modOperations
