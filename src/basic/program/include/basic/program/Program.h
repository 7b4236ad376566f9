#pragma once

#include "basic/program/BuiltinFunction.h"
#include "basic/program/Instruction.h"
#include "basic/program/PropertyCache.h"
#include "basic/program/ScriptHost.h"
#include "basic/syntax/Ast.h"
#include "basic/syntax/CompileError.h"
#include "basic/values/ScriptObject.h"
#include "basic/values/ValueBodies.h"

#include <string>
#include <vector>

namespace dorvik::basic {

/// How a variable is made: its type and, for a fixed array, its bounds.
struct VariableShape {
    DeclaredType Type;
    bool IsFixedArray = false;
    bool IsNew = false;  // the object, or each element of an array, is created at its first use
    std::vector<Bounds> Dimensions;
};

struct RecordMember {
    std::string Name;
    VariableShape Shape;
};
/// A `Type` of the module.
struct RecordType {
    std::string Name;
    std::vector<RecordMember> Members;
};

struct Parameter {
    std::string Name;
    DeclaredType Type;
    bool IsByVal = false;
    bool IsOptional = false;
    bool IsParamArray = false;
    Value Default;  // of an optional one: Missing for a Variant without a default
};

/// The statement to which the code from its start to that of the next mark belongs.
struct StatementMark {
    std::uint32_t Start = 0;
    std::uint32_t Again = 0;  // where `Resume` continues
    std::uint32_t Next = 0;   // where `Resume Next` continues
    std::int32_t Line = 0;    // physical, in the module, from 1
};

/// An argument that a call passes as a copy, and where its new value is stored: by the code after the call, or by
/// the machine when the call ends with an error.
struct ArgumentCopy {
    static constexpr std::uint16_t kNoElement = 0xFFFF;

    std::uint32_t Call = 0;       // the position of the call
    std::uint16_t Reference = 0;  // to the variable
    std::uint16_t Slot = 0;       // of the copy, or of the array with it
    std::uint16_t Element = kNoElement;
};

/// One compiled procedure. Its slots: parameters, boxed ones, then unboxed ones. The arguments of a call are built
/// after them and become the first slots of the callee.
struct Procedure {
    std::string Name;
    ProcedureKind Kind = ProcedureKind::Sub;
    std::vector<Parameter> Parameters;
    DeclaredType Result;
    bool IsPrivate = false;
    SourcePlace Place;
    std::vector<Instruction> Code;
    std::vector<StatementMark> Marks;     // in ascending order of start
    std::vector<ArgumentCopy> CopyBacks;  // in ascending order of call
    std::vector<Value> Initial;           // of the slots after the parameters; no heap objects
    std::uint32_t GenericSlots = 0;       // with the parameters; only these are released at the end
    std::uint32_t Slots = 0;
    std::uint32_t ArgumentSlots = 0;  // the most that are built after `Slots`
    std::uint32_t ParameterCount = 0;
    std::uint32_t CallSlots = 0;  // what a call needs: both
    std::int32_t CallCost = 0;    // of the budget

    /// REQUIRES: Marks is not empty.
    const StatementMark& MarkOf(std::uint32_t position) const;
};

/// `Select Case` over whole numbers. Dense: `Targets[value - First]`; sparse: `Keys` are in
/// ascending order, with `Targets` in parallel.
struct SwitchTable {
    std::int32_t First = 0;
    std::vector<std::int32_t> Keys;
    std::vector<std::uint32_t> Targets;
    std::uint32_t Else = 0;
};

/// A use of an object's member, with the class that it was last used with.
struct CallSite {
    std::string Name;  // empty: the default member
    InvokeKind Kind = InvokeKind::Get;
    std::uint32_t Arguments = 0;
    std::vector<std::string> ArgumentNames;  // of the last arguments
    mutable ObjectClass SeenClass = ObjectClass::Any;
    mutable int SeenMember = kNoMember;
};

/// A use of an extension's callback.
struct ExtensionCall {
    IScriptExtension* Extension = nullptr;
    std::uint32_t Member = 0;
    std::uint32_t Parameters = 0;
    std::uint32_t Result = 0;     // the out argument that is the value of the function form
    bool KeepsArguments = false;  // the code after the call reads the out arguments
    /// Where the result may be cached; null if the call always has to be made.
    const PropertyCache* Answers = nullptr;
};

/// A compiled module. Immutable while it runs, but for the caches of its call sites.
class Program {
public:
    std::string Name;  // from Attribute VB_Name
    bool ComparesText = false;
    std::vector<std::string> Lines;
    std::vector<Procedure> Procedures;
    std::vector<Value> Constants;
    std::vector<DeclaredType> Types;
    std::vector<VariableShape> Shapes;
    std::vector<std::uint32_t> Globals;  // the shape of each module variable and Static
    std::vector<RecordType> Records;
    std::vector<SwitchTable> Switches;
    std::vector<CallSite> Sites;
    std::vector<ExtensionCall> ExtensionCalls;
    std::vector<const BuiltinFunction*> Builtins;

    /// The index of a procedure by its name in any case and its kind, or -1.
    int FindProcedure(std::string_view name, ProcedureKind kind) const;
};

}  // namespace dorvik::basic
