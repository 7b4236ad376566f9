#include "NameResolver.h"

#include "OperandTypes.h"
#include "base/modTextCase.h"
#include "basic/library/BuiltinLookup.h"

namespace dorvik::basic {

bool NameResolver::HasLocal(const std::string& name) const {
    return m_locals.contains(modTextCase::ToLower(name));
}

const ExtensionEntry* NameResolver::ExtensionOf(const Expression* target) {
    const auto* name = target != nullptr ? std::get_if<NameNode>(&target->Node) : nullptr;
    return name != nullptr ? Resolve(name->Name, 0).Extension : nullptr;
}

const Value* NameResolver::EnumMemberOf(const MemberNode& node) {
    const auto* name = node.Target ? std::get_if<NameNode>(&node.Target->Node) : nullptr;
    if (name == nullptr || Resolve(name->Name, 0).What != NameMeaning::Kind::Type) {
        return nullptr;
    }
    bool wasReported = false;
    return m_scope.FindConstant(name->Name, node.Name, wasReported);
}

const Value* NameResolver::FindConstant(
    const std::string& qualifier, const std::string& name, bool& wasReported) {
    if (qualifier.empty()) {
        const auto found = m_locals.find(modTextCase::ToLower(name));
        if (found != m_locals.end()) {
            return found->second.Constant ? &*found->second.Constant : nullptr;
        }
    }
    return m_scope.FindConstant(qualifier, name, wasReported);
}

NameMeaning NameResolver::MeaningOf(const Symbol& symbol, const std::string& name, char suffix) {
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

NameMeaning NameResolver::Resolve(const std::string& name, char suffix) {
    if (name.starts_with(kLanguagePrefix)) {
        if (m_locals.contains("vba") || m_scope.Find("vba") != nullptr) {
            Error(
                compileerror::kOther,
                m_context.Place,
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

NameMeaning NameResolver::MeaningInLanguage(const std::string& name, char suffix) {
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

NameMeaning NameResolver::ResolveCallee(const std::string& name, char suffix) {
    NameMeaning meaning = Resolve(name, suffix);
    if (meaning.What == NameMeaning::Kind::Variable && meaning.IsResult) {
        if (const Symbol* symbol = m_scope.Find(name)) {
            return MeaningOf(*symbol, name, 0);
        }
    }
    return meaning;
}

void NameResolver::CheckSuffix(const DeclaredType& type, char suffix, const std::string& name) {
    if (suffix == 0) {
        return;
    }
    TypeName none;
    const DeclaredType said = m_scope.ResolveType(none, suffix, name);
    if (said.Kind != type.Kind &&
        !(said.Kind == DeclaredKind::String && type.Kind == DeclaredKind::FixedString)) {
        Error(
            compileerror::kOther,
            m_context.Place,
            "'" + name + suffix + "' contradicts the declaration of '" + name + "' as " +
                TypeText(type));
    }
}

Variable NameResolver::DeclareImplicit(const std::string& name, char suffix, SourcePlace place) {
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

NameMeaning NameResolver::VariableOrImplicit(const NameNode& node, SourcePlace place) {
    NameMeaning meaning = Resolve(node.Name, node.Suffix);
    if (meaning.What == NameMeaning::Kind::Unknown) {
        meaning.What = NameMeaning::Kind::Variable;
        meaning.Variable = DeclareImplicit(node.Name, node.Suffix, place);
    }
    return meaning;
}

}  // namespace dorvik::basic
