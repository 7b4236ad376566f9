#pragma once

#include "CodeWriter.h"
#include "ModuleScope.h"
#include "basic/values/ValueKinds.h"

#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace dorvik::basic {

/// The value of an expression: the slot that holds it, or a constant without a slot yet.
struct Operand {
    Register Slot = kNoSlot;
    DeclaredType Type;          // what the slot is sure to hold; Variant: anything
    bool IsTyped = false;       // counts as typed for the operators, whatever is known of the slot
    bool IsScalar = false;      // neither an object nor an array, though the type is not known
    bool IsFresh = false;       // no variable shares the value, so it may be kept without a copy
    bool MakesObjects = false;  // an array whose elements are created at their first use
    const Value* Constant = nullptr;
};

enum class Storage : std::uint8_t { Local, Reference, Global };

/// A variable that a name stands for.
struct Variable {
    Storage Where = Storage::Local;
    std::uint32_t Index = 0;  // the slot, or the number of the global
    DeclaredType Type;
    bool IsFixedArray = false;
    bool IsNew = false;
};

/// What a name stands for at some place of a procedure.
struct NameMeaning {
    enum class Kind : std::uint8_t {
        Unknown,
        Variable,
        Constant,
        Procedure,
        External,
        Builtin,
        Extension,
        ErrObject,
        Type
    };
    Kind What = Kind::Unknown;
    basic::Variable Variable;
    bool IsResult = false;  // the variable is the function's result
    const Value* Constant = nullptr;
    const basic::Symbol* Symbol = nullptr;
    const BuiltinFunction* Builtin = nullptr;
    const ExtensionEntry* Extension = nullptr;
};

/// Something that can be assigned to by reference: a variable, an element, a member of a Type.
struct PlaceInfo {
    bool IsPlace = false;
    bool IsVariable = false;
    basic::Variable Variable;
    DeclaredType Type;  // of the place; Variant also for the elements of an array in a Variant
    bool IsFixedArray = false;
};

/// Compiles one procedure. The parts stand in files of their own, by topic: names, expressions, operators,
/// calls, arguments, extensions, members, assignments, statements, loops, Select Case, errors.
class ProcedureCompiler : private IConstantNames {
public:
    ProcedureCompiler(ModuleScope& scope, std::size_t index);
    void Compile();

private:
    struct LocalSymbol {
        SourcePlace Place;
        basic::Variable Variable;
        std::optional<Value> Constant;
        bool IsResult = false;
        bool IsConstant = false;
    };
    struct LabelEntry {
        basic::Label Label = 0;
        SourcePlace Place;
        bool IsUsed = false;
        std::string Name;
        const void* Around = nullptr;  // the innermost For Each or With that the label stands in
    };
    /// A For Each or a With that is open and may keep an array locked.
    struct HeldBlock {
        const void* Node = nullptr;
        Register State = 0;
        std::size_t Loops = 0;        // how many loops are open around it
        Register Variable = kNoSlot;  // a local Variant whose array is walked
    };
    struct LoopContext {
        ExitKind Kind = ExitKind::Do;
        basic::Label Exit = 0;
        std::string Variable;  // of a For with a plain name, in lower case
    };
    struct WithContext {
        Operand Target;
    };
    /// What is to be done behind a call for an argument that could not be passed as it is.
    struct AfterCall {
        enum class Kind : std::uint8_t { CopyBack, CopyElement, Unpin };
        Kind What = Kind::Unpin;
        Register Reference = 0;  // to the argument's place
        Register Slot = 0;       // the temporary, the array or the pin
        DeclaredType Type;       // of the place
        DeclaredType ValueType;  // of the temporary
        std::uint16_t Element = 0;
    };
    /// An out argument of an extension and where its value goes.
    struct OutArgument {
        PlaceInfo Place;
        Register Slot = 0;
        Register Reference = 0;  // unless the place is a variable
    };
    using BoundArguments = std::vector<const Argument*>;

    // Names
    const Value*
    FindConstant(const std::string& qualifier, const std::string& name, bool& wasTold) override;
    NameMeaning Resolve(const std::string& name, char suffix);
    NameMeaning ResolveCallee(const std::string& name, char suffix);
    NameMeaning MeaningOf(const Symbol& symbol, const std::string& name, char suffix);
    NameMeaning MeaningInLanguage(const std::string& name, char suffix);
    Variable DeclareImplicit(const std::string& name, char suffix, SourcePlace place);
    NameMeaning VariableOrImplicit(const NameNode& node, SourcePlace place);
    void CheckSuffix(const DeclaredType& type, char suffix, const std::string& name);
    void DeclareLocals(const Block& block);
    void DeclareLocal(const VariableNode& node, bool isStatic);
    void DeclareLocal(const ConstantNode& node);
    bool AddLocal(const std::string& name, LocalSymbol symbol);
    Variable NewLocal(const VariableShape& shape);
    Operand Load(const Variable& variable);
    void EnsureNew(const Variable& variable);

    // Expressions
    Operand Evaluate(
        const Expression& expression,
        Register hint = kNoSlot,
        DeclaredKind hintKind = DeclaredKind::Variant);
    Operand EvaluateNode(const Expression& expression, Register hint, DeclaredKind hintKind);
    Operand EvaluateName(const Expression& expression, const NameNode& node);
    Operand EvaluateSymbol(const NameMeaning& meaning, const std::string& name, SourcePlace place);
    Operand EvaluateTypeOf(const TypeOfNode& node, SourcePlace place);
    Operand EvaluateNew(const NewNode& node, SourcePlace place);
    Operand ConstantOperand(const Value* value) const;
    Operand Nothing();
    Operand Fold(Value value);
    Operand Stable(const Operand& operand);
    Register SlotOf(const Operand& operand);
    Register LongSlotOf(const Operand& operand);
    Register DoubleSlotOf(const Operand& operand);
    void EvaluateInto(const Expression& expression, Register target, const DeclaredType& type);
    void MoveInto(const Operand& operand, Register target, const DeclaredType& type);
    bool MoveConstant(const Value& value, Register target, const DeclaredType& type);
    void SetInto(const Operand& operand, Register target, const DeclaredType& type);
    Register TemporaryFor(const DeclaredType& type);
    Register ResultSlot(DeclaredKind kind, Register hint, DeclaredKind hintKind);
    bool MayRunCode(const Expression& expression);
    bool MayRunCode(const std::vector<Argument>& arguments);
    std::optional<std::int16_t> SmallConstant(const Operand& operand) const;

    // Operators
    Operand EvaluateUnary(const UnaryNode& node, SourcePlace place);
    Operand EvaluateBinary(const BinaryNode& node, Register hint, DeclaredKind hintKind);
    Operand LongOperator(
        BinaryOperator which,
        const Operand& left,
        const Operand& right,
        Register hint,
        DeclaredKind hintKind);
    Operand TypedOperator(
        Opcode code,
        DeclaredKind kind,
        Register left,
        Register right,
        Register hint,
        DeclaredKind hintKind,
        std::uint8_t flags = 0);
    std::optional<Operand> TryTyped(
        BinaryOperator which,
        const Operand& left,
        const Operand& right,
        Register hint,
        DeclaredKind hintKind);
    std::optional<Operand>
    TryComparison(BinaryOperator which, const Operand& left, const Operand& right);
    std::optional<std::uint16_t> TextConstant(const Operand& operand);
    Operand GenericOperator(
        BinaryOperator which,
        const Operand& left,
        const Operand& right,
        Register hint,
        DeclaredKind hintKind);
    void JumpOn(const Expression& condition, bool when, Label target);
    bool JumpOnComparison(const BinaryNode& node, bool when, Label target);
    void JumpOnRelation(
        Relation relation, const Operand& left, const Operand& right, bool when, Label target);
    bool JumpOnLongs(Relation relation, const Operand& left, const Operand& right, Label target);
    std::uint8_t FactsOf(const Operand& left, const Operand& right) const;

    // Calls
    Operand EvaluateIndex(const Expression& expression, const IndexNode& node);
    Operand
    EvaluateIndexedName(const Expression& expression, const NameNode& name, const IndexNode& node);
    Operand
    ElementOf(const Operand& target, const std::vector<Argument>& arguments, SourcePlace place);
    Operand
    ArrayElement(const Operand& target, const std::vector<Argument>& arguments, SourcePlace place);
    Operand CreatedElement(const Operand& array, const std::vector<Argument>& arguments);
    void ReferenceToElement(
        const Operand& array, const std::vector<Argument>& indices, Register pin, Register target);
    Operand CallProcedure(
        std::size_t index,
        const std::vector<Argument>& arguments,
        SourcePlace place,
        bool wantsResult,
        const Operand* newValue = nullptr,
        bool setsValue = false);
    Operand CallSymbol(
        const NameMeaning& meaning,
        const std::string& name,
        const std::vector<Argument>& arguments,
        SourcePlace place,
        bool wantsResult);
    Operand CallBuiltin(
        const BuiltinFunction& function,
        const std::vector<Argument>& arguments,
        SourcePlace place,
        bool wantsResult);
    std::optional<Operand>
    TryLength(const BuiltinFunction& function, const std::vector<Argument>& arguments);
    Operand
    RefuseCall(const std::string& name, const std::vector<Argument>& arguments, SourcePlace place);
    bool BindArguments(
        const std::string& name,
        const std::vector<Argument>& arguments,
        const std::vector<std::string_view>& parameters,
        BoundArguments& bound,
        SourcePlace place);
    void On(const CallStatement& node, SourcePlace place);

    // Arguments
    void PassArgument(
        const Parameter& parameter,
        const Argument* argument,
        Register slot,
        SourcePlace place,
        std::vector<AfterCall>& after);
    void PassByValue(const DeclaredType& type, const Expression& expression, Register slot);
    void PassByReference(
        const Parameter& parameter,
        const Expression& expression,
        const PlaceInfo& info,
        Register slot,
        std::vector<AfterCall>& after);
    void PassTemporary(const Parameter& parameter, const Expression& expression, Register slot);
    void PassDefault(const Parameter& parameter, Register slot);
    void PassRest(
        const std::vector<Argument>& arguments,
        std::size_t first,
        Register slot,
        std::vector<AfterCall>& after);
    void FinishArguments(const std::vector<AfterCall>& after);
    void PassNewValue(const Parameter& parameter, const Operand& value, bool isSet, Register slot);
    void EvaluateArgument(const Argument& argument, Register slot);
    void EvaluateShared(const Argument* argument, Register slot);
    void MoveShared(const Operand& operand, Register slot);
    void MoveCopy(const Operand& operand, Register slot);

    // Extensions
    Operand CallExtension(
        const ExtensionEntry& extension,
        const std::string& name,
        const std::vector<Argument>& arguments,
        SourcePlace place,
        bool wantsResult);
    bool PassOut(
        const Argument& argument,
        Register slot,
        std::vector<OutArgument>& outs,
        std::vector<AfterCall>& pins);
    void StoreOut(const OutArgument& out);
    Operand RaiseAtRun(std::int32_t number, SourcePlace place, std::string warning);
    const ExtensionEntry* ExtensionOf(const Expression* target);

    // Members
    Operand EvaluateMember(
        const Expression& expression,
        const MemberNode& node,
        const std::vector<Argument>* arguments,
        bool wantsResult = true);
    Operand EvaluateBang(const BangNode& node, SourcePlace place);
    Operand TargetOf(const Expression* target, SourcePlace place);
    Operand RecordMemberOf(const Operand& record, const std::string& name, SourcePlace place);
    Operand InvokeMember(
        const Operand& object,
        const std::string& name,
        InvokeKind kind,
        const std::vector<Argument>& arguments,
        const Operand* value,
        bool wantsResult);
    int FindRecordMember(std::int32_t record, const std::string& name) const;
    const Value* EnumMemberOf(const MemberNode& node);

    // Assignments
    PlaceInfo PlaceOf(const Expression& expression);
    PlaceInfo PlaceOfMember(const MemberNode& node);
    const Expression& WithoutEmptyParentheses(const Expression& expression);
    void ReferenceTo(
        const Expression& expression,
        const PlaceInfo& info,
        Register target,
        std::vector<AfterCall>& after);
    void ReferenceToVariable(const Variable& variable, Register target);
    void On(const AssignStatement& node, SourcePlace place);
    void Assign(const Expression& written, const Expression& value, bool isSet, SourcePlace place);
    void AssignVariable(
        const Variable& variable, const Expression& target, const Expression& value, bool isSet);
    void CheckSet(const DeclaredType& type, bool isSet);
    void StoreRecordMember(
        const Operand& record,
        int number,
        const MemberNode& node,
        const Operand& value,
        bool isSet);
    void DeclareRedimensioned(const RedimTarget& target);
    void StoreVariable(const Variable& variable, const Operand& value, bool isSet);
    void StoreTo(const Expression& target, const Operand& value, bool isSet, SourcePlace place);
    void
    StoreName(const Expression& target, const NameNode& node, const Operand& value, bool isSet);
    void StoreProperty(
        const Symbol& symbol,
        const std::string& name,
        const std::vector<Argument>& arguments,
        const Operand& value,
        bool isSet,
        SourcePlace place);
    void StoreElement(
        const Expression& target,
        const IndexNode& node,
        const Operand& value,
        bool isSet,
        SourcePlace place);
    Operand HolderOf(const Expression& expression);
    void LetDefaultMember(const Operand& object, const Operand& value);
    void StoreArrayElement(
        const Operand& array,
        const std::vector<Argument>& arguments,
        const Operand& value,
        bool isSet,
        SourcePlace place);
    void StoreMember(
        const MemberNode& node,
        const std::vector<Argument>* arguments,
        const Operand& value,
        bool isSet,
        SourcePlace place);
    void
    StoreReference(Register reference, const Operand& value, const DeclaredType& type, bool isSet);
    Operand Converted(const Operand& value, const DeclaredType& type, bool isSet);
    bool TryAppend(const Variable& variable, const Expression& value);
    void AssignWhole(const Expression& target, const PlaceInfo& info, const Operand& value);
    void On(const TextAssignStatement& node, SourcePlace place);
    void CopyToRecord(const TextAssignStatement& node, const PlaceInfo& target, SourcePlace place);
    bool TakesArray(const DeclaredType& type, const Operand& value) const;
    void On(const RedimStatement& node, SourcePlace place);
    void Redimension(const RedimTarget& target, bool preserve, SourcePlace place);
    void On(const EraseStatement& node, SourcePlace place);

    // Statements
    void CompileBlock(const Block& block);
    void HoldArraysOf(const Expression& target, const WithStatement& node);
    void RefuseLocked(Register variable);
    void CompileStatement(const Statement& statement);
    void On(const DeclareStatement&, SourcePlace) {}
    void On(const ConstStatement&, SourcePlace) {}
    void On(const IfStatement& node, SourcePlace place);
    void On(const WithStatement& node, SourcePlace place);
    void On(const ExitStatement& node, SourcePlace place);
    void On(const EndStatement& node, SourcePlace place);
    void On(const StopStatement&, SourcePlace) {}
    void On(const DebugPrintStatement& node, SourcePlace place);
    void On(const DebugAssertStatement& node, SourcePlace place);
    void On(const RefusedStatement& node, SourcePlace place);
    void EmitReturn();
    void DeclareParameters();

    // Loops
    void On(const ForStatement& node, SourcePlace place);
    void On(const ForEachStatement& node, SourcePlace place);
    void On(const LoopStatement& node, SourcePlace place);
    bool IsControlVariable(const std::string& lower) const;
    bool FindControlVariable(const Expression& expression, Variable& variable, std::string& lower);
    void CompileTypedFor(
        const ForStatement& node, const Variable& variable, std::int16_t step, SourcePlace place);
    void CompileAnyFor(const ForStatement& node, const Variable& variable, SourcePlace place);
    void JumpBack(Label top) { m_code.EmitJump(Opcode::JumpCounted, top); }

    // Select Case
    void On(const SelectStatement& node, SourcePlace place);
    bool TrySwitch(
        const SelectStatement& node,
        const Operand& subject,
        const std::vector<Label>& bodies,
        Label otherwise);
    bool CollectKeys(
        const SelectStatement& node,
        std::vector<std::pair<std::int32_t, Label>>& keys,
        const std::vector<Label>& bodies);
    std::optional<std::int32_t> LongConstantOf(const Expression& expression);
    void CompileTest(const CaseTest& test, const Operand& subject, Label body);

    // Errors and jumps
    void CollectLabels(const Block& block);
    void CollectLabelsIn(const void* node, const Block& body);
    Label LabelOf(const std::string& name, SourcePlace place);
    void LeaveBlocksFor(const std::string& label);
    void LeaveBlock(const HeldBlock& block);
    void On(const LabelStatement& node, SourcePlace place);
    void On(const GoToStatement& node, SourcePlace place);
    void On(const GoSubStatement& node, SourcePlace place);
    void On(const ReturnStatement& node, SourcePlace place);
    void On(const OnJumpStatement& node, SourcePlace place);
    void On(const OnErrorStatement& node, SourcePlace place);
    void On(const ResumeStatement& node, SourcePlace place);
    void On(const ErrorStatement& node, SourcePlace place);
    void WarnOfUnusedLabels();

    void Error(std::int32_t number, SourcePlace place, std::string text) {
        m_scope.Messages.Error(number, place, std::move(text));
    }

    ModuleScope& m_scope;
    Procedure& m_procedure;
    const ProcedureNode& m_node;
    CodeWriter m_code;
    ConstantEvaluator m_evaluator;
    std::unordered_map<std::string, LocalSymbol> m_locals;  // by the lower-case name
    std::unordered_map<std::string, LabelEntry> m_labels;
    std::vector<LoopContext> m_loops;
    std::vector<WithContext> m_withs;
    std::vector<HeldBlock> m_held;
    const void* m_around = nullptr;  // while labels are collected
    std::unordered_map<const void*, const void*>
        m_outer;  // of a For Each or a With: the next one around
    std::deque<Value> m_folded;
    std::optional<Variable> m_result;
    SourcePlace m_place;              // of the statement being compiled
    bool m_mayJumpIntoLoops = false;  // labels or On Error: loops check that they were begun
    bool m_hasHandler = false;        // On Error GoTo
};

std::string TypeText(const DeclaredType& type);

}  // namespace dorvik::basic
