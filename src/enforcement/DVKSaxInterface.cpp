#include "enforcement/DVKSaxInterface.h"

#include "basic/values/Coercion.h"

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

using Arguments = std::span<basic::Value>;

/// An argument as text, without a copy where it is one already.
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
    void (*Call)(IDVKSaxEvents&, Arguments);
};

/// Ordered by name. The out argument of each is its last one.
constexpr std::array kCallbacks{
    Callback{
        {"ApplyConvention", 0, 0},
        [](IDVKSaxEvents& e, Arguments) {
            e.ApplyConvention();
        }},
    Callback{
        {"CancelPendingViolation", 0, 0},
        [](IDVKSaxEvents& e, Arguments) {
            e.CancelPendingViolation();
        }},
    Callback{
        {"DebugPrint", 1, 0},
        [](IDVKSaxEvents& e, Arguments a) {
            e.DebugPrint(TextArgument(a[0]));
        }},
    Callback{
        {"DumpObject", 1, 0},
        [](IDVKSaxEvents& e, Arguments a) {
            e.DumpObject(TextArgument(a[0]));
        }},
    Callback{
        {"GetObjectProperty", 3, Out(2)},
        [](IDVKSaxEvents& e, Arguments a) {
            if (e.GetObjectProperty(TextArgument(a[0]), TextArgument(a[1]), a[2])) {
                e.KeepAnswer(a[0], a[1], a[2]);
            }
        }},
    Callback{
        {"GetObjectWorkField", 3, Out(2)},
        [](IDVKSaxEvents& e, Arguments a) {
            e.GetObjectWorkField(TextArgument(a[0]), TextArgument(a[1]), a[2]);
        }},
    Callback{
        {"GetParserEvent", 1, Out(0)},
        [](IDVKSaxEvents& e, Arguments a) {
            a[0] = e.GetParserEvent();
        }},
    Callback{
        {"IsClassName", 2, Out(1)},
        [](IDVKSaxEvents& e, Arguments a) {
            a[1] = basic::Value::Boolean(e.IsClassName(TextArgument(a[0])));
        }},
    Callback{
        {"IsFormName", 2, Out(1)},
        [](IDVKSaxEvents& e, Arguments a) {
            a[1] = basic::Value::Boolean(e.IsFormName(TextArgument(a[0])));
        }},
    Callback{
        {"ObjectHasProperty", 3, Out(2)},
        [](IDVKSaxEvents& e, Arguments a) {
            a[2] =
                basic::Value::Boolean(e.ObjectHasProperty(TextArgument(a[0]), TextArgument(a[1])));
        }},
    Callback{
        {"ObjectHasWorkfield", 3, Out(2)},
        [](IDVKSaxEvents& e, Arguments a) {
            a[2] =
                basic::Value::Boolean(e.ObjectHasWorkfield(TextArgument(a[0]), TextArgument(a[1])));
        }},
    Callback{
        {"RaiseViolation", 0, 0},
        [](IDVKSaxEvents& e, Arguments) {
            e.RaiseViolation();
        }},
    Callback{
        {"SetObjectWorkField", 3, 0},
        [](IDVKSaxEvents& e, Arguments a) {
            e.SetObjectWorkField(TextArgument(a[0]), TextArgument(a[1]), a[2]);
        }},
};

constexpr auto kMembers = [] {
    std::array<basic::ExtensionMember, kCallbacks.size()> members{};
    std::ranges::transform(kCallbacks, members.begin(), &Callback::Member);
    return members;
}();

constexpr std::size_t PlaceOf(std::string_view name) {
    const auto* const found = std::ranges::find(kMembers, name, &basic::ExtensionMember::Name);
    return static_cast<std::size_t>(found - kMembers.begin());
}

constexpr std::size_t kGetObjectProperty = PlaceOf("GetObjectProperty");
constexpr std::size_t kGetParserEvent = PlaceOf("GetParserEvent");

}  // namespace

std::span<const basic::ExtensionMember> DVKSaxInterface::MemberTable() {
    return kMembers;
}

void DVKSaxInterface::Call(std::size_t member, std::span<basic::Value> arguments) {
    kCallbacks[member].Call(m_events, arguments);
}

const basic::Value* DVKSaxInterface::Recall(
    std::size_t member, const basic::Value& first, const basic::Value& second) const {
    switch (member) {
        case kGetObjectProperty: return m_events.KeptAnswer(first, second);
        case kGetParserEvent: return m_events.KeptParserEvent();
        default: return nullptr;
    }
}

}  // namespace dorvik
