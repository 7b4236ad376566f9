#pragma once

#include <cstdint>
#include <string>

namespace dorvik {

/// A violation in one line: what, how severe, and where.
struct Finding {
    std::string Filename;         // of the source file, without its folder
    std::int32_t LineNumber = 0;  // 0 if the violation belongs to no line
    std::int32_t Severity = 0;    // 1 critical to 5 information
    std::string Title;
    std::string LocationMember;  // the procedure, or "(Declarations)" and the like
};

}  // namespace dorvik
