#include "ModuleScope.h"

#include "base/modTextCase.h"
#include "basic/library/BuiltinLookup.h"
#include "basic/values/Coercion.h"

#include <array>

namespace dorvik::basic {

namespace {

struct KindName {
    std::string_view Name;
    DeclaredKind Kind;
};
constexpr KindName kKinds[] = {
    {"variant", DeclaredKind::Variant},
    {"byte", DeclaredKind::Byte},
    {"boolean", DeclaredKind::Boolean},
    {"integer", DeclaredKind::Integer},
    {"long", DeclaredKind::Long},
    {"single", DeclaredKind::Single},
    {"double", DeclaredKind::Double},
    {"currency", DeclaredKind::Currency},
    {"date", DeclaredKind::Date},
    {"string", DeclaredKind::String},
    {"object", DeclaredKind::Object},
};

struct ClassRow {
    std::string_view Name;
    ObjectClass Class;
};
constexpr ClassRow kClasses[] = {
    {"collection", ObjectClass::Collection},
    {"dictionary", ObjectClass::Dictionary},
    {"scripting.dictionary", ObjectClass::Dictionary},
    {"regexp", ObjectClass::RegExp},
    {"vbscript.regexp", ObjectClass::RegExp},
    {"vbscript_regexp_55.regexp", ObjectClass::RegExp},
    {"match", ObjectClass::Match},
    {"matches", ObjectClass::Matches},
    {"matchcollection", ObjectClass::Matches},
    {"submatches", ObjectClass::SubMatches},
    {"errobject", ObjectClass::Err},
    {"vba.collection", ObjectClass::Collection},
    {"vba.errobject", ObjectClass::Err},
};

DeclaredKind KindOfSuffix(char suffix) {
    switch (suffix) {
        case '%': return DeclaredKind::Integer;
        case '&': return DeclaredKind::Long;
        case '!': return DeclaredKind::Single;
        case '#': return DeclaredKind::Double;
        case '@': return DeclaredKind::Currency;
        case '$': return DeclaredKind::String;
        default: return DeclaredKind::Variant;
    }
}

constexpr std::int32_t kLongestFixedString = 65'535;

}  // namespace

ModuleScope::ModuleScope(
    const ModuleNode& module,
    std::span<const ExtensionEntry> extensions,
    std::span<const ScriptOrigin> origins)
    : Module(module),
      Messages(origins),
      Result(std::make_unique<Program>()),
      Evaluator(*this, Messages, module.ComparesText),
      m_extensions(extensions) {}

const Symbol* ModuleScope::Find(std::string_view name) const {
    const auto found = m_symbols.find(modTextCase::ToLower(name));
    return found == m_symbols.end() ? nullptr : &found->second;
}

const ExtensionEntry* ModuleScope::FindExtension(std::string_view name) const {
    for (const ExtensionEntry& extension : m_extensions) {
        if (modTextCase::Equal(extension.Prefix, name)) {
            return &extension;
        }
    }
    return nullptr;
}

const Value* ModuleScope::FindConstant(
    const std::string& qualifier, const std::string& name, bool& wasReported) {
    if (!qualifier.empty()) {
        const Symbol* symbol = Find(qualifier);
        if (symbol == nullptr || symbol->Kind != SymbolKind::Enum) {
            return nullptr;
        }
        const auto& members = m_enums[symbol->Index];
        const auto found = members.find(modTextCase::ToLower(name));
        return found == members.end() ? nullptr : Compute(m_constants[found->second], wasReported);
    }
    if (name.starts_with(kLanguagePrefix)) {
        return FindBuiltinConstant(name.substr(kLanguagePrefix.size()));
    }
    if (const Symbol* symbol = Find(name)) {
        return symbol->Kind == SymbolKind::Constant
                   ? Compute(m_constants[symbol->Index], wasReported)
                   : nullptr;
    }
    return FindBuiltinConstant(name);
}

const Value* ModuleScope::ConstantAt(std::uint32_t index) {
    bool wasReported = false;
    return Compute(m_constants[index], wasReported);
}

const RecordType& ModuleScope::RecordAt(std::int32_t record) const {
    return Result->Records[static_cast<std::size_t>(record)];
}

const Value* ModuleScope::Compute(ConstantEntry& entry, bool& wasReported) {
    if (entry.State == Progress::Running) {
        Messages.Error(
            compileerror::kOther,
            entry.Place,
            "The constant '" + entry.Name + "' depends on itself");
        entry.State = Progress::Failed;
    }
    if (entry.State == Progress::Waiting) {
        entry.State = Progress::Running;
        std::optional<Value> value;
        if (entry.Source != nullptr) {
            value = Evaluator.Evaluate(*entry.Source, entry.HasType ? entry.Type : DeclaredType{});
        } else {
            // Members without a value follow the last one with a value, which may be far in front.
            std::int32_t distance = 0;
            int before = entry.Previous;
            while (before >= 0 && m_constants[static_cast<std::size_t>(before)].Source == nullptr &&
                   m_constants[static_cast<std::size_t>(before)].State != Progress::Done) {
                before = m_constants[static_cast<std::size_t>(before)].Previous;
                ++distance;
            }
            const Value* start =
                before < 0 ? nullptr
                           : Compute(m_constants[static_cast<std::size_t>(before)], wasReported);
            if (before < 0 || start != nullptr) {
                const std::int64_t number =
                    (start ? std::int64_t{start->AsLong()} + 1 : 0) + distance;
                if (number <= INT32_MAX) {
                    value = Value::Long(static_cast<std::int32_t>(number));
                } else {
                    Messages.Error(
                        compileerror::kOther,
                        entry.Place,
                        "The value of '" + entry.Name + "' is beyond the range of a Long");
                }
            }
        }
        const bool failed = !value || entry.State == Progress::Failed;
        entry.State = failed ? Progress::Failed : Progress::Done;
        if (!failed) {
            entry.Result = *value;
        }
    }
    wasReported = wasReported || entry.State == Progress::Failed;
    return entry.State == Progress::Done ? &entry.Result : nullptr;
}

bool ModuleScope::FindClass(std::string_view name, ObjectClass& which) {
    for (const ClassRow& row : kClasses) {
        if (modTextCase::Equal(row.Name, name)) {
            which = row.Class;
            return true;
        }
    }
    return false;
}

DeclaredType ModuleScope::ResolveType(const TypeName& type, char suffix, std::string_view name) {
    DeclaredType result;
    if (type.Name.empty()) {
        result.Kind = KindOfSuffix(suffix);
        const char first = name.empty() ? '_' : static_cast<char>(name.front() | 0x20);
        if (suffix == 0 && first >= 'a' && first <= 'z') {
            result.Kind = Module.DefaultKinds[first - 'a'];
        }
        return result;
    }
    const std::string lower = modTextCase::ToLower(type.Name);
    const KindName* found = nullptr;
    for (const KindName& row : kKinds) {
        if (row.Name == lower) {
            found = &row;
        }
    }
    const Symbol* symbol = Find(lower);
    if (found != nullptr) {
        result.Kind = found->Kind;
        if (type.FixedLength) {
            const auto length = Evaluator.EvaluateLong(*type.FixedLength);
            result.Kind = DeclaredKind::FixedString;
            result.Length = length.value_or(1);
            if (result.Length < 1 || result.Length > kLongestFixedString) {
                Messages.Error(
                    compileerror::kOther,
                    type.Place,
                    "The length of a fixed string must lie between 1 and 65535");
            }
        }
    } else if (symbol != nullptr && symbol->Kind == SymbolKind::Record) {
        result.Kind = DeclaredKind::Record;
        result.Record = static_cast<std::int32_t>(symbol->Index);
    } else if (symbol != nullptr && symbol->Kind == SymbolKind::Enum) {
        result.Kind = DeclaredKind::Long;
    } else if (FindClass(type.Name, result.Class)) {
        result.Kind = DeclaredKind::Object;
    } else {
        Messages.Error(
            compileerror::kOther, type.Place, "The type '" + type.Name + "' is not defined");
    }
    if (suffix != 0 && result.Kind != KindOfSuffix(suffix)) {
        Messages.Error(
            compileerror::kOther,
            type.Place,
            "The suffix of '" + std::string(name) + "' contradicts its type");
    }
    if (type.IsNew && (result.Kind != DeclaredKind::Object || result.Class == ObjectClass::Any)) {
        Messages.Error(compileerror::kOther, type.Place, "'New' needs a class that can be created");
    }
    result.IsArray = type.IsArray;
    return result;
}

VariableShape ModuleScope::ShapeOf(const VariableNode& variable, std::int32_t optionBase) {
    VariableShape shape;
    shape.Type = ResolveType(variable.Type, variable.Suffix, variable.Name);
    shape.IsNew = variable.Type.IsNew;
    shape.Type.IsArray = variable.IsArray;
    shape.IsFixedArray = variable.IsArray && !variable.Bounds.empty();
    for (const BoundsNode& node : variable.Bounds) {
        Bounds bounds{optionBase, 0};
        if (node.Lower) {
            bounds.Lower = Evaluator.EvaluateLong(*node.Lower).value_or(0);
        }
        const auto upper = node.Upper ? Evaluator.EvaluateLong(*node.Upper) : std::nullopt;
        bounds.Upper = upper.value_or(bounds.Lower);
        if (bounds.Lower > bounds.Upper) {
            Messages.Error(
                compileerror::kOther,
                variable.Place,
                "The lower bound of '" + variable.Name + "' is above the upper one");
            bounds.Upper = bounds.Lower;
        }
        shape.Dimensions.push_back(bounds);
    }
    return shape;
}

std::uint32_t ModuleScope::AddConstant(const Value& value) {
    auto& constants = Result->Constants;
    if (value.Type() == ValueType::String) {
        const auto [place, isNew] = m_textConstants.try_emplace(
            std::string(value.AsText()), static_cast<std::uint32_t>(constants.size()));
        if (!isNew) {
            return place->second;
        }
    }
    constants.push_back(value);
    return static_cast<std::uint32_t>(constants.size() - 1);
}

std::uint32_t ModuleScope::AddShape(const VariableShape& shape) {
    Result->Shapes.push_back(shape);
    return static_cast<std::uint32_t>(Result->Shapes.size() - 1);
}

std::uint32_t ModuleScope::AddType(const DeclaredType& type) {
    auto& types = Result->Types;
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (types[i] == type) {
            return static_cast<std::uint32_t>(i);
        }
    }
    types.push_back(type);
    return static_cast<std::uint32_t>(types.size() - 1);
}

std::uint32_t ModuleScope::AddGlobal(const VariableShape& shape) {
    Result->Globals.push_back(AddShape(shape));
    return static_cast<std::uint32_t>(Result->Globals.size() - 1);
}

std::uint32_t ModuleScope::AddBuiltin(const BuiltinFunction* function) {
    auto& builtins = Result->Builtins;
    for (std::size_t i = 0; i < builtins.size(); ++i) {
        if (builtins[i] == function) {
            return static_cast<std::uint32_t>(i);
        }
    }
    builtins.push_back(function);
    return static_cast<std::uint32_t>(builtins.size() - 1);
}

}  // namespace dorvik::basic
