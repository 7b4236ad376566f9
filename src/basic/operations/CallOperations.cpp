#include "basic/operations/ErrorRecovery.h"
#include "basic/operations/Operations.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/Coercion.h"
#include "basic/values/KnownFailure.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueKinds.h"

namespace dorvik::basic::modOperations {

namespace {

const Value kNone{};

/// What the texts of a call add to its cost: most functions read them to their ends.
std::size_t CostOfTexts(std::span<const Value> values) {
    constexpr std::size_t kBytesOfAUnit = 64;
    std::size_t bytes = 0;
    for (const Value& value : values) {
        if (value.Type() == ValueType::String) {
            bytes += value.AsText().size();
        }
    }
    return bytes / kBytesOfAUnit;
}

/// An array that was made for the result.
std::size_t CostOfArray(const Value& result) {
    constexpr std::size_t kElementsOfAUnit = 4;
    return result.Type() == ValueType::Array
               ? result.AsArray()->Elements().size() / kElementsOfAUnit
               : 0;
}

void Release(Value* first, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        first[i] = Value();
    }
}

/// What the host gave must be something that a script can hold.
void CheckFromHost(const Value& value) {
    if (value.Type() == ValueType::Record || value.Type() == ValueType::Reference) {
        RaiseError(runtimeerror::kTypeNotSupported);
    }
}

/// The answer that a call would get, if it is kept; null if the callback has to be called.
const Value* KeptAnswer(const ExtensionCall& call, const Value* arguments) {
    if (call.Answers == nullptr) {
        return nullptr;
    }
    const Value& first = call.Parameters > 1 ? arguments[0] : kNone;
    const Value& second = call.Parameters > 2 ? arguments[1] : kNone;
    return call.Answers->Find(call.Member, first, second);
}

}  // namespace

void RunBuiltin(MachineState& state, Instruction in, Value* base) {
    const BuiltinFunction& function = *state.Program->Builtins[in.B];
    const std::size_t count =
        in.Flags == kCountInNextWord ? static_cast<std::size_t>(state.At[1].Wide()) : in.Flags;
    Value* const first = base + in.C;
    const bool countsItself = function.Cost == BuiltinFunction::TextCost::CountedByItself;
    const std::size_t cost = countsItself ? 0 : CostOfTexts({first, count});
    if (function.IsConversion && MayHaveKnownFailure(*first) && state.Frames.HasHandler()) {
        if (const std::int32_t number = KnownFailure(*first, function.Result); number != 0) {
            state.Budget.Spend(cost);
            Fail(state, number);
            return;
        }
    }
    Value result = function.Call(state.Context, {first, count});
    state.Budget.Spend(cost + CostOfTexts({&result, 1}) + CostOfArray(result));
    Release(first, count);
    if (in.A == kNoSlot) {
        return;
    }
    const bool isAsDeclared =
        function.Result == DeclaredKind::Variant || result.Type() == ValueTypeOf(function.Result);
    if (isAsDeclared) {
        base[in.A] = std::move(result);
    } else {
        base[in.A] = CoerceTo(result, function.Result);
    }
}

void RunExtension(MachineState& state, Instruction in, Value* base) {
    const ExtensionCall& call = state.Program->ExtensionCalls[in.Target()];
    Value* const first = base + in.C;
    if (const Value* const answer = KeptAnswer(call, first)) {
        first[call.Parameters - 1] = *answer;
    } else {
        call.Extension->Call(call.Member, {first, call.Parameters});
        for (std::uint32_t i = 0; i < call.Parameters; ++i) {
            CheckFromHost(first[i]);
        }
    }
    Value result;
    if (in.A != kNoSlot) {
        result = std::move(first[call.Result]);
    }
    if (!call.KeepsArguments) {
        Release(first, call.Parameters);
    }
    if (in.A != kNoSlot) {
        base[in.A] = std::move(result);
    }
}

void ReleaseArguments(MachineState&, Instruction in, Value* base) {
    Release(base + in.A, in.B);
}

}  // namespace dorvik::basic::modOperations
