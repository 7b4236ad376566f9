#include "SuperinstructionPass.h"

#include "base/modUtf8.h"
#include "basic/program/Program.h"
#include "basic/program/Superinstructions.h"
#include "basic/syntax/Ast.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>

namespace dorvik::basic {

namespace {

/// The code of a procedure from an instruction on, and what its operands name.
class CodeTail {
public:
    CodeTail(const Program& program, std::span<const Instruction> code)
        : m_program(program), m_code(code) {}

    const Instruction* First() const { return m_code.data(); }
    const Program& Module() const { return m_program; }

    bool HasShape(std::span<const Opcode> shape) const { return HasShapeAt(First(), shape); }
    bool HasShapeAt(const Instruction* at, std::span<const Opcode> shape) const {
        const auto left = static_cast<std::size_t>(m_code.data() + m_code.size() - at);
        return shape.size() <= left &&
               std::equal(shape.begin(), shape.end(), at, [](Opcode wanted, const Instruction& in) {
                   return FitsShape(wanted, in.Code);
               });
    }
    const Value& ConstantOf(const Instruction& load) const {
        return m_program.Constants[static_cast<std::size_t>(load.Wide())];
    }
    bool LoadsText(const Instruction& load) const {
        const Value& constant = ConstantOf(load);
        return constant.Type() == ValueType::String && !constant.AsText().empty();
    }
    bool LoadsAscii(const Instruction& load) const {
        return LoadsText(load) && modUtf8::IsAscii(ConstantOf(load).AsText());
    }
    bool LoadsPositiveInteger(const Instruction& load) const {
        const Value& constant = ConstantOf(load);
        return constant.Type() == ValueType::Integer && constant.AsLong() > 0;
    }
    /// Whether the call is of that function, with what the given instructions load as its arguments.
    bool Calls(
        const Instruction& call,
        BuiltinId function,
        std::initializer_list<Instruction> arguments) const {
        if (m_program.Builtins[call.B]->Id != function || call.A == kNoSlot ||
            call.Flags != arguments.size()) {
            return false;
        }
        std::size_t slot = call.C;
        return std::all_of(
            arguments.begin(), arguments.end(), [&slot](const Instruction& argument) {
                return argument.A == slot++;
            });
    }

private:
    const Program& m_program;
    std::span<const Instruction> m_code;
};

bool FitsTextProperty(const CodeTail& code) {
    const TextPropertySequence sequence(code.First());
    const ExtensionCall& call = code.Module().ExtensionCalls[sequence.Call().Target()];
    const std::size_t first = sequence.Object().A;
    return call.Parameters == 3 && call.KeepsArguments && call.Answers != nullptr &&
           sequence.Call().A == kNoSlot && sequence.Call().C == first &&
           sequence.Property().A == first + 1 && sequence.Present().A == first + 2 &&
           sequence.Store().B == first + 2 && sequence.Store().A == sequence.Present().B &&
           sequence.Release().A == first && sequence.Release().B == 3;
}

template <class Sequence>
bool FitsLeftCall(const CodeTail& code, const Sequence& sequence) {
    return code.Calls(sequence.Call(), BuiltinId::LeftText, {sequence.Text(), sequence.Count()}) &&
           code.LoadsPositiveInteger(sequence.Count());
}

/// Nothing reads the start of the text but the cases. After the last of them the code continues elsewhere.
bool FitsSelectLeft(const CodeTail& code) {
    const SelectLeftSequence sequence(code.First());
    if (!FitsLeftCall(code, sequence) || sequence.Subject().Flags != kSelectSubject ||
        sequence.Subject().B != sequence.Call().A) {
        return false;
    }
    const auto isCase = [&](const Instruction* at) {
        const TextCaseSequence one(at);
        return code.HasShapeAt(at, TextCaseSequence::kShape) &&
               one.Comparison().Code == Opcode::JumpTextEqual &&
               one.Comparison().A == sequence.Subject().A &&
               one.Comparison().B == one.Constant().A &&
               code.ConstantOf(one.Constant()).Type() == ValueType::String;
    };
    const Instruction* at = sequence.End();
    while (isCase(at)) {
        at = TextCaseSequence(at).End();
    }
    constexpr std::array kAfterTheCases{Opcode::Jump};
    return at != sequence.End() && code.HasShapeAt(at, kAfterTheCases);
}

bool FitsJumpByLeft(const CodeTail& code) {
    const JumpByLeftSequence sequence(code.First());
    return FitsLeftCall(code, sequence) && code.LoadsAscii(sequence.Constant()) &&
           sequence.Comparison().A == sequence.Call().A &&
           sequence.Comparison().B == sequence.Constant().A;
}

bool FitsInStr(const CodeTail& code) {
    const InStrSequence sequence(code.First());
    return code.Calls(sequence.Call(), BuiltinId::InStr, {sequence.Text(), sequence.Sought()}) &&
           code.LoadsText(sequence.Sought()) && !code.Module().ComparesText;
}

/// The variable itself is in the frame.
bool FitsItemOfNew(const CodeTail& code) {
    const ItemOfNewSequence sequence(code.First());
    return sequence.Variable().Flags != 0 && sequence.Item().B == sequence.Variable().A;
}

bool FitsMemberOfOne(const CodeTail& code) {
    const MemberOfOneSequence sequence(code.First());
    const CallSite& site = code.Module().Sites[sequence.Call().Target()];
    const std::size_t first = sequence.Call().C;
    return site.Arguments == 1 && site.ArgumentNames.empty() && sequence.Object().A == first &&
           sequence.Argument().A == first + 1;
}

/// What must hold of the operands where the shape fits, in the order of `kSuperinstructions`.
struct Condition {
    Opcode Code;
    bool (*Fits)(const CodeTail& code);
};
constexpr Condition kConditions[] = {
    {Opcode::GetTextProperty, FitsTextProperty},
    {Opcode::JumpByLeft, FitsJumpByLeft},
    {Opcode::SelectLeft, FitsSelectLeft},
    {Opcode::InStrOfConstant, FitsInStr},
    {Opcode::ItemOfNew, FitsItemOfNew},
    {Opcode::InvokeWithOne, FitsMemberOfOne},
};
static_assert(
    std::ranges::equal(
        kConditions, kSuperinstructions, {}, &Condition::Code, &Superinstruction::Code),
    "one condition for each superinstruction");

}  // namespace

void InsertSuperinstructions(const Program& program, Procedure& procedure) {
    const std::span<Instruction> code = procedure.Code;
    for (std::size_t position = 0; position < code.size(); ++position) {
        const CodeTail tail(program, code.subspan(position));
        for (std::size_t i = 0; i < std::size(kSuperinstructions); ++i) {
            if (tail.HasShape(kSuperinstructions[i].Shape) && kConditions[i].Fits(tail)) {
                code[position].Code = kSuperinstructions[i].Code;
                break;
            }
        }
    }
}

}  // namespace dorvik::basic
