#include "base/BasicError.h"
#include "basic/machine/Machine.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

constexpr std::size_t kMostGoSubs = 100'000;
constexpr std::int32_t kHighestSelector = 255;
constexpr std::int32_t kHighestError = 65'535;

}  // namespace

void Machine::SetHandler(Instruction in, Value*) {
    Frame& frame = Top();
    m_error.Clear();
    if (in.Code == Opcode::HandlerEnd) {
        frame.IsHandling = false;
    } else {
        frame.Handler = in.Code == Opcode::HandlerTo     ? in.Wide()
                        : in.Code == Opcode::HandlerNext ? kResumeNext
                                                         : kNoHandler;
    }
}

void Machine::ClearHandledError(Instruction, Value*) {
    if (Top().IsHandling) {
        m_error.Clear();
    }
}

void Machine::Resume(Instruction in, Value*) {
    Frame& frame = Top();
    if (!frame.IsHandling) {
        RaiseError(runtimeerror::kResumeWithoutError);
    }
    frame.IsHandling = false;
    m_error.Clear();
    const StatementMark& mark = frame.Procedure->MarkOf(frame.ErrorPosition);
    const Instruction* const code = CodeOfTop();
    m_next = in.Code == Opcode::ResumeSame   ? code + mark.Again
             : in.Code == Opcode::ResumeNext ? code + mark.Next
                                             : code + in.Wide();
    Spend(10);  // a loop of an error and its Resume has no other jump back
}

void Machine::RaiseNumber(Instruction in, Value* base) {
    const std::int32_t number = base[in.A].AsLong();
    const bool isValid = number > 0 && number <= kHighestError;
    Fail(isValid ? number : runtimeerror::kInvalidProcedureCall);
}

void Machine::LineNumber(Instruction in, Value*) {
    m_lineNumber = in.Wide();
}

void Machine::PushGoSub(const Instruction* returnTo) {
    if (m_goSubs.size() - Top().GoSubs >= kMostGoSubs) {
        RaiseLimit(
            runtimeerror::kOutOfStackSpace,
            "the limit of " + std::to_string(kMostGoSubs) + " GoSubs was reached");
    }
    m_goSubs.push_back(returnTo);
}

void Machine::GoSub(Instruction in, Value*) {
    PushGoSub(m_next);
    m_next = CodeOfTop() + in.Wide();
    Spend(10);
}

void Machine::ReturnFromGoSub(Instruction, Value*) {
    if (m_goSubs.size() == Top().GoSubs) {
        RaiseError(runtimeerror::kReturnWithoutGoSub);
    }
    m_next = m_goSubs.back();
    m_goSubs.pop_back();
    Spend(10);
}

void Machine::JumpByTable(Instruction in, Value* base) {
    const SwitchTable& table = m_program->Switches[static_cast<std::size_t>(in.Wide())];
    const std::int32_t key = base[in.A].AsLong();
    const Instruction* const code = CodeOfTop();
    if (in.Code == Opcode::SwitchSparse) {
        const auto found = std::lower_bound(table.Keys.begin(), table.Keys.end(), key);
        const bool isThere = found != table.Keys.end() && *found == key;
        m_next =
            code + (isThere ? table.Targets[static_cast<std::size_t>(found - table.Keys.begin())]
                            : table.Else);
        return;
    }
    if (key < 0 || key > kHighestSelector) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    Spend(10);
    if (key == 0 || static_cast<std::size_t>(key) > table.Targets.size()) {
        return;
    }
    if (in.Code == Opcode::OnGoSub) {
        PushGoSub(m_next);
    }
    m_next = code + table.Targets[static_cast<std::size_t>(key) - 1];
}

void Machine::End(Instruction, Value*) {
    throw ScriptStop{};
}

}  // namespace dorvik::basic
