#pragma once

#include "Arguments.h"
#include "basic/values/ScriptObject.h"

#include <span>
#include <string_view>

namespace dorvik::basic {

/// What may be done with a member. A method and a property that can be read are used alike.
enum class MemberUse : std::uint8_t { Read, ReadAndWrite, Write };

constexpr int CountNames(std::string_view namesBetweenBlanks) {
    int count = namesBetweenBlanks.empty() ? 0 : 1;
    for (const char character : namesBetweenBlanks) {
        count += character == ' ' ? 1 : 0;
    }
    return count;
}

/// A member of an object's class. Its place in the class's table is its number.
struct ObjectMember {
    std::string_view Name;
    std::string_view Parameters;  // names separated by blanks, without the value of a Let
    int Least = 0;                // arguments
    MemberUse Use = MemberUse::Read;
    int Most = CountNames(Parameters);
};

using MemberTable = std::span<const ObjectMember>;

/// The number of a member by its name in any case; `kNoMember` if there is none. A member without a
/// name (a class without a default member has one at place 0) is never found.
int FindMemberIn(MemberTable members, std::string_view name);
/// The position of a parameter by its name in any case; -1 if there is none.
int FindParameterIn(MemberTable members, int member, std::string_view name);

/// Checks that the use fits the member: 438 for no such member, 449 for a missing argument, 450 for too
/// many and for a default member used without its argument, 451 for a member that cannot be assigned to.
void CheckUse(MemberTable members, int member, InvokeKind kind, Arguments arguments);

inline bool IsAssignment(InvokeKind kind) {
    return kind == InvokeKind::Let || kind == InvokeKind::Set;
}

/// What an assignment or an `Add` stores: arrays are copied, and by Let an object answers with its
/// default member.
Value StoredValue(const Value& value, InvokeKind kind);

}  // namespace dorvik::basic
