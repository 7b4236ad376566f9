#pragma once

#include "basic/operations/MachineState.h"

namespace dorvik::basic {

/// Carries out instructions from `Next` on until the first procedure has returned. Errors that no `Fail`
/// could hand to the script are thrown.
void RunInstructions(MachineState& state);

}  // namespace dorvik::basic
