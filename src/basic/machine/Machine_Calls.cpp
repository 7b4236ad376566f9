#include "basic/machine/Machine.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/Coercion.h"
#include "basic/values/KnownFailure.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueKinds.h"

namespace dorvik::basic {

namespace {

constexpr std::uint8_t kCountFollows = 255;
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

/// What the host has at hand for the function form of a callback; null if it has to be called.
const Value* Recalled(const ExtensionCall& call, const Value* arguments) {
    constexpr std::uint32_t kMost = 3;
    if (call.Result + 1 != call.Parameters || call.Parameters > kMost) {
        return nullptr;
    }
    const Value& first = call.Parameters > 1 ? arguments[0] : kNone;
    const Value& second = call.Parameters > 2 ? arguments[1] : kNone;
    return call.Extension->Recall(call.Member, first, second);
}

}  // namespace

void Machine::RunBuiltin(Instruction in, Value* base) {
    const BuiltinFunction& function = *m_program->Builtins[in.B];
    const std::size_t count =
        in.Flags == kCountFollows ? static_cast<std::size_t>(m_at[1].Wide()) : in.Flags;
    Value* const first = base + in.C;
    const bool countsItself = function.Cost == BuiltinFunction::TextCost::CountedByItself;
    const std::size_t cost = countsItself ? 0 : CostOfTexts({first, count});
    if (function.IsConversion && MayHaveKnownFailure(*first) && HasHandler()) {
        if (const std::int32_t number = KnownFailure(*first, function.Result); number != 0) {
            Spend(cost);
            Fail(number);
            return;
        }
    }
    Value result = function.Call(*this, {first, count});
    Spend(cost + CostOfTexts({&result, 1}) + CostOfArray(result));
    Release(first, count);
    if (in.A == kNoSlot) {
        return;
    }
    const bool isAsDeclared =
        function.Result == DeclaredKind::Variant || result.Type() == ValueTypeOf(function.Result);
    base[in.A] = isAsDeclared ? std::move(result) : CoerceTo(result, function.Result);
}

void Machine::RunExtension(Instruction in, Value* base) {
    const ExtensionCall& call = m_program->ExtensionCalls[in.Target()];
    Value* const first = base + in.C;
    const Value* const known = in.A != kNoSlot ? Recalled(call, first) : nullptr;
    Value result;
    if (known != nullptr) {
        result = *known;
    } else {
        call.Extension->Call(call.Member, {first, call.Parameters});
        for (std::uint32_t i = 0; i < call.Parameters; ++i) {
            CheckFromHost(first[i]);
        }
        if (in.A != kNoSlot) {
            result = std::move(first[call.Result]);
        }
    }
    if (!call.KeepsArguments) {
        Release(first, call.Parameters);
    }
    if (in.A != kNoSlot) {
        base[in.A] = std::move(result);
    }
}

void Machine::ReleaseArguments(Instruction in, Value* base) {
    Release(base + in.A, in.B);
}

void Machine::Raise(Instruction in, Value*) {
    RaiseError(in.A);
}

void Machine::RefuseStatement(Instruction, Value*) {
    RaiseError(runtimeerror::kPermissionDenied);  // its name is there for the disassembly
}

}  // namespace dorvik::basic
