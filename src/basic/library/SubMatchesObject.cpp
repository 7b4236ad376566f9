#include "SubMatchesObject.h"

#include "Arguments.h"
#include "IndexWalker.h"
#include "ObjectMembers.h"

namespace dorvik::basic {

namespace {

enum class Member : std::uint8_t { Item, Count };

constexpr ObjectMember kMembers[] = {
    {"Item", "Index", 1},
    {"Count", ""},
};

}  // namespace

int SubMatchesObject::FindMember(std::string_view name) const {
    return FindMemberIn(kMembers, name);
}

int SubMatchesObject::FindParameter(int member, std::string_view name) const {
    return FindParameterIn(kMembers, member, name);
}

Value SubMatchesObject::Invoke(int member, InvokeKind kind, std::span<const Value> arguments) {
    CheckUse(kMembers, member, kind, arguments);
    switch (static_cast<Member>(member)) {
        case Member::Item: {
            const std::int32_t index = LongAt(arguments, 0);
            if (index < 0 || static_cast<std::size_t>(index) >= Count()) {
                RaiseError(runtimeerror::kInvalidProcedureCall);
            }
            return GroupAt(static_cast<std::size_t>(index));
        }
        case Member::Count: return Value::Long(static_cast<std::int32_t>(Count()));
    }
    return Value();
}

std::unique_ptr<ScriptIterator> SubMatchesObject::Iterate() {
    return std::make_unique<IndexWalker>(
        Count(), [groups = Ref<SubMatchesObject>(this)](std::size_t index) {
            return groups->GroupAt(index);
        });
}

Value SubMatchesObject::GroupAt(std::size_t group) const {
    const SubMatch& taken = m_matches->All()[m_index].SubMatches[group];
    return taken.TookPart ? TextResult(std::string_view(taken.Value)) : Value();
}

}  // namespace dorvik::basic
