#pragma once

#include "platform/host/HostFacts.h"
#include "platform/host/ScopedInstall.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsSections.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/support/ScriptedScreen.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace dorvik::test {

/// What a review by the add-in needs: the projects of the recorded sessions and a rulebase in a folder of their own, the
/// user's settings, which are empty, and a screen on which the options of a review are left with OK.
class SessionProjectsTest : public testing::Test {
protected:
    SessionProjectsTest() : m_store(RegistryRoot::CurrentUser, m_settings) {
        std::filesystem::copy(
            DORVIK_SESSION_PROJECTS, m_folder.HostPath(), std::filesystem::copy_options::recursive);
        std::filesystem::copy_file(DORVIK_SESSION_RULEBASE, m_folder.HostPath() / "Rules.dvk");
        m_facts.UserDataFolder = m_folder.Path("state\\");
        m_facts.ProgramFolder = ProgramPath(std::filesystem::path(DORVIK_PROGRAM_FOLDER)) + "\\";
        m_screen.OnReviewOptions = [this](frmReviewOptions& form) {
            form.cboRulebase.Set(m_folder.Path("Rules.dvk"));
            form.chkBackground.Set(m_inBackground);
            form.Ok();
        };
        m_screen.OnProgress = [](frmProgress& form) {
            form.Activate();
        };
    }

    TemporaryFolder m_folder;
    HostFacts m_facts;
    ScopedInstall<const HostFacts> m_installedFacts{m_facts};
    SettingsSections m_settings;
    ScopedSettingsStore m_store;
    ScriptedScreen m_screen;
    bool m_inBackground = false;
};

}  // namespace dorvik::test
