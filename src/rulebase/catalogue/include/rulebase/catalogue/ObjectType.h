#pragma once

#include <cstdint>

namespace dorvik {

/// What a rule can be about: the objects that the parser puts in scope, and refinements of them by
/// which a naming convention is limited to public variables or to form files, for example. Rules and
/// results refer to object types by number.
enum class ObjectType : std::int32_t {
    Argument = 1,
    Layout = 2,
    ControlProperties = 3,
    Component = 4,
    Const = 5,
    Control = 6,
    Declare = 7,
    LayoutProperties = 8,
    Enum = 9,
    EnumElement = 10,
    Event = 11,
    File = 12,
    DeclareArgument = 13,
    Implements = 14,
    LineLabel = 15,
    NamingConvention = 16,
    Procedure = 17,
    Project = 18,
    EventArgument = 19,
    ProcedureArgument = 20,
    Reference = 21,
    PublicConst = 22,
    Source = 23,
    Type = 24,
    TypeElement = 25,
    PrivateConst = 26,
    LocalConst = 27,
    Variable = 28,
    PublicVariable = 29,
    PrivateVariable = 30,
    LocalVariable = 31,
    LocalStaticVariable = 32,
    WithEventsVariable = 33,
    PublicWithEventsVariable = 34,
    PrivateWithEventsVariable = 35,
    FormFile = 36,
    ModuleFile = 37,
    ClassFile = 38,
    DesignerFile = 39,
    PropertyPageFile = 40,
    UserControlFile = 41,
    UserDocumentFile = 42,
    NoWithEventsVariable = 43,
    SubProcedure = 44,
    PropertyProcedure = 45,
    FunctionProcedure = 46,
    MDIFormFile = 47,
    MDIChildFormFile = 48,
    NonMDIFormFile = 49,
};

inline constexpr std::int32_t kFirstObjectType = 1;
inline constexpr std::int32_t kLastObjectType = 49;

}  // namespace dorvik
