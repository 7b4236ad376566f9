#include "MatchesObject.h"

#include "Arguments.h"
#include "IndexWalker.h"
#include "MatchObject.h"
#include "ObjectMembers.h"

namespace dorvik::basic {

namespace {

enum class Member : std::uint8_t { Item, Count };

constexpr ObjectMember kMembers[] = {
    {"Item", "Index", 1},
    {"Count", ""},
};

std::size_t BytesOf(const Match& match) {
    std::size_t bytes = sizeof(Match) + match.Value.capacity();
    for (const SubMatch& group : match.SubMatches) {
        bytes += sizeof(SubMatch) + group.Value.capacity();
    }
    return bytes;
}

}  // namespace

MatchesObject::MatchesObject(std::vector<Match> matches)
    : ScriptObject(ObjectClass::Matches), m_matches(std::move(matches)) {
    std::size_t bytes = 0;
    for (const Match& match : m_matches) {
        bytes += BytesOf(match);
    }
    m_memory.SetBytes(bytes);
}

int MatchesObject::FindMember(std::string_view name) const {
    return FindMemberIn(kMembers, name);
}

int MatchesObject::FindParameter(int member, std::string_view name) const {
    return FindParameterIn(kMembers, member, name);
}

Value MatchesObject::Invoke(int member, InvokeKind kind, std::span<const Value> arguments) {
    CheckUse(kMembers, member, kind, arguments);
    switch (static_cast<Member>(member)) {
        case Member::Item: {
            const std::int32_t index = LongAt(arguments, 0);
            if (index < 0 || static_cast<std::size_t>(index) >= m_matches.size()) {
                RaiseError(runtimeerror::kInvalidProcedureCall);
            }
            return MatchAt(static_cast<std::size_t>(index));
        }
        case Member::Count: return Value::Long(static_cast<std::int32_t>(m_matches.size()));
    }
    return Value();
}

std::unique_ptr<ScriptIterator> MatchesObject::Iterate() {
    return std::make_unique<IndexWalker>(
        m_matches.size(), [matches = Ref<MatchesObject>(this)](std::size_t index) {
            return matches->MatchAt(index);
        });
}

Value MatchesObject::MatchAt(std::size_t index) {
    return Value::Object(MakeRef<MatchObject>(Ref<MatchesObject>(this), index));
}

}  // namespace dorvik::basic
