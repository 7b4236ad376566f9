#pragma once

#include "basic/program/Program.h"

#include <string>

namespace dorvik::basic {

/// The instructions of all procedures with the source lines that they come from, for people. Slots show
/// as `r7`, jumps as `-> 12` with the number of the instruction.
std::string Disassemble(const Program& program);

}  // namespace dorvik::basic
