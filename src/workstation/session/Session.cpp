#include "workstation/session/Session.h"

#include "settings/DVKWorkData.h"
#include "settings/SettingsKeys.h"
#include "settings/modGlobal.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"

#include <utility>

namespace dorvik {

namespace {

/// Whether a control and everything around it, up to the bar, can be clicked.
bool IsReachable(const CommandControl& bar, const CommandControl& item) {
    for (const auto& below : bar.Items()) {
        if (below.get() == &item) {
            return item.Look().Enabled;
        }
        if (below->FindTag(item.Look().Tag) != nullptr) {
            return below->Look().Enabled && IsReachable(*below, item);
        }
    }
    return false;
}

}  // namespace

Session::Session(ISessionHost& host, std::function<bool()> isInterrupted)
    : m_host(host),
      m_isInterrupted(std::move(isInterrupted)),
      m_screen(m_host.Calls(), m_isInterrupted),
      m_installedMessages(m_messages),
      m_installedSettings(RegistryRoot::CurrentUser, m_settings) {}

Session::~Session() {
    Stop();
}

SessionRefusal Session::NotStarted() {
    return "the add-in is not started";
}

udocDorvik* Session::Document() const {
    return m_connect.IDEHelper() == nullptr ? nullptr : m_connect.IDEHelper()->DorvikUserDocument();
}

frmProgress* Session::BackgroundReview() const {
    return IsStarted() && m_connect.App()->BackgroundReviewActive() ? m_connect.App()->Progress()
                                                                    : nullptr;
}

SessionRefusal Session::Start(std::int32_t connectMode) {
    if (IsStarted()) {
        return "the add-in is started already";
    }
    m_connect.AddinInstance_OnConnection(
        m_host.Environment(), static_cast<ConnectMode>(connectMode), m_screen);
    return {};
}

SessionRefusal Session::StartupComplete() {
    if (!IsStarted()) {
        return NotStarted();
    }
    m_connect.AddinInstance_OnStartupComplete();
    return {};
}

SessionRefusal Session::BeginShutdown() {
    if (!IsStarted()) {
        return NotStarted();
    }
    m_connect.AddinInstance_OnBeginShutdown();
    return {};
}

SessionRefusal Session::Stop() {
    if (!IsStarted()) {
        return NotStarted();
    }
    m_screen.Forget();
    m_connect.AddinInstance_OnDisconnection();
    return {};
}

void Session::SetSetting(std::string_view name, std::string_view value) {
    const ISettingsStore::Values values = {{std::string(name), std::string(value)}};
    m_settings.Set(kWorkbenchKey, values);
    if (modGlobal::IsInUse()) {
        // The others stay as they are, whatever the store has of them.
        SettingsSections single;
        single.Set(kWorkbenchKey, values);
        const ScopedSettingsStore installed(RegistryRoot::CurrentUser, single);
        modGlobal::WorkData().LoadSettings();
    }
}

SessionRefusal Session::Menu(std::string_view tag) {
    const IDEMenus* const menus =
        m_connect.IDEHelper() == nullptr ? nullptr : m_connect.IDEHelper()->DorvikMenus();
    if (menus == nullptr || menus->DorvikMenu() == nullptr) {
        return NotStarted();
    }
    for (CommandControl* const bar :
         {menus->DorvikMenu(), menus->Toolbar(), menus->ListPopupMenu()}) {
        CommandControl* const item = bar->FindTag(tag);
        if (item == nullptr) {
            continue;
        }
        if (bar == menus->DorvikMenu()) {
            bar->Click();
        }
        if (item == bar) {
            return {};
        }
        if (!IsReachable(*bar, *item)) {
            return "the menu item '" + std::string(tag) + "' is disabled";
        }
        item->Click();
        return {};
    }
    return "there is no menu item '" + std::string(tag) + "'";
}

SessionRefusal Session::Tick(std::optional<std::int32_t> count) {
    if (BackgroundReview() == nullptr) {
        return "no review runs in the background";
    }
    for (std::int32_t ticked = 0; !count || ticked < *count; ++ticked) {
        frmProgress* const progress = BackgroundReview();
        if (progress == nullptr || IsInterrupted()) {
            break;
        }
        progress->tmrInterrupt.Tick();
    }
    return {};
}

SessionRefusal Session::CancelReview() {
    frmProgress* const progress = BackgroundReview();
    if (progress == nullptr) {
        return "no review runs in the background";
    }
    progress->Cancel();
    return {};
}

SessionRefusal Session::ShowBench(bool visible) {
    if (!IsStarted()) {
        return NotStarted();
    }
    m_connect.IDEHelper()->SetWorkbenchVisible(visible);
    return {};
}

SessionRefusal Session::OpenResults(const std::string& file) {
    if (!IsStarted()) {
        return NotStarted();
    }
    m_connect.App()->OpenResults(file);
    return {};
}

SessionRefusal Session::SwitchView(std::int32_t viewType) {
    if (Document() == nullptr) {
        return NotStarted();
    }
    Document()->optView_Click(viewType);
    return {};
}

SessionRefusal Session::GotoSource() {
    if (Document() == nullptr) {
        return NotStarted();
    }
    Document()->cmdGotoSource_Click();
    return {};
}

}  // namespace dorvik
