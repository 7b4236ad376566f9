#include "KeptValue.h"
#include "basic/operations/Operations.h"
#include "basic/operations/Reference.h"
#include "basic/operations/Variables.h"
#include "basic/program/RecordLayout.h"
#include "basic/values/MemoryMeter.h"
#include "basic/values/RecordBody.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>

namespace dorvik::basic::modOperations {

namespace {

/// The members of a record. A With that was jumped into has none.
std::vector<Value>& MembersOf(const Value& record) {
    if (record.Type() != ValueType::Record) {
        RaiseError(runtimeerror::kObjectNotSet);
    }
    return record.AsRecord()->Members();
}

}  // namespace

void RecordGet(MachineState&, Instruction in, Value* base) {
    base[in.A] = MembersOf(base[in.B])[in.C];
}

/// The same into an unboxed slot.
void RecordGetPlain(MachineState& state, Instruction in, Value* base) {
    RecordGet(state, in, base);
}

void RecordSet(MachineState&, Instruction in, Value* base) {
    Value& member = MembersOf(base[in.A])[in.C];
    CheckUnlocked(member);
    member = base[in.B];
}

void AssignRecord(MachineState& state, Instruction in, Value* base) {
    MembersOf(base[in.A]);
    MembersOf(base[in.B]);
    state.Budget.Spend(base[in.A].AsRecord()->Members().size());
    // A copy first: one of the two may be a part of the other.
    const Value source = base[in.B].DeepCopy();
    CopyRecord(*base[in.A].AsRecord(), *source.AsRecord());
}

void CopyRecordBytes(MachineState& state, Instruction in, Value* base) {
    MembersOf(base[in.A]);
    MembersOf(base[in.B]);
    RecordBody& target = *base[in.A].AsRecord();
    const RecordBody& source = *base[in.B].AsRecord();
    const auto size = [&state](const RecordBody& record) {
        return static_cast<std::size_t>(
            modRecordLayout::SizeOf(*state.Program, record.Type(), modRecordLayout::Form::Memory));
    };
    MemoryMeter::Current().CheckString(std::max(size(target), size(source)));
    state.Budget.Spend((size(target) + size(source)) / 4);
    std::string bytes = modRecordLayout::BytesOf(*state.Program, target);
    const std::string given = modRecordLayout::BytesOf(*state.Program, source);
    const std::size_t count = std::min(bytes.size(), given.size());
    bytes.replace(0, count, given, 0, count);
    const Value changed = modRecordLayout::WithBytes(*state.Program, base[in.A], bytes);
    CopyRecord(target, *changed.AsRecord());
}

void ReferenceMember(MachineState&, Instruction in, Value* base) {
    base[in.A] = TaggedReference(&MembersOf(base[in.B])[in.C], static_cast<ReferenceTag>(in.Flags));
}

}  // namespace dorvik::basic::modOperations
