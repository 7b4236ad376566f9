#include "enforcement/DVKSaxInterface.h"

#include "basic/values/Coercion.h"

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

using Arguments = std::span<basic::Value>;

/// An argument as text; not copied if it is a text already.
class TextArgument {
public:
    explicit TextArgument(const basic::Value& value) : m_text(basic::ToText(value, m_buffer)) {}
    operator std::string_view() const { return m_text; }  // NOLINT(google-explicit-constructor)

private:
    std::string m_buffer;
    std::string_view m_text;
};

constexpr std::uint32_t Out(int parameter) {
    return 1U << parameter;
}

struct Callback {
    basic::ExtensionMember Member;
    /// True if the result, in the last argument, is valid until the next event.
    bool (*Call)(IDVKSaxEvents&, Arguments);
};

/// Ordered by name. The out argument of each is its last one.
constexpr std::array kCallbacks{
    Callback{
        {"ApplyConvention", 0, 0},
        [](IDVKSaxEvents& e, Arguments) {
            e.ApplyConvention();
            return false;
        }},
    Callback{
        {"CancelPendingViolation", 0, 0},
        [](IDVKSaxEvents& e, Arguments) {
            e.CancelPendingViolation();
            return false;
        }},
    Callback{
        {"DebugPrint", 1, 0},
        [](IDVKSaxEvents& e, Arguments a) {
            e.DebugPrint(TextArgument(a[0]));
            return false;
        }},
    Callback{
        {"DumpObject", 1, 0},
        [](IDVKSaxEvents& e, Arguments a) {
            e.DumpObject(TextArgument(a[0]));
            return false;
        }},
    Callback{
        {"GetObjectProperty", 3, Out(2)},
        [](IDVKSaxEvents& e, Arguments a) {
            return e.GetObjectProperty(TextArgument(a[0]), TextArgument(a[1]), a[2]);
        }},
    Callback{
        {"GetObjectWorkField", 3, Out(2)},
        [](IDVKSaxEvents& e, Arguments a) {
            e.GetObjectWorkField(TextArgument(a[0]), TextArgument(a[1]), a[2]);
            return false;
        }},
    Callback{
        {"GetParserEvent", 1, Out(0)},
        [](IDVKSaxEvents& e, Arguments a) {
            a[0] = e.GetParserEvent();
            return true;
        }},
    Callback{
        {"IsClassName", 2, Out(1)},
        [](IDVKSaxEvents& e, Arguments a) {
            a[1] = basic::Value::Boolean(e.IsClassName(TextArgument(a[0])));
            return false;
        }},
    Callback{
        {"IsFormName", 2, Out(1)},
        [](IDVKSaxEvents& e, Arguments a) {
            a[1] = basic::Value::Boolean(e.IsFormName(TextArgument(a[0])));
            return false;
        }},
    Callback{
        {"ObjectHasProperty", 3, Out(2)},
        [](IDVKSaxEvents& e, Arguments a) {
            a[2] =
                basic::Value::Boolean(e.ObjectHasProperty(TextArgument(a[0]), TextArgument(a[1])));
            return false;
        }},
    Callback{
        {"ObjectHasWorkfield", 3, Out(2)},
        [](IDVKSaxEvents& e, Arguments a) {
            a[2] =
                basic::Value::Boolean(e.ObjectHasWorkfield(TextArgument(a[0]), TextArgument(a[1])));
            return false;
        }},
    Callback{
        {"RaiseViolation", 0, 0},
        [](IDVKSaxEvents& e, Arguments) {
            e.RaiseViolation();
            return false;
        }},
    Callback{
        {"SetObjectWorkField", 3, 0},
        [](IDVKSaxEvents& e, Arguments a) {
            e.SetObjectWorkField(TextArgument(a[0]), TextArgument(a[1]), a[2]);
            return false;
        }},
};

constexpr auto kMembers = [] {
    std::array<basic::ExtensionMember, kCallbacks.size()> members{};
    std::ranges::transform(kCallbacks, members.begin(), &Callback::Member);
    return members;
}();

}  // namespace

std::span<const basic::ExtensionMember> DVKSaxInterface::MemberTable() {
    return kMembers;
}

void DVKSaxInterface::Call(std::size_t member, std::span<basic::Value> arguments) {
    if (!kCallbacks[member].Call(m_events, arguments)) {
        return;
    }
    const basic::Value none{};
    m_cache.Keep(
        member,
        arguments.size() > 1 ? arguments[0] : none,
        arguments.size() > 2 ? arguments[1] : none,
        arguments.back());
}

}  // namespace dorvik
