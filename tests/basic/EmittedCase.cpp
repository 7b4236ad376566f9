#include "basic/EmittedCase.h"

#include "basic/compiler/Compiler.h"
#include "basic/program/Disassembler.h"
#include "basic/syntax/Parser.h"
#include "basic/values/Coercion.h"

#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace dorvik::basic::test {

namespace {

constexpr std::string_view kNameMark = "### ";
constexpr std::string_view kPlainMark = "--- emits";
constexpr std::string_view kMarksMark = "--- emits with marks";

/// A host object whose members are compiled and never called.
class HostObject final : public IScriptExtension {
public:
    std::span<const ExtensionMember> Members() const override {
        static constexpr ExtensionMember kMembers[] = {
            {"Apply", 0, 0},
            {"Log", 1, 0},
            {"GetProperty", 3, 0b100},
        };
        return kMembers;
    }
    void Call(std::size_t, std::span<Value>) override {}
};

bool HasProcedure(const std::string& source) {
    static const std::regex kProcedure(
        R"((^|\n)(Public |Private |Static )?(Sub|Function|Property|Declare) )");
    return std::regex_search(source, kProcedure);
}

std::string SlotText(std::uint16_t slot) {
    return "r" + std::to_string(slot);
}

/// B and the flags together are a number of 24 bits, which the disassembler shows as what it names.
bool HasTarget(Opcode code) {
    return code == Opcode::Call || code == Opcode::Invoke || code == Opcode::CallExtension;
}

std::string ValueText(const Value& value) {
    return std::string(TypeNameOf(value)) + (value.IsNumber() ? " " + ToText(value) : "");
}

/// How a member is used, with how many arguments, and the names of the last ones.
std::string SiteText(const CallSite& site) {
    static constexpr const char* kKinds[] = {"Get", "Let", "Set", "Call"};
    std::string text = kKinds[static_cast<std::size_t>(site.Kind)];
    text += " " + std::to_string(site.Arguments);
    for (const std::string& name : site.ArgumentNames) {
        text += " " + name + ":=";
    }
    return text;
}

/// Slots that do not begin as Empty.
std::string InitialText(const Procedure& procedure) {
    std::string text;
    for (std::size_t i = 0; i < procedure.Initial.size(); ++i) {
        const Value& value = procedure.Initial[i];
        if (value.Type() != ValueType::Empty) {
            text += text.empty() ? "    begins with " : ", ";
            text += SlotText(static_cast<std::uint16_t>(procedure.Parameters.size() + i)) + " = " +
                    ValueText(value);
        }
    }
    return text.empty() ? text : text + "\n";
}

std::string CopyBackText(const Procedure& procedure) {
    std::string text;
    for (const ArgumentCopy& copy : procedure.CopyBacks) {
        text += "    call " + std::to_string(copy.Call) + " gives " + SlotText(copy.Slot);
        if (copy.Element != ArgumentCopy::kNoElement) {
            text += "(" + std::to_string(copy.Element) + ")";
        }
        text += " back to " + SlotText(copy.Reference) + "\n";
    }
    return text;
}

std::string MarksText(const Procedure& procedure) {
    std::string text;
    for (const StatementMark& mark : procedure.Marks) {
        text += "    from " + std::to_string(mark.Start) + ": line " + std::to_string(mark.Line) +
                ", Resume at " + std::to_string(mark.Again) + ", Resume Next at " +
                std::to_string(mark.Next) + "\n";
    }
    return text;
}

/// Lines of the disassembly with what belongs to each.
class ListingWriter {
public:
    ListingWriter(const Program& program, bool showsMarks)
        : m_program(program), m_showsMarks(showsMarks) {}

    std::string Write() {
        std::istringstream lines(Disassemble(m_program));
        std::string line;
        bool isHead = true;
        while (std::getline(lines, line)) {
            if (isHead) {
                BeginProcedure(line);
            } else if (line.empty()) {
                EndProcedure();
            } else {
                WriteLine(line);
            }
            isHead = line.empty();
        }
        EndProcedure();
        return m_text;
    }

private:
    void BeginProcedure(const std::string& head) {
        m_text += head + "\n" + InitialText(Current());
        m_next = 0;
    }

    void WriteLine(const std::string& line) {
        static const std::regex kInstruction(R"( *(\d+)  [A-Z]\w+.*)");
        std::smatch match;
        m_text += line;
        const bool isInstruction = std::regex_match(line, match, kInstruction) &&
                                   line.find_first_not_of(' ') + match[1].length() == 10;
        if (isInstruction) {
            const Instruction& instruction = Current().Code.at(m_next++);
            if (instruction.Code == Opcode::Invoke) {
                m_text += " {" + SiteText(m_program.Sites.at(instruction.Target())) + "}";
            } else if (instruction.Flags != 0 && !HasTarget(instruction.Code)) {
                m_text += " {" + std::to_string(instruction.Flags) + "}";
            }
        }
        m_text += "\n";
    }

    void EndProcedure() {
        if (m_next != Current().Code.size()) {
            throw std::runtime_error("the listing lacks an instruction");
        }
        m_text += CopyBackText(Current()) + (m_showsMarks ? MarksText(Current()) : "");
        ++m_procedure;
        m_text += m_procedure < m_program.Procedures.size() ? "\n" : "";
    }

    const Procedure& Current() const { return m_program.Procedures.at(m_procedure); }

    const Program& m_program;
    bool m_showsMarks;
    std::string m_text;
    std::size_t m_procedure = 0;
    std::size_t m_next = 0;  // instruction of the current procedure
};

std::string ErrorsText(const std::vector<CompileError>& errors) {
    std::string text;
    for (const CompileError& error : errors) {
        text += "error " + std::to_string(error.Number) + " in line " +
                std::to_string(error.Place.Line) + ": " + error.Text + "\n";
    }
    return text;
}

}  // namespace

void PrintTo(const EmittedCase& emitted, std::ostream* stream) {
    *stream << emitted.File.filename().string() << ": " << emitted.Name;
}

std::vector<EmittedCase> ReadEmittedCases(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::vector<EmittedCase> cases;
    std::string line;
    bool inSource = true;
    while (std::getline(stream, line)) {
        if (line.starts_with(kNameMark)) {
            cases.push_back({file, line.substr(kNameMark.size()), {}, false, {}});
            inSource = true;
        } else if (cases.empty()) {
            throw std::runtime_error(file.string() + ": text before the first case");
        } else if (line == kPlainMark || line == kMarksMark) {
            inSource = false;
            cases.back().ShowsMarks = line == kMarksMark;
        } else {
            (inSource ? cases.back().Source : cases.back().Expected) += line + "\n";
        }
    }
    for (EmittedCase& emitted : cases) {
        if (emitted.Expected.ends_with("\n\n")) {  // the blank line before the next case
            emitted.Expected.pop_back();
        }
    }
    return cases;
}

std::string EmittedCasesText(const std::vector<EmittedCase>& cases) {
    std::string text;
    for (const EmittedCase& emitted : cases) {
        text += text.empty() ? "" : "\n";
        text += std::string(kNameMark) + emitted.Name + "\n" + emitted.Source +
                std::string(emitted.ShowsMarks ? kMarksMark : kPlainMark) + "\n" + emitted.Expected;
    }
    return text;
}

std::string EmittedCode(const EmittedCase& emitted) {
    const bool isBody = !HasProcedure(emitted.Source);
    const ParsedModule parsed =
        ParseModule(isBody ? "Sub Main()\n" + emitted.Source + "End Sub\n" : emitted.Source);
    if (!parsed.Errors.empty()) {
        return ErrorsText(parsed.Errors);
    }
    HostObject host;
    const ExtensionEntry extensions[] = {{"Host", &host}};
    const CompiledModule compiled = CompileModule(parsed.Module, extensions, {});
    if (!compiled.Errors.empty()) {
        return ErrorsText(compiled.Errors);
    }
    return ListingWriter(*compiled.Module, emitted.ShowsMarks).Write();
}

}  // namespace dorvik::basic::test
