#pragma once

#include "basic/program/Instruction.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

/// Scripts of rules are short, and most of their time goes into the steps from one instruction to the next. A
/// superinstruction does the work of a sequence of instructions that many scripts have, in one step.
///
/// It replaces the first instruction of the sequence, whose operands it keeps. The others stay where they are: it reads
/// their operands, jumps into the sequence find them, and a value that it was not made for is left to them.
namespace dorvik::basic {

/// The instructions of a sequence, seen from the first one. What derives from it names them; nothing else knows
/// their positions.
template <Opcode... kCodes>
class InstructionSequence {
public:
    static constexpr std::array<Opcode, sizeof...(kCodes)> kShape{kCodes...};

    explicit InstructionSequence(const Instruction* first) : m_first(first) {}
    const Instruction* End() const { return m_first + kShape.size(); }

protected:
    template <std::size_t kPosition>
    const Instruction& At() const {
        static_assert(kPosition < kShape.size());
        return m_first[kPosition];
    }

private:
    const Instruction* m_first;
};

/// `Dorvik.GetObjectProperty "Object", "Property", text`: two constants, and the answer goes into a String.
class TextPropertySequence final : public InstructionSequence<
                                       Opcode::LoadConstant,
                                       Opcode::LoadConstant,
                                       Opcode::Move,
                                       Opcode::CallExtension,
                                       Opcode::CoerceString,
                                       Opcode::ReleaseArguments> {
public:
    using InstructionSequence::InstructionSequence;
    const Instruction& Object() const { return At<0>(); }
    const Instruction& Property() const { return At<1>(); }
    const Instruction& Present() const { return At<2>(); }
    const Instruction& Call() const { return At<3>(); }
    const Instruction& Store() const { return At<4>(); }
    const Instruction& Release() const { return At<5>(); }
};

/// A constant case of a `Select Case` over texts.
class TextCaseSequence final
    : public InstructionSequence<Opcode::LoadConstant, Opcode::JumpTextEqual, Opcode::Jump> {
public:
    using InstructionSequence::InstructionSequence;
    const Instruction& Constant() const { return At<0>(); }
    const Instruction& Comparison() const { return At<1>(); }
    const Instruction& Target() const { return At<2>(); }
};

/// `Select Case Left$(text, 3)`. Its constant cases, at least one, are at `End`; a Jump follows the last one.
class SelectLeftSequence final : public InstructionSequence<
                                     Opcode::Move,
                                     Opcode::LoadConstant,
                                     Opcode::CallBuiltin,
                                     Opcode::Move> {
public:
    using InstructionSequence::InstructionSequence;
    const Instruction& Text() const { return At<0>(); }
    const Instruction& Count() const { return At<1>(); }
    const Instruction& Call() const { return At<2>(); }
    const Instruction& Subject() const { return At<3>(); }
};

/// `If Left$(text, 3) = "abc"`.
class JumpByLeftSequence final : public InstructionSequence<
                                     Opcode::Move,
                                     Opcode::LoadConstant,
                                     Opcode::CallBuiltin,
                                     Opcode::LoadConstant,
                                     Opcode::JumpTextEqual> {
public:
    using InstructionSequence::InstructionSequence;
    const Instruction& Text() const { return At<0>(); }
    const Instruction& Count() const { return At<1>(); }
    const Instruction& Call() const { return At<2>(); }
    const Instruction& Constant() const { return At<3>(); }
    const Instruction& Comparison() const { return At<4>(); }
};

/// `InStr(text, "abc")`.
class InStrSequence final
    : public InstructionSequence<Opcode::Move, Opcode::LoadConstant, Opcode::CallBuiltin> {
public:
    using InstructionSequence::InstructionSequence;
    const Instruction& Text() const { return At<0>(); }
    const Instruction& Sought() const { return At<1>(); }
    const Instruction& Call() const { return At<2>(); }
};

/// `list(i)`, where `list` was declared with As New.
class ItemOfNewSequence final : public InstructionSequence<Opcode::EnsureObject, Opcode::ArrayGet> {
public:
    using InstructionSequence::InstructionSequence;
    const Instruction& Variable() const { return At<0>(); }
    const Instruction& Item() const { return At<1>(); }
};

/// `list.Add item`, `list.Remove 1`, `words.Exists(key)`: a member of the object in a variable, with one argument that
/// is a variable or a constant.
class MemberOfOneSequence final
    : public InstructionSequence<Opcode::Move, Opcode::DeepCopy, Opcode::Invoke> {
public:
    using InstructionSequence::InstructionSequence;
    const Instruction& Object() const { return At<0>(); }
    const Instruction& Argument() const { return At<1>(); }
    const Instruction& Call() const { return At<2>(); }
};

/// Whether an instruction is what a shape has at its position. A comparison may be either of its two forms, and what
/// copies a value may be what copies one that is no array, or a constant.
constexpr bool FitsShape(Opcode shape, Opcode code) {
    const bool isOtherComparison =
        shape == Opcode::JumpTextEqual && code == Opcode::JumpTextNotEqual;
    const bool isOtherCopy =
        shape == Opcode::DeepCopy && (code == Opcode::Move || code == Opcode::LoadConstant);
    return code == shape || isOtherComparison || isOtherCopy;
}

struct Superinstruction {
    Opcode Code;
    std::span<const Opcode> Shape;
    std::string_view Does;
};
/// All of them. Where several fit, the first one is taken.
inline constexpr Superinstruction kSuperinstructions[] = {
    {Opcode::GetTextProperty, TextPropertySequence::kShape, "a property into a String"},
    {Opcode::JumpByLeft, JumpByLeftSequence::kShape, "a jump by Left$ and a constant"},
    {Opcode::SelectLeft, SelectLeftSequence::kShape, "a Select Case of Left$ over constants"},
    {Opcode::InStrOfConstant, InStrSequence::kShape, "InStr of a constant"},
    {Opcode::ItemOfNew, ItemOfNewSequence::kShape, "an item of an object declared As New"},
    {Opcode::InvokeWithOne, MemberOfOneSequence::kShape, "a member of an object with one argument"},
};

}  // namespace dorvik::basic
