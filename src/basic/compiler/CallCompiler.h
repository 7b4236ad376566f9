#pragma once

#include "NameMeaning.h"
#include "Operand.h"
#include "ProcedurePart.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::basic {

/// Calls the procedures of the module and the built-in functions.
class CallCompiler : private ProcedurePart {
public:
    explicit CallCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// Calls the procedure of that index. A Property Let or Set gets `newValue` as its last argument.
    Operand CallProcedure(
        std::size_t index,
        const std::vector<Argument>& arguments,
        SourcePlace place,
        bool wantsResult,
        const Operand* newValue = nullptr,
        bool setsValue = false);
    /// Calls what a name stands for: a procedure, a property, a built-in function. REQUIRES: one of those.
    Operand CallSymbol(
        const NameMeaning& meaning,
        const std::string& name,
        const std::vector<Argument>& arguments,
        SourcePlace place,
        bool wantsResult);
    void Compile(const CallStatement& node, SourcePlace place);

private:
    using BoundArguments = std::vector<const Argument*>;

    Operand CallBuiltin(
        const BuiltinFunction& function,
        const std::vector<Argument>& arguments,
        SourcePlace place,
        bool wantsResult);
    std::optional<BoundArguments> BindBuiltin(
        const BuiltinFunction& function, const std::vector<Argument>& arguments, SourcePlace place);
    std::optional<Operand>
    TryLength(const BuiltinFunction& function, const std::vector<Argument>& arguments);
    Operand
    RejectCall(const std::string& name, const std::vector<Argument>& arguments, SourcePlace place);
    bool BindArguments(
        const std::string& name,
        const std::vector<Argument>& arguments,
        const std::vector<std::string_view>& parameters,
        BoundArguments& bound,
        SourcePlace place);
};

}  // namespace dorvik::basic
