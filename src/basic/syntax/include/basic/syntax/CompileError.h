#pragma once

#include "basic/syntax/SourcePlace.h"

#include <string>

namespace dorvik::basic {

/// Something that keeps a module from being loaded. Numbers 1001 to 1055, 35 and 500.
struct CompileError {
    std::int32_t Number = 0;
    SourcePlace Place;
    std::string Text;       // a sentence without the place: "Expected 'Then'"
    std::string Name = {};  // of the procedure that is not defined, if this is about one
};

/// Something that loads, and that its author should know.
struct CompileWarning {
    SourcePlace Place;
    std::string Text;
};

}  // namespace dorvik::basic
