#pragma once

#include "basic/program/PropertyCache.h"
#include "basic/program/ScriptHost.h"
#include "enforcement/IDVKSaxEvents.h"

namespace dorvik {

/// The object that rule scripts know as "Dorvik": the table of its callbacks, each passed on to the
/// receiver of the events, and the answers that hold until the next event.
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

    /// The answers that scripts share, for the engine.
    const basic::PropertyCache& Answers() const { return m_answers; }
    /// A new event begins: what the objects have to tell is no longer what it was.
    void ForgetAnswers() { m_answers.Clear(); }

private:
    IDVKSaxEvents& m_events;
    basic::PropertyCache m_answers;
};

}  // namespace dorvik
