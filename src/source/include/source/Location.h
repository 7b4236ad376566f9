#pragma once

#include <cstdint>

namespace dorvik {

/// The section of a source file that the parser is in, as rules, the violation log and the results read it.
enum class Location : std::int32_t {
    None = 0,  // before the first file
    File = 1,  // at the end of a file: file level; in results the project itself
    Layout = 2,
    Declarations = 3,  // declarations, and anything between procedures
    Procedure = 4,     // in a Sub or Function
    Control = 5,
    PropertyGet = 6,
    PropertyLet = 7,
    PropertySet = 8,
};

}  // namespace dorvik
