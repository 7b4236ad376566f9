#pragma once

#include "basic/syntax/SourcePlace.h"
#include "basic/values/Operators.h"
#include "basic/values/Value.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The tree that the parser makes of a module. Names keep their spelling; lookups ignore
/// case. A name's type suffix is kept beside it, 0 for none.
namespace dorvik::basic {

struct Expression;
using ExpressionPointer = std::unique_ptr<Expression>;

/// In front of a name of the language itself, `VBA.Left` or `VBA.Strings.Left`: no name of the script hides it.
inline constexpr std::string_view kLanguagePrefix = "VBA.";

/// One argument of a call or one index. No value: left out (`Foo a, , c`).
struct Argument {
    std::string Name;  // of a named argument `name:=e`, otherwise empty
    ExpressionPointer Value;
    bool IsByVal = false;  // written `ByVal e`
};

struct LiteralNode {
    Value Constant;  // numbers, strings, dates, True, False, Null, Empty, Nothing
};
struct NameNode {
    std::string Name;  // may begin with `kLanguagePrefix`
    char Suffix = 0;
};
/// `target.Name`, or `.Name` in a With when there is no target.
struct MemberNode {
    ExpressionPointer Target;
    std::string Name;
    char Suffix = 0;
};
/// `target!Name`: the default member with the text Name.
struct BangNode {
    ExpressionPointer Target;  // null in a With
    std::string Name;
};
/// `target(arguments)`: a call, an element of an array, or a member with arguments.
struct IndexNode {
    ExpressionPointer Target;
    std::vector<Argument> Arguments;
};
struct ParenthesisNode {
    ExpressionPointer Inner;
};
struct UnaryNode {
    UnaryOperator Operator;
    ExpressionPointer Operand;
};
struct BinaryNode {
    BinaryOperator Operator;
    ExpressionPointer Left;
    ExpressionPointer Right;
};
struct NewNode {
    std::string ClassName;
};
struct TypeOfNode {  // TypeOf e Is ClassName
    ExpressionPointer Operand;
    std::string ClassName;
};

struct Expression {
    SourcePlace Place;
    std::variant<
        LiteralNode,
        NameNode,
        MemberNode,
        BangNode,
        IndexNode,
        ParenthesisNode,
        UnaryNode,
        BinaryNode,
        NewNode,
        TypeOfNode>
        Node;
    /// Levels of the tree from here down, 1 for a leaf; the parser keeps it at most `kTallestExpression`.
    std::int32_t Height = 1;
};

/// What is written after `As`, before names are resolved.
struct TypeName {
    SourcePlace Place;
    std::string Name;  // empty: no As
    bool IsNew = false;
    ExpressionPointer FixedLength;  // of `String * n`
    bool IsArray = false;           // `As Long()`, of a function's result only
};

struct BoundsNode {
    ExpressionPointer Lower;  // null: Option Base
    ExpressionPointer Upper;
};

/// One name of Dim, Private, Public, Static, a Type's member.
struct VariableNode {
    SourcePlace Place;
    std::string Name;
    char Suffix = 0;
    bool IsArray = false;            // has parentheses
    std::vector<BoundsNode> Bounds;  // empty with IsArray: dynamic
    TypeName Type;
};

struct ConstantNode {
    SourcePlace Place;
    std::string Name;
    char Suffix = 0;
    TypeName Type;
    ExpressionPointer Value;
};

struct Statement;
using Block = std::vector<Statement>;

enum class LocalScope : std::uint8_t { Dim, Static };
struct DeclareStatement {
    LocalScope Scope;
    std::vector<VariableNode> Variables;
};
struct ConstStatement {
    std::vector<ConstantNode> Constants;
};
struct RedimTarget {
    ExpressionPointer Target;  // a name, or a member of a record
    std::vector<BoundsNode> Bounds;
    TypeName Type;
};
struct RedimStatement {
    bool Preserve = false;
    std::vector<RedimTarget> Targets;
};
struct EraseStatement {
    std::vector<ExpressionPointer> Targets;
};
struct AssignStatement {
    bool IsSet = false;
    ExpressionPointer Target;
    ExpressionPointer Value;
};
enum class TextAssignment : std::uint8_t { Mid, LSet, RSet };
struct TextAssignStatement {
    TextAssignment Kind;
    ExpressionPointer Target;
    ExpressionPointer Start;   // Mid only
    ExpressionPointer Length;  // Mid only, may be null
    ExpressionPointer Value;
};
/// A call as a statement: `Foo a, b`, `Call Foo(a, b)`, `Dorvik.X a`. The callee without arguments; the
/// arguments apart. `o.M(1).N 2` has `o.M(1).N` as the callee.
struct CallStatement {
    bool IsCallForm = false;
    ExpressionPointer Callee;
    std::vector<Argument> Arguments;
};
struct IfBranch {
    SourcePlace Place;
    ExpressionPointer Condition;
    Block Body;
};
struct IfStatement {
    std::vector<IfBranch> Branches;
    Block ElseBody;
    bool IsSingleLine = false;
};
enum class CaseTestKind : std::uint8_t { Value, Range, Comparison };
struct CaseTest {
    CaseTestKind Kind;
    BinaryOperator Comparison = BinaryOperator::Equal;
    ExpressionPointer Value;  // or the lower end
    ExpressionPointer Upper;
};
struct CaseClause {
    SourcePlace Place;
    std::vector<CaseTest> Tests;  // empty: Case Else
    Block Body;
};
struct SelectStatement {
    ExpressionPointer Subject;
    std::vector<CaseClause> Clauses;
};
struct ForStatement {
    ExpressionPointer Variable;
    ExpressionPointer From;
    ExpressionPointer To;
    ExpressionPointer Step;  // may be null
    Block Body;
    SourcePlace NextPlace;
};
struct ForEachStatement {
    ExpressionPointer Variable;
    ExpressionPointer Collection;
    Block Body;
    SourcePlace NextPlace;
};
enum class LoopTest : std::uint8_t { None, While, Until };
struct LoopStatement {  // Do ... Loop, and While ... Wend
    LoopTest TestBefore = LoopTest::None;
    LoopTest TestAfter = LoopTest::None;
    ExpressionPointer Condition;
    Block Body;
    bool IsWhileWend = false;
    SourcePlace LoopPlace;
};
struct WithStatement {
    ExpressionPointer Target;
    Block Body;
};
/// A label: a name, or a line number without leading zeros.
struct LabelStatement {
    std::string Label;
};
struct GoToStatement {
    std::string Label;
};
struct GoSubStatement {
    std::string Label;
};
struct ReturnStatement {};
struct OnJumpStatement {  // On n GoTo|GoSub a, b
    bool IsGoSub = false;
    ExpressionPointer Selector;
    std::vector<std::string> Labels;
};
enum class ErrorPolicy : std::uint8_t { GoToLabel, ResumeNext, Off, EndHandler };
struct OnErrorStatement {
    ErrorPolicy Policy;
    std::string Label;
};
enum class ResumeKind : std::uint8_t { Same, Next, Label };
struct ResumeStatement {
    ResumeKind Kind;
    std::string Label;
};
enum class ExitKind : std::uint8_t { Sub, Function, Property, Do, For };
struct ExitStatement {
    ExitKind Kind;
};
struct EndStatement {};
struct StopStatement {};
struct ErrorStatement {  // Error n
    ExpressionPointer Number;
};
enum class PrintPartKind : std::uint8_t { Value, Spaces, Tab };
enum class PrintSeparator : std::uint8_t {
    None,
    Join,
    Zone
};  // ";" joins, "," goes to the next zone
struct PrintPart {
    PrintPartKind Kind = PrintPartKind::Value;
    ExpressionPointer Value;                          // null for a lone separator
    PrintSeparator Separator = PrintSeparator::None;  // after the part
};
struct DebugPrintStatement {
    std::vector<PrintPart> Parts;
};
struct DebugAssertStatement {
    ExpressionPointer Condition;
};
/// A statement that must not act (Open, Kill, Print #, ...): raises 70 when reached.
struct UnsupportedStatement {
    std::string Name;
    /// The same words as an ordinary call, null where they make none (`Print #1`): a procedure or
    /// variable of the module with this name goes before the statement.
    std::unique_ptr<CallStatement> Call;
};

struct Statement {
    SourcePlace Place;
    std::variant<
        DeclareStatement,
        ConstStatement,
        RedimStatement,
        EraseStatement,
        AssignStatement,
        TextAssignStatement,
        CallStatement,
        IfStatement,
        SelectStatement,
        ForStatement,
        ForEachStatement,
        LoopStatement,
        WithStatement,
        LabelStatement,
        GoToStatement,
        GoSubStatement,
        ReturnStatement,
        OnJumpStatement,
        OnErrorStatement,
        ResumeStatement,
        ExitStatement,
        EndStatement,
        StopStatement,
        ErrorStatement,
        DebugPrintStatement,
        DebugAssertStatement,
        UnsupportedStatement>
        Node;
};

enum class ProcedureKind : std::uint8_t { Sub, Function, PropertyGet, PropertyLet, PropertySet };

struct ParameterNode {
    SourcePlace Place;
    std::string Name;
    char Suffix = 0;
    bool IsByVal = false;
    bool IsOptional = false;
    bool IsParamArray = false;
    bool IsArray = false;
    TypeName Type;
    ExpressionPointer Default;
};

struct ProcedureNode {
    SourcePlace Place;
    SourcePlace EndPlace;
    ProcedureKind Kind;
    std::string Name;
    char Suffix = 0;
    bool IsPrivate = false;
    bool IsStatic = false;
    std::vector<ParameterNode> Parameters;
    TypeName Result;
    Block Body;
};

struct RecordNode {  // Type ... End Type
    SourcePlace Place;
    std::string Name;
    std::vector<VariableNode> Members;
};
struct EnumMemberNode {
    SourcePlace Place;
    std::string Name;
    ExpressionPointer Value;  // null: the previous one plus 1
};
struct EnumNode {
    SourcePlace Place;
    std::string Name;
    std::vector<EnumMemberNode> Members;
};
/// Declare Sub|Function: accepted; a call raises 70.
struct ExternalNode {
    SourcePlace Place;
    std::string Name;
    bool IsFunction = false;
    std::vector<ParameterNode> Parameters;
};
struct ModuleVariablesNode {
    std::vector<VariableNode> Variables;
};
struct ModuleConstantsNode {
    std::vector<ConstantNode> Constants;
};

using ModuleItem = std::variant<
    ModuleVariablesNode,
    ModuleConstantsNode,
    RecordNode,
    EnumNode,
    ExternalNode,
    ProcedureNode>;

/// A module as written: its options and its items in the order of the text.
struct ModuleNode {
    bool OptionExplicit = false;
    bool ComparesText = false;
    std::int32_t OptionBase = 0;
    /// The kind that DefXxx gives to names beginning with the letter, 'a' first. Variant without.
    DeclaredKind DefaultKinds[26] = {};
    std::string Name;  // from Attribute VB_Name, otherwise empty
    std::vector<ModuleItem> Items;
    std::vector<std::string> Lines;  // the physical lines, for messages and the disassembly
};

}  // namespace dorvik::basic
