#include "CallCompiler.h"

#include "ArgumentCompiler.h"
#include "ExpressionCompiler.h"
#include "LValueCompiler.h"
#include "MemberCompiler.h"
#include "NameResolver.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "base/modTextCase.h"
#include "basic/program/RecordLayout.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueKinds.h"

#include <algorithm>
#include <iterator>

namespace dorvik::basic {

namespace {

std::string Plural(std::size_t count, const std::string& word) {
    return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

/// The parameters of a built-in function: "String Start ?Length" has three.
std::vector<std::string_view> NamesOf(std::string_view parameters) {
    std::vector<std::string_view> names;
    while (!parameters.empty()) {
        const std::size_t end = std::min(parameters.find(' '), parameters.size());
        std::string_view name = parameters.substr(0, end);
        if (name.starts_with('?')) {
            name.remove_prefix(1);
        }
        if (!name.empty()) {
            names.push_back(name);
        }
        parameters.remove_prefix(std::min(end + 1, parameters.size()));
    }
    return names;
}

constexpr std::size_t kMostArguments = 10'000;

}  // namespace

bool CallCompiler::BindArguments(
    const std::string& name,
    const std::vector<Argument>& arguments,
    const std::vector<std::string_view>& parameters,
    BoundArguments& bound,
    SourcePlace place) {
    bound.assign(parameters.size(), nullptr);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const Argument& argument = arguments[i];
        std::size_t position = i;
        if (!argument.Name.empty()) {
            const auto found =
                std::find_if(parameters.begin(), parameters.end(), [&](std::string_view parameter) {
                    return modTextCase::Equal(parameter, argument.Name);
                });
            position = static_cast<std::size_t>(found - parameters.begin());
            if (found == parameters.end()) {
                Error(
                    runtimeerror::kNamedArgumentNotFound,
                    place,
                    "'" + name + "' has no argument named '" + argument.Name + "'");
                return false;
            }
        }
        if (position >= parameters.size()) {
            Error(
                compileerror::kOther,
                place,
                "'" + name + "' takes " + Plural(parameters.size(), "argument") + ", not " +
                    std::to_string(arguments.size()));
            return false;
        }
        if (bound[position] != nullptr) {
            Error(
                runtimeerror::kArgumentNotOptional,
                place,
                "The argument '" + argument.Name + "' is given twice");
            return false;
        }
        bound[position] = &argument;
    }
    return true;
}

Operand CallCompiler::CallProcedure(
    std::size_t index,
    const std::vector<Argument>& arguments,
    SourcePlace place,
    bool wantsResult,
    const Operand* newValue,
    bool setsValue) {
    const Procedure& callee = m_scope.Result->Procedures[index];
    const std::size_t given = callee.Parameters.size() - (newValue != nullptr ? 1 : 0);
    const bool hasRest = given > 0 && callee.Parameters[given - 1].IsParamArray;
    const std::size_t single = given - (hasRest ? 1 : 0);
    std::vector<std::string_view> names;
    for (std::size_t i = 0; i < single; ++i) {
        names.push_back(callee.Parameters[i].Name);
    }
    const bool splits = hasRest && arguments.size() > single;
    BoundArguments bound;
    if (splits && ArgumentCompiler::HasNames(arguments)) {
        Error(
            runtimeerror::kNoNamedArguments,
            place,
            "Named arguments and a ParamArray cannot be used together");
        return Operands().Nothing();
    }
    if (splits) {
        for (std::size_t i = 0; i < single; ++i) {
            bound.push_back(&arguments[i]);
        }
    } else if (!BindArguments(callee.Name, arguments, names, bound, place)) {
        return Operands().Nothing();
    }

    std::vector<AfterCall> after;
    const Register first = m_code.PushArguments(callee.Parameters.size());
    for (std::size_t i = 0; i < single; ++i) {
        Arguments().Pass(
            callee.Parameters[i], bound[i], static_cast<Register>(first + i), place, after);
    }
    if (hasRest) {
        Arguments().PassRest(arguments, single, static_cast<Register>(first + single), after);
    }
    if (newValue != nullptr) {
        Arguments().PassNewValue(
            callee.Parameters[given], *newValue, setsValue, static_cast<Register>(first + given));
    }
    Operand result;
    result.Type = callee.Result;
    result.IsTyped = result.Type.Kind != DeclaredKind::Variant;
    result.IsFresh = true;
    if (wantsResult) {
        result.Slot = Operands().TemporaryFor(result.Type);
    }
    m_code.EmitTarget(Opcode::Call, result.Slot, index, first);
    for (const AfterCall& entry : after) {
        if (entry.What != AfterCall::Kind::Unpin) {
            m_code.AddCopyBack(
                entry.Reference,
                entry.Slot,
                entry.What == AfterCall::Kind::CopyElement ? entry.Element
                                                           : ArgumentCopy::kNoElement);
        }
    }
    m_code.PopArguments(callee.Parameters.size());
    Arguments().Finish(after);
    return result;
}

Operand CallCompiler::CallSymbol(
    const NameMeaning& meaning,
    const std::string& name,
    const std::vector<Argument>& arguments,
    SourcePlace place,
    bool wantsResult) {
    if (meaning.What == NameMeaning::Kind::External) {
        return RejectCall(name, arguments, place);
    }
    if (meaning.What == NameMeaning::Kind::Builtin) {
        return CallBuiltin(*meaning.Builtin, arguments, place, wantsResult);
    }
    const Symbol& symbol = *meaning.Symbol;
    if (symbol.IsProperty && symbol.Get < 0) {
        Error(compileerror::kOther, place, "The property '" + name + "' cannot be read");
        return Operands().Nothing();
    }
    const auto index = symbol.IsProperty ? static_cast<std::size_t>(symbol.Get) : symbol.Index;
    const Procedure& callee = m_scope.Result->Procedures[index];
    if (wantsResult && callee.Kind == ProcedureKind::Sub) {
        Error(compileerror::kOther, place, "'" + name + "' is a Sub and has no value");
        return Operands().Nothing();
    }
    if (wantsResult && callee.Parameters.empty() && !arguments.empty()) {
        return Members().ElementOf(CallProcedure(index, {}, place, true), arguments, place);
    }
    return CallProcedure(index, arguments, place, wantsResult);
}

/// `Len` of what is declared as a number or a Type gives the bytes that it takes.
std::optional<Operand>
CallCompiler::TryLength(const BuiltinFunction& function, const std::vector<Argument>& arguments) {
    const bool isLength = function.Id == BuiltinId::Len || function.Id == BuiltinId::LenB;
    if (!isLength || arguments.size() != 1 || !arguments[0].Value) {
        return std::nullopt;
    }
    const Expression& expression = *arguments[0].Value;
    const LValue lvalue = LValues().LValueOf(expression);
    const bool isRecord = IsRecord(lvalue.Type);
    if (!lvalue.IsAssignable || (!isRecord && !IsPlain(lvalue.Type))) {
        return std::nullopt;
    }
    if (!lvalue.IsVariable) {
        Expressions().Evaluate(expression);  // there must be such an element
    }
    if (isRecord) {
        const auto form = function.Id == BuiltinId::Len ? modRecordLayout::Form::File
                                                        : modRecordLayout::Form::Memory;
        // With an error among the declarations a Type may contain itself.
        const bool isSound = m_scope.Messages.Errors.empty();
        const std::int64_t size =
            isSound ? modRecordLayout::SizeOf(*m_scope.Result, lvalue.Type.Record, form) : 0;
        return Operands().Fold(
            Value::Long(static_cast<std::int32_t>(std::min<std::int64_t>(size, INT32_MAX))));
    }
    static constexpr std::int16_t kBytes[] = {0, 1, 2, 2, 4, 4, 8, 8, 8};  // of the plain kinds
    static_assert(std::size(kBytes) == static_cast<std::size_t>(DeclaredKind::Date) + 1);
    return Operands().Fold(Value::Long(kBytes[static_cast<std::size_t>(lvalue.Type.Kind)]));
}

/// The arguments of a built-in function up to the last one that is given, with those that it requires. Nothing if they
/// do not fit; that has been reported then.
std::optional<CallCompiler::BoundArguments> CallCompiler::BindBuiltin(
    const BuiltinFunction& function, const std::vector<Argument>& arguments, SourcePlace place) {
    const std::string name(function.Name);
    BoundArguments bound;
    if (function.MostArguments() < 0) {
        for (const Argument& argument : arguments) {
            bound.push_back(&argument);
        }
        if (ArgumentCompiler::HasNames(arguments) || arguments.size() > kMostArguments) {
            Error(
                runtimeerror::kNoNamedArguments,
                place,
                "'" + name + "' takes no named arguments, and not more than 10000");
            return std::nullopt;
        }
    } else if (!BindArguments(name, arguments, NamesOf(function.Parameters), bound, place)) {
        return std::nullopt;
    }
    const auto least = static_cast<std::size_t>(function.LeastArguments());
    while (bound.size() > least && bound.back() == nullptr) {
        bound.pop_back();
    }
    for (std::size_t i = 0; i < least; ++i) {
        if (i >= bound.size() || bound[i] == nullptr || !bound[i]->Value) {
            Error(
                runtimeerror::kArgumentNotOptional,
                place,
                "'" + name + "' needs " + Plural(least, "argument"));
            return std::nullopt;
        }
    }
    return bound;
}

Operand CallCompiler::CallBuiltin(
    const BuiltinFunction& function,
    const std::vector<Argument>& arguments,
    SourcePlace place,
    bool wantsResult) {
    if (function.IsRefused) {
        m_scope.Messages.Warn(
            place, "'" + std::string(function.Name) + "' is refused: reaching it raises error 70");
    }
    if (auto length = TryLength(function, arguments)) {
        return *length;
    }
    const auto bound = BindBuiltin(function, arguments, place);
    if (!bound) {
        return Operands().Nothing();
    }
    const std::size_t count = bound->size();
    if (function.Id == BuiltinId::DoEvents) {
        m_code.Emit(Opcode::Yield);
    }
    const Register first = m_code.PushArguments(count);
    for (std::size_t i = 0; i < count; ++i) {
        Arguments().EvaluateShared((*bound)[i], static_cast<Register>(first + i));
    }
    Operand result;
    result.Type.Kind = function.Result;
    result.IsTyped = function.Result != DeclaredKind::Variant;
    result.IsFresh = true;
    if (wantsResult) {
        result.Slot = Operands().TemporaryFor(result.Type);
    }
    const bool isShort = count < kCountInNextWord;
    m_code.Emit(
        Opcode::CallBuiltin,
        result.Slot,
        static_cast<Register>(m_scope.AddBuiltin(&function)),
        first,
        static_cast<std::uint8_t>(isShort ? count : kCountInNextWord));
    if (!isShort) {
        m_code.EmitWide(Opcode::Jump, 0, static_cast<std::int64_t>(count));
    }
    m_code.PopArguments(count);
    return result;
}

Operand CallCompiler::RejectCall(
    const std::string& name, const std::vector<Argument>& arguments, SourcePlace) {
    const std::size_t mark = m_code.TemporaryMark();
    for (const Argument& argument : arguments) {
        if (argument.Value) {
            Expressions().Evaluate(*argument.Value);
        }
    }
    m_code.ReleaseTemporaries(mark);
    m_code.EmitWide(Opcode::Refuse, 0, m_scope.AddConstant(Value::Text(name)));
    Operand result;
    result.Slot = m_code.TemporaryGeneric();
    return result;
}

void CallCompiler::Compile(const CallStatement& node, SourcePlace place) {
    if (const auto* name = std::get_if<NameNode>(&node.Callee->Node)) {
        const NameMeaning meaning = Names().ResolveCallee(name->Name, name->Suffix);
        const bool canBeCalled = meaning.What == NameMeaning::Kind::Procedure ||
                                 meaning.What == NameMeaning::Kind::External ||
                                 meaning.What == NameMeaning::Kind::Builtin;
        if (canBeCalled) {
            CallSymbol(meaning, name->Name, node.Arguments, place, false);
        } else if (meaning.What == NameMeaning::Kind::Unknown) {
            m_scope.Messages.Error(
                compileerror::kNotDefined,
                node.Callee->Place,
                "Sub, Function or Property '" + name->Name + "' is not defined",
                name->Name);
        } else if (meaning.What == NameMeaning::Kind::Extension) {
            Expressions().EvaluateSymbol(meaning, name->Name, node.Callee->Place);
        } else {
            Error(
                compileerror::kOther,
                node.Callee->Place,
                "'" + name->Name + "' is not a procedure and cannot be called");
        }
        return;
    }
    if (const auto* member = std::get_if<MemberNode>(&node.Callee->Node)) {
        Members().EvaluateMember(*node.Callee, *member, &node.Arguments, false);
        return;
    }
    const Operand target = Expressions().Evaluate(*node.Callee);
    if (!node.Arguments.empty()) {
        Members().Invoke(target, {}, InvokeKind::Call, node.Arguments, nullptr, false);
    }
}

}  // namespace dorvik::basic
