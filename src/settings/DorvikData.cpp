#include "settings/DorvikData.h"

#include "platform/host/modHost.h"
#include "settings/ComponentVersion.h"

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

}  // namespace dorvik
