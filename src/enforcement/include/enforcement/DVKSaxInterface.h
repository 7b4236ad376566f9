#pragma once

#include "basic/program/PropertyCache.h"
#include "basic/program/ScriptHost.h"
#include "enforcement/IDVKSaxEvents.h"

namespace dorvik {

/// The extension object `Dorvik` of rule scripts: the table of its callbacks, each of which calls the receiver of
/// the events, and a cache of the results that stay valid until the next event.
class DVKSaxInterface final : public basic::IScriptExtension {
public:
    /// The prefix under which scripts call it.
    static constexpr std::string_view kPrefix = "Dorvik.";

    /// REQUIRES: the receiver outlives this object.
    explicit DVKSaxInterface(IDVKSaxEvents& events) : m_events(events) {}

    /// The callbacks; also used where scripts are compiled but never run.
    static std::span<const basic::ExtensionMember> MemberTable();

    std::span<const basic::ExtensionMember> Members() const override { return MemberTable(); }
    void Call(std::size_t member, std::span<basic::Value> arguments) override;

    /// The cache, which the engine reads before it makes a call.
    const basic::PropertyCache& Cache() const { return m_cache; }
    /// A new event begins: the cached values are no longer valid.
    void ClearCache() { m_cache.Clear(); }

private:
    IDVKSaxEvents& m_events;
    basic::PropertyCache m_cache;
};

}  // namespace dorvik
