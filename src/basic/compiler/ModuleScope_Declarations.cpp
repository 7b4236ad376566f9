#include "ModuleScope.h"
#include "base/modTextCase.h"
#include "basic/values/Coercion.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

/// Types within types; each level takes stack when a variable is made or copied.
constexpr int kDeepestRecords = 50;

}  // namespace

void ModuleScope::Declare() {
    Result->Name = Module.Name;
    Result->ComparesText = Module.ComparesText;
    for (const ModuleItem& item : Module.Items) {
        std::visit([this](const auto& node) { DeclareName(node); }, item);
    }
    for (std::uint32_t i = 0; i < m_constants.size(); ++i) {
        ConstantAt(i);
    }
    for (const ModuleItem& item : Module.Items) {
        if (const auto* node = std::get_if<RecordNode>(&item)) {
            DeclareMembers(*node);
        }
    }
    CheckRecordDepth();
    for (const ModuleItem& item : Module.Items) {
        if (const auto* node = std::get_if<ModuleVariablesNode>(&item)) {
            DeclareVariables(*node);
        }
    }
    for (std::size_t i = 0; i < Nodes.size(); ++i) {
        DeclareHead(*Nodes[i], Result->Procedures[i]);
    }
    CheckProperties();
}

Symbol* ModuleScope::AddName(
    const std::string& name, SymbolKind kind, SourcePlace place, std::size_t index) {
    Symbol symbol{kind, place, static_cast<std::uint32_t>(index)};
    const auto [entry, isNew] = m_symbols.try_emplace(modTextCase::ToLower(name), symbol);
    if (isNew) {
        return &entry->second;
    }
    Messages.Redefined(name, place, entry->second.Place);
    return nullptr;
}

void ModuleScope::DeclareName(const ModuleConstantsNode& node) {
    for (const ConstantNode& constant : node.Constants) {
        AddName(constant.Name, SymbolKind::Constant, constant.Place, m_constants.size());
        ConstantEntry entry;
        entry.Name = constant.Name;
        entry.Place = constant.Place;
        entry.Source = constant.Value.get();
        entry.HasType = constant.Suffix != 0 || !constant.Type.Name.empty();
        if (entry.HasType) {
            entry.Type = ResolveType(constant.Type, constant.Suffix, constant.Name);
        }
        m_constants.push_back(std::move(entry));
    }
}

void ModuleScope::DeclareName(const RecordNode& node) {
    AddName(node.Name, SymbolKind::Record, node.Place, Result->Records.size());
    Result->Records.push_back({node.Name, {}});
}

void ModuleScope::DeclareName(const EnumNode& node) {
    AddName(node.Name, SymbolKind::Enum, node.Place, m_enums.size());
    m_enums.emplace_back();
    int previous = -1;
    for (const EnumMemberNode& member : node.Members) {
        AddName(member.Name, SymbolKind::Constant, member.Place, m_constants.size());
        m_enums.back().try_emplace(
            modTextCase::ToLower(member.Name), static_cast<std::uint32_t>(m_constants.size()));
        ConstantEntry entry;
        entry.Name = member.Name;
        entry.Place = member.Place;
        entry.Source = member.Value.get();
        entry.Type.Kind = DeclaredKind::Long;
        entry.HasType = true;
        entry.Previous = previous;
        previous = static_cast<int>(m_constants.size());
        m_constants.push_back(std::move(entry));
    }
}

void ModuleScope::DeclareName(const ExternalNode& node) {
    AddName(node.Name, SymbolKind::External, node.Place, node.IsFunction ? 1 : 0);
    Messages.Warn(
        node.Place, "'" + node.Name + "' is declared outside: calling it raises error 70");
}

void ModuleScope::DeclareName(const ProcedureNode& node) {
    const auto index = static_cast<int>(Nodes.size());
    Nodes.push_back(&node);
    Procedure procedure;
    procedure.Name = node.Name;
    procedure.Kind = node.Kind;
    procedure.IsPrivate = node.IsPrivate;
    procedure.Place = node.Place;
    Result->Procedures.push_back(std::move(procedure));
    if (node.Kind == ProcedureKind::Sub || node.Kind == ProcedureKind::Function) {
        AddName(node.Name, SymbolKind::Procedure, node.Place, static_cast<std::size_t>(index));
    } else {
        DeclareProperty(node, index);
    }
}

void ModuleScope::DeclareProperty(const ProcedureNode& node, int index) {
    const auto found = m_symbols.find(modTextCase::ToLower(node.Name));
    Symbol* symbol = found == m_symbols.end() ? nullptr : &found->second;
    if (symbol == nullptr) {
        symbol = AddName(node.Name, SymbolKind::Procedure, node.Place, 0);
    } else if (!symbol->IsProperty) {
        return Messages.Redefined(node.Name, node.Place, symbol->Place);
    }
    symbol->IsProperty = true;
    int& place = node.Kind == ProcedureKind::PropertyGet   ? symbol->Get
                 : node.Kind == ProcedureKind::PropertyLet ? symbol->Let
                                                           : symbol->Set;
    if (place >= 0) {
        Messages.Redefined(
            node.Name, node.Place, Result->Procedures[static_cast<std::size_t>(place)].Place);
    } else {
        place = index;
    }
}

void ModuleScope::DeclareVariables(const ModuleVariablesNode& node) {
    for (const VariableNode& variable : node.Variables) {
        const VariableShape shape = ShapeOf(variable, Module.OptionBase);
        AddName(variable.Name, SymbolKind::Variable, variable.Place, AddGlobal(shape));
    }
}

void ModuleScope::DeclareMembers(const RecordNode& node) {
    const Symbol* symbol = Find(node.Name);
    if (symbol == nullptr || symbol->Kind != SymbolKind::Record || symbol->Place != node.Place) {
        return;
    }
    std::unordered_map<std::string, SourcePlace> places;
    for (const VariableNode& variable : node.Members) {
        const auto [place, isNew] =
            places.try_emplace(modTextCase::ToLower(variable.Name), variable.Place);
        if (!isNew) {
            Messages.Redefined(variable.Name, variable.Place, place->second);
        }
        // Required: arrays in a Type begin at 0 whatever Option Base says.
        Result->Records[symbol->Index].Members.push_back({variable.Name, ShapeOf(variable, 0)});
    }
}

/// Each round over all types finds one more level, so that a long chain takes no stack.
void ModuleScope::CheckRecordDepth() {
    std::vector<int> depths(Result->Records.size(), 1);
    bool changed = true;
    for (int pass = 0; changed && pass <= kDeepestRecords; ++pass) {
        changed = false;
        for (std::size_t i = 0; i < depths.size(); ++i) {
            for (const RecordMember& member : Result->Records[i].Members) {
                if (member.Shape.Type.Kind != DeclaredKind::Record) {
                    continue;
                }
                const int inner = depths[static_cast<std::size_t>(member.Shape.Type.Record)] + 1;
                changed = changed || inner > depths[i];
                depths[i] = std::max(depths[i], inner);
            }
        }
    }
    const auto deep = std::find_if(
        depths.begin(), depths.end(), [](int depth) { return depth > kDeepestRecords; });
    if (deep == depths.end()) {
        return;
    }
    const std::string& name = Result->Records[static_cast<std::size_t>(deep - depths.begin())].Name;
    const Symbol* symbol = Find(name);
    Messages.Error(
        compileerror::kOther,
        symbol ? symbol->Place : SourcePlace{1, 1},
        "The type '" + name + "' contains itself, or types too deep in it");
}

Parameter ModuleScope::HeadOf(const ParameterNode& node) {
    Parameter parameter;
    parameter.Name = node.Name;
    parameter.Type = ResolveType(node.Type, node.Suffix, node.Name);
    parameter.Type.IsArray = node.IsArray || node.IsParamArray;
    parameter.IsByVal = node.IsByVal || node.IsParamArray;
    parameter.IsOptional = node.IsOptional;
    parameter.IsParamArray = node.IsParamArray;
    const bool isRecord = parameter.Type.Kind == DeclaredKind::Record;
    if (node.IsByVal && (node.IsArray || isRecord)) {
        Messages.Error(
            compileerror::kOther,
            node.Place,
            "An array or a value of a Type cannot be passed ByVal: '" + node.Name + "'");
    }
    if (node.IsParamArray && parameter.Type.Kind != DeclaredKind::Variant) {
        Messages.Error(
            compileerror::kOther, node.Place, "A ParamArray must be an array of Variant");
    }
    if (node.IsOptional && (node.IsArray || isRecord)) {
        Messages.Error(
            compileerror::kOther, node.Place, "An array or a value of a Type cannot be optional");
    } else if (node.Default) {
        parameter.Default =
            Evaluator.Evaluate(*node.Default, parameter.Type).value_or(Value::Missing());
    } else if (node.IsOptional && parameter.Type.Kind != DeclaredKind::Variant) {
        parameter.Default = InitialValue(parameter.Type);
    } else {
        parameter.Default = Value::Missing();
    }
    return parameter;
}

void ModuleScope::DeclareHead(const ProcedureNode& node, Procedure& procedure) {
    bool sawOptional = false;
    for (std::size_t i = 0; i < node.Parameters.size(); ++i) {
        const ParameterNode& parameter = node.Parameters[i];
        procedure.Parameters.push_back(HeadOf(parameter));
        const bool isValueOfProperty =
            (node.Kind == ProcedureKind::PropertyLet || node.Kind == ProcedureKind::PropertySet) &&
            i + 1 == node.Parameters.size();
        if (sawOptional && !parameter.IsOptional && !parameter.IsParamArray && !isValueOfProperty) {
            Messages.Error(
                compileerror::kOther,
                parameter.Place,
                "'" + parameter.Name + "' follows an Optional parameter and must be Optional too");
        }
        if (parameter.IsParamArray && i + 1 != node.Parameters.size()) {
            Messages.Error(
                compileerror::kOther, parameter.Place, "A ParamArray must be the last parameter");
        }
        if (parameter.IsParamArray && sawOptional) {
            Messages.Error(
                compileerror::kOther,
                parameter.Place,
                "A ParamArray cannot follow an Optional parameter");
        }
        sawOptional = sawOptional || parameter.IsOptional;
    }
    const bool hasResult =
        node.Kind == ProcedureKind::Function || node.Kind == ProcedureKind::PropertyGet;
    if (hasResult) {
        procedure.Result = ResolveType(node.Result, node.Suffix, node.Name);
    }
    if (!hasResult && node.Kind != ProcedureKind::Sub && node.Parameters.empty()) {
        Messages.Error(
            compileerror::kPropertyNeedsArgument,
            node.Place,
            "Property Let and Property Set need an argument: '" + node.Name + "'");
    }
}

void ModuleScope::CheckProperties() {
    for (const auto& [name, symbol] : m_symbols) {
        if (symbol.IsProperty) {
            CheckProperty(name, symbol);
        }
    }
}

void ModuleScope::CheckProperty(const std::string& name, const Symbol& symbol) {
    const auto countOf = [this](int index, int taken) {
        return index < 0
                   ? -1
                   : static_cast<int>(
                         Result->Procedures[static_cast<std::size_t>(index)].Parameters.size()) -
                         taken;
    };
    const int counts[] = {countOf(symbol.Get, 0), countOf(symbol.Let, 1), countOf(symbol.Set, 1)};
    int seen = -1;
    for (const int count : counts) {
        if (count < 0) {
            continue;
        }
        if (seen >= 0 && seen != count) {
            return Messages.Error(
                compileerror::kPropertyArguments,
                symbol.Place,
                "The procedures of the property '" + name +
                    "' differ in their number of arguments");
        }
        seen = count;
    }
}

}  // namespace dorvik::basic
