#include "Fusion.h"

#include "base/modUtf8.h"
#include "basic/program/Program.h"
#include "basic/syntax/Ast.h"
#include "basic/values/LikePattern.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>

namespace dorvik::basic::modFusion {

namespace {

/// What begins at an instruction of a procedure.
class Row {
public:
    Row(const Program& program, std::span<const Instruction> code)
        : m_program(program), m_code(code) {}

    bool Is(std::initializer_list<Opcode> codes) const {
        if (codes.size() > m_code.size()) {
            return false;
        }
        std::size_t at = 0;
        for (const Opcode code : codes) {
            if (m_code[at++].Code != code) {
                return false;
            }
        }
        return true;
    }
    const Instruction& At(std::size_t position) const { return m_code[position]; }
    const Value& ConstantAt(std::size_t position) const {
        return m_program.Constants[static_cast<std::size_t>(m_code[position].Wide())];
    }
    bool IsTextAt(std::size_t position) const {
        return ConstantAt(position).Type() == ValueType::String &&
               !ConstantAt(position).AsText().empty();
    }

    /// Whether the instruction calls the function with all slots from that of the first instruction on.
    bool Calls(std::size_t position, std::string_view name) const {
        const Instruction& call = m_code[position];
        if (call.Flags != position || call.A == kNoSlot || call.C != m_code[0].A ||
            m_program.Builtins[call.B]->Name != name) {
            return false;
        }
        for (std::size_t i = 1; i < position; ++i) {
            if (m_code[i].A != call.C + i) {
                return false;
            }
        }
        return true;
    }
    std::size_t Size() const { return m_code.size(); }
    /// Whether a constant case of a `Select Case` begins there, with the subject in that slot.
    bool IsCaseAt(std::size_t position, std::uint16_t subject) const {
        return position + 2 < m_code.size() && m_code[position].Code == Opcode::LoadConstant &&
               m_code[position + 1].Code == Opcode::JumpTextEqual &&
               m_code[position + 1].A == subject && m_code[position + 1].B == m_code[position].A &&
               ConstantAt(position).Type() == ValueType::String;
    }
    bool IsTextJump(std::size_t position) const {
        return position < m_code.size() && (m_code[position].Code == Opcode::JumpTextEqual ||
                                            m_code[position].Code == Opcode::JumpTextNotEqual);
    }

private:
    const Program& m_program;
    std::span<const Instruction> m_code;
};

bool IsPropertyRow(const Row& row, const Program& program) {
    if (!row.Is(
            {Opcode::LoadConstant,
             Opcode::LoadConstant,
             Opcode::Move,
             Opcode::CallExtension,
             Opcode::CoerceString,
             Opcode::ReleaseArguments})) {
        return false;
    }
    const ExtensionCall& call = program.ExtensionCalls[row.At(3).Target()];
    const std::size_t first = row.At(0).A;
    return call.Parameters == 3 && call.KeepsArguments && row.At(3).A == kNoSlot &&
           row.At(3).C == first && row.At(1).A == first + 1 && row.At(2).A == first + 2 &&
           row.At(4).B == first + 2 && row.At(4).A == row.At(2).B && row.At(5).A == first &&
           row.At(5).B == 3;
}

bool IsLeftRow(const Row& row) {
    return row.Is({Opcode::Move, Opcode::LoadConstant, Opcode::CallBuiltin}) &&
           row.Calls(2, "Left$") && row.ConstantAt(1).Type() == ValueType::Integer &&
           row.ConstantAt(1).AsLong() > 0;
}

/// Nobody looks at the start itself but the cases. Behind the last of them the code goes on elsewhere.
bool IsLeftCasesRow(const Row& row) {
    constexpr std::size_t kFirst = 4;
    if (!IsLeftRow(row) || row.Size() <= kFirst || row.At(3).Code != Opcode::Move ||
        row.At(3).Flags != kSelectSubject || row.At(3).B != row.At(2).A) {
        return false;
    }
    std::size_t at = kFirst;
    while (row.IsCaseAt(at, row.At(3).A)) {
        at += 3;
    }
    return at > kFirst && at < row.Size() && row.At(at).Code == Opcode::Jump;
}

bool IsJumpLeftRow(const Row& row) {
    return IsLeftRow(row) && row.IsTextJump(4) && row.At(3).Code == Opcode::LoadConstant &&
           row.IsTextAt(3) && modUtf8::IsAscii(row.ConstantAt(3).AsText()) &&
           row.At(4).A == row.At(2).A && row.At(4).B == row.At(3).A;
}

bool IsInStrRow(const Row& row, bool comparesText) {
    return row.Is({Opcode::Move, Opcode::LoadConstant, Opcode::CallBuiltin}) &&
           row.Calls(2, "InStr") && row.IsTextAt(1) && !comparesText;
}

bool IsLenRow(const Row& row) {
    return row.Is({Opcode::Move, Opcode::CallBuiltin}) && row.Calls(1, "Len");
}

bool IsLikeRow(const Row& row, bool comparesText) {
    constexpr auto kLike = static_cast<int>(BinaryOperator::Like);
    return row.Is({Opcode::LoadConstant, Opcode::Operate}) && row.IsTextAt(0) &&
           row.At(1).C == row.At(0).A && row.At(1).B != row.At(0).A &&
           row.At(1).Flags >> kOperatorShift == kLike && !comparesText &&
           IsValidLike(row.ConstantAt(0).AsText());
}

/// A constant of its own for this one comparison.
bool IsJumpTextRow(const Row& row) {
    return row.Is({Opcode::LoadConstant}) && row.IsTextAt(0) && row.IsTextJump(1) &&
           row.At(1).B == row.At(0).A && row.At(1).A != row.At(0).A;
}

}  // namespace

void Fuse(const Program& program, Procedure& procedure) {
    const std::span<Instruction> code = procedure.Code;
    for (std::size_t at = 0; at < code.size(); ++at) {
        const Row row(program, code.subspan(at));
        if (IsPropertyRow(row, program)) {
            code[at].Code = Opcode::PropertyRow;
        } else if (IsJumpLeftRow(row)) {
            code[at].Code = Opcode::JumpLeftRow;
        } else if (IsLeftCasesRow(row)) {
            code[at].Code = Opcode::LeftCasesRow;
        } else if (IsLeftRow(row)) {
            code[at].Code = Opcode::LeftRow;
        } else if (IsInStrRow(row, program.ComparesText)) {
            code[at].Code = Opcode::InStrRow;
        } else if (IsLenRow(row)) {
            code[at].Code = Opcode::LenRow;
        } else if (IsLikeRow(row, program.ComparesText)) {
            code[at].Code = Opcode::LikeRow;
        } else if (IsJumpTextRow(row)) {
            code[at].Code = Opcode::JumpTextRow;
        }
    }
}

}  // namespace dorvik::basic::modFusion
