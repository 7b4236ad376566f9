#pragma once

#include "Operand.h"

#include <string>
#include <vector>

namespace dorvik::basic {

struct OpenLoop {
    ExitKind Kind = ExitKind::Do;
    Label Exit = 0;
    std::string Variable;  // of a For with a plain name, in lower case
};

/// A For Each or a With that may keep an array locked.
struct HeldBlock {
    const void* Node = nullptr;
    Register State = 0;
    std::size_t Loops = 0;        // how many loops are open around it
    Register Variable = kNoSlot;  // a local Variant whose array is iterated
};

/// The blocks around the statement that is being compiled, the innermost last.
struct OpenBlocks {
    std::vector<OpenLoop> Loops;
    std::vector<Operand> Withs;  // the object or record of each
    std::vector<HeldBlock> Held;
};

}  // namespace dorvik::basic
