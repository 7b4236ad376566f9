#include "base/BasicError.h"
#include "base/modKyErrors.h"
#include "platform/host/ScopedInstall.h"
#include "platform/host/modFiles.h"
#include "settings/DVKWorkData.h"
#include "settings/DorvikData.h"
#include "settings/MRUUtils.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsKeys.h"
#include "settings/SettingsSections.h"
#include "settings/modGlobal.h"
#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace dorvik {
namespace {

constexpr RegistryRoot kUser = RegistryRoot::CurrentUser;

/// A user's store in a file.
class SettingsStore : public testing::Test {
protected:
    std::string Stored(std::string_view name) {
        return RegistryUtils::GetRegString(kWorkbenchKey, name, "(none)", kUser);
    }
    void Store(std::string_view name, std::string_view value) {
        RegistryUtils::SetRegString(kWorkbenchKey, name, value, kUser);
    }
    DVKWorkData Loaded() {
        DVKWorkData settings;
        settings.LoadSettings();
        return settings;
    }

    test::TemporaryFolder m_folder;
    test::CapturedLog m_log;
    SettingsFile m_file{m_folder.Path("Config\\dorvik\\settings")};
    ScopedSettingsStore m_installed{kUser, m_file};
};

TEST_F(SettingsStore, AFirstRunWithNoKeyUsesEveryDefault) {
    const DVKWorkData loaded = Loaded();
    SettingsSections memory;
    SettingsSections defaults;
    {
        const ScopedSettingsStore installed(kUser, memory);
        loaded.SaveSettings();
    }
    {
        const ScopedSettingsStore installed(kUser, defaults);
        DVKWorkData().SaveSettings();
    }
    EXPECT_EQ(memory.List(kWorkbenchKey), defaults.List(kWorkbenchKey));
    EXPECT_FALSE(m_file.Exists());
}

TEST_F(SettingsStore, EveryValueIsStoredUnderItsNameAsAText) {
    DVKWorkData settings;
    settings.LastRulebase = "C:\\Rules \"A\"\\Team.dvk";
    settings.RVVLSortCol.SetItem(5, 7);
    settings.ClearLog = false;
    settings.SaveSettings();
    EXPECT_EQ(Stored("ClearLog"), "0");
    EXPECT_EQ(Stored("AlwaysShowSummary"), "1");
    EXPECT_EQ(Stored("BackgroundTickCount"), "100");
    EXPECT_EQ(Stored("RVVLColWidth1"), "0.488");
    EXPECT_EQ(Stored("RVGridWidth"), "0.498");
    EXPECT_EQ(Stored("RVVLSortCol5"), "7");
    EXPECT_EQ(Stored("HVColWidth9"), "0.1");
    EXPECT_EQ(Stored("LastRulebase"), "C:\\Rules \"A\"\\Team.dvk");
    EXPECT_EQ(Stored("OptionPromptSave"), "2");
    // 45 single values and nine rows.
    EXPECT_EQ(m_file.List(kWorkbenchKey).size(), 46U + 3 + 4 * 5 + 2 + 7 + 5 + 6 + 2 + 2 + 9);
}

TEST_F(SettingsStore, WhatIsSavedIsLoaded) {
    DVKWorkData settings;
    settings.BackgroundReview = true;
    settings.BackgroundTickCount = -3;
    settings.LastReportOption = 2;
    settings.RDT2ColWidth.SetItem(7, 0.25);
    settings.RBDocPath = "\\home\\ann\\Übersicht\n.html";
    settings.SaveSettings();
    const DVKWorkData loaded = Loaded();
    EXPECT_TRUE(loaded.BackgroundReview);
    EXPECT_EQ(loaded.BackgroundTickCount, -3);
    EXPECT_EQ(loaded.LastReportOption, 2);
    EXPECT_DOUBLE_EQ(loaded.RDT2ColWidth.Item(7), 0.25);
    EXPECT_EQ(loaded.RBDocPath, settings.RBDocPath);
}

TEST_F(SettingsStore, TheTwoPathsAreReadFromOneValue) {
    DVKWorkData settings;
    settings.LastResultsPath = "C:\\Results\\";
    settings.LastReportsPath = "C:\\Reports\\";
    settings.SaveSettings();
    EXPECT_EQ(Stored("LastResultsPath"), "(none)");
    EXPECT_EQ(Loaded().LastResultsPath, "C:\\Reports\\");
    EXPECT_EQ(Loaded().LastReportsPath, "C:\\Reports\\");
}

TEST_F(SettingsStore, ADecimalCommaReadsAsAPoint) {
    Store("RVVLColWidth1", "0,25");
    Store("RVGridWidth", "0,488");
    EXPECT_DOUBLE_EQ(Loaded().RVVLColWidth.Item(1), 0.25);
    EXPECT_DOUBLE_EQ(Loaded().RVGridWidth, 0.488);
}

TEST_F(SettingsStore, ATextThatIsNotOfTheTypeLeavesTheDefault) {
    for (const auto& [name, text] :
         {std::pair("ClearLog", "yes"),
          {"BackgroundTickCount", "70000"},
          {"ToolbarTop", "x"},
          {"RVGridWidth", "0.4.8"},
          {"HVSortCol", ""},
          {"RVDTop", "99999999999"},
          {"HVColWidth1", "nan"}}) {
        Store(name, text);
    }
    Store("AlwaysShowSummary", "False");
    const DVKWorkData loaded = Loaded();
    EXPECT_TRUE(loaded.ClearLog);
    EXPECT_EQ(loaded.BackgroundTickCount, 100);
    EXPECT_EQ(loaded.ToolbarTop, 50);
    EXPECT_DOUBLE_EQ(loaded.RVGridWidth, 0.498);
    EXPECT_EQ(loaded.HVSortCol, 1);
    EXPECT_EQ(loaded.RVDTop, 210);
    EXPECT_DOUBLE_EQ(loaded.HVColWidth.Item(1), 0.2);
    EXPECT_FALSE(loaded.AlwaysShowSummary);
}

TEST_F(SettingsStore, AValueOfAnotherTypeIsAnErrorAndIsKept) {
    m_folder.Write(
        "Config\\dorvik\\settings",
        "[" + std::string(kWorkbenchKey) +
            "]\n\"ToolbarTop\"=dword:0000000a\n\"ToolbarLeft\"=\"7\"\n");
    try {
        Stored("toolbartop");
        FAIL() << "no error";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), modKyErrors::kyErrRegistryType);
        EXPECT_STREQ(error.what(), "Registry data type does not match the type requested.");
    }
    const DVKWorkData loaded = Loaded();
    EXPECT_EQ(loaded.ToolbarTop, 50);
    EXPECT_EQ(loaded.ToolbarLeft, 7);
    EXPECT_TRUE(m_log.Contains("Registry data type does not match"));
    Store("ClearLog", "0");
    EXPECT_NE(
        m_folder.Read("Config\\dorvik\\settings").find("\"ToolbarTop\"=dword:0000000a\n"),
        std::string::npos);
}

TEST_F(SettingsStore, ARootWithoutAStoreIsABadKey) {
    try {
        RegistryUtils::GetRegString("Software", "x", "", RegistryRoot::LocalMachine);
        FAIL() << "no error";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), modKyErrors::kyErrRegistryKey);
        EXPECT_STREQ(error.what(), "An invalid registry key handle was supplied.");
    }
}

TEST_F(SettingsStore, ADamagedFileKeepsItsGoodValuesAndIsSavedBesideTheNewOne) {
    const std::string damaged =
        "[" + std::string(kWorkbenchKey) +
        "]\r\n\"ToolbarTop\"=\"12\"\r\n\"ToolbarLeft\"=\"1\nrubbish\n\"RVDTop\"=\"3\"\n";
    m_folder.Write("Config\\dorvik\\settings", damaged);
    const DVKWorkData loaded = Loaded();
    EXPECT_EQ(loaded.ToolbarTop, 12);
    EXPECT_EQ(loaded.ToolbarLeft, 350);
    EXPECT_EQ(loaded.RVDTop, 3);
    EXPECT_TRUE(
        m_log.Contains("has 2 line(s) that cannot be understood, the first of them line 3"));
    EXPECT_EQ(m_folder.Read("Config\\dorvik\\settings"), damaged);
    loaded.SaveSettings();
    EXPECT_EQ(m_folder.Read("Config\\dorvik\\settings.damaged"), damaged);
    EXPECT_EQ(Stored("ToolbarTop"), "12");
}

TEST_F(SettingsStore, AFileTooLargeForSettingsIsReportedAndSavedBesideTheNewOne) {
    const std::string section = "[" + std::string(kWorkbenchKey) + "]\n\"ToolbarTop\"=\"12\"\n;";
    const std::string large = section + std::string(4'000'001 - section.size(), 'x');
    m_folder.Write("Config\\dorvik\\settings", large);
    EXPECT_EQ(Loaded().ToolbarTop, 50);
    EXPECT_TRUE(m_log.Contains(
        "settings' has 4000001 bytes, more than the 4000000 that are read; all settings have their "
        "defaults."));
    Store("ToolbarTop", "3");
    EXPECT_EQ(m_folder.Read("Config\\dorvik\\settings.damaged"), large);
    EXPECT_EQ(Stored("ToolbarTop"), "3");
}

TEST_F(SettingsStore, AByteOrderMarkIsNoPartOfTheFirstLine) {
    m_folder.Write(
        "Config\\dorvik\\settings",
        "\xEF\xBB\xBF[" + std::string(kWorkbenchKey) + "]\r\n\"ToolbarTop\"=\"12\"\r\n");
    EXPECT_EQ(Loaded().ToolbarTop, 12);
    EXPECT_FALSE(m_log.Contains("cannot be understood"));
}

TEST_F(SettingsStore, AHomeThatCannotBeWrittenToIsLoggedAndHarmsNothing) {
    if (geteuid() == 0) {
        // Root writes everywhere: a file where the folder should be stops it as well.
        m_folder.Write("Config", "x");
    } else {
        std::filesystem::permissions(m_folder.HostPath(), std::filesystem::perms::owner_read);
    }
    DVKWorkData().SaveSettings();
    EXPECT_FALSE(m_file.Exists());
    EXPECT_EQ(Loaded().ToolbarTop, 50);
    if (geteuid() != 0) {
        std::filesystem::permissions(m_folder.HostPath(), std::filesystem::perms::owner_all);
    } else {
        EXPECT_TRUE(m_log.Contains("::SaveSettings"));
    }
}

TEST_F(SettingsStore, TwoProgramsThatWriteAtOnceLoseNothingOfEachOther) {
    constexpr int kWrites = 25;
    constexpr int kPrograms = 3;
    std::vector<pid_t> programs;
    for (int program = 0; program < kPrograms; ++program) {
        const pid_t child = fork();
        if (child == 0) {
            for (int number = 0; number < kWrites; ++number) {
                Store("P" + std::to_string(program) + "N" + std::to_string(number), "x");
            }
            std::_Exit(0);
        }
        programs.push_back(child);
    }
    for (const pid_t program : programs) {
        int status = -1;
        waitpid(program, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(m_file.List(kWorkbenchKey).size(), static_cast<std::size_t>(kWrites * kPrograms));
    EXPECT_FALSE(modFiles::FileExists(m_file.Path() + ".lock"));
}

/// A store that counts how often it is used.
class CountedStore final : public ISettingsStore {
public:
    bool HasSection(std::string_view section) override {
        ++m_reads;
        return m_sections.HasSection(section);
    }
    std::optional<StoredSetting> Get(std::string_view section, std::string_view name) override {
        ++m_reads;
        return m_sections.Get(section, name);
    }
    Values List(std::string_view section) override {
        ++m_reads;
        return m_sections.List(section);
    }
    void Set(std::string_view section, const Values& values) override {
        ++m_writes;
        m_sections.Set(section, values);
    }

    int Reads() const { return m_reads; }
    int Writes() const { return m_writes; }

private:
    SettingsSections m_sections;
    int m_reads = 0;
    int m_writes = 0;
};

TEST_F(SettingsStore, AllSettingsAreReadAtOnceAndWrittenAtOnce) {
    CountedStore store;
    const ScopedSettingsStore installed(kUser, store);
    DVKWorkData settings;
    settings.ToolbarTop = 12;
    settings.SaveSettings();
    EXPECT_EQ(store.Writes(), 1);
    EXPECT_EQ(Loaded().ToolbarTop, 12);
    EXPECT_EQ(store.Reads(), 1);
}

TEST_F(SettingsStore, TheRecentFilesAreReadAtOnceAndWrittenAtOnce) {
    CountedStore store;
    const ScopedSettingsStore installed(kUser, store);
    MRUUtils files;
    files.SetAppName("DVKWork");
    EXPECT_EQ(store.Reads(), 1);
    files.Add("a.dvk");
    EXPECT_EQ(store.Writes(), 1);
}

TEST_F(SettingsStore, TheLatestFourFilesAreRemembered) {
    MRUUtils files;
    files.SetAppName("DVKWork");
    EXPECT_EQ(files.Count(), 0);
    for (const char* const file : {"a.dvk", "b.dvk", "c.dvk", "d.dvk", "e.dvk", "C.DVK"}) {
        files.Add(file);
    }
    files.Remove("d.dvk");
    MRUUtils again;
    again.SetAppName("DVKWork");
    ASSERT_EQ(again.Count(), 3);
    EXPECT_EQ(again.Item(1), "C.DVK");
    EXPECT_EQ(again.Item(2), "e.dvk");
    EXPECT_EQ(again.Item(3), "b.dvk");
    EXPECT_THROW((void)again.Item(4), BasicError);
    EXPECT_EQ(
        RegistryUtils::GetRegString(
            "Software\\Lumbrook\\Dorvik\\6.2\\DVKWork\\MRU", "MRUFile1", "", kUser),
        "C.DVK");
    again.Add(again.Item(3));
    EXPECT_EQ(again.Item(1), "b.dvk");
}

TEST_F(SettingsStore, FactsOfTheInstallationComeFromTheMachinesStore) {
    SettingsSections machine;
    const ScopedSettingsStore installed(RegistryRoot::LocalMachine, machine);
    DorvikData data;
    const std::string home = data.HomePageURL();
    data.LoadFacts();
    EXPECT_TRUE(m_log.Contains("Unable to find Dorvik registry key: "
                               "HKEY_LOCAL_MACHINE\\Software\\Lumbrook\\Dorvik\\6.2"));
    machine.Set(
        kInstallationKey,
        {{"ErrorLogFile", "\\var\\log\\dorvik.log"},
         {"TechSupportPageUrl", "https://help.example"}});
    data.LoadFacts();
    EXPECT_EQ(data.ErrorLogFile(), "\\var\\log\\dorvik.log");
    EXPECT_EQ(data.TechSupportPageURL(), "https://help.example");
    EXPECT_EQ(data.HomePageURL(), home);
}

TEST_F(SettingsStore, TheFirstUserLoadsTheSettingsAndTheLastOneSavesThem) {
    HostFacts facts;
    facts.UserDataFolder = m_folder.Path("Data\\");
    const ScopedInstall<const HostFacts> hostFacts(facts);
    Store("ToolbarTop", "99");
    modGlobal::CreateGlobalObjects();
    modGlobal::CreateGlobalObjects();
    EXPECT_EQ(modGlobal::WorkData().ToolbarTop, 99);
    modGlobal::WorkData().ToolbarLeft = 4;
    modGlobal::DestroyGlobalObjects();
    EXPECT_EQ(Stored("ToolbarLeft"), "(none)");
    modGlobal::DestroyGlobalObjects();
    EXPECT_EQ(Stored("ToolbarLeft"), "4");
    EXPECT_EQ(Stored("ToolbarTop"), "99");
}

TEST_F(SettingsStore, TheFilesAreInTheFoldersForConfiguration) {
    HostFacts facts;
    facts.UserConfigurationFolder = "\\home\\ann\\.config\\dorvik\\";
    facts.MachineConfigurationFolder = "\\etc\\dorvik\\";
    const ScopedInstall<const HostFacts> hostFacts(facts);
    EXPECT_EQ(SettingsFile::UserPath(), "\\home\\ann\\.config\\dorvik\\settings");
    EXPECT_EQ(SettingsFile::MachinePath(), "\\etc\\dorvik\\settings");
}

}  // namespace
}  // namespace dorvik
