#pragma once

#include "platform/host/modHost.h"

namespace dorvik {

/// Installs a clock, a message box, an input handler or host facts in `modHost` for the length of a
/// scope: `ScopedInstall guard(myClock);`. The one that was installed before comes back at the end.
/// REQUIRES: the installed object outlives the guard.
template <typename Installed>
class ScopedInstall {
public:
    explicit ScopedInstall(Installed& installed) : m_previous(modHost::Install(&installed)) {}
    ~ScopedInstall() { modHost::Install(m_previous); }
    ScopedInstall(const ScopedInstall&) = delete;
    ScopedInstall& operator=(const ScopedInstall&) = delete;

private:
    decltype(modHost::Install(static_cast<Installed*>(nullptr))) m_previous;
};

}  // namespace dorvik
