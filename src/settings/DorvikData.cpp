#include "settings/DorvikData.h"

#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "platform/host/modHost.h"
#include "settings/ComponentVersion.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsKeys.h"

namespace dorvik {

namespace {

constexpr std::string_view kErrorLogName = "Error.log";
constexpr std::string_view kResultsTemplateName = "Data\\DVKProject.mdb";
constexpr std::string_view kTypeCatalogueName = "Data\\type-catalogue\\";
constexpr std::string_view kUserTypeCatalogueName = "type-catalogue\\";
constexpr std::string_view kTypeLibraryIndexName = "TypeLibraries.index";
constexpr std::string_view kHomePage = "https://www.lumbrook.example/dorvik.html";
constexpr std::string_view kTechSupportPage = "https://www.lumbrook.example/dorvik-support.html";

}  // namespace

DorvikData::DorvikData()
    : m_localDataPath(modHost::UserDataFolder()),
      m_localAppPath(modHost::ProgramFolder()),
      m_errorLogFile(m_localDataPath + std::string(kErrorLogName)),
      m_projectResultsDB(m_localAppPath + std::string(kResultsTemplateName)),
      m_typeCataloguePath(m_localAppPath + std::string(kTypeCatalogueName)),
      m_userTypeCataloguePath(m_localDataPath + std::string(kUserTypeCatalogueName)),
      m_typeLibraryIndexFile(m_localDataPath + std::string(kTypeLibraryIndexName)),
      m_productVersion(ComponentVersion()),
      m_homePageURL(kHomePage),
      m_techSupportPageURL(kTechSupportPage) {}

void DorvikData::LoadFacts() {
    static constexpr std::pair<std::string_view, std::string DorvikData::*> kFacts[] = {
        {"ErrorLogFile", &DorvikData::m_errorLogFile},
        {"ProductVersion", &DorvikData::m_productVersion},
        {"ProjectResultsDB", &DorvikData::m_projectResultsDB},
        {"DataFilesFolder", &DorvikData::m_localDataPath},
        {"ProgramFilesFolder", &DorvikData::m_localAppPath},
        {"HomePageUrl", &DorvikData::m_homePageURL},
        {"TechSupportPageUrl", &DorvikData::m_techSupportPageURL},
    };
    Trap({"DorvikData", "LoadFacts"}, [this] {
        if (!RegistryUtils::HasKey(kInstallationKey, RegistryRoot::LocalMachine)) {
            modLog::Log().LogSetupError(
                "Unable to find Dorvik registry key: HKEY_LOCAL_MACHINE\\" +
                    std::string(kInstallationKey),
                "LoadFacts",
                "DorvikData");
            return;
        }
        const ISettingsStore::Values values =
            RegistryUtils::ListRegValues(kInstallationKey, RegistryRoot::LocalMachine);
        for (const auto& [name, field] : kFacts) {
            this->*field = RegistryUtils::FindRegString(values, name).value_or(this->*field);
        }
    });
}

}  // namespace dorvik
