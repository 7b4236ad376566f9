#pragma once

#include "NameMeaning.h"
#include "ProcedurePart.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace dorvik::basic {

/// Finds out what names stand for in a procedure, and declares its parameters and local variables.
class NameResolver : private IConstantNames, private ProcedurePart {
public:
    explicit NameResolver(ProcedureContext& context)
        : ProcedurePart(context),
          m_evaluator(*this, m_scope.Messages, m_scope.Module.ComparesText) {}

    /// What a name stands for; a local one goes before the module, that before extensions, these before the language.
    NameMeaning Resolve(const std::string& name, char suffix);
    /// The same before parentheses or as a statement, where a function's own name is the function and not its result.
    NameMeaning ResolveCallee(const std::string& name, char suffix);
    /// The same, and a name that nothing declares becomes a local variable (with Option Explicit an error too).
    NameMeaning VariableOrImplicit(const NameNode& node, SourcePlace place);
    /// Variables are known in the whole procedure, so all are declared before the first statement.
    void DeclareLocals(const Block& block);
    /// The extension that the name before a point stands for; null if it is anything else.
    const ExtensionEntry* ExtensionOf(const Expression* target);
    /// `EName.Member`: the value, or null if the name before the point is not an enum.
    const Value* EnumMemberOf(const MemberNode& node);
    /// `ReDim` of a name without a declaration declares it.
    void DeclareRedimensioned(const RedimTarget& target);
    void DeclareParameters();
    bool HasLocal(const std::string& name) const;

private:
    struct LocalSymbol {
        SourcePlace Place;
        basic::Variable Variable;
        std::optional<Value> Constant;
        bool IsResult = false;
        bool IsConstant = false;
    };

    const Value*
    FindConstant(const std::string& qualifier, const std::string& name, bool& wasReported) override;
    NameMeaning MeaningOf(const Symbol& symbol, const std::string& name, char suffix);
    NameMeaning MeaningInLanguage(const std::string& name, char suffix);
    Variable DeclareImplicit(const std::string& name, char suffix, SourcePlace place);
    void CheckSuffix(const DeclaredType& type, char suffix, const std::string& name);
    void DeclareLocal(const VariableNode& node, bool isStatic);
    void DeclareLocal(const ConstantNode& node);
    bool AddLocal(const std::string& name, LocalSymbol symbol);
    Variable NewLocal(const VariableShape& shape);

    ConstantEvaluator m_evaluator;
    std::unordered_map<std::string, LocalSymbol> m_locals;  // by the lower-case name
};

}  // namespace dorvik::basic
