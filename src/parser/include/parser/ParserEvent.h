#pragma once

#include <cstdint>

namespace dorvik {

/// The numbered events of a review. Rules refer to them by number, so the numbers never change.
/// Events 1, 2, 26, 36 and 37 are fired by the project review, all others by the file parser.
enum class ParserEvent : std::int32_t {
    None = 0,  // no event has been fired yet
    BeginProject = 1,
    BeginSourceFiles = 2,
    BeginFile = 3,
    SourceLine = 4,
    Component = 5,
    BeginLayout = 6,
    Control = 7,
    EndLayout = 8,
    BeginDeclarations = 9,
    Declaration = 10,
    Const = 11,
    Declare = 12,
    DeclareArgument = 13,
    BeginEnum = 14,
    EnumBody = 15,
    EnumElement = 16,
    EndEnum = 17,
    Event = 18,
    EventArgument = 19,
    Implements = 20,
    BeginType = 21,
    TypeBody = 22,
    TypeElement = 23,
    EndType = 24,
    Variable = 25,
    Reference = 26,
    EndDeclarations = 27,
    BeginProcedure = 28,
    ProcedureArgument = 29,
    ProcedureBody = 30,
    LocalConst = 31,
    LineLabel = 32,
    LocalVariable = 33,
    EndProcedure = 34,
    EndFile = 35,
    EndSourceFiles = 36,
    EndProject = 37,
};

inline constexpr std::int32_t kFirstParserEvent = 1;
inline constexpr std::int32_t kLastParserEvent = 37;

}  // namespace dorvik
