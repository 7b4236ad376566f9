#pragma once

#include "basic/program/ScriptHost.h"
#include "enforcement/IDVKSaxEvents.h"

namespace dorvik {

/// The object that rule scripts know as "Dorvik": the table of its callbacks, each handed on to the
/// receiver of the events.
class DVKSaxInterface final : public basic::IScriptExtension {
public:
    /// The prefix under which scripts call it.
    static constexpr std::string_view kPrefix = "Dorvik.";

    /// REQUIRES: the receiver outlives this object.
    explicit DVKSaxInterface(IDVKSaxEvents& events) : m_events(events) {}

    /// The callbacks, also for those who compile scripts and never run them.
    static std::span<const basic::ExtensionMember> MemberTable();

    std::span<const basic::ExtensionMember> Members() const override { return MemberTable(); }
    void Call(std::size_t member, std::span<basic::Value> arguments) override;
    const basic::Value* Recall(
        std::size_t member, const basic::Value& first, const basic::Value& second) const override;

private:
    IDVKSaxEvents& m_events;
};

}  // namespace dorvik
