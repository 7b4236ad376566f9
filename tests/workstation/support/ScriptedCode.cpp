#include "workstation/support/ScriptedCode.h"

#include "base/BasicError.h"

namespace dorvik::test {

void ScriptedPane::SetTopLine(std::int32_t line) {
    if (line < 1) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    m_topLine = line;
    m_calls.push_back(m_name + " top " + std::to_string(line));
}

void ScriptedPane::SetSelection(const CodeRange& range) {
    m_selection = range;
    m_calls.push_back(
        m_name + " selection " + std::to_string(range.StartLine) + " " +
        std::to_string(range.StartColumn) + " " + std::to_string(range.EndLine) + " " +
        std::to_string(range.EndColumn));
}

void ScriptedModule::SetText(std::string_view text) {
    m_lines = modCodeLines::SplitText(text);
    if (m_lines.back().empty()) {
        m_lines.pop_back();
    }
    m_procedures = ProcedureList(m_lines);
}

std::int32_t ScriptedModule::ProcStartLine(std::string_view name, ProcedureKind kind) const {
    const CodeProcedure* procedure = m_procedures.Find(name, kind);
    return procedure == nullptr ? 0 : procedure->StartLine;
}

std::int32_t ScriptedModule::ProcCountLines(std::string_view name, ProcedureKind kind) const {
    const CodeProcedure* procedure = m_procedures.Find(name, kind);
    return procedure == nullptr ? 0 : procedure->CountLines();
}

}  // namespace dorvik::test
