#include "settings/modGlobal.h"

#include "base/BasicError.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "platform/host/ScopedInstall.h"
#include "platform/host/modFiles.h"
#include "settings/DVKWorkData.h"
#include "settings/DorvikData.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

class modGlobalTest : public testing::Test {
protected:
    modGlobalTest() {
        m_facts.ProgramFolder = m_folder.Path("Program\\");
        m_facts.UserDataFolder = m_folder.Path("User\\Data\\");
        m_facts.TemporaryFolder = m_folder.Path();
    }

    test::TemporaryFolder m_folder;
    HostFacts m_facts;
    ScopedInstall<const HostFacts> m_installed{m_facts};
};

TEST_F(modGlobalTest, ObjectsLiveUntilTheSecondDestroyAfterTwoCreates) {
    EXPECT_THROW(modGlobal::Data(), BasicError);
    modGlobal::CreateGlobalObjects();
    DorvikData* const data = &modGlobal::Data();
    LogFile* const log = &modLog::Log();
    modGlobal::CreateGlobalObjects();
    EXPECT_EQ(&modGlobal::Data(), data);
    modGlobal::DestroyGlobalObjects();
    EXPECT_EQ(&modGlobal::Data(), data);
    EXPECT_EQ(&modLog::Log(), log);
    modGlobal::DestroyGlobalObjects();
    EXPECT_THROW(modGlobal::Data(), BasicError);
    EXPECT_THROW(modGlobal::WorkData(), BasicError);
    EXPECT_EQ(modLog::Log().LogFilePath(), "");
}

TEST_F(modGlobalTest, LogIsInstalledWithPathComponentAndVersion) {
    modGlobal::CreateGlobalObjects();
    const LogFile& log = modLog::Log();
    EXPECT_EQ(log.LogFilePath(), m_folder.Path("User\\Data\\Error.log"));
    EXPECT_EQ(log.LogFilePath(), modGlobal::Data().ErrorLogFile());
    EXPECT_EQ(log.Component(), "DVKWork");
    EXPECT_EQ(log.ComponentVersion(), "6.02.0001");
    EXPECT_FALSE(log.Quiet());
    modLog::Log().LogEvent("begun", "P", "M");
    EXPECT_NE(
        m_folder.Read("User\\Data\\Error.log").find("#DVKWork      (6.02.0001)#Event #begun#M::P"),
        std::string::npos);
    modGlobal::DestroyGlobalObjects();
}

TEST_F(modGlobalTest, ErrorLogGoesToTheTemporaryFolderWhereTheDataFolderCannotBeMade) {
    m_folder.Write("User", "a file where the folder should be");
    modGlobal::CreateGlobalObjects();
    EXPECT_EQ(modLog::Log().LogFilePath(), m_folder.Path("Error.log"));
    modLog::Log().LogEvent("begun", "P", "M");
    EXPECT_TRUE(modFiles::FileExists(m_folder.Path("Error.log")));
    modGlobal::DestroyGlobalObjects();
}

TEST_F(modGlobalTest, LogThatSomebodyElseInstalledStays) {
    modGlobal::CreateGlobalObjects();
    LogFile own;
    LogFile* const before = modLog::Install(&own);
    modGlobal::DestroyGlobalObjects();
    EXPECT_EQ(&modLog::Log(), &own);
    EXPECT_NE(before, nullptr);
    modLog::Install(nullptr);
}

TEST_F(modGlobalTest, InstallationFactsAreTheDefaultsOfTheMachine) {
    const DorvikData data;
    EXPECT_EQ(data.LocalAppPath(), m_folder.Path("Program\\"));
    EXPECT_EQ(data.LocalDataPath(), m_folder.Path("User\\Data\\"));
    EXPECT_EQ(data.ErrorLogFile(), m_folder.Path("User\\Data\\Error.log"));
    EXPECT_EQ(data.ProjectResultsDB(), m_folder.Path("Program\\Data\\DVKProject.mdb"));
    EXPECT_EQ(data.TypeCataloguePath(), m_folder.Path("Program\\Data\\type-catalogue\\"));
    EXPECT_EQ(data.UserTypeCataloguePath(), m_folder.Path("User\\Data\\type-catalogue\\"));
    EXPECT_EQ(data.TypeLibraryIndexFile(), m_folder.Path("User\\Data\\TypeLibraries.index"));
    EXPECT_EQ(data.ProductVersion(), "6.02.0001");
    EXPECT_TRUE(data.HomePageURL().starts_with("https://"));
    EXPECT_TRUE(data.TechSupportPageURL().starts_with("https://"));
}

}  // namespace
}  // namespace dorvik
