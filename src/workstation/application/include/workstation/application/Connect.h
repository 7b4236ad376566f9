#pragma once

#include <cstdint>
#include <memory>

namespace dorvik {

class IDEHelper;
class IHostEnvironment;
class IScreen;
class WorkStationApp;

/// When the environment connects an add-in, in its own numbers.
enum class ConnectMode : std::int32_t {
    AfterStartup = 0,
    Startup = 1,
    External = 2,
    CommandLine = 3
};

/// What the development environment loads: its five entry points for an add-in. Holds the process-wide objects from
/// connection to disconnection.
class Connect {
public:
    Connect();
    /// Disconnects where the environment has not.
    ~Connect();
    Connect(const Connect&) = delete;
    Connect& operator=(const Connect&) = delete;

    /// The add-in is started in any mode but that of the command line. REQUIRES: `application` and `screen` outlive
    /// the connection.
    void AddinInstance_OnConnection(
        IHostEnvironment& application, ConnectMode connectMode, IScreen& screen);
    void AddinInstance_OnAddInsUpdate() {}
    void AddinInstance_OnBeginShutdown();
    /// May come while a command gives way to input, in a dialog, a message, a save or a review: the command ends without
    /// doing any more, and its review is abandoned. REQUIRES: neither the message of a logged failure is shown nor a page
    /// of the pane of documentation loads, for which the work bench waits.
    void AddinInstance_OnDisconnection();
    void AddinInstance_OnStartupComplete();

    /// Null while not connected.
    WorkStationApp* App() const { return m_App.get(); }
    dorvik::IDEHelper* IDEHelper() const { return m_IDEHelper.get(); }

private:
    std::shared_ptr<dorvik::IDEHelper> m_IDEHelper;
    std::unique_ptr<WorkStationApp> m_App;
    bool m_connected = false;
};

}  // namespace dorvik
