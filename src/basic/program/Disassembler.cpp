#include "basic/program/Disassembler.h"

#include "basic/values/Coercion.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

constexpr std::size_t kNameWidth = 22;
constexpr std::size_t kLongestText = 40;

std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

std::string RightAligned(std::size_t number, std::size_t width) {
    const std::string text = std::to_string(number);
    return std::string(width > text.size() ? width - text.size() : 0, ' ') + text;
}

std::string ConstantText(const Value& value) {
    if (value.Type() == ValueType::Null) {
        return "Null";
    }
    if (value.Type() == ValueType::Empty) {
        return "Empty";
    }
    if (value.IsMissing()) {
        return "Missing";
    }
    if (value.Type() != ValueType::String) {
        return value.IsNumber() ? ToText(value) : TypeNameOf(value);
    }
    std::string text = "\"";
    for (const char character : value.AsText().substr(0, kLongestText)) {
        text += static_cast<unsigned char>(character) < 0x20 ? '.' : character;
    }
    return text + (value.AsText().size() > kLongestText ? "...\"" : "\"");
}

/// What an instruction names besides its slots.
std::string NoteOf(const Program& program, const Instruction& in) {
    if (in.Code == Opcode::LoadConstant || in.Code == Opcode::Refuse) {
        return ConstantText(program.Constants[static_cast<std::size_t>(in.Wide())]);
    }
    if (in.Code == Opcode::CompareConstant) {
        return ConstantText(program.Constants[in.C]);
    }
    if (in.Code == Opcode::JumpCompareConstant) {
        return ConstantText(program.Constants[in.B]);
    }
    if (in.Code == Opcode::Call) {
        return program.Procedures[in.Target()].Name;
    }
    if (in.Code == Opcode::CallBuiltin) {
        return std::string(program.Builtins[in.B]->Name);
    }
    if (in.Code == Opcode::Invoke) {
        return "." + program.Sites[in.Target()].Name;
    }
    if (in.Code == Opcode::CallExtension) {
        const ExtensionCall& call = program.ExtensionCalls[in.Target()];
        return std::string(call.Extension->Members()[call.Member].Name);
    }
    return {};
}

std::string OperandText(const Instruction& in, char kind, std::uint16_t value) {
    switch (kind) {
        case 'r': return " r" + std::to_string(value);
        case 'o': return value == kNoSlot ? " -" : " r" + std::to_string(value);
        case 'n': return " " + std::to_string(static_cast<std::int16_t>(value));
        case 'i': return " " + std::to_string(in.Wide());
        case 'j': return " -> " + std::to_string(in.Wide());
        default: return {};
    }
}

std::string InstructionText(const Program& program, const Instruction& in) {
    const OpcodeRow& row = RowOf(in.Code);
    std::string text = Padded(std::string(row.Name), kNameWidth);
    const std::uint16_t values[] = {in.A, in.B, in.C};
    for (std::size_t i = 0; i < row.Operands.size(); ++i) {
        text += OperandText(in, row.Operands[i], values[i]);
    }
    if (const std::string note = NoteOf(program, in); !note.empty()) {
        text += "  ; " + note;
    }
    text.resize(text.find_last_not_of(' ') + 1);
    return text;
}

std::string TableText(const Program& program, const Instruction& in) {
    const SwitchTable& table = program.Switches[static_cast<std::size_t>(in.Wide())];
    std::string text;
    for (std::size_t i = 0; i < table.Targets.size(); ++i) {
        const std::int64_t key = table.Keys.empty()
                                     ? std::int64_t{table.First} + static_cast<std::int64_t>(i)
                                     : table.Keys[i];
        if (table.Targets[i] != table.Else) {
            text += "            case " + std::to_string(key) + " -> " +
                    std::to_string(table.Targets[i]) + "\n";
        }
    }
    return text + "            else -> " + std::to_string(table.Else) + "\n";
}

bool HasTable(Opcode code) {
    return code == Opcode::SwitchDense || code == Opcode::SwitchSparse || code == Opcode::OnJump ||
           code == Opcode::OnGoSub;
}

std::string SourceLine(const Program& program, std::int32_t line) {
    const auto index = static_cast<std::size_t>(line - 1);
    return line >= 1 && index < program.Lines.size() ? program.Lines[index] : std::string();
}

std::string ProcedureText(const Program& program, const Procedure& procedure) {
    static constexpr const char* kKinds[] = {
        "Sub", "Function", "Property Get", "Property Let", "Property Set"};
    std::string text = std::string(kKinds[static_cast<std::size_t>(procedure.Kind)]) + " " +
                       procedure.Name + ": " + std::to_string(procedure.Parameters.size()) +
                       " parameters, " + std::to_string(procedure.Slots) + " slots, " +
                       std::to_string(procedure.ArgumentSlots) + " for arguments\n";
    std::int32_t shown = 0;
    for (std::size_t i = 0; i < procedure.Code.size(); ++i) {
        const std::int32_t line = procedure.MarkOf(static_cast<std::uint32_t>(i)).Line;
        if (line != shown) {
            text += RightAligned(static_cast<std::size_t>(line), 5) + "  " +
                    SourceLine(program, line) + "\n";
        }
        shown = line;
        text += RightAligned(i, 10) + "  " + InstructionText(program, procedure.Code[i]) + "\n";
        if (HasTable(procedure.Code[i].Code)) {
            text += TableText(program, procedure.Code[i]);
        }
    }
    return text;
}

}  // namespace

std::string Disassemble(const Program& program) {
    std::string text;
    for (const Procedure& procedure : program.Procedures) {
        text += (text.empty() ? "" : "\n") + ProcedureText(program, procedure);
    }
    return text;
}

}  // namespace dorvik::basic
