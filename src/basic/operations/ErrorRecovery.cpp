#include "basic/operations/ErrorRecovery.h"

#include "LoopState.h"
#include "base/BasicError.h"
#include "basic/library/ErrObject.h"
#include "basic/operations/Operations.h"
#include "basic/operations/Variables.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

namespace {

void ClearArguments(const Frame& frame) {
    Value* const first = frame.Base + frame.Procedure->Slots;
    for (Value* slot = first; slot != first + frame.Procedure->ArgumentSlots; ++slot) {
        *slot = Value();
    }
}

bool IsPin(const Value& value) {
    return value.Type() == ValueType::Object && value.AsObject() != nullptr &&
           value.AsObject()->Class() == ObjectClass::Any &&
           dynamic_cast<const ArrayPin*>(value.AsObject()) != nullptr;
}

/// References of the failed statement are gone, so arrays need not stay locked for them.
void ClearPins(const Frame& frame) {
    for (Value* slot = frame.Base; slot != frame.Base + frame.Procedure->GenericSlots; ++slot) {
        if (IsPin(*slot)) {
            *slot = Value();
        }
    }
}

/// What a procedure did to its arguments before it failed stays done, as it does where a reference was passed.
void CopyBackAfterError(MachineState& state) {
    if (state.At == nullptr) {
        return;
    }
    const Frame& frame = state.Frames.Top();
    const std::uint32_t position = state.Position();
    const auto& all = frame.Procedure->CopyBacks;
    auto entry = std::lower_bound(
        all.begin(), all.end(), position, [](const ArgumentCopy& left, std::uint32_t right) {
            return left.Call < right;
        });
    for (; entry != all.end() && entry->Call == position; ++entry) {
        try {
            if (entry->Element != ArgumentCopy::kNoElement) {
                modOperations::CopyBack(
                    state,
                    {Opcode::CopyBack, 0, entry->Reference, entry->Slot, entry->Element},
                    frame.Base);
            } else {
                StoreThrough(frame.Base[entry->Reference], frame.Base[entry->Slot]);
            }
        } catch (const BasicError&) {
            continue;  // the first error is the one to report
        }
    }
}

}  // namespace

std::int32_t LineOfStatement(MachineState& state) {
    const bool isRunning = !state.Frames.IsEmpty() && state.At != nullptr;
    return isRunning ? state.Frames.Top().Procedure->MarkOf(state.Position()).Line : 0;
}

void Unwind(MachineState& state) {
    const Frame& frame = state.Frames.Top();
    ClearArguments(frame);
    state.At = frame.ReturnTo == nullptr ? nullptr : frame.ReturnTo - 1;
    state.Frames.Leave();
}

bool Recover(MachineState& state, ErrorState error) {
    constexpr std::int64_t kCost = 50;
    state.Budget.Charge(kCost);
    state.Error = std::move(error);
    if (state.Error.Source.empty()) {
        state.Error.Source = state.Program->Name;
    }
    for (bool isCaller = false; !state.Frames.IsEmpty(); isCaller = true) {
        Frame& frame = state.Frames.Top();
        if (isCaller) {
            CopyBackAfterError(state);
        }
        ClearArguments(frame);
        ClearPins(frame);
        if (frame.CanHandle() && state.At != nullptr) {
            frame.ErrorPosition = state.Position();
            const Instruction* const code = state.Frames.Code();
            frame.IsHandling = frame.Handler != Frame::kResumeNext;
            state.Next = frame.IsHandling
                             ? code + frame.Handler
                             : code + frame.Procedure->MarkOf(frame.ErrorPosition).Next;
            return true;
        }
        Unwind(state);
    }
    return false;
}

void Fail(MachineState& state, ErrorState error) {
    if (!state.Frames.HasHandler()) {
        RaisedError raised(error.Number, error.Description, error.Source);
        raised.HelpFile = error.HelpFile;
        raised.HelpContext = error.HelpContext;
        throw raised;
    }
    Recover(state, std::move(error));
}

void Fail(MachineState& state, std::int32_t number) {
    Fail(state, {number, RuntimeErrorText(number), {}, {}, 0});
}

}  // namespace dorvik::basic
