#pragma once

#include "settings/DVKWorkData.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsSections.h"
#include "settings/modGlobal.h"
#include "support/CapturedLog.h"
#include "support/RecordingMessageBox.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/support/ScriptedHost.h"
#include "workstation/support/ScriptedScreen.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// The process-wide objects with settings of their own.
struct OwnSettings {
    OwnSettings() { modGlobal::CreateGlobalObjects(); }
    ~OwnSettings() { modGlobal::DestroyGlobalObjects(); }
    OwnSettings(const OwnSettings&) = delete;
    OwnSettings& operator=(const OwnSettings&) = delete;
};

class IDEFixture : public testing::Test {
protected:
    OwnSettings m_settings;
    CapturedLog m_log;
    RecordingMessageBox m_boxes;
    ScriptedHost m_host;
    ScriptedScreen m_screen;
    IDEHelper m_ide;
};

}  // namespace dorvik::test
