#pragma once

namespace dorvik::basic {

class Program;
struct Procedure;

}  // namespace dorvik::basic

/// Scripts of rules are short, and most of their time goes into the steps from one instruction to the
/// next. Rows of instructions that nearly every rule has are therefore done in one go.
namespace dorvik::basic::modFusion {

/// Puts an instruction that does the whole row in the place of the row's first one. The others stay, so
/// that jumps into the row, and texts that the new instruction leaves to them, find what they need; what
/// positions in the code mean does not change.
/// REQUIRES: the slots and the jumps of the code are in their places.
void Fuse(const Program& program, Procedure& procedure);

}  // namespace dorvik::basic::modFusion
