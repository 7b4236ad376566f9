#include "UnsetNames.h"

#include "base/modTextCase.h"
#include "basic/library/BuiltinLookup.h"

#include <map>
#include <unordered_set>

namespace dorvik::basic {

namespace {

constexpr std::string_view kErrObject = "Err";
constexpr std::string_view kCreateObject = "CreateObject";

/// One procedure of the module, searched for the names that it declares by using them.
class ProcedureNames {
public:
    ProcedureNames(ModuleScope& scope, const ProcedureNode& procedure) : m_scope(scope) {
        m_declared.insert(modTextCase::ToLower(procedure.Name));
        for (const ParameterNode& parameter : procedure.Parameters) {
            m_declared.insert(modTextCase::ToLower(parameter.Name));
        }
        // A declaration holds in the whole procedure, wherever it is.
        Declare(procedure.Body);
        Scan(procedure.Body);
    }

    void Warn() const {
        for (const auto& [key, use] : m_uses) {
            if (!use.IsSet) {
                m_scope.Messages.Warn(use.Place, "'" + use.Name + "' is read and never set");
            }
        }
    }

private:
    /// A name without a declaration, at its first place.
    struct Use {
        std::string Name;
        SourcePlace Place;
        bool IsSet = false;
    };

    // ---- what is declared ----

    void Declare(const Block& block) {
        for (const Statement& statement : block) {
            std::visit([this](const auto& node) { DeclareIn(node); }, statement.Node);
        }
    }
    template <class Node>
    void DeclareIn(const Node&) {}
    void DeclareIn(const DeclareStatement& node) {
        for (const VariableNode& variable : node.Variables) {
            m_declared.insert(modTextCase::ToLower(variable.Name));
        }
    }
    void DeclareIn(const ConstStatement& node) {
        for (const ConstantNode& constant : node.Constants) {
            m_declared.insert(modTextCase::ToLower(constant.Name));
        }
    }
    void DeclareIn(const IfStatement& node) {
        for (const IfBranch& branch : node.Branches) {
            Declare(branch.Body);
        }
        Declare(node.ElseBody);
    }
    void DeclareIn(const SelectStatement& node) {
        for (const CaseClause& clause : node.Clauses) {
            Declare(clause.Body);
        }
    }
    void DeclareIn(const ForStatement& node) { Declare(node.Body); }
    void DeclareIn(const ForEachStatement& node) { Declare(node.Body); }
    void DeclareIn(const LoopStatement& node) { Declare(node.Body); }
    void DeclareIn(const WithStatement& node) { Declare(node.Body); }

    // ---- what is used ----

    void Scan(const Block& block) {
        for (const Statement& statement : block) {
            std::visit([this](const auto& node) { ScanNode(node); }, statement.Node);
        }
    }
    template <class Node>
    void ScanNode(const Node&) {}
    void ScanNode(const RedimStatement& node) {
        for (const RedimTarget& target : node.Targets) {
            Set(target.Target);
            for (const BoundsNode& bounds : target.Bounds) {
                Read(bounds.Lower);
                Read(bounds.Upper);
            }
        }
    }
    void ScanNode(const EraseStatement& node) {
        for (const ExpressionPointer& target : node.Targets) {
            Read(target);
        }
    }
    void ScanNode(const AssignStatement& node) {
        Read(node.Value);
        Set(node.Target);
    }
    void ScanNode(const TextAssignStatement& node) {
        Set(node.Target);
        Read(node.Start);
        Read(node.Length);
        Read(node.Value);
    }
    void ScanNode(const CallStatement& node) { Call(node.Callee, node.Arguments); }
    void ScanNode(const IfStatement& node) {
        for (const IfBranch& branch : node.Branches) {
            Read(branch.Condition);
            Scan(branch.Body);
        }
        Scan(node.ElseBody);
    }
    void ScanNode(const SelectStatement& node) {
        Read(node.Subject);
        for (const CaseClause& clause : node.Clauses) {
            for (const CaseTest& test : clause.Tests) {
                Read(test.Value);
                Read(test.Upper);
            }
            Scan(clause.Body);
        }
    }
    void ScanNode(const ForStatement& node) {
        Set(node.Variable);
        Read(node.From);
        Read(node.To);
        Read(node.Step);
        Scan(node.Body);
    }
    void ScanNode(const ForEachStatement& node) {
        Set(node.Variable);
        Read(node.Collection);
        Scan(node.Body);
    }
    void ScanNode(const LoopStatement& node) {
        Read(node.Condition);
        Scan(node.Body);
    }
    void ScanNode(const WithStatement& node) {
        Read(node.Target);
        Scan(node.Body);
    }
    void ScanNode(const OnJumpStatement& node) { Read(node.Selector); }
    void ScanNode(const ErrorStatement& node) { Read(node.Number); }
    void ScanNode(const DebugPrintStatement& node) {
        for (const PrintPart& part : node.Parts) {
            Read(part.Value);
        }
    }
    void ScanNode(const DebugAssertStatement& node) { Read(node.Condition); }

    void Read(const ExpressionPointer& expression) {
        if (expression) {
            std::visit(
                [&](const auto& node) { ReadNode(node, expression->Place); }, expression->Node);
        }
    }
    template <class Node>
    void ReadNode(const Node&, SourcePlace) {}
    void ReadNode(const NameNode& node, SourcePlace place) { Note(node, place, /*isSet=*/false); }
    void ReadNode(const MemberNode& node, SourcePlace) { Read(node.Target); }
    void ReadNode(const BangNode& node, SourcePlace) { Read(node.Target); }
    void ReadNode(const IndexNode& node, SourcePlace) { Call(node.Target, node.Arguments); }
    void ReadNode(const ParenthesisNode& node, SourcePlace) { Read(node.Inner); }
    void ReadNode(const UnaryNode& node, SourcePlace) { Read(node.Operand); }
    void ReadNode(const BinaryNode& node, SourcePlace) {
        Read(node.Left);
        Read(node.Right);
    }
    void ReadNode(const TypeOfNode& node, SourcePlace) { Read(node.Operand); }

    /// Something gets a value: a name, or an element or member of what a name stands for.
    void Set(const ExpressionPointer& target) {
        if (!target) {
            return;
        }
        if (const auto* name = std::get_if<NameNode>(&target->Node)) {
            Note(*name, target->Place, /*isSet=*/true);
        } else if (const auto* index = std::get_if<IndexNode>(&target->Node)) {
            Set(index->Target);
            for (const Argument& argument : index->Arguments) {
                Read(argument.Value);
            }
        } else {
            Read(target);
        }
    }

    void Call(const ExpressionPointer& callee, const std::vector<Argument>& arguments) {
        // A name that is called and defined nowhere is an error of its own.
        if (callee && !std::holds_alternative<NameNode>(callee->Node)) {
            Read(callee);
        }
        CheckCreateObject(callee, arguments);
        const bool maySet = MaySetArguments(callee);
        for (const Argument& argument : arguments) {
            maySet ? Set(argument.Value) : Read(argument.Value);
        }
    }

    /// A procedure of the module and a callback of an extension can store into their arguments.
    bool MaySetArguments(const ExpressionPointer& callee) const {
        if (!callee) {
            return true;
        }
        if (const auto* name = std::get_if<NameNode>(&callee->Node)) {
            return m_scope.Find(name->Name) != nullptr;
        }
        const auto* member = std::get_if<MemberNode>(&callee->Node);
        const auto* object = member != nullptr && member->Target
                                 ? std::get_if<NameNode>(&member->Target->Node)
                                 : nullptr;
        return object != nullptr && m_scope.FindExtension(object->Name) != nullptr;
    }

    void
    CheckCreateObject(const ExpressionPointer& callee, const std::vector<Argument>& arguments) {
        const auto* name = callee ? std::get_if<NameNode>(&callee->Node) : nullptr;
        if (name == nullptr || !modTextCase::Equal(name->Name, kCreateObject) ||
            !IsNew(*name, /*orBuiltin=*/true) || arguments.empty() || !arguments.front().Value) {
            return;
        }
        const auto* literal = std::get_if<LiteralNode>(&arguments.front().Value->Node);
        if (literal == nullptr || literal->Constant.Type() != ValueType::String) {
            return;
        }
        const std::string program(literal->Constant.AsText());
        if (!IsScriptObject(program)) {
            m_scope.Messages.Warn(
                arguments.front().Value->Place,
                "'" + program +
                    "' cannot be created, only 'Scripting.Dictionary' and 'VBScript.RegExp' can: "
                    "reaching it raises error 429");
        }
    }

    /// True for a name that neither the procedure nor the module, an extension or the language knows.
    bool IsNew(const NameNode& node, bool orBuiltin = false) const {
        const std::string full = node.Suffix != 0 ? node.Name + node.Suffix : node.Name;
        return !m_declared.contains(modTextCase::ToLower(node.Name)) &&
               m_scope.Find(node.Name) == nullptr && m_scope.FindExtension(node.Name) == nullptr &&
               (orBuiltin ||
                (FindBuiltin(full) == nullptr && FindBuiltinConstant(full) == nullptr &&
                 !modTextCase::Equal(node.Name, kErrObject) &&
                 node.Name.find('.') == node.Name.npos));
    }

    void Note(const NameNode& node, SourcePlace place, bool isSet) {
        if (!IsNew(node)) {
            return;
        }
        Use& use = m_uses.try_emplace(modTextCase::ToLower(node.Name), Use{node.Name, place})
                       .first->second;
        use.IsSet = use.IsSet || isSet;
    }

    ModuleScope& m_scope;
    std::unordered_set<std::string> m_declared;
    std::map<std::string, Use> m_uses;
};

}  // namespace

void WarnOfUnsetNames(ModuleScope& scope) {
    for (const ProcedureNode* procedure : scope.Nodes) {
        const ProcedureNames names(scope, *procedure);
        if (!scope.Module.OptionExplicit) {  // else each of them is an error
            names.Warn();
        }
    }
}

}  // namespace dorvik::basic
