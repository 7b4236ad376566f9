#include "rulebase/catalogue/PropertyDescriptions.h"

#include <algorithm>
#include <array>

namespace dorvik::modPropertyDescriptions {

namespace {

using enum PropertyNumber;
using Row = PropertyDescription;

// Line statistics count logical lines: a continued line counts once.
// clang-format off
constexpr std::array kArgumentProperties = {
    Row{DataType, "The data type as written behind 'As', or the type character that ends the name; empty if neither is there."},
    Row{DefaultValue, "The default value of an optional argument as written, a string in its quotes; empty if there is none."},
    Row{IsArray, "True if the name ends in '()'."},
    Row{IsParamArray, "True if the argument is declared with 'ParamArray'."},
    Row{IsOptional, "True if the argument is declared with 'Optional'."},
    Row{ParentObject, "The object whose argument this is ('Procedure', 'Event' or 'Declare')."},
    Row{PassBy, "How the argument is passed ('ByVal' or 'ByRef', as written); empty if the declaration does not say, which means by reference."},
    Row{Index, "The position of the argument in its list, counted from 1.", PropertyType::Long},
    Row{Name, "The name of the argument, with the brackets of an array and a type character if it has them."},
};

constexpr std::array kLayoutProperties = {
    Row{ControlCount, "The number of controls in the layout, those within other controls and menus among them, without the form itself."},
    Row{IsMDIParent, "True if the layout is that of an MDI form."},
    Row{IsMDIChild, "True if the layout sets the property 'MDIChild', which Visual Basic writes for MDI child forms only."},
    Row{Name, "The name of the form, or other outermost object, that the layout defines."},
};

constexpr std::array kComponentProperties = {
    Row{AuthorisedVersions, "The versions of the component that the rulebase permits, empty if it permits all. Only there if authorised components are being checked and the rulebase lists this one."},
    Row{Filename, "The file name of the component as the source file has it, such as 'COMDLG32.OCX'."},
    Row{GUID, "The identifier of the component's type library, in braces. Not there for a component taken from its project at design time."},
    Row{IsAuthorised, "True if the rulebase permits the component in this version. Only there if authorised components are being checked."},
    Row{Version, "The version of the component's type library, such as '1.2'. Not there for a component taken from its project at design time."},
    Row{DesignTime, "True if the component is taken from its project at design time and not from a compiled file."},
};

constexpr std::array kConstProperties = {
    Row{DataType, "The data type as written behind 'As', or the type character that ends the name; empty if neither is there."},
    Row{Scope, "The scope word of the declaration ('Public', 'Private' or 'Global'); empty if there is none."},
    Row{Value, "The value as written, without the quotes around it."},
    Row{IsLocal, "True if the constant is declared within a procedure."},
    Row{IsMultiItem, "True if its declaration holds more than one constant."},
    Row{Name, "The name of the constant, with its type character if it has one."},
};

constexpr std::array kControlProperties = {
    Row{Class, "The class of the control, such as 'TextBox': the part of ProgID behind the point."},
    Row{Library, "The library of the control, such as 'VB': the part of ProgID before the point."},
    Row{ProgID, "The type of the control as the layout names it, such as 'VB.TextBox'."},
    Row{Container, "The name of the object that the control stands in: the form, a frame or another control, and for a menu item the menu above it."},
    Row{Index, "The index of the control within its control array; empty if it belongs to none.", PropertyType::String},
    Row{Name, "The name of the control; all controls of a control array share it."},
};

constexpr std::array kDeclareProperties = {
    Row{Alias, "The name that the procedure has in its library, as given by 'Alias'; empty if the statement gives none."},
    Row{ArgumentCount, "The number of arguments."},
    Row{ArgumentList, "The text between the brackets of the argument list, as written."},
    Row{DataType, "The data type that the procedure returns, or the type character that ends its name; empty for a 'Sub' or if none is given."},
    Row{Lib, "The library that holds the procedure, such as 'user32'."},
    Row{ProcedureType, "The kind of the procedure ('Sub' or 'Function')."},
    Row{Scope, "The scope word of the statement ('Public' or 'Private'); empty if there is none."},
    Row{Name, "The name by which the code calls the procedure."},
};

constexpr std::array kEnumProperties = {
    Row{ElementCount, "The number of elements read so far, all of them at 'end Enum'. Not there before the first element."},
    Row{Scope, "The scope word of the declaration ('Public' or 'Private'); empty if there is none."},
    Row{Name, "The name behind the word 'Enum'."},
    Row{TotalLineCount, "The number of lines of any kind in the 'Enum' declaration, counted so far; complete at 'end Enum'."},
    Row{BlankLineCount, "The number of blank lines in the 'Enum' declaration, counted so far; complete at 'end Enum'."},
    Row{CodeLineCount, "The number of lines of code, with or without a comment behind it, in the 'Enum' declaration, counted so far; complete at 'end Enum'."},
    Row{CommentLineCount, "The number of lines that hold nothing but a comment in the 'Enum' declaration, counted so far; complete at 'end Enum'."},
    Row{InLineCommentCount, "The number of lines of code with a comment behind it in the 'Enum' declaration, counted so far; complete at 'end Enum'."},
};

constexpr std::array kTypeProperties = {
    Row{ElementCount, "The number of elements read so far, all of them at 'end Type'. Not there before the first element."},
    Row{Scope, "The scope word of the declaration ('Public' or 'Private'); empty if there is none."},
    Row{Name, "The name behind the word 'Type'."},
    Row{TotalLineCount, "The number of lines of any kind in the 'Type' declaration, counted so far; complete at 'end Type'."},
    Row{BlankLineCount, "The number of blank lines in the 'Type' declaration, counted so far; complete at 'end Type'."},
    Row{CodeLineCount, "The number of lines of code, with or without a comment behind it, in the 'Type' declaration, counted so far; complete at 'end Type'."},
    Row{CommentLineCount, "The number of lines that hold nothing but a comment in the 'Type' declaration, counted so far; complete at 'end Type'."},
    Row{InLineCommentCount, "The number of lines of code with a comment behind it in the 'Type' declaration, counted so far; complete at 'end Type'."},
};

constexpr std::array kEnumElementProperties = {
    Row{HasValue, "True if the element is given a value with '='."},
    Row{Value, "The value as written behind '='; empty if there is none."},
    Row{Name, "The name of the element."},
};

constexpr std::array kEventProperties = {
    Row{ArgumentCount, "The number of arguments."},
    Row{ArgumentList, "The text between the brackets of the argument list, as written."},
    Row{Scope, "The scope word of the statement ('Public'); empty if there is none."},
    Row{Name, "The name of the event."},
};

constexpr std::array kFileProperties = {
    Row{Type, "The kind of the file ('Class', 'Form', 'MDIForm', 'Module', 'Designer', 'PropertyPage', 'UserControl' or 'UserDocument')."},
    Row{Path, "The folder of the file, with a backslash at its end."},
    Row{FullFilename, "The file name with its folder."},
    Row{EventCount, "The number of 'Event' statements read so far; complete at 'end File'."},
    Row{ComponentCount, "The number of ActiveX components that the file names ahead of its layout; complete at 'begin Layout'."},
    Row{ProcedureCount, "The number of procedures read so far; complete at 'end File'."},
    Row{AverageCyclomatic, "The average cyclomatic complexity of the procedures, rounded to a whole number, and 1 if there are none. Only there at 'end File'."},
    Row{MaximumCyclomatic, "The largest cyclomatic complexity of a procedure, and 1 if there are none. Only there at 'end File'."},
    Row{ConstCount, "The number of constants of the declarations section read so far; complete at 'end File'."},
    Row{PublicConstCount, "The number of constants of the declarations section that are 'Public' or 'Global' read so far; complete at 'end File'."},
    Row{PrivateConstCount, "The number of constants of the declarations section that are neither 'Public' nor 'Global', those without a scope word among them read so far; complete at 'end File'."},
    Row{VariableCount, "The number of variables of the declarations section read so far; complete at 'end File'."},
    Row{PublicVariableCount, "The number of variables of the declarations section that are 'Public' or 'Global' read so far; complete at 'end File'."},
    Row{PrivateVariableCount, "The number of variables of the declarations section that are neither 'Public' nor 'Global', those without a scope word among them read so far; complete at 'end File'."},
    Row{ImplementsCount, "The number of 'Implements' statements read so far; complete at 'end File'."},
    Row{EnumCount, "The number of 'Enum' declarations of the declarations section read so far; complete at 'end File'."},
    Row{PublicEnumCount, "The number of 'Enum' declarations of the declarations section that are 'Public' or have no scope word read so far; complete at 'end File'."},
    Row{PrivateEnumCount, "The number of 'Enum' declarations of the declarations section that are 'Private' read so far; complete at 'end File'."},
    Row{TypeCount, "The number of 'Type' declarations of the declarations section read so far; complete at 'end File'."},
    Row{PublicTypeCount, "The number of 'Type' declarations of the declarations section that are 'Public' or have no scope word read so far; complete at 'end File'."},
    Row{PrivateTypeCount, "The number of 'Type' declarations of the declarations section that are 'Private' read so far; complete at 'end File'."},
    Row{DeclareCount, "The number of 'Declare' statements of the declarations section read so far; complete at 'end File'."},
    Row{PublicDeclareCount, "The number of 'Declare' statements of the declarations section that are 'Public' or have no scope word read so far; complete at 'end File'."},
    Row{PrivateDeclareCount, "The number of 'Declare' statements of the declarations section that are 'Private' read so far; complete at 'end File'."},
    Row{HeaderComment, "The comment lines above the first line of code, each with a line end; empty if there are none. Only there once the line behind that first line of code has been read."},
    Row{Extension, "The extension of the file name with its point, such as '.frm'."},
    Row{Filename, "The file name without its folder."},
    Row{Name, "The name that the code has for the file: that of the form, class or module."},
    Row{TotalLineCount, "The number of lines of any kind in the file behind its attribute 'VB_Name', counted so far; complete at 'end File'."},
    Row{BlankLineCount, "The number of blank lines in the file behind its attribute 'VB_Name', counted so far; complete at 'end File'."},
    Row{CodeLineCount, "The number of lines of code, with or without a comment behind it, in the file behind its attribute 'VB_Name', counted so far; complete at 'end File'."},
    Row{CommentLineCount, "The number of lines that hold nothing but a comment in the file behind its attribute 'VB_Name', counted so far; complete at 'end File'."},
    Row{InLineCommentCount, "The number of lines of code with a comment behind it in the file behind its attribute 'VB_Name', counted so far; complete at 'end File'."},
};

constexpr std::array kImplementsProperties = {
    Row{Interface, "The name of the interface: the part behind the point if the statement holds one, otherwise all of it."},
    Row{Library, "The library or project that the statement names before a point; empty if there is none."},
};

constexpr std::array kLineLabelProperties = {
    Row{Name, "The name of the label, without its colon."},
};

constexpr std::array kNamingConventionProperties = {
    Row{ArrayTag, "The array tag value computed during the processing of a naming convention."},
    Row{DataTypeTag, "The data type tag value computed during the processing of a naming convention."},
    Row{ControlTag, "The control tag value computed during the processing of a naming convention."},
    Row{ScopeTag, "The scope tag value computed during the processing of a naming convention."},
};

constexpr std::array kProcedureProperties = {
    Row{ArgumentCount, "The number of arguments."},
    Row{ArgumentList, "The text between the brackets of the argument list, as written."},
    Row{CyclomaticComplexity, "The number of paths through the procedure: 1, and 1 more for each 'If', 'ElseIf', 'Case' (not 'Case Else'), 'For', 'While', 'Do While', 'Do Until' and 'On' (not 'On Error'). Only there at 'end Procedure'."},
    Row{DataType, "The data type that the procedure returns, or the type character that ends its name; empty if none is given."},
    Row{IsStatic, "True if the procedure is declared with 'Static'."},
    Row{ProcedureType, "The kind of the procedure ('Sub', 'Function', 'Property Get', 'Property Let' or 'Property Set')."},
    Row{Scope, "The scope word of the procedure ('Public', 'Private' or 'Friend'); empty if there is none."},
    Row{IsEventProcedure, "True if the name up to its last underscore is that of a control or a 'WithEvents' variable of the file, 'Form' in a form, or 'MDIForm' in an MDI form."},
    Row{ConstCount, "The number of constants declared within the procedure so far; complete at 'end Procedure'."},
    Row{VariableCount, "The number of variables declared within the procedure so far; complete at 'end Procedure'."},
    Row{Name, "The name of the procedure, with its type character if it has one."},
    Row{TotalLineCount, "The number of lines of any kind in the procedure, its first and its last line among them, counted so far; complete at 'end Procedure'."},
    Row{BlankLineCount, "The number of blank lines in the procedure, its first and its last line among them, counted so far; complete at 'end Procedure'."},
    Row{CodeLineCount, "The number of lines of code, with or without a comment behind it, in the procedure, its first and its last line among them, counted so far; complete at 'end Procedure'."},
    Row{CommentLineCount, "The number of lines that hold nothing but a comment in the procedure, its first and its last line among them, counted so far; complete at 'end Procedure'."},
    Row{InLineCommentCount, "The number of lines of code with a comment behind it in the procedure, its first and its last line among them, counted so far; complete at 'end Procedure'."},
};

constexpr std::array kProjectProperties = {
    Row{Type, "Project type (Standard EXE = 'Exe', ActiveX DLL = 'OleDll', ActiveX EXE = 'OleExe', ActiveX control = 'Control')."},
    Row{HelpContextID, "Project help context ID: the topic of the project within its help file."},
    Row{ThreadingModel, "Threading model of a component (Single threaded = '0', Apartment threaded = '1')."},
    Row{ThreadPerObject, "Start a thread for each object of an unattended ActiveX EXE ('0' if unchecked, any other number if checked)."},
    Row{MaxNumberOfThreads, "The number of threads in the thread pool of an unattended ActiveX EXE."},
    Row{AutoIncrementVer, "Increase the revision number at each compilation ('0' if unchecked, any other number if checked)."},
    Row{OverflowCheck, "Remove integer overflow checks ('0' if unchecked, '-1' if checked)."},
    Row{FlPointCheck, "Remove floating point error checks ('0' if unchecked, '-1' if checked)."},
    Row{BoundsCheck, "Remove array bounds checks ('0' if unchecked, '-1' if checked)."},
    Row{FDIVCheck, "Remove safe Pentium(tm) FDIV checks ('0' if unchecked, '-1' if checked)."},
    Row{UnroundedFP, "Allow unrounded floating point operations ('0' if unchecked, '-1' if checked)."},
    Row{Unattended, "Unattended execution, without any user interface ('0' if unchecked, any other number if checked)."},
    Row{NoAliasing, "Assume no aliasing of variables ('0' if unchecked, '-1' if checked)."},
    Row{NoControlUpgrade, "Do not upgrade ActiveX controls when the project is opened. Only there if the project file says so."},
    Row{OptimizationType, "Optimisation of native code (Fast code = '0', Small code = '1', No optimisation = '2')."},
    Row{CompilationType, "Kind of code that the compiler makes (Native code = '0', P-code = '-1')."},
    Row{StartMode, "How the program starts within the development environment (Standalone = '0', ActiveX component = '1')."},
    Row{Startup, "Startup object, such as 'Sub Main' or the name of a form; '(None)' if there is none."},
    Row{Retained, "Keep the component of an unattended project in memory ('0' if unchecked, any other number if checked)."},
    Row{CodeViewDebugInfo, "Create symbolic debug information ('0' if unchecked, '-1' if checked)."},
    Row{ServerSupportFiles, "Create remote server files at compilation ('0' if unchecked, any other number if checked)."},
    Row{Command32, "Command line arguments that the program gets within the development environment."},
    Row{CompatibleMode, "Component version compatibility (No compatibility = '0', Project compatibility = '1', Binary compatibility = '2')."},
    Row{VersionCompatible32, "Version compatibility mark that Visual Basic keeps beside the component named by CompatibleEXE32. Only there if the project file has it."},
    Row{FavorPentiumPro, "Favor Pentium Pro(tm) processors ('0' if unchecked, '-1' if checked). The project file writes this key with '(tm)' behind it."},
    Row{Path, "The folder of the project file, with a backslash at its end."},
    Row{FullFilename, "The name of the project file with its folder."},
    Row{DllBaseAddress, "Base address at which the component is loaded, such as '&H11000000'."},
    Row{CondComp, "Conditional compilation arguments, such as 'DEBUGGING = 0'."},
    Row{RemoveUnusedControlInfo, "Remove information about unused ActiveX controls ('0' if unchecked, any other number if checked)."},
    Row{IconForm, "The form whose icon the program has."},
    Row{UseExistingBrowser, "Use a browser that is already running when a component is tried out ('0' if unchecked, any other number if checked)."},
    Row{RequireLicenseKey, "Require a licence key for the controls of the project ('0' if unchecked, any other number if checked)."},
    Row{DebugStartupOption, "What happens when the project is started within the development environment (Wait for components to be created = '0', Start component = '1'; other numbers start a program or a browser)."},
    Row{DebugStartupComponent, "The component that DebugStartupOption starts."},
    Row{MajorVer, "Major version number."},
    Row{MinorVer, "Minor version number."},
    Row{RevisionVer, "Revision number of the version."},
    Row{ComponentCount, "The number of ActiveX components that the project file lists."},
    Row{SourceFileCount, "The number of source files that the project file lists, plus one for the project file itself."},
    Row{ReferenceCount, "The number of type library references, the three that every Visual Basic project has among them."},
    Row{RelatedDocCount, "The number of related documents that the project file lists."},
    Row{FormFileCount, "The number of forms and MDI forms that the project file lists."},
    Row{ClassFileCount, "The number of class modules that the project file lists."},
    Row{DesignerFileCount, "The number of designers that the project file lists."},
    Row{ModuleFileCount, "The number of standard modules that the project file lists."},
    Row{UserControlFileCount, "The number of user controls that the project file lists."},
    Row{UserDocumentFileCount, "The number of user documents that the project file lists."},
    Row{PropertyPageFileCount, "The number of property pages that the project file lists."},
    Row{CompatibleEXE32, "The compiled file with which the component is to stay compatible."},
    Row{Description, "Project description, as the object browser shows it."},
    Row{ExeName32, "The file name of the compiled program."},
    Row{HelpFile, "The help file of the project."},
    Row{Filename, "The name of the project file without its folder."},
    Row{Name, "Project name."},
    Row{Title, "Application title."},
    Row{VersionComments, "The comments, written into the compiled file."},
    Row{VersionCompanyName, "The company name, written into the compiled file."},
    Row{VersionProductName, "The product name, written into the compiled file."},
    Row{VersionFileDescription, "The file description, written into the compiled file."},
    Row{VersionLegalCopyright, "The copyright, written into the compiled file."},
    Row{VersionLegalTrademarks, "The trademarks, written into the compiled file."},
    Row{ResFile32, "The resource file of the project."},
    Row{Extension, "The extension of the project file with its point: '.vbp'."},
    Row{TotalLineCount, "The number of lines of any kind in all source files reviewed, each behind its attribute 'VB_Name', counted so far; complete at 'end Source Files'."},
    Row{BlankLineCount, "The number of blank lines in all source files reviewed, each behind its attribute 'VB_Name', counted so far; complete at 'end Source Files'."},
    Row{CodeLineCount, "The number of lines of code, with or without a comment behind it, in all source files reviewed, each behind its attribute 'VB_Name', counted so far; complete at 'end Source Files'."},
    Row{CommentLineCount, "The number of lines that hold nothing but a comment in all source files reviewed, each behind its attribute 'VB_Name', counted so far; complete at 'end Source Files'."},
    Row{InLineCommentCount, "The number of lines of code with a comment behind it in all source files reviewed, each behind its attribute 'VB_Name', counted so far; complete at 'end Source Files'."},
};

constexpr std::array kReferenceProperties = {
    Row{AuthorisedVersions, "The versions of the type library that the rulebase permits; empty if it permits all or does not list this one."},
    Row{Description, "The description of the type library; empty for a reference to another project."},
    Row{GUID, "The identifier of the type library, in braces; empty for a reference to another project."},
    Row{IsAuthorised, "True if the rulebase permits the reference in this version, whether or not authorised references are being checked."},
    Row{Version, "The version of the type library, such as '2.0'; empty for a reference to another project."},
    Row{FullFilename, "The file name of the type library. A review keeps it under the name Filename and leaves this property out, so ask for Filename."},
    Row{DesignTime, "True if the reference is to another project and not to a compiled type library."},
};

constexpr std::array kSourceProperties = {
    Row{IsCode, "True if the line holds code, with or without a comment behind it."},
    Row{IsComment, "True if the line holds nothing but a comment."},
    Row{Line, "The logical line: its continued lines joined to one, without a line number in the first column."},
    Row{StrippedLine, "The logical line without comment, without the text of strings (whose quotes stay), and without white space around it."},
    Row{StrippedStatement, "The statement without comment, without the text of strings (whose quotes stay), and without white space around it."},
    Row{LineNumber, "The number of the line as the development environment shows it: attributes and layout do not count. That of a continued line is that of its first line."},
    Row{PhysicalLine, "The line as the file has it, with line ends where it is continued."},
    Row{PhysicalLineCount, "The number of lines in the file that the line stretches over; 0 for an attribute line."},
    Row{IsMultiStatement, "True if the line holds several statements with colons between them."},
    Row{Statement, "The statement currently being reviewed, one part of a line that holds several. Empty at 'Source Line'."},
    Row{CommentBlock, "The comment lines directly above the line, each with a line end; blank lines between them do not count. On a comment line, that line is the last of them."},
};

constexpr std::array kTypeElementProperties = {
    Row{DataType, "The data type as written behind 'As'; empty if there is none."},
    Row{IsArray, "True if the name is followed by brackets."},
    Row{ArraySize, "The text between the brackets of an array; empty if the array has no fixed size, or the element is none."},
    Row{Name, "The name of the element, without the brackets of an array."},
};

constexpr std::array kVariableProperties = {
    Row{DataType, "The data type as written behind 'As', or the type character that ends the name; empty if neither is there."},
    Row{IsArray, "True if the name is followed by brackets."},
    Row{ArraySize, "The text between the brackets of an array; empty if the array has no fixed size, or the variable is none."},
    Row{IsWithEvents, "True if the variable is declared with 'WithEvents'."},
    Row{IsStatic, "True if the declaration begins with 'Static'."},
    Row{Scope, "The scope word of the declaration ('Public', 'Private' or 'Global'); empty if there is none."},
    Row{IsLocal, "True if the variable is declared within a procedure."},
    Row{IsAsNew, "True if the variable is declared with 'As New'."},
    Row{IsMultiItem, "True if its declaration holds more than one variable."},
    Row{Name, "The name of the variable, without the brackets of an array."},
};

constexpr ObjectPropertyList kLists[] = {
    {ObjectType::Argument, kArgumentProperties, Name},
    {ObjectType::Layout, kLayoutProperties, Name},
    {ObjectType::Component, kComponentProperties, AuthorisedVersions},
    {ObjectType::Const, kConstProperties, Name},
    {ObjectType::Control, kControlProperties, Name},
    {ObjectType::Declare, kDeclareProperties, Name},
    {ObjectType::Enum, kEnumProperties, Name},
    {ObjectType::Type, kTypeProperties, Name},
    {ObjectType::EnumElement, kEnumElementProperties, Name},
    {ObjectType::Event, kEventProperties, Name},
    {ObjectType::File, kFileProperties, Extension},
    {ObjectType::Implements, kImplementsProperties, Interface},
    {ObjectType::LineLabel, kLineLabelProperties, Name},
    {ObjectType::NamingConvention, kNamingConventionProperties, ArrayTag},
    {ObjectType::Procedure, kProcedureProperties, Name},
    {ObjectType::Project, kProjectProperties, CompatibleEXE32},
    {ObjectType::Reference, kReferenceProperties, AuthorisedVersions},
    {ObjectType::Source, kSourceProperties, IsCode},
    {ObjectType::TypeElement, kTypeElementProperties, Name},
    {ObjectType::Variable, kVariableProperties, Name},
};
// clang-format on

constexpr bool Holds(std::span<const PropertyDescription> rows, PropertyNumber number) {
    return std::ranges::find(rows, number, &PropertyDescription::Number) != rows.end();
}

constexpr bool IsNothingTwice() {
    for (const ObjectPropertyList& list : kLists) {
        for (std::size_t i = 0; i < list.Properties.size(); ++i) {
            if (Holds(list.Properties.subspan(i + 1), list.Properties[i].Number)) {
                return false;
            }
        }
    }
    return true;
}
static_assert(IsNothingTwice());

constexpr bool IsEveryFirstNameInItsList() {
    return std::ranges::all_of(kLists, [](const ObjectPropertyList& list) {
        return Holds(list.Properties, list.FirstName);
    });
}
static_assert(IsEveryFirstNameInItsList());

}  // namespace

std::span<const ObjectPropertyList> Lists() {
    return kLists;
}

const ObjectPropertyList* FindList(ObjectType root) {
    const auto* list = std::ranges::find(kLists, root, &ObjectPropertyList::Object);
    return list == std::end(kLists) ? nullptr : list;
}

const PropertyDescription* Find(ObjectType root, PropertyNumber number) {
    const ObjectPropertyList* list = FindList(root);
    if (list == nullptr) {
        return nullptr;
    }
    const auto row = std::ranges::find(list->Properties, number, &PropertyDescription::Number);
    return row == list->Properties.end() ? nullptr : &*row;
}

bool IsLineStatistic(PropertyNumber number) {
    return number >= TotalLineCount && number <= InLineCommentCount;
}

}  // namespace dorvik::modPropertyDescriptions
