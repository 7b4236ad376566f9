#include "CodeWriter.h"

#include "SuperinstructionPass.h"

#include <algorithm>
#include <cstring>

namespace dorvik::basic {

namespace {

constexpr std::uint32_t kUnbound = 0xFFFFFFFF;
constexpr std::size_t kMostSlotsOfAKind = 0x3FFF;
/// A procedure with more numbers than this may hold one twice.
constexpr std::size_t kConstantsSearched = 200;

bool SameNumber(const Value& left, const Value& right) {
    return left.Type() == right.Type() && left.AsCurrency() == right.AsCurrency();
}

}  // namespace

CodeWriter::CodeWriter(Program& program, Procedure& procedure)
    : m_program(program), m_procedure(procedure), m_generic(procedure.Parameters.size()) {}

Register CodeWriter::NewGeneric() {
    return static_cast<Register>(std::min(m_generic++, kMostSlotsOfAKind));
}

Register CodeWriter::NewPlain() {
    return static_cast<Register>(kPlainBase + std::min(m_plain++, kMostSlotsOfAKind));
}

Register CodeWriter::ConstantSlot(const Value& number) {
    const std::size_t searched = std::min<std::size_t>(m_numbers.size(), kConstantsSearched);
    for (std::size_t i = m_numbers.size(); i-- > m_numbers.size() - searched;) {
        if (SameNumber(m_numbers[i].second, number)) {
            return m_numbers[i].first;
        }
    }
    m_numbers.emplace_back(NewPlain(), number);
    SetInitial(m_numbers.back().first, number);
    return m_numbers.back().first;
}

Register CodeWriter::TemporaryGeneric() {
    if (m_freeGeneric.empty()) {
        m_freeGeneric.push_back(NewGeneric());
    }
    m_live.push_back(m_freeGeneric.back());
    m_freeGeneric.pop_back();
    return m_live.back();
}

Register CodeWriter::TemporaryPlain() {
    if (m_freePlain.empty()) {
        m_freePlain.push_back(NewPlain());
    }
    m_live.push_back(m_freePlain.back());
    m_freePlain.pop_back();
    return m_live.back();
}

void CodeWriter::ReleaseTemporaries(std::size_t mark) {
    while (m_live.size() > mark) {
        auto& free = m_live.back() >= kPlainBase ? m_freePlain : m_freeGeneric;
        free.push_back(m_live.back());
        m_live.pop_back();
    }
}

void CodeWriter::KeepOnly(std::size_t mark, Register kept) {
    const auto first = m_live.begin() + static_cast<std::ptrdiff_t>(mark);
    const auto place = std::find(first, m_live.end(), kept);
    if (place != m_live.end()) {
        std::swap(*place, m_live[mark]);
        ++mark;
    }
    ReleaseTemporaries(mark);
}

Register CodeWriter::PushArguments(std::size_t count) {
    const auto first =
        static_cast<Register>(kArgumentBase + std::min(m_arguments, kMostSlotsOfAKind));
    m_arguments += count;
    m_mostArguments = std::max(m_mostArguments, m_arguments);
    return first;
}

Label CodeWriter::NewLabel() {
    m_labels.push_back(kUnbound);
    return static_cast<Label>(m_labels.size() - 1);
}

Label CodeWriter::Here() {
    const Label label = NewLabel();
    Bind(label);
    return label;
}

void CodeWriter::Bind(Label label) {
    m_labels[label] = static_cast<std::uint32_t>(m_procedure.Code.size());
}

void CodeWriter::Emit(Opcode code, Register a, Register b, Register c, std::uint8_t flags) {
    m_procedure.Code.push_back({code, flags, a, b, c});
}

void CodeWriter::EmitWide(Opcode code, Register a, std::int64_t wide, std::uint8_t flags) {
    Instruction instruction{code, flags, a, 0, 0};
    instruction.SetWide(static_cast<std::int32_t>(wide));
    m_procedure.Code.push_back(instruction);
}

void CodeWriter::EmitJump(Opcode code, Label target, Register a) {
    m_jumps.emplace_back(m_procedure.Code.size(), target);
    m_procedure.Code.push_back({code, 0, a, 0, 0});
}

void CodeWriter::EmitTarget(Opcode code, Register a, std::size_t target, Register c) {
    m_procedure.Code.push_back(
        {code, static_cast<std::uint8_t>(target >> 16), a, static_cast<std::uint16_t>(target), c});
}

void CodeWriter::Mark(std::int32_t line, Label again, Label next) {
    m_marks.push_back({static_cast<std::uint32_t>(m_procedure.Code.size()), again, next, line});
}

void CodeWriter::AddCopyBack(Register reference, Register slot, std::uint16_t element) {
    const auto call = static_cast<std::uint32_t>(m_procedure.Code.size() - 1);
    m_procedure.CopyBacks.push_back({call, reference, slot, element});
}

std::size_t CodeWriter::AddSwitch(SwitchTable table) {
    m_program.Switches.push_back(std::move(table));
    m_switches.push_back(m_program.Switches.size() - 1);
    return m_switches.back();
}

Register CodeWriter::FinalSlot(Register slot) const {
    if (slot == kNoSlot || slot < kPlainBase) {
        return slot;
    }
    if (slot < kArgumentBase) {
        return static_cast<Register>(m_generic + (slot - kPlainBase));
    }
    return static_cast<Register>(m_generic + m_plain + (slot - kArgumentBase));
}

void CodeWriter::SettleOperands(Instruction& instruction) const {
    const std::string_view operands = RowOf(instruction.Code).Operands;
    std::uint16_t* const fields[] = {&instruction.A, &instruction.B, &instruction.C};
    for (std::size_t i = 0; i < operands.size(); ++i) {
        if (operands[i] == 'r' || operands[i] == 'o') {
            *fields[i] = FinalSlot(*fields[i]);
        }
    }
}

std::uint32_t CodeWriter::PositionOf(Label label) const {
    return m_labels[label] == kUnbound ? static_cast<std::uint32_t>(m_procedure.Code.size() - 1)
                                       : m_labels[label];
}

void CodeWriter::FillInitial() {
    const std::size_t parameters = m_procedure.Parameters.size();
    m_procedure.Initial.resize(m_generic + m_plain - parameters);
    for (const auto& [slot, value] : m_initials) {
        m_procedure.Initial[FinalSlot(slot) - parameters] = value;
    }
}

bool CodeWriter::Finish() {
    if (m_generic > kMostSlotsOfAKind || m_plain > kMostSlotsOfAKind ||
        m_mostArguments > kMostSlotsOfAKind) {
        return false;
    }
    for (Instruction& instruction : m_procedure.Code) {
        SettleOperands(instruction);
    }
    for (ArgumentCopy& copy : m_procedure.CopyBacks) {
        copy.Reference = FinalSlot(copy.Reference);
        copy.Slot = FinalSlot(copy.Slot);
    }
    for (const auto& [position, label] : m_jumps) {
        m_procedure.Code[position].SetWide(static_cast<std::int32_t>(PositionOf(label)));
    }
    for (const std::size_t index : m_switches) {
        SwitchTable& table = m_program.Switches[index];
        for (std::uint32_t& target : table.Targets) {
            target = PositionOf(target);
        }
        table.Else = PositionOf(table.Else);
    }
    for (const LabelledMark& mark : m_marks) {
        m_procedure.Marks.push_back(
            {mark.Start, PositionOf(mark.Again), PositionOf(mark.Next), mark.Line});
    }
    FillInitial();
    m_procedure.GenericSlots = static_cast<std::uint32_t>(m_generic);
    m_procedure.Slots = static_cast<std::uint32_t>(m_generic + m_plain);
    m_procedure.ArgumentSlots = static_cast<std::uint32_t>(m_mostArguments);
    m_procedure.ParameterCount = static_cast<std::uint32_t>(m_procedure.Parameters.size());
    m_procedure.CallSlots = m_procedure.Slots + m_procedure.ArgumentSlots;
    m_procedure.CallCost = static_cast<std::int32_t>(4 + m_procedure.Code.size() / 8);
    InsertSuperinstructions(m_program, m_procedure);
    return true;
}

}  // namespace dorvik::basic
