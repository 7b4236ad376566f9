#include "basic/machine/Machine.h"

namespace dorvik::basic {

/// Which operation carries out an instruction that the loop does not. Those of the loop have none.
const std::array<Machine::Operation, 256>& Machine::Operations() {
    struct Row {
        Opcode Code;
        Operation Carry;
    };
    static constexpr Row kRows[] = {
        {Opcode::MakeGlobalReference, &Machine::MakeGlobalReference},
        {Opcode::StoreReferenceVariant, &Machine::StoreReferenceVariant},
        {Opcode::SetVariant, &Machine::SetVariant},
        {Opcode::Coerce, &Machine::Coerce},
        {Opcode::Negate, &Machine::OperateUnary},
        {Opcode::Plus, &Machine::OperateUnary},
        {Opcode::Not, &Machine::OperateUnary},
        {Opcode::SwitchSparse, &Machine::JumpByTable},
        {Opcode::ForBounds, &Machine::ForBounds},
        {Opcode::ForEachBegin, &Machine::ForEachBegin},
        {Opcode::HoldArray, &Machine::HoldArray},
        {Opcode::LeaveBlock, &Machine::LeaveBlock},
        {Opcode::RefuseLocked, &Machine::RefuseLocked},
        {Opcode::ReleaseArguments, &Machine::ReleaseArguments},
        {Opcode::ArgumentsToArray, &Machine::ArgumentsToArray},
        {Opcode::CopyBack, &Machine::CopyBack},
        {Opcode::Raise, &Machine::Raise},
        {Opcode::Refuse, &Machine::RefuseStatement},
        {Opcode::ReferenceElement, &Machine::ReferenceElement},
        {Opcode::ReferenceMember, &Machine::ReferenceMember},
        {Opcode::CopyGiven, &Machine::CopyGiven},
        {Opcode::MakeVariable, &Machine::MakeVariable},
        {Opcode::DimensionArray, &Machine::DimensionArray},
        {Opcode::EraseArray, &Machine::EraseArray},
        {Opcode::AssignArray, &Machine::AssignArray},
        {Opcode::DeepCopy, &Machine::DeepCopy},
        {Opcode::RecordGet, &Machine::RecordGet},
        {Opcode::RecordGetPlain, &Machine::RecordGet},
        {Opcode::RecordSet, &Machine::RecordSet},
        {Opcode::AssignRecord, &Machine::AssignRecord},
        {Opcode::CopyRecordBytes, &Machine::CopyRecordBytes},
        {Opcode::NewObject, &Machine::NewObject},
        {Opcode::TypeOf, &Machine::TypeOf},
        {Opcode::WithObject, &Machine::WithObject},
        {Opcode::LoadErr, &Machine::LoadErr},
        {Opcode::PropertyRow, &Machine::PropertyRow},
        {Opcode::LeftRow, &Machine::LeftRow},
        {Opcode::LeftCasesRow, &Machine::LeftCasesRow},
        {Opcode::InStrRow, &Machine::InStrRow},
        {Opcode::LenRow, &Machine::LenRow},
        {Opcode::LikeRow, &Machine::LikeRow},
        {Opcode::MidAssign, &Machine::MidAssign},
        {Opcode::AlignText, &Machine::AlignText},
        {Opcode::HandlerTo, &Machine::SetHandler},
        {Opcode::HandlerNext, &Machine::SetHandler},
        {Opcode::HandlerOff, &Machine::SetHandler},
        {Opcode::HandlerEnd, &Machine::SetHandler},
        {Opcode::ClearHandledError, &Machine::ClearHandledError},
        {Opcode::ResumeSame, &Machine::Resume},
        {Opcode::ResumeNext, &Machine::Resume},
        {Opcode::ResumeLabel, &Machine::Resume},
        {Opcode::LineNumber, &Machine::LineNumber},
        {Opcode::GoSub, &Machine::GoSub},
        {Opcode::ReturnFromGoSub, &Machine::ReturnFromGoSub},
        {Opcode::OnJump, &Machine::JumpByTable},
        {Opcode::OnGoSub, &Machine::JumpByTable},
        {Opcode::End, &Machine::End},
        {Opcode::PrintValue, &Machine::PrintValue},
        {Opcode::PrintSpaces, &Machine::PrintPlace},
        {Opcode::PrintTab, &Machine::PrintPlace},
        {Opcode::PrintZone, &Machine::PrintPlace},
        {Opcode::PrintEnd, &Machine::PrintEnd},
        {Opcode::Yield, &Machine::Yield},
    };
    static const std::array<Operation, 256> kTable = [] {
        std::array<Operation, 256> table{};
        for (const Row& row : kRows) {
            table[static_cast<std::size_t>(row.Code)] = row.Carry;
        }
        return table;
    }();
    return kTable;
}

}  // namespace dorvik::basic
