#pragma once

#include <cstdint>
#include <string>

namespace dorvik {

/// One breach of a rule, as it is raised, stored and shown.
struct Violation {
    std::int32_t Severity = 0;  // 1 critical to 5 information
    std::int32_t Location = 0;  // location code of the parser at which it was raised
    std::int16_t Impact = 0;
    std::string Description;            // tags expanded
    std::string Title;                  // as the rule has it
    std::string Advice;                 // tags expanded
    std::string LocationMember;         // display name of the location
    std::int32_t SourceLineNumber = 0;  // 1-based, 0 where the location has no line
    std::int32_t LineBottomOffset = 0;  // never assigned when a violation is raised
    std::int32_t CategoryID = 0;        // -1 where it has none
    std::int32_t RuleID = 0;            // 0 for the default violations
    std::int32_t RuleType =
        0;  // 1 component, 2 reference, 3 keyword, 4 coding, 5 naming, 6 documentation
    std::string SourceLine;  // physical text of the line
    bool Completed = false;  // marked as dealt with by the user
};

}  // namespace dorvik
