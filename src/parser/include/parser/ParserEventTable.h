#pragma once

#include "parser/ParserEvent.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace dorvik {

inline constexpr std::int32_t kNoLevel = -1;

/// The source line at which a violation is reported that is raised at the end of an object.
enum class EndEventLine {
    None,         // no line
    ObjectStart,  // the line at which the object begins
    FileStart,    // line 1, without its text
};

/// What the rules do at an event. Everything is false or `None` unless a row says otherwise.
struct EventRules {
    /// Unauthorised keywords are tested, whatever events they are assigned to in the rulebase.
    bool TestsKeywords = false;
    /// The line of a violation of the object that ends. A coding convention that raises its violation at an
    /// event with such a line reports it there, and not at the line that ends the object.
    EndEventLine ViolationLine = EndEventLine::None;
    /// Required: naming conventions report at the end of the object that they test. These are not the events
    /// with a line: the end of a file or project has none, and at "end Declarations" no name is tested.
    bool EndsNamedObject = false;
};

/// A parser event and everything that depends on its number.
struct ParserEventRow {
    ParserEvent Event;
    std::string_view Text;
    std::string_view IconKey;
    std::int32_t TreeLevel;  // indentation in the list of events to attach to
    std::int32_t EndLevel;   // indentation in the list of closing events, kNoLevel if not in it
    std::string_view Fired;
    std::string_view InScope;
    EventRules Rules = {};
};

// In the order of the numbers, which are the positions from 1.
// clang-format off
inline constexpr std::array<ParserEventRow, kLastParserEvent> kParserEvents = {{
    {ParserEvent::BeginProject, "begin Project", "Event", 0, kNoLevel,
     "when the next project review begins.",
     "In scope: Project."},
    {ParserEvent::BeginSourceFiles, "begin Source Files", "Event", 1, kNoLevel,
     "before processing each source file within the current project.",
     "In scope: Project."},
    {ParserEvent::BeginFile, "begin File", "Event", 2, kNoLevel,
     "prior to the review of the next source file.",
     "In scope: File, Project."},
    {ParserEvent::SourceLine, "Source Line", "Event", 3, kNoLevel,
     "for each source line within the current source file.",
     "In scope: Source, File, Project. (Note: Other objects will enter/exit scope at different stages of the parsing process.)"},
    {ParserEvent::Component, "Component", "Component", 4, kNoLevel,
     "when an OCX component definition line is encountered in the current source file.",
     "In scope: Component, Source, File, Project."},
    {ParserEvent::BeginLayout, "begin Layout", "Event", 4, kNoLevel,
     "prior to the layout section (if any) of the current source file. Layout sections are processed for the following Visual Basic file types: Designer, Form, Property Page, User Control, User Document.",
     "In scope: Layout, LayoutProperties, Source, File, Project."},
    {ParserEvent::Control, "Control", "Control", 5, kNoLevel,
     "for each 'Control' definition encountered within the layout section.",
     "In scope: Control, ControlProperties, Layout, LayoutProperties, Source, File, Project."},
    {ParserEvent::EndLayout, "end Layout", "Event", 4, 3,
     "at the end of the layout section (if any) of the current source file.",
     "In scope: Layout, LayoutProperties, Source, File, Project."},
    {ParserEvent::BeginDeclarations, "begin Declarations", "Event", 4, kNoLevel,
     "at the start of the declarations section of the current source file.",
     "In scope: Source, File, Project."},
    {ParserEvent::Declaration, "Declaration", "Event", 5, kNoLevel,
     "for each source line statement in the declarations section.",
     "In scope: Source, File, Project.",
     {.TestsKeywords = true}},
    {ParserEvent::Const, "Const", "Const", 6, kNoLevel,
     "when a module-level 'Const' declaration is encountered.",
     "In scope: Const, Source, File, Project."},
    {ParserEvent::Declare, "Declare", "Declare", 6, kNoLevel,
     "when a 'Declare' statement is encountered.",
     "In scope: Declare, Source, File, Project."},
    {ParserEvent::DeclareArgument, "Argument (Declare)", "Argument", 7, kNoLevel,
     "for each argument (if any) in a 'Declare' statement.",
     "In scope: Argument, Declare, Source, File, Project."},
    {ParserEvent::BeginEnum, "begin Enum", "Event", 6, kNoLevel,
     "when the start of an 'Enum' declaration is encountered.",
     "In scope: Enum, Source, File, Project."},
    {ParserEvent::EnumBody, "Enum <body>", "Enum", 7, kNoLevel,
     "for each source line statement within an 'Enum' declaration.",
     "In scope: Enum, Source, File, Project."},
    {ParserEvent::EnumElement, "Enum element", "EnumItem", 8, kNoLevel,
     "for each enumeration defined by an 'Enum' declaration.",
     "In scope: EnumElement, Enum, Source, File, Project."},
    {ParserEvent::EndEnum, "end Enum", "Event", 6, 4,
     "when the 'End Enum' of an 'Enum' declaration is encountered.",
     "In scope: Enum, Source, File, Project.",
     {.ViolationLine = EndEventLine::ObjectStart, .EndsNamedObject = true}},
    {ParserEvent::Event, "Event", "WithEvents", 6, kNoLevel,
     "when an 'Event' statement is encountered.",
     "In scope: Event, Source, File, Project."},
    {ParserEvent::EventArgument, "Argument (Event)", "Argument", 7, kNoLevel,
     "for each argument (if any) in an 'Event' statement.",
     "In scope: Argument, Event, Source, File, Project."},
    {ParserEvent::Implements, "Implements", "Implements", 6, kNoLevel,
     "when an 'Implements' statement is encountered.",
     "In scope: Implements, Source, File, Project."},
    {ParserEvent::BeginType, "begin Type", "Event", 6, kNoLevel,
     "when the start of a 'Type' declaration is encountered.",
     "In scope: Type, Source, File, Project."},
    {ParserEvent::TypeBody, "Type <body>", "Type", 7, kNoLevel,
     "for each source line statement within a 'Type' declaration.",
     "In scope: Type, Source, File, Project."},
    {ParserEvent::TypeElement, "Type element", "TypeItem", 8, kNoLevel,
     "for each element defined by a 'Type' declaration.",
     "In scope: TypeElement, Type, Source, File, Project."},
    {ParserEvent::EndType, "end Type", "Event", 6, 4,
     "when the 'End Type' of a 'Type' declaration is encountered.",
     "In scope: Type, Source, File, Project.",
     {.ViolationLine = EndEventLine::ObjectStart, .EndsNamedObject = true}},
    {ParserEvent::Variable, "Variable", "Variable", 6, kNoLevel,
     "when a module-level variable declaration is encountered.",
     "In scope: Variable, Source, File, Project."},
    {ParserEvent::Reference, "Reference", "Reference", 1, kNoLevel,
     "for each library reference encountered within the project file.",
     "In scope: Reference, Project."},
    {ParserEvent::EndDeclarations, "end Declarations", "Event", 4, 3,
     "when the end of the declarations section is reached for the current source file.",
     "In scope: Source, File, Project.",
     {.ViolationLine = EndEventLine::FileStart}},
    {ParserEvent::BeginProcedure, "begin Procedure", "Event", 4, kNoLevel,
     "when the start of a 'Sub', 'Function' or 'Property' declaration is encountered.",
     "In scope: Procedure, Source, File, Project.",
     {.TestsKeywords = true}},
    {ParserEvent::ProcedureArgument, "Argument (Procedure)", "Argument", 5, kNoLevel,
     "for each argument (if any) in a procedure declaration.",
     "In scope: Argument, Procedure, Source, File, Project."},
    {ParserEvent::ProcedureBody, "Procedure <body>", "ProcedureBody", 5, kNoLevel,
     "for each source line statement within a procedure.",
     "In scope: Procedure, Source, File, Project.",
     {.TestsKeywords = true}},
    {ParserEvent::LocalConst, "Const (local)", "LocalConst", 6, kNoLevel,
     "when a local 'Const' declaration is encountered within a procedure.",
     "In scope: Const, Procedure, Source, File, Project."},
    {ParserEvent::LineLabel, "Line Label", "LineLabel", 6, kNoLevel,
     "when a line label is encountered within a procedure.",
     "In scope: LineLabel, Procedure, Source, File, Project."},
    {ParserEvent::LocalVariable, "Variable (local)", "LocalVariable", 6, kNoLevel,
     "when a local variable declaration is encountered within a procedure.",
     "In scope: Variable, Procedure, Source, File, Project."},
    {ParserEvent::EndProcedure, "end Procedure", "Event", 4, 3,
     "when the 'End Sub', 'End Function' or 'End Property' of a procedure declaration is encountered.",
     "In scope: Procedure, Source, File, Project.",
     {.ViolationLine = EndEventLine::ObjectStart, .EndsNamedObject = true}},
    {ParserEvent::EndFile, "end File", "Event", 2, 2,
     "when the end of the current source file is reached.",
     "In scope: File, Project.",
     {.EndsNamedObject = true}},
    {ParserEvent::EndSourceFiles, "end Source Files", "Event", 1, 1,
     "when all source files for the current project have been reviewed.",
     "In scope: Project."},
    {ParserEvent::EndProject, "end Project", "Event", 0, 0,
     "at the end of the review of the current project.",
     "In scope: Project.",
     {.EndsNamedObject = true}},
}};
// clang-format on

constexpr bool IsEveryParserEventAtItsNumber() {
    for (std::size_t i = 0; i < kParserEvents.size(); ++i) {
        if (static_cast<std::size_t>(kParserEvents[i].Event) != i + 1) {
            return false;
        }
    }
    return true;
}
static_assert(IsEveryParserEventAtItsNumber());

/// Null for a number outside the table.
constexpr const ParserEventRow* FindParserEvent(std::int32_t eventNumber) {
    if (eventNumber < kFirstParserEvent || eventNumber > kLastParserEvent) {
        return nullptr;
    }
    return &kParserEvents[static_cast<std::size_t>(eventNumber - kFirstParserEvent)];
}

/// REQUIRES: not `ParserEvent::None`.
constexpr const ParserEventRow& RowOf(ParserEvent event) {
    return kParserEvents.at(static_cast<std::size_t>(event) - 1);
}

/// True for the events that can end the scope of a coding convention, and so make a pending violation due.
constexpr bool CanEndScope(const ParserEventRow& row) {
    return row.EndLevel != kNoLevel;
}

}  // namespace dorvik
