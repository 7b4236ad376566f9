#include "NameResolver.h"
#include "base/modTextCase.h"
#include "basic/values/Coercion.h"
#include "basic/values/ValueKinds.h"

#include <utility>

namespace dorvik::basic {

void NameResolver::DeclareRedimensioned(const RedimTarget& target) {
    const auto* name = std::get_if<NameNode>(&target.Target->Node);
    if (name == nullptr || Resolve(name->Name, name->Suffix).What != NameMeaning::Kind::Unknown) {
        return;
    }
    VariableShape shape;
    shape.Type = m_scope.ResolveType(target.Type, name->Suffix, name->Name);
    shape.Type.IsArray = true;
    shape.IsNew = target.Type.IsNew;
    LocalSymbol symbol;
    symbol.Place = target.Target->Place;
    symbol.Variable = NewLocal(shape);
    m_locals.emplace(modTextCase::ToLower(name->Name), symbol);
}

bool NameResolver::AddLocal(const std::string& name, LocalSymbol symbol) {
    const SourcePlace place = symbol.Place;
    const auto [entry, isNew] = m_locals.try_emplace(modTextCase::ToLower(name), std::move(symbol));
    if (!isNew) {
        m_scope.Messages.Redefined(name, place, entry->second.Place);
    }
    return isNew;
}

Variable NameResolver::NewLocal(const VariableShape& shape) {
    Variable variable;
    variable.Type = shape.Type;
    variable.IsFixedArray = shape.IsFixedArray;
    variable.IsNew = shape.IsNew;
    if (IsPlain(shape.Type)) {
        const Register slot = m_code.NewPlain();
        m_code.SetInitial(slot, InitialValue(shape.Type));
        variable.Index = slot;
        return variable;
    }
    const Register slot = m_code.NewGeneric();
    variable.Index = slot;
    if (shape.Type.IsArray || shape.Type.Kind == DeclaredKind::Record ||
        shape.Type.Kind == DeclaredKind::FixedString) {
        m_code.EmitWide(Opcode::MakeVariable, slot, m_scope.AddShape(shape));
    } else {
        m_code.SetInitial(slot, InitialValue(shape.Type));
    }
    return variable;
}

void NameResolver::DeclareLocal(const VariableNode& node, bool isStatic) {
    m_context.Place = node.Place;
    const VariableShape shape = m_scope.ShapeOf(node, m_scope.Module.OptionBase);
    LocalSymbol symbol;
    symbol.Place = node.Place;
    if (isStatic) {
        symbol.Variable = {
            Storage::Global, m_scope.AddGlobal(shape), shape.Type, shape.IsFixedArray, shape.IsNew};
    } else {
        symbol.Variable = NewLocal(shape);
    }
    AddLocal(node.Name, std::move(symbol));
}

void NameResolver::DeclareLocal(const ConstantNode& node) {
    LocalSymbol symbol;
    symbol.Place = node.Place;
    symbol.IsConstant = true;
    DeclaredType type;
    if (node.Suffix != 0 || !node.Type.Name.empty()) {
        type = m_scope.ResolveType(node.Type, node.Suffix, node.Name);
    }
    if (node.Value) {
        symbol.Constant = m_evaluator.Evaluate(*node.Value, type);
    }
    AddLocal(node.Name, std::move(symbol));
}

void NameResolver::DeclareLocals(const Block& block) {
    for (const Statement& statement : block) {
        if (const auto* declare = std::get_if<DeclareStatement>(&statement.Node)) {
            for (const VariableNode& variable : declare->Variables) {
                DeclareLocal(
                    variable, m_context.Node.IsStatic || declare->Scope == LocalScope::Static);
            }
        } else if (const auto* constants = std::get_if<ConstStatement>(&statement.Node)) {
            for (const ConstantNode& constant : constants->Constants) {
                DeclareLocal(constant);
            }
        } else if (const auto* choice = std::get_if<IfStatement>(&statement.Node)) {
            for (const IfBranch& branch : choice->Branches) {
                DeclareLocals(branch.Body);
            }
            DeclareLocals(choice->ElseBody);
        } else if (const auto* select = std::get_if<SelectStatement>(&statement.Node)) {
            for (const CaseClause& clause : select->Clauses) {
                DeclareLocals(clause.Body);
            }
        } else if (const auto* loop = std::get_if<ForStatement>(&statement.Node)) {
            DeclareLocals(loop->Body);
        } else if (const auto* each = std::get_if<ForEachStatement>(&statement.Node)) {
            DeclareLocals(each->Body);
        } else if (const auto* repeat = std::get_if<LoopStatement>(&statement.Node)) {
            DeclareLocals(repeat->Body);
        } else if (const auto* with = std::get_if<WithStatement>(&statement.Node)) {
            DeclareLocals(with->Body);
        }
    }
}

void NameResolver::DeclareParameters() {
    for (std::size_t i = 0; i < m_context.Node.Parameters.size(); ++i) {
        const Parameter& parameter = m_context.Target.Parameters[i];
        LocalSymbol symbol;
        symbol.Place = m_context.Node.Parameters[i].Place;
        symbol.Variable.Where = parameter.IsByVal ? Storage::Local : Storage::Reference;
        symbol.Variable.Index = static_cast<std::uint32_t>(i);
        symbol.Variable.Type = parameter.Type;
        AddLocal(parameter.Name, std::move(symbol));
    }
    const bool hasResult = m_context.Node.Kind == ProcedureKind::Function ||
                           m_context.Node.Kind == ProcedureKind::PropertyGet;
    if (!hasResult) {
        return;
    }
    VariableShape shape;
    shape.Type = m_context.Target.Result;
    LocalSymbol symbol;
    symbol.Place = m_context.Node.Place;
    symbol.IsResult = true;
    symbol.Variable = NewLocal(shape);
    m_context.Result = symbol.Variable;
    AddLocal(m_context.Node.Name, std::move(symbol));
}

}  // namespace dorvik::basic
