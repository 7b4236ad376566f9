#pragma once

#include "platform/host/ScopedInstall.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsSections.h"
#include "workstation/application/Connect.h"
#include "workstation/session/ISessionHost.h"
#include "workstation/session/SessionMessages.h"
#include "workstation/session/SessionRefusal.h"
#include "workstation/session/SessionScreen.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class CommandControl;
class udocDorvik;

/// A work bench without a screen: the add-in in an environment, and the user's settings in a store of its own, which is
/// empty at first. Message boxes are its own as long as it lives.
///
/// REQUIRES: the process-wide objects are not in use yet, so that the add-in reads its settings when it is started.
class Session {
public:
    /// `host` outlives this. While `isInterrupted` holds, a review is cancelled and the script is not played on.
    explicit Session(
        ISessionHost& host, std::function<bool()> isInterrupted = [] { return false; });
    /// Stops the add-in.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    bool IsInterrupted() const { return m_isInterrupted(); }
    ISessionHost& Host() { return m_host; }
    SessionScreen& Screen() { return m_screen; }
    SessionMessages& Messages() { return m_messages; }
    SettingsSections& Settings() { return m_settings; }
    Connect& AddIn() { return m_connect; }
    /// Null while the add-in is not connected.
    udocDorvik* Document() const;
    /// Null while no review runs in the background.
    frmProgress* BackgroundReview() const;
    bool IsStarted() const { return m_connect.App() != nullptr; }

    // What the environment does with the add-in.
    SessionRefusal Start(std::int32_t connectMode);
    SessionRefusal StartupComplete();
    SessionRefusal BeginShutdown();
    SessionRefusal Stop();

    /// By the name in the store; an add-in that is started has the value at once.
    void SetSetting(std::string_view name, std::string_view value);
    /// Clicks an item of the menu, the toolbar or the popup of the list by its tag.
    SessionRefusal Menu(std::string_view tag);
    /// Ticks of the timer of a background review, until it ends; without a count all that it takes.
    SessionRefusal Tick(std::optional<std::int32_t> count);
    SessionRefusal CancelReview();
    SessionRefusal ShowBench(bool visible);
    SessionRefusal OpenResults(const std::string& file);
    SessionRefusal SwitchView(std::int32_t viewType);
    SessionRefusal GotoSource();

    static SessionRefusal NotStarted();

private:
    ISessionHost& m_host;
    std::function<bool()> m_isInterrupted;
    SettingsSections m_settings;
    SessionMessages m_messages;
    SessionScreen m_screen;
    ScopedInstall<IMessageBox> m_installedMessages;
    ScopedSettingsStore m_installedSettings;
    Connect m_connect;
};

}  // namespace dorvik
