#pragma once

#include "basic/program/Program.h"

#include <cstdint>
#include <vector>

namespace dorvik::basic {

/// A slot before its position in the frame is known: generic ones count from 0 (the parameters first),
/// plain ones from `kPlainBase`, arguments being built from `kArgumentBase`.
using Register = std::uint16_t;
inline constexpr Register kPlainBase = 0x4000;
inline constexpr Register kArgumentBase = 0x8000;

/// A position in the code that jumps can name before it is known.
using Label = std::uint32_t;

/// Writes the code of one procedure: allocates slots and labels, and replaces them by final numbers at the end.
/// REQUIRES: program and procedure outlive this.
class CodeWriter {
public:
    CodeWriter(Program& program, Procedure& procedure);

    /// Slots for good: variables, and what a loop, a With or a Select Case keeps from statement to
    /// statement. They are never used for something else, so that a jump into a block finds them
    /// either empty or as the block left them.
    Register NewGeneric();
    Register NewPlain();
    /// A plain slot that holds the number in every call.
    Register ConstantSlot(const Value& number);
    /// What a slot for good holds when a call begins; Empty otherwise. REQUIRES: no body.
    void SetInitial(Register slot, const Value& value) { m_initials.emplace_back(slot, value); }

    /// Slots for the parts of one statement, released together.
    Register TemporaryGeneric();
    Register TemporaryPlain();
    std::size_t TemporaryMark() const { return m_live.size(); }
    void ReleaseTemporaries(std::size_t mark);
    /// Releases all temporaries after the mark but one.
    void KeepOnly(std::size_t mark, Register kept);

    Register PushArguments(std::size_t count);
    void PopArguments(std::size_t count) { m_arguments -= count; }

    Label NewLabel();
    Label Here();
    void Bind(Label label);
    void Emit(Opcode code, Register a = 0, Register b = 0, Register c = 0, std::uint8_t flags = 0);
    void EmitWide(Opcode code, Register a, std::int64_t wide, std::uint8_t flags = 0);
    void EmitJump(Opcode code, Label target, Register a = 0);
    /// An instruction with a 24-bit number in B and the flags.
    void EmitTarget(Opcode code, Register a, std::size_t target, Register c);
    /// What follows belongs to a statement of that line; `Resume` continues at `again`, `Resume Next` at `next`.
    void Mark(std::int32_t line, Label again, Label next);
    /// An argument of the call just written goes back to its variable.
    void AddCopyBack(Register reference, Register slot, std::uint16_t element);
    /// A switch whose targets are labels until the end.
    std::size_t AddSwitch(SwitchTable table);

    /// Puts in the final numbers, then superinstructions (`Fusion.h`). Nothing can be written afterwards. False if the
    /// procedure needs more slots than instructions can name.
    bool Finish();

private:
    struct LabelledMark {
        std::uint32_t Start;
        Label Again;
        Label Next;
        std::int32_t Line;
    };

    Register FinalSlot(Register slot) const;
    void SettleOperands(Instruction& instruction) const;
    void FillInitial();
    std::uint32_t PositionOf(Label label) const;

    Program& m_program;
    Procedure& m_procedure;
    std::size_t m_generic;
    std::size_t m_plain = 0;
    std::size_t m_arguments = 0;
    std::size_t m_mostArguments = 0;
    std::vector<Register> m_live;  // temporaries in use
    std::vector<Register> m_freeGeneric;
    std::vector<Register> m_freePlain;
    std::vector<std::pair<Register, Value>> m_initials;
    std::vector<std::pair<Register, Value>> m_numbers;  // the constant slots
    std::vector<std::uint32_t> m_labels;
    std::vector<std::pair<std::size_t, Label>> m_jumps;  // instruction and target
    std::vector<LabelledMark> m_marks;
    std::vector<std::size_t> m_switches;
};

}  // namespace dorvik::basic
