#pragma once

#include "platform/host/HostFacts.h"
#include "platform/host/IClock.h"
#include "platform/host/ScopedInstall.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"
#include "workstation/session/Session.h"
#include "workstation/session/SessionPlayer.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// A folder of its own that is the working folder as long as this lives, with the projects of the sessions and a rulebase
/// "Rules.dvk" in it, a second one "Controls.dvk"; and facts and a clock that are always the same.
class SessionFolder {
public:
    SessionFolder();
    ~SessionFolder();
    SessionFolder(const SessionFolder&) = delete;
    SessionFolder& operator=(const SessionFolder&) = delete;

    const TemporaryFolder& Folder() const { return m_folder; }
    /// The text with "<work>" for this folder and "<program>" for the program's.
    std::string WithoutPlaces(std::string text) const;

private:
    class StandingClock final : public IClock {
    public:
        DateTime Now() override { return {2026, 11, 21, 14, 5, 9}; }
    };

    TemporaryFolder m_folder;
    std::filesystem::path m_before;
    StandingClock m_clock;
    HostFacts m_facts;
    ScopedInstall<IClock> m_installedClock;
    ScopedInstall<const HostFacts> m_installedFacts;
};

/// What a script puts out, and how it came out.
struct PlayedSession {
    std::vector<std::string> Output;
    SessionPlayer::Outcome Outcome;
};

/// Over files, unless another host is given.
PlayedSession PlaySession(const SessionFolder& folder, std::string_view script);
PlayedSession PlaySession(const SessionFolder& folder, std::string_view script, ISessionHost& host);

}  // namespace dorvik::test
