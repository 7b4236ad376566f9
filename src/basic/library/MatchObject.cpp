#include "MatchObject.h"

#include "Arguments.h"
#include "ObjectMembers.h"
#include "SubMatchesObject.h"
#include "basic/values/Characters.h"

namespace dorvik::basic {

namespace {

enum class Member : std::uint8_t { Value, FirstIndex, Length, SubMatches };

constexpr ObjectMember kMembers[] = {
    {"Value", ""},
    {"FirstIndex", ""},
    {"Length", ""},
    {"SubMatches", "Index"},
};

}  // namespace

int MatchObject::FindMember(std::string_view name) const {
    return FindMemberIn(kMembers, name);
}

int MatchObject::FindParameter(int member, std::string_view name) const {
    return FindParameterIn(kMembers, member, name);
}

Value MatchObject::Invoke(int member, InvokeKind kind, std::span<const Value> arguments) {
    CheckUse(kMembers, member, kind, arguments);
    const Match& match = m_matches->All()[m_index];
    switch (static_cast<Member>(member)) {
        case Member::Value: return TextResult(std::string_view(match.Value));
        case Member::FirstIndex: return Value::Long(static_cast<std::int32_t>(match.Index));
        case Member::Length:
            return Value::Long(static_cast<std::int32_t>(modCharacters::Count(match.Value)));
        case Member::SubMatches: {
            const auto groups = MakeRef<SubMatchesObject>(m_matches, m_index);
            return IsGiven(arguments, 0) ? groups->Invoke(kDefaultMember, kind, arguments)
                                         : Value::Object(groups);
        }
    }
    return Value();
}

}  // namespace dorvik::basic
