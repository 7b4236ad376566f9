#include "ExtensionCompiler.h"

#include "ArgumentCompiler.h"
#include "LValueCompiler.h"
#include "OperandCompiler.h"
#include "VariableCompiler.h"
#include "base/modTextCase.h"
#include "basic/values/RuntimeErrors.h"

#include <bit>
#include <optional>
#include <utility>

namespace dorvik::basic {

namespace {

const ExtensionMember* FindMember(const ExtensionEntry& extension, const std::string& name) {
    for (const ExtensionMember& member : extension.Extension->Members()) {
        if (modTextCase::Equal(member.Name, name)) {
            return &member;
        }
    }
    return nullptr;
}

/// Whether the arguments are those of the function form, which returns the only out argument.
bool IsFunctionCall(const ExtensionMember& member, const std::vector<Argument>& arguments) {
    return std::popcount(member.OutParameters) == 1 &&
           arguments.size() + 1 == static_cast<std::size_t>(member.Parameters);
}

struct Misuse {
    std::int32_t Number;
    std::string Warning;
};

/// Why a member, null if there is none, cannot be called so; nothing if it can.
std::optional<Misuse> MisuseOf(
    const std::string& name,
    const ExtensionMember* member,
    const std::vector<Argument>& arguments,
    bool wantsResult) {
    if (member == nullptr) {
        return Misuse{
            runtimeerror::kNoSuchMember,
            "'" + name + "' does not exist: reaching it raises error 438"};
    }
    if (ArgumentCompiler::HasNames(arguments)) {
        return Misuse{
            runtimeerror::kNoNamedArguments, "'" + name + "' takes no named arguments: error 446"};
    }
    const auto count = static_cast<std::size_t>(member->Parameters);
    if (wantsResult ? IsFunctionCall(*member, arguments) : arguments.size() == count) {
        return std::nullopt;
    }
    return Misuse{
        runtimeerror::kWrongArgumentCount,
        "'" + name + "' takes " + std::to_string(count) + " arguments, not " +
            std::to_string(arguments.size()) +
            ", and cannot be used so: reaching it raises error 450"};
}

}  // namespace

/// An error that is known already but must not keep the module from loading.
Operand ExtensionCompiler::RaiseAtRun(std::int32_t number, SourcePlace place, std::string warning) {
    m_scope.Messages.Warn(place, std::move(warning));
    m_code.Emit(Opcode::Raise, static_cast<Register>(number));
    Operand result;
    result.Slot = m_code.TemporaryGeneric();
    return result;
}

Operand ExtensionCompiler::Call(
    const ExtensionEntry& extension,
    const std::string& name,
    const std::vector<Argument>& arguments,
    SourcePlace place,
    bool wantsResult) {
    const ExtensionMember* member = FindMember(extension, name);
    const std::string full = extension.Prefix + "." + name;
    if (const auto misuse = MisuseOf(full, member, arguments, wantsResult)) {
        return RaiseAtRun(misuse->Number, place, misuse->Warning);
    }
    const auto count = static_cast<std::size_t>(member->Parameters);
    ExtensionCall call;
    call.Extension = extension.Extension;
    call.Member = static_cast<std::uint32_t>(member - extension.Extension->Members().data());
    call.Parameters = static_cast<std::uint32_t>(count);
    call.Result =
        wantsResult ? static_cast<std::uint32_t>(std::countr_zero(member->OutParameters)) : 0;
    std::vector<OutArgument> outs;
    std::vector<AfterCall> pins;
    const Register first = m_code.PushArguments(count);
    std::size_t next = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto slot = static_cast<Register>(first + i);
        if (wantsResult && i == call.Result) {
            m_code.Emit(Opcode::Clear, slot);
            continue;
        }
        const Argument& argument = arguments[next++];
        if ((member->OutParameters >> i & 1) == 0 || !PassOut(argument, slot, outs, pins)) {
            Arguments().EvaluateCopy(argument, slot);
        }
    }
    call.KeepsArguments = !outs.empty();
    // A cache knows questions of at most two arguments, whose answer is the last one.
    const bool isQuestion = count >= 1 && count <= 3 && member->OutParameters == 1U << (count - 1);
    call.Answers = isQuestion ? extension.Answers : nullptr;
    m_scope.Result->ExtensionCalls.push_back(call);
    Operand result;
    result.IsFresh = true;
    if (wantsResult) {
        result.Slot = m_code.TemporaryGeneric();
    }
    m_code.EmitTarget(
        Opcode::CallExtension, result.Slot, m_scope.Result->ExtensionCalls.size() - 1, first);
    for (const OutArgument& out : outs) {
        StoreOut(out);
    }
    if (call.KeepsArguments) {
        m_code.Emit(Opcode::ReleaseArguments, first, static_cast<Register>(count));
    }
    m_code.PopArguments(count);
    Arguments().Finish(pins);
    return result;
}

/// Puts the present value of an out argument into its slot and remembers where the new one goes.
/// False if it is not a variable: then the new value is lost.
bool ExtensionCompiler::PassOut(
    const Argument& argument,
    Register slot,
    std::vector<OutArgument>& outs,
    std::vector<AfterCall>& pins) {
    if (!argument.Value || argument.IsByVal) {
        return false;
    }
    const Expression& expression = LValues().WithoutEmptyParentheses(*argument.Value);
    OutArgument out;
    out.Target = LValues().LValueOf(expression);
    if (!out.Target.IsAssignable) {
        return false;
    }
    out.Slot = slot;
    if (out.Target.Type.Kind == DeclaredKind::Record || out.Target.Type.IsArray) {
        Error(
            compileerror::kOther,
            expression.Place,
            "An array or a value of a Type cannot be an out argument");
        return false;
    }
    if (out.Target.IsVariable) {
        Operands().MoveCopy(Variables().Load(out.Target.Variable), slot);
    } else {
        out.Reference = m_code.TemporaryGeneric();
        LValues().ReferTo(expression, out.Target, out.Reference, pins);
        const Register present = m_code.TemporaryGeneric();
        m_code.Emit(Opcode::LoadReference, present, out.Reference);
        m_code.Emit(Opcode::DeepCopy, slot, present);
    }
    outs.push_back(out);
    return true;
}

void ExtensionCompiler::StoreOut(const OutArgument& out) {
    Operand value;
    value.Slot = out.Slot;
    value.IsFresh = true;
    const bool isObject = out.Target.Type.Kind == DeclaredKind::Object;
    const bool isVariant = out.Target.Type.Kind == DeclaredKind::Variant;
    // An object in a Variant stays the object; no default member is asked for.
    value.IsTyped = isVariant;
    if (out.Target.IsVariable) {
        Variables().Store(out.Target.Variable, value, isObject);
    } else {
        Variables().StoreReference(out.Reference, value, out.Target.Type, isObject);
    }
}

}  // namespace dorvik::basic
