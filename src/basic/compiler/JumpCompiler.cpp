#include "JumpCompiler.h"

#include "ExpressionCompiler.h"
#include "OperandCompiler.h"
#include "base/modTextCase.h"
#include "basic/values/ValueKinds.h"

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

void JumpCompiler::CollectLabels(const Block& block) {
    for (const Statement& statement : block) {
        if (const auto* label = std::get_if<LabelStatement>(&statement.Node)) {
            m_mayEnterBlocks = true;
            const auto [entry, isNew] = m_labels.try_emplace(modTextCase::ToLower(label->Label));
            if (!isNew) {
                Error(
                    compileerror::kRedefined,
                    statement.Place,
                    "The label '" + label->Label + "' is in line " +
                        std::to_string(entry->second.Place.Line) + " already");
            } else {
                entry->second = {m_code.NewLabel(), statement.Place, false, label->Label, m_around};
            }
        } else if (std::holds_alternative<OnErrorStatement>(statement.Node)) {
            m_mayEnterBlocks = true;
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

void JumpCompiler::CollectLabelsIn(const void* node, const Block& body) {
    m_outer.emplace(node, m_around);
    const void* const around = std::exchange(m_around, node);
    CollectLabels(body);
    m_around = around;
}

void JumpCompiler::LeaveBlock(const HeldBlock& block) {
    m_code.Emit(Opcode::LeaveBlock, block.State);
}

void JumpCompiler::LeaveBlocksFor(const std::string& label) {
    const auto found = m_labels.find(modTextCase::ToLower(label));
    if (m_context.Blocks.Held.empty() || found == m_labels.end()) {
        return;
    }
    std::vector<const void*> around;
    for (const void* node = found->second.Around; node != nullptr; node = m_outer[node]) {
        around.push_back(node);
    }
    for (auto block = m_context.Blocks.Held.rbegin(); block != m_context.Blocks.Held.rend();
         ++block) {
        if (std::find(around.begin(), around.end(), block->Node) != around.end()) {
            return;
        }
        LeaveBlock(*block);
    }
}

Label JumpCompiler::LabelOf(const std::string& name, SourcePlace place) {
    const auto found = m_labels.find(modTextCase::ToLower(name));
    if (found != m_labels.end()) {
        found->second.IsUsed = true;
        return found->second.Label;
    }
    Error(compileerror::kOther, place, "The label '" + name + "' is not defined in this procedure");
    return m_code.Here();
}

void JumpCompiler::WarnOfUnusedLabels() {
    for (const auto& [name, entry] : m_labels) {
        if (!entry.IsUsed && !IsLineNumber(name)) {
            m_scope.Messages.Warn(entry.Place, "The label '" + entry.Name + "' is not used");
        }
    }
}

void JumpCompiler::Compile(const LabelStatement& node, SourcePlace place) {
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

void JumpCompiler::Compile(const GoToStatement& node, SourcePlace place) {
    LeaveBlocksFor(node.Label);
    m_code.EmitJump(Opcode::JumpCounted, LabelOf(node.Label, place));
}

void JumpCompiler::Compile(const GoSubStatement& node, SourcePlace place) {
    m_code.EmitJump(Opcode::GoSub, LabelOf(node.Label, place));
}

void JumpCompiler::Compile(const ReturnStatement&, SourcePlace) {
    m_code.Emit(Opcode::ReturnFromGoSub);
}

void JumpCompiler::Compile(const OnJumpStatement& node, SourcePlace place) {
    const Register selector = Operands().LongSlotOf(Expressions().Evaluate(*node.Selector));
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

void JumpCompiler::EmitReturn() {
    if (!m_context.Result) {
        m_code.Emit(Opcode::Return);
    } else {
        m_code.Emit(
            IsPlain(m_context.Result->Type) ? Opcode::ReturnPlain : Opcode::ReturnValue,
            static_cast<Register>(m_context.Result->Index));
    }
}

void JumpCompiler::Compile(const ExitStatement& node, SourcePlace place) {
    const bool leavesProcedure = node.Kind == ExitKind::Sub || node.Kind == ExitKind::Function ||
                                 node.Kind == ExitKind::Property;
    if (leavesProcedure) {
        const ProcedureKind kind = m_context.Node.Kind;
        const bool fits = (node.Kind == ExitKind::Sub && kind == ProcedureKind::Sub) ||
                          (node.Kind == ExitKind::Function && kind == ProcedureKind::Function) ||
                          (node.Kind == ExitKind::Property && kind > ProcedureKind::Function);
        if (!fits) {
            Error(
                compileerror::kInvalidExit,
                place,
                "This Exit does not fit the procedure around it");
        }
        m_code.Emit(Opcode::ClearError);
        EmitReturn();
        return;
    }
    for (std::size_t i = m_context.Blocks.Loops.size(); i-- > 0;) {
        if (m_context.Blocks.Loops[i].Kind == node.Kind) {
            for (auto block = m_context.Blocks.Held.rbegin();
                 block != m_context.Blocks.Held.rend() && block->Loops > i;
                 ++block) {
                LeaveBlock(*block);
            }
            m_code.EmitJump(Opcode::Jump, m_context.Blocks.Loops[i].Exit);
            return;
        }
    }
    Error(
        compileerror::kInvalidExit,
        place,
        node.Kind == ExitKind::Do ? "'Exit Do' is outside any Do loop"
                                  : "'Exit For' is outside any For loop");
}

}  // namespace dorvik::basic
