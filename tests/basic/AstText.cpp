#include "basic/AstText.h"

#include <locale>
#include <sstream>

namespace dorvik::basic {

namespace {

const char* const kBinary[] = {"^", "*",  "/",  "\\",   "Mod", "+",   "-",  "&",   "=",   "<>", "<",
                               ">", "<=", ">=", "Like", "Is",  "And", "Or", "Xor", "Eqv", "Imp"};
const char* const kUnary[] = {"-", "+", "Not"};

std::string Number(double value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(15);
    text << value;
    return text.str();
}

std::string WithSuffix(const std::string& name, char suffix) {
    return suffix ? name + suffix : name;
}

template <class List, class Print>
std::string Joined(const List& list, const std::string& separator, Print print) {
    std::string text;
    for (const auto& element : list) {
        if (&element != &list.front()) {
            text += separator;
        }
        text += print(element);
    }
    return text;
}

std::string ArgumentText(const Argument& argument) {
    std::string text = argument.Name.empty() ? "" : argument.Name + ":=";
    if (argument.IsByVal) {
        text += "ByVal ";
    }
    return text + (argument.Value ? AstText(*argument.Value) : "_");
}

std::string ArgumentsText(const std::vector<Argument>& arguments) {
    return Joined(arguments, ", ", ArgumentText);
}

std::string ValueText(const Value& value) {
    if (value.Type() == ValueType::Integer) {
        return std::to_string(value.AsInteger());
    }
    if (value.Type() == ValueType::Long) {
        return std::to_string(value.AsLong()) + "&";
    }
    if (value.Type() == ValueType::Single) {
        return Number(value.AsSingle()) + "!";
    }
    if (value.Type() == ValueType::Double) {
        return Number(value.AsDouble()) + "#";
    }
    if (value.Type() == ValueType::Currency) {
        return Number(static_cast<double>(value.AsCurrency()) / 10'000) + "@";
    }
    if (value.Type() == ValueType::Date) {
        return "#" + Number(value.AsDouble()) + "#";
    }
    if (value.Type() == ValueType::String) {
        return "\"" + std::string(value.AsText()) + "\"";
    }
    if (value.Type() == ValueType::Boolean) {
        return value.AsBoolean() ? "True" : "False";
    }
    if (value.Type() == ValueType::Null) {
        return "Null";
    }
    return value.Type() == ValueType::Empty ? "Empty" : "Nothing";
}

struct ExpressionPrinter {
    std::string operator()(const LiteralNode& node) const { return ValueText(node.Constant); }
    std::string operator()(const NameNode& node) const {
        return WithSuffix(node.Name, node.Suffix);
    }
    std::string operator()(const MemberNode& node) const {
        return AstText(node.Target) + "." + WithSuffix(node.Name, node.Suffix);
    }
    std::string operator()(const BangNode& node) const {
        return AstText(node.Target) + "!" + node.Name;
    }
    std::string operator()(const IndexNode& node) const {
        return AstText(node.Target) + "(" + ArgumentsText(node.Arguments) + ")";
    }
    std::string operator()(const ParenthesisNode& node) const {
        return "{" + AstText(node.Inner) + "}";
    }
    std::string operator()(const UnaryNode& node) const {
        return std::string("(") + kUnary[static_cast<int>(node.Operator)] + " " +
               AstText(node.Operand) + ")";
    }
    std::string operator()(const BinaryNode& node) const {
        return "(" + AstText(node.Left) + " " + kBinary[static_cast<int>(node.Operator)] + " " +
               AstText(node.Right) + ")";
    }
    std::string operator()(const NewNode& node) const { return "(New " + node.ClassName + ")"; }
    std::string operator()(const TypeOfNode& node) const {
        return "(TypeOf " + AstText(node.Operand) + " Is " + node.ClassName + ")";
    }
};

std::string TypeText(const TypeName& type) {
    if (type.Name.empty()) {
        return "";
    }
    std::string text = std::string(" As ") + (type.IsNew ? "New " : "") + type.Name;
    if (type.FixedLength) {
        text += " * " + AstText(type.FixedLength);
    }
    return text + (type.IsArray ? "()" : "");
}

std::string BoundsText(const std::vector<BoundsNode>& bounds) {
    return "(" +
           Joined(
               bounds,
               ", ",
               [](const BoundsNode& bound) {
                   return (bound.Lower ? AstText(bound.Lower) + " To " : "") + AstText(bound.Upper);
               }) +
           ")";
}

std::string VariableText(const VariableNode& variable) {
    return WithSuffix(variable.Name, variable.Suffix) +
           (variable.IsArray ? BoundsText(variable.Bounds) : "") + TypeText(variable.Type);
}

std::string VariablesText(const std::vector<VariableNode>& variables) {
    return Joined(variables, ", ", VariableText);
}

std::string ConstantsText(const std::vector<ConstantNode>& constants) {
    return "Const " + Joined(constants, ", ", [](const ConstantNode& constant) {
               return WithSuffix(constant.Name, constant.Suffix) + TypeText(constant.Type) + " = " +
                      AstText(constant.Value);
           });
}

std::string Braced(const Block& block) {
    return " [" + AstText(block) + "]";
}

std::string CaseText(const CaseTest& test) {
    if (test.Kind == CaseTestKind::Range) {
        return AstText(test.Value) + " To " + AstText(test.Upper);
    }
    if (test.Kind == CaseTestKind::Value) {
        return AstText(test.Value);
    }
    return std::string("Is ") + kBinary[static_cast<int>(test.Comparison)] + " " +
           AstText(test.Value);
}

std::string PrintText(const PrintPart& part) {
    static const char* const kKinds[] = {"", "Spc:", "Tab:"};
    static const char* const kSeparators[] = {"", ";", ","};
    return kKinds[static_cast<int>(part.Kind)] + AstText(part.Value) +
           kSeparators[static_cast<int>(part.Separator)];
}

struct StatementPrinter {
    std::string operator()(const DeclareStatement& node) const {
        return (node.Scope == LocalScope::Static ? "Static " : "Dim ") +
               VariablesText(node.Variables);
    }
    std::string operator()(const ConstStatement& node) const {
        return ConstantsText(node.Constants);
    }
    std::string operator()(const RedimStatement& node) const {
        return std::string("ReDim ") + (node.Preserve ? "Preserve " : "") +
               Joined(node.Targets, ", ", [](const RedimTarget& target) {
                   return AstText(target.Target) + BoundsText(target.Bounds) +
                          TypeText(target.Type);
               });
    }
    std::string operator()(const EraseStatement& node) const {
        return "Erase " + Joined(node.Targets, ", ", [](const ExpressionPointer& target) {
                   return AstText(target);
               });
    }
    std::string operator()(const AssignStatement& node) const {
        return (node.IsSet ? "Set " : "") + AstText(node.Target) + " = " + AstText(node.Value);
    }
    std::string operator()(const TextAssignStatement& node) const {
        static const char* const kKinds[] = {"Mid", "LSet", "RSet"};
        std::string text =
            std::string(kKinds[static_cast<int>(node.Kind)]) + " " + AstText(node.Target);
        if (node.Start) {
            text += " from " + AstText(node.Start);
        }
        if (node.Length) {
            text += " for " + AstText(node.Length);
        }
        return text + " = " + AstText(node.Value);
    }
    std::string operator()(const CallStatement& node) const {
        return (node.IsCallForm ? "Call " : "call ") + AstText(node.Callee) + " <" +
               ArgumentsText(node.Arguments) + ">";
    }
    std::string operator()(const IfStatement& node) const {
        std::string text;
        for (const IfBranch& branch : node.Branches) {
            text += (text.empty() ? (node.IsSingleLine ? "LineIf " : "If ") : " ElseIf ") +
                    AstText(branch.Condition) + Braced(branch.Body);
        }
        return text + (node.ElseBody.empty() ? "" : " Else" + Braced(node.ElseBody));
    }
    std::string operator()(const SelectStatement& node) const {
        std::string text = "Select " + AstText(node.Subject);
        for (const CaseClause& clause : node.Clauses) {
            text += " Case " +
                    (clause.Tests.empty() ? "Else" : Joined(clause.Tests, ", ", CaseText)) +
                    Braced(clause.Body);
        }
        return text;
    }
    std::string operator()(const ForStatement& node) const {
        return "For " + AstText(node.Variable) + " = " + AstText(node.From) + " To " +
               AstText(node.To) + (node.Step ? " Step " + AstText(node.Step) : "") +
               Braced(node.Body);
    }
    std::string operator()(const ForEachStatement& node) const {
        return "ForEach " + AstText(node.Variable) + " In " + AstText(node.Collection) +
               Braced(node.Body);
    }
    std::string operator()(const LoopStatement& node) const {
        static const char* const kTests[] = {"", " While ", " Until "};
        std::string text = node.IsWhileWend ? "While" : "Do";
        if (node.TestBefore != LoopTest::None) {
            text += kTests[static_cast<int>(node.TestBefore)] + AstText(node.Condition);
        }
        text += Braced(node.Body);
        if (node.TestAfter != LoopTest::None) {
            text += kTests[static_cast<int>(node.TestAfter)] + AstText(node.Condition);
        }
        return text;
    }
    std::string operator()(const WithStatement& node) const {
        return "With " + AstText(node.Target) + Braced(node.Body);
    }
    std::string operator()(const LabelStatement& node) const { return node.Label + ":"; }
    std::string operator()(const GoToStatement& node) const { return "GoTo " + node.Label; }
    std::string operator()(const GoSubStatement& node) const { return "GoSub " + node.Label; }
    std::string operator()(const ReturnStatement&) const { return "Return"; }
    std::string operator()(const OnJumpStatement& node) const {
        return "On " + AstText(node.Selector) + (node.IsGoSub ? " GoSub " : " GoTo ") +
               Joined(node.Labels, ", ", [](const std::string& label) { return label; });
    }
    std::string operator()(const OnErrorStatement& node) const {
        static const char* const kPolicies[] = {"GoTo ", "Resume Next", "off", "end handler"};
        return std::string("On Error ") + kPolicies[static_cast<int>(node.Policy)] + node.Label;
    }
    std::string operator()(const ResumeStatement& node) const {
        static const char* const kKinds[] = {"Resume", "Resume Next", "Resume "};
        return kKinds[static_cast<int>(node.Kind)] + node.Label;
    }
    std::string operator()(const ExitStatement& node) const {
        static const char* const kKinds[] = {"Sub", "Function", "Property", "Do", "For"};
        return std::string("Exit ") + kKinds[static_cast<int>(node.Kind)];
    }
    std::string operator()(const EndStatement&) const { return "End"; }
    std::string operator()(const StopStatement&) const { return "Stop"; }
    std::string operator()(const ErrorStatement& node) const {
        return "Error " + AstText(node.Number);
    }
    std::string operator()(const DebugPrintStatement& node) const {
        return "Print " + Joined(node.Parts, " ", PrintText);
    }
    std::string operator()(const DebugAssertStatement& node) const {
        return "Assert " + AstText(node.Condition);
    }
    std::string operator()(const UnsupportedStatement& node) const {
        return "refused " + node.Name +
               (node.Call ? " <" + ArgumentsText(node.Call->Arguments) + ">" : "");
    }
};

std::string ParameterText(const ParameterNode& parameter) {
    return std::string(parameter.IsOptional ? "Optional " : "") +
           (parameter.IsParamArray ? "ParamArray " : "") + (parameter.IsByVal ? "ByVal " : "") +
           WithSuffix(parameter.Name, parameter.Suffix) + (parameter.IsArray ? "()" : "") +
           TypeText(parameter.Type) + (parameter.Default ? " = " + AstText(parameter.Default) : "");
}

struct ItemPrinter {
    std::string operator()(const ModuleVariablesNode& node) const {
        return "Dim " + VariablesText(node.Variables);
    }
    std::string operator()(const ModuleConstantsNode& node) const {
        return ConstantsText(node.Constants);
    }
    std::string operator()(const RecordNode& node) const {
        return "Type " + node.Name + " [" + VariablesText(node.Members) + "]";
    }
    std::string operator()(const EnumNode& node) const {
        return "Enum " + node.Name + " [" +
               Joined(
                   node.Members,
                   ", ",
                   [](const EnumMemberNode& member) {
                       return member.Name + (member.Value ? " = " + AstText(member.Value) : "");
                   }) +
               "]";
    }
    std::string operator()(const ExternalNode& node) const {
        return std::string("Declare ") + (node.IsFunction ? "Function " : "Sub ") + node.Name +
               "(" + Joined(node.Parameters, ", ", ParameterText) + ")";
    }
    std::string operator()(const ProcedureNode& node) const {
        static const char* const kKinds[] = {
            "Sub ", "Function ", "Property Get ", "Property Let ", "Property Set "};
        return std::string(node.IsPrivate ? "Private " : "") + (node.IsStatic ? "Static " : "") +
               kKinds[static_cast<int>(node.Kind)] + WithSuffix(node.Name, node.Suffix) + "(" +
               Joined(node.Parameters, ", ", ParameterText) + ")" + TypeText(node.Result) +
               Braced(node.Body);
    }
};

}  // namespace

std::string AstText(const Expression& expression) {
    return std::visit(ExpressionPrinter(), expression.Node);
}

std::string AstText(const ExpressionPointer& expression) {
    return expression ? AstText(*expression) : "";
}

std::string AstText(const Statement& statement) {
    return std::visit(StatementPrinter(), statement.Node);
}

std::string AstText(const Block& block) {
    return Joined(block, "; ", [](const Statement& statement) { return AstText(statement); });
}

std::string AstText(const ModuleItem& item) {
    return std::visit(ItemPrinter(), item);
}

}  // namespace dorvik::basic
