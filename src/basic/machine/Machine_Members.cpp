#include "basic/library/BuiltinLookup.h"
#include "basic/library/ErrObject.h"
#include "basic/machine/Machine.h"
#include "basic/program/RecordLayout.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/Coercion.h"
#include "basic/values/MemoryMeter.h"
#include "basic/values/RecordBody.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

/// The members of a record. A With that was jumped into has none.
std::vector<Value>& MembersOf(const Value& record) {
    if (record.Type() != ValueType::Record) {
        RaiseError(runtimeerror::kObjectNotSet);
    }
    return record.AsRecord()->Members();
}

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

/// Named arguments put where the member wants them.
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
        const auto place = static_cast<std::size_t>(found);
        if (place < result.size() && !result[place].IsMissing()) {
            RaiseError(runtimeerror::kArgumentNotOptional);
        }
        if (place >= result.size()) {
            result.resize(place + 1, Value::Missing());
        }
        result[place] = given[unnamed + i];
    }
    if (hasValue) {
        result.push_back(given.back());
    }
    return result;
}

}  // namespace

void Machine::RecordGet(Instruction in, Value* base) {
    base[in.A] = MembersOf(base[in.B])[in.C];
}

void Machine::RecordSet(Instruction in, Value* base) {
    Value& member = MembersOf(base[in.A])[in.C];
    if (member.Type() == ValueType::Array && member.AsArray()->IsLocked()) {
        RaiseError(runtimeerror::kArrayFixedOrLocked);
    }
    member = base[in.B];
}

void Machine::AssignRecord(Instruction in, Value* base) {
    MembersOf(base[in.A]);
    MembersOf(base[in.B]);
    Spend(base[in.A].AsRecord()->Members().size());
    // A copy first: one of the two may be a part of the other.
    const Value source = base[in.B].DeepCopy();
    CopyRecord(*base[in.A].AsRecord(), *source.AsRecord());
}

void Machine::CopyRecordBytes(Instruction in, Value* base) {
    MembersOf(base[in.A]);
    MembersOf(base[in.B]);
    RecordBody& target = *base[in.A].AsRecord();
    const RecordBody& source = *base[in.B].AsRecord();
    const auto size = [this](const RecordBody& record) {
        return static_cast<std::size_t>(
            modRecordLayout::SizeOf(*m_program, record.Type(), modRecordLayout::Form::Memory));
    };
    MemoryMeter::Current().CheckString(std::max(size(target), size(source)));
    Spend((size(target) + size(source)) / 4);
    std::string bytes = modRecordLayout::BytesOf(*m_program, target);
    const std::string given = modRecordLayout::BytesOf(*m_program, source);
    const std::size_t count = std::min(bytes.size(), given.size());
    bytes.replace(0, count, given, 0, count);
    const Value changed = modRecordLayout::WithBytes(*m_program, base[in.A], bytes);
    CopyRecord(target, *changed.AsRecord());
}

void Machine::ReferenceMember(Instruction in, Value* base) {
    base[in.A] = TaggedReference(&MembersOf(base[in.B])[in.C], static_cast<ReferenceTag>(in.Flags));
}

void Machine::Invoke(Instruction in, Value* base) {
    const CallSite& site = m_program->Sites[in.Target()];
    Value* const first = base + in.C;
    const std::span<Value> given(first + 1, site.Arguments);
    for (const Value& argument : given) {
        if (argument.Type() == ValueType::String) {
            Spend(CostOf(argument));
        }
    }
    Value result;
    if (first->Type() == ValueType::Array && site.Name.empty()) {
        if (!site.ArgumentNames.empty()) {
            RaiseError(runtimeerror::kNoNamedArguments);
        }
        ArrayBody& array = *first->AsArray();
        if (site.Kind == InvokeKind::Get || site.Kind == InvokeKind::Call) {
            result = ElementFrom(*first, given);
        } else {
            StoreElement(
                array,
                OffsetOf(array, given.first(given.size() - 1)),
                given.back(),
                site.Kind == InvokeKind::Set);
        }
    } else {
        if (site.Name.empty() && first->Type() != ValueType::Object) {
            RaiseError(runtimeerror::kTypeMismatch);
        }
        ScriptObject& object = ObjectOf(*first);
        const int member = FindMember(object, site);
        if (site.SeenClass == ObjectClass::Err && ErrObject::IsRaise(member)) {
            RaiseOfErr(object, member, site, given);
            return;
        }
        if (site.ArgumentNames.empty()) {
            result = object.Invoke(member, site.Kind, given);
        } else {
            result = object.Invoke(member, site.Kind, Sorted(object, member, site, given));
        }
    }
    Spend(CostOf(result));
    for (std::size_t i = 0; i <= site.Arguments; ++i) {
        first[i] = Value();
    }
    if (in.A != kNoSlot) {
        base[in.A] = std::move(result);
    }
}

void Machine::RaiseOfErr(
    const ScriptObject& err, int member, const CallSite& site, std::span<const Value> given) {
    Fail(
        site.ArgumentNames.empty()
            ? ErrObject::ErrorToRaise(site.Kind, given)
            : ErrObject::ErrorToRaise(site.Kind, Sorted(err, member, site, given)));
}

void Machine::NewObject(Instruction in, Value* base) {
    Value object = NewScriptObject(static_cast<ObjectClass>(in.B));
    if (object.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kCannotCreateObject);
    }
    base[in.A] = std::move(object);
}

void Machine::EnsureObject(Instruction in, Value* base) {
    Value& variable = in.Flags != 0 ? base[in.A] : *TargetOf(base[in.A]);
    variable = NewScriptObject(static_cast<ObjectClass>(in.B));
    if (variable.Type() == ValueType::Object) {
        return;
    }
    variable = Value::Object(Ref<ScriptObject>());
    RaiseError(runtimeerror::kCannotCreateObject);
}

void Machine::TypeOf(Instruction in, Value* base) {
    const auto wanted = static_cast<ObjectClass>(in.C);
    const ObjectClass which = ObjectOf(base[in.B]).Class();
    base[in.A].PutBoolean(wanted == ObjectClass::Any || which == wanted);
}

void Machine::WithObject(Instruction in, Value* base) {
    ObjectOf(base[in.B]);
    base[in.A] = base[in.B];
}

void Machine::LoadErr(Instruction in, Value* base) {
    if (m_errObject.Type() != ValueType::Object) {
        m_errObject = Value::Object(MakeRef<ErrObject>());
    }
    base[in.A] = m_errObject;
}

}  // namespace dorvik::basic
