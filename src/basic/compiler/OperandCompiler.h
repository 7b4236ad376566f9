#pragma once

#include "Operand.h"
#include "ProcedurePart.h"

#include <deque>
#include <optional>

namespace dorvik::basic {

/// Puts operands into slots: constants, conversions and copies.
class OperandCompiler : private ProcedurePart {
public:
    explicit OperandCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// REQUIRES: the value outlives the compilation of the procedure.
    Operand ConstantOperand(const Value* value) const;
    /// Replaces an expression with an error.
    Operand Nothing();
    /// A constant that the compiler computed.
    Operand Fold(Value value);
    /// A copy of the value if it is in a variable, which code that runs before its use may change.
    Operand Stable(const Operand& operand);
    /// The slot of the operand; a constant gets one.
    Register SlotOf(const Operand& operand);
    /// A slot with the operand as a Long.
    Register LongSlotOf(const Operand& operand);
    /// A slot with the operand as a Double.
    Register DoubleSlotOf(const Operand& operand);
    /// Let-assignment of a value to a slot of its own type: coerced, with a copy where others share it.
    void MoveInto(const Operand& operand, Register target, const DeclaredType& type);
    /// The same with Set: the value must be an object of the class that the type names.
    void SetInto(const Operand& operand, Register target, const DeclaredType& type);
    Register TemporaryFor(const DeclaredType& type);
    /// Where a new value of that kind goes: where the hint says, or into a temporary.
    Register ResultSlot(DeclaredKind kind, ResultHint hint);
    /// The number of a constant that an instruction can hold.
    std::optional<std::int16_t> SmallConstant(const Operand& operand) const;
    /// The index of a constant text, if an instruction can hold it.
    std::optional<std::uint16_t> TextConstant(const Operand& operand);
    /// The value as it is, sharing whatever the variable holds: for users that only read it.
    void MoveShared(const Operand& operand, Register slot);
    /// The value for a user that keeps it: objects are shared, arrays copied.
    void MoveCopy(const Operand& operand, Register slot);
    /// The value in a slot, as a variable of the type would hold it.
    Operand Converted(const Operand& value, const DeclaredType& type, bool isSet);
    /// An argument that is left out.
    Operand Missing() const;

private:
    bool MoveConstant(const Value& value, Register target, const DeclaredType& type);

    std::deque<Value> m_folded;  // never moves its values
};

}  // namespace dorvik::basic
