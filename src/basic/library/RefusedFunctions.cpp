#include "Arguments.h"
#include "BuiltinTables.h"
#include "basic/values/Coercion.h"
#include "basic/values/ScriptContext.h"

namespace dorvik::basic {

namespace {

Value Refused(ScriptContext&, Arguments) {
    RaiseError(runtimeerror::kPermissionDenied);
}

/// The host learns what would have been shown.
Value RefusedBox(ScriptContext& context, Arguments arguments) {
    const TextArgument prompt(arguments, 0);
    context.Refuse(prompt.View());
    RaiseError(
        runtimeerror::kPermissionDenied);  // for the compiler: a virtual function might return
}

constexpr auto kVariant = DeclaredKind::Variant;
constexpr auto kString = DeclaredKind::String;

constexpr BuiltinFunction kRows[] = {
    {"AppActivate", "Title ?Wait", kVariant, Refused, true},
    {"ChDir", "Path", kVariant, Refused, true},
    {"ChDrive", "Drive", kVariant, Refused, true},
    {"Command", "", kVariant, Refused, true},
    {"Command$", "", kString, Refused, true},
    {"CurDir", "?Drive", kVariant, Refused, true},
    {"CurDir$", "?Drive", kString, Refused, true},
    {"DDEExecute", "Channel Command", kVariant, Refused, true},
    {"DDEInitiate", "Application Topic", kVariant, Refused, true},
    {"DDEPoke", "Channel Item Data", kVariant, Refused, true},
    {"DDERequest", "Channel Item", kVariant, Refused, true},
    {"DDERequest$", "Channel Item", kString, Refused, true},
    {"DDETerminate", "Channel", kVariant, Refused, true},
    {"DDETerminateAll", "", kVariant, Refused, true},
    {"DeleteSetting", "AppName ?Section ?Key", kVariant, Refused, true},
    {"Dir", "?PathName ?Attributes", kVariant, Refused, true},
    {"Dir$", "?PathName ?Attributes", kString, Refused, true},
    {"EOF", "FileNumber", DeclaredKind::Boolean, Refused, true},
    {"Environ", "Expression", kVariant, Refused, true},
    {"Environ$", "Expression", kString, Refused, true},
    {"FileAttr", "FileNumber ?ReturnType", DeclaredKind::Long, Refused, true},
    {"FileCopy", "Source Destination", kVariant, Refused, true},
    {"FileDateTime", "PathName", kVariant, Refused, true},
    {"FileLen", "PathName", DeclaredKind::Long, Refused, true},
    {"FreeFile", "?RangeNumber", DeclaredKind::Integer, Refused, true},
    {"GetAllSettings", "AppName Section", kVariant, Refused, true},
    {"GetAttr", "PathName", DeclaredKind::Integer, Refused, true},
    {"GetObject", "?PathName ?Class", kVariant, Refused, true},
    {"GetSetting", "AppName Section Key ?Default", kString, Refused, true},
    {"Input", "Number FileNumber", kVariant, Refused, true},
    {"Input$", "Number FileNumber", kString, Refused, true},
    {"InputBox",
     "Prompt ?Title ?Default ?XPos ?YPos ?HelpFile ?Context",
     kString,
     RefusedBox,
     true},
    {"InputBox$",
     "Prompt ?Title ?Default ?XPos ?YPos ?HelpFile ?Context",
     kString,
     RefusedBox,
     true},
    {"Kill", "PathName", kVariant, Refused, true},
    {"LOF", "FileNumber", DeclaredKind::Long, Refused, true},
    {"Loc", "FileNumber", DeclaredKind::Long, Refused, true},
    {"MacroRun", "MacroName ?Command", kVariant, Refused, true},
    {"MacroRunThis", "MacroCode", kVariant, Refused, true},
    {"MkDir", "Path", kVariant, Refused, true},
    {"MsgBox", "Prompt ?Buttons ?Title ?HelpFile ?Context", DeclaredKind::Long, RefusedBox, true},
    {"Reset", "", kVariant, Refused, true},
    {"RmDir", "Path", kVariant, Refused, true},
    {"SaveSetting", "AppName Section Key Setting", kVariant, Refused, true},
    {"Seek", "FileNumber", DeclaredKind::Long, Refused, true},
    {"SendKeys", "String ?Wait", kVariant, Refused, true},
    {"SetAttr", "PathName Attributes", kVariant, Refused, true},
    {"Shell", "PathName ?WindowStyle", kVariant, Refused, true},
    {"Wait", "Delay", kVariant, Refused, true},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::RefusedFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
