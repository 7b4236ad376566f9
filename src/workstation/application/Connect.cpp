#include "workstation/application/Connect.h"

#include "foundation/log/Trap.h"
#include "settings/modGlobal.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/ide/IDEHelper.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "Connect";

bool StartsAddIn(ConnectMode mode) {
    return mode == ConnectMode::AfterStartup || mode == ConnectMode::Startup ||
           mode == ConnectMode::External;
}

}  // namespace

Connect::Connect() = default;

Connect::~Connect() {
    AddinInstance_OnDisconnection();
}

void Connect::AddinInstance_OnConnection(
    IHostEnvironment& application, ConnectMode connectMode, IScreen& screen) {
    Trap({kModule, "AddinInstance_OnConnection"}, [&] {
        modGlobal::CreateGlobalObjects();
        m_connected = true;
        m_IDEHelper = std::make_shared<dorvik::IDEHelper>();
        m_IDEHelper->Initialise(application, screen);
        m_App = std::make_unique<WorkStationApp>(screen);
        if (StartsAddIn(connectMode)) {
            m_App->StartAddIn(m_IDEHelper);
        }
    });
}

void Connect::AddinInstance_OnBeginShutdown() {
    Trap({kModule, "AddinInstance_OnBeginShutdown"}, [&] {
        if (m_App) {
            m_App->BeginShutdown();
        }
    });
}

void Connect::AddinInstance_OnStartupComplete() {
    Trap({kModule, "AddinInstance_OnStartupComplete"}, [&] {
        if (m_App) {
            m_App->IDEStartupComplete();
        }
    });
}

void Connect::AddinInstance_OnDisconnection() {
    if (!m_connected) {
        return;
    }
    Trap({kModule, "AddinInstance_OnDisconnection"}, [&] {
        m_App.reset();
        // Nothing of the add-in may outlive the settings.
        m_IDEHelper.reset();
    });
    m_connected = false;
    modGlobal::DestroyGlobalObjects();
}

}  // namespace dorvik
