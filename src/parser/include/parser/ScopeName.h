#pragma once

#include <string_view>

/// The names under which objects come into scope. Rules address objects by these names, and
/// `ParentViolations` of a virtual object holds one of them.
namespace dorvik::scopename {

inline constexpr std::string_view kProject = "Project";
inline constexpr std::string_view kProjectFile = "VBP";
inline constexpr std::string_view kFile = "File";
inline constexpr std::string_view kDeclarations = "Declarations";
inline constexpr std::string_view kLayout = "Layout";
inline constexpr std::string_view kLayoutProperties = "LayoutProperties";
inline constexpr std::string_view kComponent = "Component";
inline constexpr std::string_view kControl = "Control";
inline constexpr std::string_view kControlProperties = "ControlProperties";
inline constexpr std::string_view kConst = "Const";
inline constexpr std::string_view kDeclare = "Declare";
inline constexpr std::string_view kArgument = "Argument";
inline constexpr std::string_view kEnum = "Enum";
inline constexpr std::string_view kEnumElement = "EnumElement";
inline constexpr std::string_view kEvent = "Event";
inline constexpr std::string_view kImplements = "Implements";
inline constexpr std::string_view kType = "Type";
inline constexpr std::string_view kTypeElement = "TypeElement";
inline constexpr std::string_view kVariable = "Variable";
inline constexpr std::string_view kProcedure = "Procedure";
inline constexpr std::string_view kLineLabel = "LineLabel";
inline constexpr std::string_view kReference = "Reference";

// Not objects: these two are properties of the parser state itself.
inline constexpr std::string_view kSource = "Source";
inline constexpr std::string_view kNamingConvention = "NamingConvention";

/// Prefix of a property name that denotes the work field of that name.
inline constexpr std::string_view kWorkfieldPrefix = "WF.";

}  // namespace dorvik::scopename
