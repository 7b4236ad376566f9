#include "rulebase/catalogue/ObjectCatalogue.h"

#include <array>
#include <cstddef>

namespace dorvik::modObjectCatalogue {

namespace {

// clang-format off
constexpr std::string_view kNone = {};
constexpr std::string_view kArgumentText =
    "Argument: A collection of properties relating to an individual argument defined within a 'Sub', 'Function', 'Property Get/Let/Set', 'Event' declaration or 'Declare' statement.";
constexpr std::string_view kConstText =
    "Const: A collection of properties relating to an individual constant defined by a 'Const' declaration at module level or within a procedure.";
constexpr std::string_view kVariableText =
    "Variable: A collection of properties relating to an individual variable declared at module level or within a procedure.";

// In the order of the numbers. The description of a refinement of a file says that it is for naming conventions;
// a refinement of an argument, a constant or a variable shares the description of its family.
constexpr std::array<ObjectRow, kLastObjectType> kObjects = {{
    {ObjectType::Argument, ObjectType::Argument, "Argument", "Argument", "Argument", "Argument", true,
     kArgumentText},
    {ObjectType::Layout, ObjectType::Layout, "Layout", "Layout", "Layout", "Layout", true,
     "Layout: A collection of properties relating to the layout section of the current form, MDI form, designer, property page, user control or user document."},
    {ObjectType::ControlProperties, ObjectType::ControlProperties, "ControlProperties", "Control Properties", "ControlProperties", "ControlProperties", false,
     "ControlProperties: The design-time properties of the control in scope, named as in the layout section of the source file. Which of them exist depends on the control."},
    {ObjectType::Component, ObjectType::Component, "Component", "Component", "Component", "Component", true,
     "Component: A collection of properties relating to an ActiveX component (OCX file) that the source file currently being reviewed names ahead of its layout."},
    {ObjectType::Const, ObjectType::Const, "Const", "Const", "Const", "Const", true,
     kConstText},
    {ObjectType::Control, ObjectType::Control, "Control", "Control", "Control", "Control", true,
     "Control: A collection of properties relating to an individual control defined within the layout section of the current source file."},
    {ObjectType::Declare, ObjectType::Declare, "Declare", "Declare", "Declare", "Declare", true,
     "Declare: A collection of properties relating to an individual 'Declare' statement, which makes a procedure of an external library known."},
    {ObjectType::LayoutProperties, ObjectType::LayoutProperties, "LayoutProperties", "Layout Properties", "LayoutProperties", "LayoutProperties", false,
     "LayoutProperties: The design-time properties of the form, or other outermost object, that the layout section defines, named as in the source file. Which of them exist depends on the object."},
    {ObjectType::Enum, ObjectType::Enum, "Enum", "Enum", "Enum", "Enum", true,
     "Enum: A collection of properties and statistics relating to an individual 'Enum' declaration."},
    {ObjectType::EnumElement, ObjectType::EnumElement, "EnumElement", "Enum Element", "EnumItem", "EnumItem", true,
     "EnumElement: A collection of properties relating to an individual element of an 'Enum' declaration."},
    {ObjectType::Event, ObjectType::Event, "Event", "Event", "WithEvents", "WithEvents", true,
     "Event: A collection of properties relating to an individual 'Event' statement."},
    {ObjectType::File, ObjectType::File, "File", "File", "Module", "Module", true,
     "File: A collection of properties and statistics relating to the source file currently being reviewed."},
    {ObjectType::DeclareArgument, ObjectType::Argument, "Argument (Declare)", "Argument (Declare)", "Argument", "Argument", true,
     kArgumentText},
    {ObjectType::Implements, ObjectType::Implements, "Implements", "Implements", "Implements", "Implements", true,
     "Implements: A collection of properties relating to an individual 'Implements' statement."},
    {ObjectType::LineLabel, ObjectType::LineLabel, "LineLabel", "Line Label", "LineLabel", "LineLabel", true,
     "LineLabel: A collection of properties relating to an individual line label within a procedure."},
    {ObjectType::NamingConvention, ObjectType::NamingConvention, "NamingConvention", "Naming Convention", "NamingConvention", "NamingConvention", false,
     "NamingConvention: A collection of properties to permit more meaningful violation advice documentation during the enforcement of naming conventions."},
    {ObjectType::Procedure, ObjectType::Procedure, "Procedure", "Procedure", "ProcedureBody", "ProcedureBody", true,
     "Procedure: A collection of properties and statistics relating to an individual 'Sub', 'Function' or 'Property Get/Let/Set' procedure."},
    {ObjectType::Project, ObjectType::Project, "Project", "Project", "Project", "Project", true,
     "Project: A collection of properties and statistics relating to the Visual Basic project currently being reviewed. Allows access to many of the property values held in the VBP file and modfied by the Project-><project> Properties dialog."},
    {ObjectType::EventArgument, ObjectType::Argument, "Argument (Event)", "Argument (Event)", "Argument", "Argument", true,
     kArgumentText},
    {ObjectType::ProcedureArgument, ObjectType::Argument, "Argument (Procedure)", "Argument (Procedure)", "Argument", "Argument", true,
     kArgumentText},
    {ObjectType::Reference, ObjectType::Reference, "Reference", "Reference", "Reference", "Reference", true,
     "Reference: A collection of properties relating to an individual type library reference of the current project."},
    {ObjectType::PublicConst, ObjectType::Const, "Const (Public)", "Const (Public)", "Const", "Const", true,
     kConstText},
    {ObjectType::Source, ObjectType::Source, "Source", "Source", "Source", "Source", false,
     "Source: A collection of properties relating to the source line, and the statement within it, that is currently being reviewed."},
    {ObjectType::Type, ObjectType::Type, "Type", "Type", "Type", "Type", true,
     "Type: A collection of properties and statistics relating to an individual 'Type' declaration."},
    {ObjectType::TypeElement, ObjectType::TypeElement, "TypeElement", "Type Element", "TypeItem", "TypeItem", true,
     "TypeElement: A collection of properties relating to an individual element of a 'Type' declaration."},
    {ObjectType::PrivateConst, ObjectType::Const, "Const (Private)", "Const (Private)", "Const", "Const", true,
     kConstText},
    {ObjectType::LocalConst, ObjectType::Const, "Const (Local)", "Const (Local)", "LocalConst", "Const", true,
     kConstText},
    {ObjectType::Variable, ObjectType::Variable, "Variable", "Variable", "Variable", "Variable", true,
     kVariableText},
    {ObjectType::PublicVariable, ObjectType::Variable, "Variable (Public)", "Variable (Public)", kNone, "Variable", true,
     kVariableText},
    {ObjectType::PrivateVariable, ObjectType::Variable, "Variable (Private)", "Variable (Private)", kNone, "Variable", true,
     kVariableText},
    {ObjectType::LocalVariable, ObjectType::Variable, "Variable (Local)", "Variable (Local)", kNone, "Variable", true,
     kVariableText},
    {ObjectType::LocalStaticVariable, ObjectType::Variable, "Variable (Local Static)", "Variable (Local Static)", kNone, "Variable", true,
     kVariableText},
    {ObjectType::WithEventsVariable, ObjectType::Variable, "Variable (WithEvents)", "Variable (WithEvents)", kNone, "Variable", true,
     kVariableText},
    {ObjectType::PublicWithEventsVariable, ObjectType::Variable, "Variable (Public WithEvents)", "Variable (Public WithEvents)", kNone, "Variable", true,
     kVariableText},
    {ObjectType::PrivateWithEventsVariable, ObjectType::Variable, "Variable (Private WithEvents)", "Variable (Private WithEvents)", kNone, "Variable", true,
     kVariableText},
    {ObjectType::FormFile, ObjectType::File, "File (Form)", "File (Form)", kNone, "Form", true,
     "File (Form): Add naming conventions applicable to form files."},
    {ObjectType::ModuleFile, ObjectType::File, "File (Module)", "File (Module)", kNone, "Module", true,
     "File (Module): Add naming conventions applicable to module files."},
    {ObjectType::ClassFile, ObjectType::File, "File (Class)", "File (Class)", kNone, "Class", true,
     "File (Class): Add naming conventions applicable to class files."},
    {ObjectType::DesignerFile, ObjectType::File, "File (Designer)", "File (Designer)", kNone, "Designer", true,
     "File (Designer): Add naming conventions applicable to designer files."},
    {ObjectType::PropertyPageFile, ObjectType::File, "File (Property Page)", "File (Property Page)", kNone, "PropertyPage", true,
     "File (Property Page): Add naming conventions applicable to property page files."},
    {ObjectType::UserControlFile, ObjectType::File, "File (User Control)", "File (User Control)", kNone, "UserControl", true,
     "File (User Control): Add naming conventions applicable to user control files."},
    {ObjectType::UserDocumentFile, ObjectType::File, "File (User Document)", "File (User Document)", kNone, "UserDocument", true,
     "File (User Document): Add naming conventions applicable to user document files."},
    {ObjectType::NoWithEventsVariable, ObjectType::Variable, "Variable (No WithEvents)", "Variable (No WithEvents)", kNone, "Variable", true,
     kVariableText},
    {ObjectType::SubProcedure, ObjectType::Procedure, "Procedure (Sub)", "Procedure (Sub)", kNone, "ProcedureBody", true,
     kNone},
    {ObjectType::PropertyProcedure, ObjectType::Procedure, "Procedure (Property Get/Let/Set)", "Procedure (Property Get/Let/Set)", kNone, "ProcedureBody", true,
     kNone},
    {ObjectType::FunctionProcedure, ObjectType::Procedure, "Procedure (Function)", "Procedure (Function)", kNone, "ProcedureBody", true,
     kNone},
    {ObjectType::MDIFormFile, ObjectType::File, "File (MDI Form)", "File (MDI Form)", kNone, "MDIForm", true,
     kNone},
    {ObjectType::MDIChildFormFile, ObjectType::File, "File (MDI Child Form)", "File (MDI Child Form)", kNone, "Form", true,
     kNone},
    {ObjectType::NonMDIFormFile, ObjectType::File, "File (Non MDI Form)", "File (Non MDI Form)", kNone, "Form", true,
     kNone},
}};
// clang-format on

constexpr std::size_t PositionOf(ObjectType type) {
    return static_cast<std::size_t>(type) - kFirstObjectType;
}

constexpr bool IsEveryObjectAtItsNumber() {
    for (std::size_t i = 0; i < kObjects.size(); ++i) {
        if (PositionOf(kObjects[i].Type) != i) {
            return false;
        }
    }
    return true;
}
static_assert(IsEveryObjectAtItsNumber());

constexpr bool IsEveryRootTheRootOfItself() {
    for (const ObjectRow& row : kObjects) {
        const ObjectRow& root = kObjects[PositionOf(row.Root)];
        if (root.Root != root.Type || !row.Name.starts_with(root.Name)) {
            return false;
        }
    }
    return true;
}
static_assert(IsEveryRootTheRootOfItself());

}  // namespace

std::span<const ObjectRow> Rows() {
    return kObjects;
}

const ObjectRow* Find(std::int32_t objectType) {
    if (objectType < kFirstObjectType || objectType > kLastObjectType) {
        return nullptr;
    }
    return &kObjects[static_cast<std::size_t>(objectType - kFirstObjectType)];
}

}  // namespace dorvik::modObjectCatalogue
