#pragma once

#include "basic/operations/MachineState.h"

#include <cstddef>
#include <cstdint>

/// What instructions do, as functions in files by topic. Each gets its instruction and the slots of the running
/// procedure; `At` is its position. What may fail raises a `BasicError` or calls `Fail`.
namespace dorvik::basic::modOperations {

/// The instruction comes by value: it is one register wide, and the loop keeps it in one.
using Operation = void (*)(MachineState& state, Instruction in, Value* base);

// One function for each OPERATION of the list, under the name of its opcode.
#define OPCODE(name, operands)
#define OPERATION(name, operands) void name(MachineState& state, Instruction in, Value* base);
#include "basic/program/Opcodes.def"
#undef OPERATION
#undef OPCODE

// The slow paths of instructions that have their fast one in the loop.
void AssignVariantSlow(MachineState& state, Instruction in, Value* base);
void CoerceKnown(MachineState& state, Instruction in, Value* base);
void SlowOperator(MachineState& state, Instruction in, Value* base);
void Operate(MachineState& state, Instruction in, Value* base);
void CompareConstant(MachineState& state, Instruction in, Value* base);
bool SlowCompare(MachineState& state, Instruction in, Value* base);
bool SlowCompareConstant(MachineState& state, Instruction in, const Value& left);
void SlowAppend(MachineState& state, Instruction in, Value* base);
void SlowIndexGet(MachineState& state, Instruction in, Value* base);
void SlowIndexSet(MachineState& state, Instruction in, Value* base);
bool SlowForLoop(MachineState& state, Instruction in, Value* base);
/// Whether a For loop continues with the value of its counter.
bool ForContinues(MachineState& state, const Value& counter, const Value& limit, const Value& step);
/// Whether a For Each has another element, which A gets.
bool NextElement(MachineState& state, Instruction in, Value* base);
void RunBuiltin(MachineState& state, Instruction in, Value* base);
void RunExtension(MachineState& state, Instruction in, Value* base);
void Invoke(MachineState& state, Instruction in, Value* base);
void EnsureObject(MachineState& state, Instruction in, Value* base);
void RaiseNumber(MachineState& state, Instruction in, Value* base);

}  // namespace dorvik::basic::modOperations
