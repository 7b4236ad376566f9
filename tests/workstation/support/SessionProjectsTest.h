#pragma once

#include "platform/host/HostFacts.h"
#include "platform/host/ScopedInstall.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsSections.h"
#include "support/TemporaryFolder.h"
#include "workstation/support/ScriptedScreen.h"

#include <gtest/gtest.h>

namespace dorvik::test {

/// What a review by the add-in needs: the projects of the recorded sessions and a rulebase in a folder of their own, the
/// user's settings, which are empty, and a screen on which the options of a review are left with OK.
class SessionProjectsTest : public testing::Test {
protected:
    SessionProjectsTest();

    TemporaryFolder m_folder;
    HostFacts m_facts;
    ScopedInstall<const HostFacts> m_installedFacts{m_facts};
    SettingsSections m_settings;
    ScopedSettingsStore m_store;
    ScriptedScreen m_screen;
    bool m_inBackground = false;
};

}  // namespace dorvik::test
