#pragma once

namespace dorvik::basic {

class Program;
struct Procedure;

/// Replaces the first instruction of each sequence that a superinstruction can do (`Superinstructions.h`). What
/// positions in the code mean does not change.
/// REQUIRES: the slots and the jumps of the code are final.
void InsertSuperinstructions(const Program& program, Procedure& procedure);

}  // namespace dorvik::basic
