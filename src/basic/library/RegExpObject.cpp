#include "RegExpObject.h"

#include "Arguments.h"
#include "CompareMode.h"
#include "MatchesObject.h"
#include "ObjectMembers.h"
#include "basic/values/Coercion.h"
#include "basic/values/LongWork.h"
#include "basic/values/ScriptContext.h"

namespace dorvik::basic {

namespace {

enum class Member : std::uint8_t {
    None,
    Pattern,
    IgnoreCase,
    Global,
    Multiline,
    Test,
    Execute,
    Replace
};

/// Compiling cannot be interrupted, so it must not take long.
constexpr std::size_t kLongestPattern = std::size_t{64} << 10;
/// What a compiled pattern takes, roughly.
constexpr std::size_t kBytesPerPatternByte = 32;

constexpr ObjectMember kMembers[] = {
    {"", ""},  // there is no default member
    {"Pattern", "", 0, MemberUse::ReadAndWrite},
    {"IgnoreCase", "", 0, MemberUse::ReadAndWrite},
    {"Global", "", 0, MemberUse::ReadAndWrite},
    {"Multiline", "", 0, MemberUse::ReadAndWrite},
    {"Test", "SourceString", 1},
    {"Execute", "SourceString", 1},
    {"Replace", "SourceString ReplaceVar", 2},
};

}  // namespace

RegExpObject::RegExpObject() : ScriptObject(ObjectClass::RegExp) {
    m_memory.SetBytes(sizeof(RegExpObject));
}

int RegExpObject::FindMember(std::string_view name) const {
    return FindMemberIn(kMembers, name);
}

int RegExpObject::FindParameter(int member, std::string_view name) const {
    return FindParameterIn(kMembers, member, name);
}

Value RegExpObject::Invoke(int member, InvokeKind kind, std::span<const Value> arguments) {
    CheckUse(kMembers, member, kind, arguments);
    const bool isAssignment = IsAssignment(kind);
    const auto flag = [&](bool (RegularExpression::*read)() const,
                          void (RegularExpression::*write)(bool)) {
        if (!isAssignment) {
            return Value::Boolean((m_expression.*read)());
        }
        (m_expression.*write)(ToBoolean(arguments[0]));
        return Value();
    };
    switch (static_cast<Member>(member)) {
        case Member::None: break;
        case Member::Pattern:
            if (!isAssignment) {
                return TextResult(std::string_view(m_expression.Pattern()));
            }
            SetPattern(TextArgument(arguments[0]).View());
            break;
        case Member::IgnoreCase:
            return flag(&RegularExpression::IgnoreCase, &RegularExpression::SetIgnoreCase);
        case Member::Global: return flag(&RegularExpression::Global, &RegularExpression::SetGlobal);
        case Member::Multiline:
            return flag(&RegularExpression::Multiline, &RegularExpression::SetMultiline);
        case Member::Test:
            return Value::Boolean(m_expression.Test(TextArgument(arguments[0]).View()));
        case Member::Execute: return Execute(arguments);
        case Member::Replace: return Replace(arguments);
    }
    return Value();
}

void RegExpObject::SetPattern(std::string_view pattern) {
    if (pattern.size() > kLongestPattern) {
        RaiseError(
            kRegularExpressionTooComplex,
            "the limit of " + std::to_string(kLongestPattern) + " bytes for a pattern was reached");
    }
    m_memory.SetBytes(sizeof(RegExpObject) + pattern.size() * kBytesPerPatternByte);
    m_expression.SetPattern(pattern);
}

void RegExpObject::BreatheSometimes() {
    ScriptContext* const context = ScriptContext::Running();
    if (++m_steps % kWorkBetweenBreaths == 0 && context != nullptr) {
        context->Breathe();
    }
}

Value RegExpObject::Execute(std::span<const Value> arguments) {
    const TextArgument text(arguments, 0);
    ContainerMemory memory;  // of the matches while they are gathered
    std::vector<Match> matches = m_expression.Execute(text.View(), [&](std::size_t bytes) {
        memory.SetBytes(bytes);
        BreatheSometimes();
    });
    memory.SetBytes(0);
    return Value::Object(MakeRef<MatchesObject>(std::move(matches)));
}

Value RegExpObject::Replace(std::span<const Value> arguments) {
    const TextArgument text(arguments, 0);
    const TextArgument replacement(arguments, 1);
    return TextResult(m_expression.Replace(text.View(), replacement.View(), [&](std::size_t bytes) {
        CheckTextSize(bytes);
        BreatheSometimes();
    }));
}

}  // namespace dorvik::basic
