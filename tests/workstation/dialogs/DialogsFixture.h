#pragma once

#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "platform/host/HostFacts.h"
#include "platform/host/ScopedInstall.h"
#include "settings/DVKWorkData.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"
#include "workstation/dialogs/FakeScreen.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik::test {

/// The objects of the process with settings as on a first run, a program folder of the test's own, and a screen.
class DialogsFixture : public testing::Test {
public:
    ~DialogsFixture() override { modGlobal::DestroyGlobalObjects(); }

protected:
    DialogsFixture() {
        m_folder.Write("user\\.keep", "");
        modGlobal::CreateGlobalObjects();
        modGlobal::WorkData() = DVKWorkData();
        modLog::Log().SetQuiet(true);
        modGlobal::Data().SetProjectResultsDB(
            ProgramPath(DORVIK_PROGRAM_FOLDER) + "\\Data\\DVKProject.mdb");
    }

    static HostFacts FactsIn(const TemporaryFolder& folder) {
        HostFacts facts;
        facts.LogonName = "ann";
        facts.ProgramFolder = folder.Path("program\\");
        facts.UserDataFolder = folder.Path("user\\");
        return facts;
    }
    static DVKWorkData& Settings() { return modGlobal::WorkData(); }
    std::string ErrorLog() const { return m_folder.Read("user\\Error.log"); }

    TemporaryFolder m_folder;
    HostFacts m_facts = FactsIn(m_folder);
    ScopedInstall<HostFacts> m_installedFacts{m_facts};
    AnsweringMessageBox m_messages;
    FakeScreen m_screen;
};

}  // namespace dorvik::test
