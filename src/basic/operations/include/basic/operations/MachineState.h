#pragma once

#include "basic/operations/FrameStack.h"
#include "basic/operations/PrintedLine.h"
#include "basic/operations/WorkBudget.h"
#include "basic/values/ScriptContext.h"

#include <cstdint>
#include <vector>

namespace dorvik::basic {

/// What the instructions of a running script read and change. The machine owns one; its loop and the
/// operations of instructions share it.
struct MachineState {
    /// REQUIRES: both outlive this. `context` is what built-in functions get.
    MachineState(IScriptHost& host, ScriptContext& context)
        : Context(context), Budget(host), Printed(host) {}

    ScriptContext& Context;
    const basic::Program* Program = nullptr;
    std::vector<Value> Globals;
    FrameStack Frames;
    const Instruction* At = nullptr;    // the instruction being carried out, where that may matter
    const Instruction* Next = nullptr;  // where the loop continues
    WorkBudget Budget;
    ErrorState Error;
    PrintedLine Printed;
    Value ErrObject;  // Empty until a script uses it
    std::int32_t LineNumber = 0;

    std::uint32_t Position() { return Frames.PositionOf(At); }
};

}  // namespace dorvik::basic
