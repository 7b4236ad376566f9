#include "ProcedureCompiler.h"
#include "base/modTextCase.h"
#include "basic/library/BuiltinLookup.h"
#include "basic/values/Coercion.h"

namespace dorvik::basic {

const Value* ProcedureCompiler::FindConstant(
    const std::string& qualifier, const std::string& name, bool& wasTold) {
    if (qualifier.empty()) {
        const auto found = m_locals.find(modTextCase::ToLower(name));
        if (found != m_locals.end()) {
            return found->second.Constant ? &*found->second.Constant : nullptr;
        }
    }
    return m_scope.FindConstant(qualifier, name, wasTold);
}

NameMeaning
ProcedureCompiler::MeaningOf(const Symbol& symbol, const std::string& name, char suffix) {
    NameMeaning meaning;
    meaning.Symbol = &symbol;
    switch (symbol.Kind) {
        case SymbolKind::Variable: {
            const VariableShape& shape =
                m_scope.Result->Shapes[m_scope.Result->Globals[symbol.Index]];
            meaning.What = NameMeaning::Kind::Variable;
            meaning.Variable = {
                Storage::Global, symbol.Index, shape.Type, shape.IsFixedArray, shape.IsNew};
            CheckSuffix(shape.Type, suffix, name);
            break;
        }
        case SymbolKind::Constant:
            meaning.What = NameMeaning::Kind::Constant;
            meaning.Constant = m_scope.ConstantAt(symbol.Index);
            break;
        case SymbolKind::Procedure: meaning.What = NameMeaning::Kind::Procedure; break;
        case SymbolKind::External: meaning.What = NameMeaning::Kind::External; break;
        case SymbolKind::Record:
        case SymbolKind::Enum: meaning.What = NameMeaning::Kind::Type; break;
    }
    return meaning;
}

NameMeaning ProcedureCompiler::Resolve(const std::string& name, char suffix) {
    if (name.starts_with(kLanguagePrefix)) {
        if (m_locals.contains("vba") || m_scope.Find("vba") != nullptr) {
            Error(
                compileerror::kOther,
                m_place,
                "'VBA.' stands for the language itself; give the 'VBA' of the script another name");
        }
        return MeaningInLanguage(name.substr(kLanguagePrefix.size()), suffix);
    }
    NameMeaning meaning;
    const auto local = m_locals.find(modTextCase::ToLower(name));
    if (local != m_locals.end()) {
        const LocalSymbol& symbol = local->second;
        meaning.What =
            symbol.IsConstant ? NameMeaning::Kind::Constant : NameMeaning::Kind::Variable;
        meaning.Constant = symbol.Constant ? &*symbol.Constant : nullptr;
        meaning.Variable = symbol.Variable;
        meaning.IsResult = symbol.IsResult;
        if (!symbol.IsConstant) {
            CheckSuffix(symbol.Variable.Type, suffix, name);
        }
        return meaning;
    }
    if (const Symbol* symbol = m_scope.Find(name)) {
        return MeaningOf(*symbol, name, suffix);
    }
    meaning.Extension = m_scope.FindExtension(name);
    if (meaning.Extension != nullptr) {
        meaning.What = NameMeaning::Kind::Extension;
        return meaning;
    }
    return MeaningInLanguage(name, suffix);
}

NameMeaning ProcedureCompiler::MeaningInLanguage(const std::string& name, char suffix) {
    NameMeaning meaning;
    const std::string full = suffix != 0 ? name + suffix : name;
    meaning.Constant = FindBuiltinConstant(full);
    meaning.Builtin = FindBuiltin(full);
    if (meaning.Constant != nullptr) {
        meaning.What = NameMeaning::Kind::Constant;
    } else if (modTextCase::Equal(name, "Err") && suffix == 0) {
        meaning.What = NameMeaning::Kind::ErrObject;
    } else if (meaning.Builtin != nullptr) {
        meaning.What = NameMeaning::Kind::Builtin;
    }
    return meaning;
}

NameMeaning ProcedureCompiler::ResolveCallee(const std::string& name, char suffix) {
    NameMeaning meaning = Resolve(name, suffix);
    if (meaning.What == NameMeaning::Kind::Variable && meaning.IsResult) {
        if (const Symbol* symbol = m_scope.Find(name)) {
            return MeaningOf(*symbol, name, 0);
        }
    }
    return meaning;
}

void ProcedureCompiler::CheckSuffix(
    const DeclaredType& type, char suffix, const std::string& name) {
    if (suffix == 0) {
        return;
    }
    TypeName none;
    const DeclaredType said = m_scope.ResolveType(none, suffix, name);
    if (said.Kind != type.Kind &&
        !(said.Kind == DeclaredKind::String && type.Kind == DeclaredKind::FixedString)) {
        Error(
            compileerror::kOther,
            m_place,
            "'" + name + suffix + "' contradicts the declaration of '" + name + "' as " +
                TypeText(type));
    }
}

Variable
ProcedureCompiler::DeclareImplicit(const std::string& name, char suffix, SourcePlace place) {
    if (name.starts_with(kLanguagePrefix)) {
        Error(compileerror::kNotDefined, place, "'" + name + "' is not defined");
    } else if (m_scope.Module.OptionExplicit) {
        Error(compileerror::kUndeclared, place, "The name '" + name + "' is not declared");
    }
    VariableShape shape;
    shape.Type = m_scope.ResolveType({}, suffix, name);
    LocalSymbol symbol;
    symbol.Place = place;
    symbol.Variable = NewLocal(shape);
    m_locals.emplace(modTextCase::ToLower(name), symbol);
    return symbol.Variable;
}

NameMeaning ProcedureCompiler::VariableOrImplicit(const NameNode& node, SourcePlace place) {
    NameMeaning meaning = Resolve(node.Name, node.Suffix);
    if (meaning.What == NameMeaning::Kind::Unknown) {
        meaning.What = NameMeaning::Kind::Variable;
        meaning.Variable = DeclareImplicit(node.Name, node.Suffix, place);
    }
    return meaning;
}

bool ProcedureCompiler::AddLocal(const std::string& name, LocalSymbol symbol) {
    const SourcePlace place = symbol.Place;
    const auto [entry, isNew] = m_locals.try_emplace(modTextCase::ToLower(name), std::move(symbol));
    if (!isNew) {
        m_scope.Messages.Redefined(name, place, entry->second.Place);
    }
    return isNew;
}

Variable ProcedureCompiler::NewLocal(const VariableShape& shape) {
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

void ProcedureCompiler::DeclareLocal(const VariableNode& node, bool isStatic) {
    m_place = node.Place;
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

void ProcedureCompiler::DeclareLocal(const ConstantNode& node) {
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

/// Variables are known in the whole procedure, so all are declared before the first statement.
void ProcedureCompiler::DeclareLocals(const Block& block) {
    for (const Statement& statement : block) {
        if (const auto* declare = std::get_if<DeclareStatement>(&statement.Node)) {
            for (const VariableNode& variable : declare->Variables) {
                DeclareLocal(variable, m_node.IsStatic || declare->Scope == LocalScope::Static);
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

void ProcedureCompiler::EnsureNew(const Variable& variable) {
    const bool isLocal = variable.Where == Storage::Local;
    const auto slot = isLocal ? static_cast<Register>(variable.Index) : m_code.TemporaryGeneric();
    if (!isLocal) {
        ReferenceToVariable(variable, slot);
    }
    m_code.Emit(
        Opcode::EnsureObject, slot, static_cast<Register>(variable.Type.Class), 0, isLocal ? 1 : 0);
}

Operand ProcedureCompiler::Load(const Variable& variable) {
    Operand operand;
    operand.Type = variable.Type;
    operand.IsTyped = variable.Type.Kind != DeclaredKind::Variant || variable.Type.IsArray;
    operand.MakesObjects = variable.IsNew && variable.Type.IsArray;
    if (variable.IsNew && !variable.Type.IsArray) {
        EnsureNew(variable);
    }
    const bool isPlain = IsPlain(variable.Type);
    switch (variable.Where) {
        case Storage::Local: operand.Slot = static_cast<Register>(variable.Index); break;
        case Storage::Reference:
            operand.Slot = TemporaryFor(variable.Type);
            m_code.Emit(
                isPlain ? Opcode::LoadReferencePlain : Opcode::LoadReference,
                operand.Slot,
                static_cast<Register>(variable.Index));
            break;
        case Storage::Global:
            operand.Slot = TemporaryFor(variable.Type);
            m_code.EmitWide(
                isPlain ? Opcode::LoadGlobalPlain : Opcode::LoadGlobal,
                operand.Slot,
                variable.Index);
            break;
    }
    return operand;
}

}  // namespace dorvik::basic
