#pragma once

#include "basic/compiler/Compiler.h"
#include "basic/syntax/ConstantEvaluator.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace dorvik::basic {

enum class SymbolKind : std::uint8_t { Variable, Constant, Record, Enum, Procedure, External };

/// What a name of the module stands for.
struct Symbol {
    SymbolKind Kind = SymbolKind::Variable;
    SourcePlace Place;
    std::uint32_t Index = 0;  // of the global, constant, record, enum or procedure
    bool IsProperty = false;  // then these are its procedures, or -1
    int Get = -1;
    int Let = -1;
    int Set = -1;
};

/// The names, types and constants of a module, and the tables of the program being made.
class ModuleScope : public IConstantNames {
public:
    ModuleScope(
        const ModuleNode& module,
        std::span<const ExtensionEntry> extensions,
        std::span<const ScriptOrigin> origins);

    /// Declares everything outside the procedures, and the heads of the procedures.
    void Declare();

    const Symbol* Find(std::string_view name) const;
    const ExtensionEntry* FindExtension(std::string_view name) const;
    const Value*
    FindConstant(const std::string& qualifier, const std::string& name, bool& wasReported) override;
    const Value* ConstantAt(std::uint32_t index);

    /// A `Type` of the module by its index. REQUIRES: there is one.
    const RecordType& RecordAt(std::int32_t record) const;

    DeclaredType ResolveType(const TypeName& type, char suffix, std::string_view name);
    VariableShape ShapeOf(const VariableNode& variable, std::int32_t optionBase);
    /// The class of objects that a name after `As` or `New` stands for; false if there is none.
    static bool FindClass(std::string_view name, ObjectClass& which);

    std::uint32_t AddConstant(const Value& value);
    std::uint32_t AddShape(const VariableShape& shape);
    std::uint32_t AddType(const DeclaredType& type);
    std::uint32_t AddGlobal(const VariableShape& shape);
    std::uint32_t AddBuiltin(const BuiltinFunction* function);

    const ModuleNode& Module;
    Diagnostics Messages;
    std::unique_ptr<Program> Result;
    ConstantEvaluator Evaluator;
    /// The tree of each procedure of the program.
    std::vector<const ProcedureNode*> Nodes;

private:
    enum class Progress : std::uint8_t { Waiting, Running, Done, Failed };
    struct ConstantEntry {
        std::string Name;
        SourcePlace Place;
        const Expression* Source = nullptr;
        DeclaredType Type;
        bool HasType = false;
        int Previous = -1;  // of an enum's member without a value: the member before it
        Progress State = Progress::Waiting;
        Value Result;
    };

    Symbol* AddName(const std::string& name, SymbolKind kind, SourcePlace place, std::size_t index);
    void DeclareName(const ModuleConstantsNode& node);
    void DeclareName(const RecordNode& node);
    void DeclareName(const EnumNode& node);
    void DeclareName(const ExternalNode& node);
    void DeclareName(const ProcedureNode& node);
    void DeclareName(const ModuleVariablesNode&) {}
    void DeclareProperty(const ProcedureNode& node, int index);
    void DeclareVariables(const ModuleVariablesNode& node);
    void DeclareMembers(const RecordNode& node);
    void DeclareHead(const ProcedureNode& node, Procedure& procedure);
    Parameter HeadOf(const ParameterNode& node);
    void CheckProperties();
    void CheckProperty(const std::string& name, const Symbol& symbol);
    void CheckRecordDepth();
    const Value* Compute(ConstantEntry& entry, bool& wasReported);

    std::span<const ExtensionEntry> m_extensions;
    std::unordered_map<std::string, Symbol> m_symbols;  // by the lower-case name
    std::vector<ConstantEntry> m_constants;
    std::vector<std::unordered_map<std::string, std::uint32_t>> m_enums;
    std::unordered_map<std::string, std::uint32_t> m_textConstants;
};

}  // namespace dorvik::basic
