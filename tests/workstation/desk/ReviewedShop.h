#pragma once

#include "platform/host/HostFacts.h"
#include "platform/host/ScopedInstall.h"
#include "settings/DVKWorkData.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsSections.h"
#include "settings/modGlobal.h"
#include "support/FilesystemPaths.h"
#include "support/RecordingMessageBox.h"
#include "support/TemporaryFolder.h"
#include "workstation/application/Connect.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/filehost/FileHost.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/support/ScriptedScreen.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace dorvik::test {

/// The project Shop on disk, open in the environment over files, with the add-in started.
class ReviewedShop : public testing::Test {
protected:
    ReviewedShop() : m_store(RegistryRoot::CurrentUser, m_settings) {
        std::filesystem::copy(
            DORVIK_SESSION_PROJECTS, m_folder.HostPath(), std::filesystem::copy_options::recursive);
        std::filesystem::copy_file(DORVIK_SESSION_RULEBASE, m_folder.HostPath() / "Rules.dvk");
        m_facts.UserDataFolder = m_folder.Path("state\\");
        m_facts.ProgramFolder = ProgramPath(std::filesystem::path(DORVIK_PROGRAM_FOLDER)) + "\\";
        m_screen.OnReviewOptions = [this](frmReviewOptions& form) {
            ++m_dialogs;
            form.cboRulebase.Set(m_folder.Path("Rules.dvk"));
            form.Ok();
        };
        m_screen.OnProgress = [](frmProgress& form) {
            form.Activate();
        };
        m_host.Open(m_folder.Path("Shop\\Shop.vbp"));
        m_connect.AddinInstance_OnConnection(m_host, ConnectMode::Startup, m_screen);
        modGlobal::WorkData().AlwaysShowSummary = false;
    }
    WorkStationApp& App() { return *m_connect.App(); }
    std::string Database() const { return m_folder.Path("Shop\\Dorvik\\Shop_DORVIK.mdb"); }

    TemporaryFolder m_folder;
    HostFacts m_facts;
    ScopedInstall<const HostFacts> m_installedFacts{m_facts};
    SettingsSections m_settings;
    ScopedSettingsStore m_store;
    RecordingMessageBox m_boxes;
    FileHost m_host;
    ScriptedScreen m_screen;
    Connect m_connect;
    int m_dialogs = 0;
};

}  // namespace dorvik::test
