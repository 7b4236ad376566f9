#include "ObjectMembers.h"

#include "base/modTextCase.h"
#include "basic/values/Coercion.h"

#include <algorithm>

namespace dorvik::basic {

int FindMemberIn(MemberTable members, std::string_view name) {
    for (std::size_t number = 0; number < members.size(); ++number) {
        if (!members[number].Name.empty() && modTextCase::Equal(members[number].Name, name)) {
            return static_cast<int>(number);
        }
    }
    return kNoMember;
}

int FindParameterIn(MemberTable members, int member, std::string_view name) {
    if (member < 0 || static_cast<std::size_t>(member) >= members.size()) {
        return -1;
    }
    std::string_view rest = members[static_cast<std::size_t>(member)].Parameters;
    for (int position = 0; !rest.empty(); ++position) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        if (modTextCase::Equal(rest.substr(0, end), name)) {
            return position;
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return -1;
}

void CheckUse(MemberTable members, int member, InvokeKind kind, Arguments arguments) {
    if (member < 0 || static_cast<std::size_t>(member) >= members.size() ||
        members[static_cast<std::size_t>(member)].Name.empty()) {
        RaiseError(runtimeerror::kNoSuchMember);
    }
    const ObjectMember& row = members[static_cast<std::size_t>(member)];
    const bool isAssignment = IsAssignment(kind);
    if (isAssignment && row.Use == MemberUse::Read) {
        RaiseError(runtimeerror::kNoPropertyLet);
    }
    if (!isAssignment && row.Use == MemberUse::Write) {
        RaiseError(runtimeerror::kWrongArgumentCount);
    }
    const int count = static_cast<int>(arguments.size()) - (isAssignment ? 1 : 0);
    if (count > row.Most || (count < row.Least && member == kDefaultMember)) {
        RaiseError(runtimeerror::kWrongArgumentCount);
    }
    for (int position = 0; position < row.Least; ++position) {
        if (position >= count || !IsGiven(arguments, static_cast<std::size_t>(position))) {
            RaiseError(runtimeerror::kArgumentNotOptional);
        }
    }
}

Value StoredValue(const Value& value, InvokeKind kind) {
    if (value.Type() == ValueType::Object && kind == InvokeKind::Let) {
        return LetValue(value);
    }
    return value.Type() == ValueType::Array ? value.DeepCopy() : value;
}

}  // namespace dorvik::basic
