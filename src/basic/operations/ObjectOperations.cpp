#include "ArrayElements.h"
#include "basic/library/BuiltinLookup.h"
#include "basic/library/ErrObject.h"
#include "basic/operations/ErrorRecovery.h"
#include "basic/operations/Operations.h"
#include "basic/operations/Reference.h"
#include "basic/program/Superinstructions.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/RuntimeErrors.h"

#include <vector>

namespace dorvik::basic::modOperations {

namespace {

/// Members read texts to their ends and make arrays for their results.
std::size_t CostOf(const Value& value) {
    if (value.Type() == ValueType::String) {
        return value.AsText().size() / 64;
    }
    return value.Type() == ValueType::Array ? value.AsArray()->Elements().size() / 4 : 0;
}

ScriptObject& ObjectOf(const Value& value) {
    if (value.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kObjectRequired);
    }
    if (value.AsObject() == nullptr) {
        RaiseError(runtimeerror::kObjectNotSet);
    }
    return *value.AsObject();
}

int FindMember(const ScriptObject& object, const CallSite& site) {
    const ObjectClass which = object.Class();
    if (which != ObjectClass::Any && which == site.SeenClass) {
        return site.SeenMember;
    }
    int member = kDefaultMember;
    if (!site.Name.empty()) {
        member = object.FindMember(site.Name);
    } else if (!object.HasDefaultMember()) {
        member = kNoMember;
    }
    if (member == kNoMember) {
        RaiseError(runtimeerror::kNoSuchMember);
    }
    site.SeenClass = which;
    site.SeenMember = member;
    return member;
}

/// Whether the site has found the member before, in an object of the same class; not for `Err`, since an error that is
/// raised goes its own way.
bool IsSeenAgain(const Value& value, const CallSite& site) {
    return value.Type() == ValueType::Object && value.AsObject() != nullptr &&
           value.AsObject()->Class() == site.SeenClass && site.SeenClass != ObjectClass::Any &&
           site.SeenClass != ObjectClass::Err;
}

/// The arguments in the order of the member's parameters.
std::vector<Value>
Sorted(const ScriptObject& object, int member, const CallSite& site, std::span<const Value> given) {
    const bool hasValue = site.Kind == InvokeKind::Let || site.Kind == InvokeKind::Set;
    const std::size_t values = hasValue ? 1 : 0;
    const std::size_t unnamed = given.size() - values - site.ArgumentNames.size();
    std::vector<Value> result(given.begin(), given.begin() + static_cast<std::ptrdiff_t>(unnamed));
    for (std::size_t i = 0; i < site.ArgumentNames.size(); ++i) {
        const int found = object.FindParameter(member, site.ArgumentNames[i]);
        if (found < 0) {
            RaiseError(runtimeerror::kNamedArgumentNotFound);
        }
        const auto index = static_cast<std::size_t>(found);
        if (index < result.size() && !result[index].IsMissing()) {
            RaiseError(runtimeerror::kArgumentNotOptional);
        }
        if (index >= result.size()) {
            result.resize(index + 1, Value::Missing());
        }
        result[index] = given[unnamed + i];
    }
    if (hasValue) {
        result.push_back(given.back());
    }
    return result;
}

Value InvokeNamed(
    ScriptObject& object, int member, const CallSite& site, std::span<const Value> given) {
    return object.Invoke(member, site.Kind, Sorted(object, member, site, given));
}

void RaiseOfErr(
    MachineState& state,
    const ScriptObject& err,
    int member,
    const CallSite& site,
    std::span<const Value> given) {
    Fail(
        state,
        site.ArgumentNames.empty()
            ? ErrObject::ErrorToRaise(site.Kind, given)
            : ErrObject::ErrorToRaise(site.Kind, Sorted(err, member, site, given)));
}

/// Reads or writes an element of an array.
Value UseElement(const Value& array, const CallSite& site, std::span<const Value> given) {
    if (!site.ArgumentNames.empty()) {
        RaiseError(runtimeerror::kNoNamedArguments);
    }
    if (site.Kind == InvokeKind::Get || site.Kind == InvokeKind::Call) {
        return ElementFrom(array, given);
    }
    ArrayBody& body = *array.AsArray();
    StoreElement(
        body,
        OffsetOf(body, given.first(given.size() - 1)),
        given.back(),
        site.Kind == InvokeKind::Set);
    return Value();
}

}  // namespace

void Invoke(MachineState& state, Instruction in, Value* base) {
    const CallSite& site = state.Program->Sites[in.Target()];
    Value* const first = base + in.C;
    const std::span<Value> given(first + 1, site.Arguments);
    for (const Value& argument : given) {
        if (argument.Type() == ValueType::String) {
            state.Budget.Spend(CostOf(argument));
        }
    }
    Value result;
    if (first->Type() == ValueType::Array && site.Name.empty()) {
        result = UseElement(*first, site, given);
    } else {
        if (site.Name.empty() && first->Type() != ValueType::Object) {
            RaiseError(runtimeerror::kTypeMismatch);
        }
        ScriptObject& object = ObjectOf(*first);
        const int member = FindMember(object, site);
        if (site.SeenClass == ObjectClass::Err && ErrObject::IsRaise(member)) {
            RaiseOfErr(state, object, member, site, given);
            return;
        }
        result = site.ArgumentNames.empty() ? object.Invoke(member, site.Kind, given)
                                            : InvokeNamed(object, member, site, given);
    }
    state.Budget.Spend(CostOf(result));
    for (std::size_t i = 0; i <= site.Arguments; ++i) {
        first[i] = Value();
    }
    if (in.A != kNoSlot) {
        base[in.A] = std::move(result);
    }
}

/// The argument is read where it is, and nothing has to be released.
void InvokeWithOne(MachineState& state, Instruction in, Value* base) {
    const MemberOfOneSequence sequence(state.At);
    const Instruction& source = sequence.Argument();
    const CallSite& site = state.Program->Sites[sequence.Call().Target()];
    const Value& object = base[in.B];
    const Value& argument = source.Code == Opcode::LoadConstant
                                ? state.Program->Constants[static_cast<std::size_t>(source.Wide())]
                                : base[source.B];
    const bool isCopiedWhole =
        argument.Type() == ValueType::Array || argument.Type() == ValueType::Record;
    if (isCopiedWhole || !IsSeenAgain(object, site)) {
        base[in.A] = object;
        return;
    }
    if (argument.Type() == ValueType::String) {
        state.Budget.Spend(CostOf(argument));
    }
    Value result = object.AsObject()->Invoke(site.SeenMember, site.Kind, {&argument, 1});
    state.Budget.Spend(CostOf(result));
    const Instruction& call = sequence.Call();
    if (call.A != kNoSlot) {
        base[call.A] = std::move(result);
    }
    state.Next = sequence.End();
}

void NewObject(MachineState&, Instruction in, Value* base) {
    Value object = NewScriptObject(static_cast<ObjectClass>(in.B));
    if (object.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kCannotCreateObject);
    }
    base[in.A] = std::move(object);
}

void EnsureObject(MachineState&, Instruction in, Value* base) {
    Value& variable = in.Flags != 0 ? base[in.A] : *TargetOf(base[in.A]);
    variable = NewScriptObject(static_cast<ObjectClass>(in.B));
    if (variable.Type() == ValueType::Object) {
        return;
    }
    variable = Value::Object(Ref<ScriptObject>());
    RaiseError(runtimeerror::kCannotCreateObject);
}

void TypeOf(MachineState&, Instruction in, Value* base) {
    const auto wanted = static_cast<ObjectClass>(in.C);
    const ObjectClass which = ObjectOf(base[in.B]).Class();
    base[in.A].PutBoolean(wanted == ObjectClass::Any || which == wanted);
}

void WithObject(MachineState&, Instruction in, Value* base) {
    ObjectOf(base[in.B]);
    base[in.A] = base[in.B];
}

void LoadErr(MachineState& state, Instruction in, Value* base) {
    if (state.ErrObject.Type() != ValueType::Object) {
        state.ErrObject = Value::Object(MakeRef<ErrObject>());
    }
    base[in.A] = state.ErrObject;
}

}  // namespace dorvik::basic::modOperations
