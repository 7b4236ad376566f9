#pragma once

#include "basic/operations/MachineState.h"

#include <cstdint>

namespace dorvik::basic {

/// An error of the instruction at `At`. Where a procedure handles it, the loop continues there, at `Next`,
/// without an exception, which takes as long as a hundred instructions; otherwise it is thrown as a `RaisedError`.
void Fail(MachineState& state, ErrorState error);
void Fail(MachineState& state, std::int32_t number);

/// Finds the procedure that handles an error at `At`: the loop continues there, at `Next`. False if none does;
/// then all frames are gone, and `Error` is what ended the script.
bool Recover(MachineState& state, ErrorState error);

/// Removes the top frame with the arguments that it was building. `At` becomes the call in its caller.
void Unwind(MachineState& state);

/// The line of the statement at `At`; 0 if no procedure runs.
std::int32_t LineOfStatement(MachineState& state);

}  // namespace dorvik::basic
