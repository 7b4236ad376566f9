#include "basic/library/ErrObject.h"

#include "Arguments.h"
#include "ObjectMembers.h"
#include "base/BasicError.h"
#include "basic/values/Coercion.h"
#include "basic/values/ScriptContext.h"

namespace dorvik::basic {

namespace {

enum class Member : std::uint8_t {
    Number,
    Description,
    Source,
    HelpFile,
    HelpContext,
    LastDllError,
    Raise,
    Clear
};

constexpr ObjectMember kMembers[] = {
    {"Number", "", 0, MemberUse::ReadAndWrite},
    {"Description", "", 0, MemberUse::ReadAndWrite},
    {"Source", "", 0, MemberUse::ReadAndWrite},
    {"HelpFile", "", 0, MemberUse::ReadAndWrite},
    {"HelpContext", "", 0, MemberUse::ReadAndWrite},
    {"LastDllError", ""},
    {"Raise", "Number Source Description HelpFile HelpContext", 1},
    {"Clear", ""},
};

/// Reads or writes a property that is a text.
Value TextProperty(std::string& property, InvokeKind kind, Arguments arguments) {
    if (!IsAssignment(kind)) {
        return TextResult(std::string_view(property));
    }
    property = ToText(arguments[0]);
    return Value();
}

Value NumberProperty(std::int32_t& property, InvokeKind kind, Arguments arguments) {
    if (!IsAssignment(kind)) {
        return Value::Long(property);
    }
    property = LongAt(arguments, 0);
    return Value();
}

[[noreturn]] void Throw(const ErrorState& state) {
    RaisedError error(state.Number, state.Description, state.Source);
    error.HelpContext = state.HelpContext;
    error.HelpFile = state.HelpFile;
    throw error;
}

}  // namespace

int ErrObject::FindMember(std::string_view name) const {
    return FindMemberIn(kMembers, name);
}

int ErrObject::FindParameter(int member, std::string_view name) const {
    return FindParameterIn(kMembers, member, name);
}

Value ErrObject::Invoke(int member, InvokeKind kind, std::span<const Value> arguments) {
    CheckUse(kMembers, member, kind, arguments);
    ScriptContext* const context = ScriptContext::Running();
    if (context == nullptr) {
        RaiseError(runtimeerror::kObjectNotSet);
    }
    ErrorState& state = context->CurrentError();
    switch (static_cast<Member>(member)) {
        case Member::Number: return NumberProperty(state.Number, kind, arguments);
        case Member::Description: return TextProperty(state.Description, kind, arguments);
        case Member::Source: return TextProperty(state.Source, kind, arguments);
        case Member::HelpFile: return TextProperty(state.HelpFile, kind, arguments);
        case Member::HelpContext: return NumberProperty(state.HelpContext, kind, arguments);
        case Member::LastDllError: return Value::Long(0);
        case Member::Raise: Throw(ErrorToRaise(kind, arguments));
        case Member::Clear: state.Clear(); break;
    }
    return Value();
}

bool ErrObject::IsRaise(int member) {
    return member == static_cast<int>(Member::Raise);
}

ErrorState ErrObject::ErrorToRaise(InvokeKind kind, std::span<const Value> arguments) {
    CheckUse(kMembers, static_cast<int>(Member::Raise), kind, arguments);
    const std::int32_t number = LongAt(arguments, 0);
    if (number == 0) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    const TextArgument source(arguments, 1, "");
    const TextArgument description(arguments, 2, "");
    const TextArgument helpFile(arguments, 3, "");
    return {
        number,
        IsGiven(arguments, 2) ? std::string(description.View()) : RuntimeErrorText(number),
        std::string(source.View()),
        std::string(helpFile.View()),
        LongAt(arguments, 4, 0)};
}

}  // namespace dorvik::basic
