#include "ProcedureCompiler.h"
#include "base/modTextCase.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace dorvik::basic {

namespace {

bool IsLineNumber(const std::string& label) {
    return !label.empty() && std::all_of(label.begin(), label.end(), [](char character) {
        return character >= '0' && character <= '9';
    });
}

}  // namespace

void ProcedureCompiler::CollectLabels(const Block& block) {
    for (const Statement& statement : block) {
        if (const auto* label = std::get_if<LabelStatement>(&statement.Node)) {
            m_mayJumpIntoLoops = true;
            const auto [entry, isNew] = m_labels.try_emplace(modTextCase::ToLower(label->Label));
            if (!isNew) {
                Error(
                    compileerror::kRedefined,
                    statement.Place,
                    "The label '" + label->Label + "' stands in line " +
                        std::to_string(entry->second.Place.Line) + " already");
            } else {
                entry->second = {m_code.NewLabel(), statement.Place, false, label->Label, m_around};
            }
        } else if (std::holds_alternative<OnErrorStatement>(statement.Node)) {
            m_mayJumpIntoLoops = true;
        } else if (const auto* choice = std::get_if<IfStatement>(&statement.Node)) {
            for (const IfBranch& branch : choice->Branches) {
                CollectLabels(branch.Body);
            }
            CollectLabels(choice->ElseBody);
        } else if (const auto* select = std::get_if<SelectStatement>(&statement.Node)) {
            for (const CaseClause& clause : select->Clauses) {
                CollectLabels(clause.Body);
            }
        } else if (const auto* loop = std::get_if<ForStatement>(&statement.Node)) {
            CollectLabels(loop->Body);
        } else if (const auto* each = std::get_if<ForEachStatement>(&statement.Node)) {
            CollectLabelsIn(each, each->Body);
        } else if (const auto* repeat = std::get_if<LoopStatement>(&statement.Node)) {
            CollectLabels(repeat->Body);
        } else if (const auto* with = std::get_if<WithStatement>(&statement.Node)) {
            CollectLabelsIn(with, with->Body);
        }
    }
}

void ProcedureCompiler::CollectLabelsIn(const void* node, const Block& body) {
    m_outer.emplace(node, m_around);
    const void* const around = std::exchange(m_around, node);
    CollectLabels(body);
    m_around = around;
}

void ProcedureCompiler::LeaveBlock(const HeldBlock& block) {
    m_code.Emit(Opcode::LeaveBlock, block.State);
}

/// A jump lets go of the arrays that the blocks it leaves keep locked.
void ProcedureCompiler::LeaveBlocksFor(const std::string& label) {
    const auto found = m_labels.find(modTextCase::ToLower(label));
    if (m_held.empty() || found == m_labels.end()) {
        return;
    }
    std::vector<const void*> around;
    for (const void* node = found->second.Around; node != nullptr; node = m_outer[node]) {
        around.push_back(node);
    }
    for (auto block = m_held.rbegin(); block != m_held.rend(); ++block) {
        if (std::find(around.begin(), around.end(), block->Node) != around.end()) {
            return;
        }
        LeaveBlock(*block);
    }
}

Label ProcedureCompiler::LabelOf(const std::string& name, SourcePlace place) {
    const auto found = m_labels.find(modTextCase::ToLower(name));
    if (found != m_labels.end()) {
        found->second.IsUsed = true;
        return found->second.Label;
    }
    Error(compileerror::kOther, place, "The label '" + name + "' is not defined in this procedure");
    return m_code.Here();
}

void ProcedureCompiler::WarnOfUnusedLabels() {
    for (const auto& [name, entry] : m_labels) {
        if (!entry.IsUsed && !IsLineNumber(name)) {
            m_scope.Messages.Warn(entry.Place, "The label '" + entry.Name + "' is not used");
        }
    }
}

void ProcedureCompiler::On(const LabelStatement& node, SourcePlace place) {
    const auto found = m_labels.find(modTextCase::ToLower(node.Label));
    if (found == m_labels.end() || found->second.Place != place) {
        return;
    }
    m_code.Bind(found->second.Label);
    std::int32_t number = 0;
    if (IsLineNumber(node.Label)) {
        std::from_chars(node.Label.data(), node.Label.data() + node.Label.size(), number);
        m_code.EmitWide(Opcode::LineNumber, 0, number);
    }
}

void ProcedureCompiler::On(const GoToStatement& node, SourcePlace place) {
    LeaveBlocksFor(node.Label);
    m_code.EmitJump(Opcode::JumpCounted, LabelOf(node.Label, place));
}

void ProcedureCompiler::On(const GoSubStatement& node, SourcePlace place) {
    m_code.EmitJump(Opcode::GoSub, LabelOf(node.Label, place));
}

void ProcedureCompiler::On(const ReturnStatement&, SourcePlace) {
    m_code.Emit(Opcode::ReturnFromGoSub);
}

void ProcedureCompiler::On(const OnJumpStatement& node, SourcePlace place) {
    const Register selector = LongSlotOf(Evaluate(*node.Selector));
    SwitchTable table;
    table.First = 1;
    for (const std::string& label : node.Labels) {
        table.Targets.push_back(LabelOf(label, place));
    }
    table.Else = m_code.NewLabel();
    const Label behind = table.Else;
    m_code.EmitWide(
        node.IsGoSub ? Opcode::OnGoSub : Opcode::OnJump,
        selector,
        static_cast<std::int64_t>(m_code.AddSwitch(std::move(table))));
    m_code.Bind(behind);
}

void ProcedureCompiler::On(const OnErrorStatement& node, SourcePlace place) {
    switch (node.Policy) {
        case ErrorPolicy::GoToLabel:
            m_hasHandler = true;
            m_code.EmitJump(Opcode::HandlerTo, LabelOf(node.Label, place));
            break;
        case ErrorPolicy::ResumeNext: m_code.Emit(Opcode::HandlerNext); break;
        case ErrorPolicy::Off: m_code.Emit(Opcode::HandlerOff); break;
        case ErrorPolicy::EndHandler: m_code.Emit(Opcode::HandlerEnd); break;
    }
}

void ProcedureCompiler::On(const ResumeStatement& node, SourcePlace place) {
    switch (node.Kind) {
        case ResumeKind::Same: m_code.Emit(Opcode::ResumeSame); break;
        case ResumeKind::Next: m_code.Emit(Opcode::ResumeNext); break;
        case ResumeKind::Label:
            LeaveBlocksFor(node.Label);
            m_code.EmitJump(Opcode::ResumeLabel, LabelOf(node.Label, place));
            break;
    }
}

void ProcedureCompiler::On(const ErrorStatement& node, SourcePlace) {
    m_code.Emit(Opcode::RaiseNumber, LongSlotOf(Evaluate(*node.Number)));
}

}  // namespace dorvik::basic
