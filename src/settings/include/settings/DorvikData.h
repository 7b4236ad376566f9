#pragma once

#include <string>
#include <string_view>

namespace dorvik {

/// The facts of the installation: where files are and where the maker is found. All folders are
/// the program's own paths with a backslash at the end. A new object holds the defaults of the
/// machine.
class DorvikData {
public:
    DorvikData();

    /// Takes over what the machine's store has under `kInstallationKey`. A store without that key is reported in the log
    /// as a fault of the installation; what cannot be read keeps its default, and is logged.
    void LoadFacts();

    /// "Error.log" in `LocalDataPath`, unless set.
    const std::string& ErrorLogFile() const { return m_errorLogFile; }
    void SetErrorLogFile(std::string_view path) { m_errorLogFile = path; }

    /// Of the form "6.02.0001".
    const std::string& ProductVersion() const { return m_productVersion; }
    void SetProductVersion(std::string_view version) { m_productVersion = version; }

    /// The empty database that each project's results begin as: "DVKProject.mdb" in the folder
    /// "Data" of `LocalAppPath`, beside the sample rulebase, unless set.
    const std::string& ProjectResultsDB() const { return m_projectResultsDB; }
    void SetProjectResultsDB(std::string_view path) { m_projectResultsDB = path; }

    /// The type catalogue that comes with the program: "type-catalogue" in the folder "Data" of
    /// `LocalAppPath`, unless set.
    const std::string& TypeCataloguePath() const { return m_typeCataloguePath; }
    void SetTypeCataloguePath(std::string_view folder) { m_typeCataloguePath = folder; }

    /// The type catalogue of the user's own, which wins: "type-catalogue" in `LocalDataPath`, unless
    /// set. It need not exist.
    const std::string& UserTypeCataloguePath() const { return m_userTypeCataloguePath; }
    void SetUserTypeCataloguePath(std::string_view folder) { m_userTypeCataloguePath = folder; }

    /// Where the index of type libraries is kept between runs: "TypeLibraries.index" in
    /// `LocalDataPath`, unless set; empty for nowhere.
    const std::string& TypeLibraryIndexFile() const { return m_typeLibraryIndexFile; }
    void SetTypeLibraryIndexFile(std::string_view path) { m_typeLibraryIndexFile = path; }

    /// Folder of the user's log and data files. It need not exist.
    const std::string& LocalDataPath() const { return m_localDataPath; }
    void SetLocalDataPath(std::string_view folder) { m_localDataPath = folder; }

    /// Folder of the program.
    const std::string& LocalAppPath() const { return m_localAppPath; }
    void SetLocalAppPath(std::string_view folder) { m_localAppPath = folder; }

    /// Web addresses of the maker's home page and support page.
    const std::string& HomePageURL() const { return m_homePageURL; }
    void SetHomePageURL(std::string_view address) { m_homePageURL = address; }
    const std::string& TechSupportPageURL() const { return m_techSupportPageURL; }
    void SetTechSupportPageURL(std::string_view address) { m_techSupportPageURL = address; }

private:
    std::string m_localDataPath;
    std::string m_localAppPath;
    std::string m_errorLogFile;
    std::string m_projectResultsDB;
    std::string m_typeCataloguePath;
    std::string m_userTypeCataloguePath;
    std::string m_typeLibraryIndexFile;
    std::string m_productVersion;
    std::string m_homePageURL;
    std::string m_techSupportPageURL;
};

}  // namespace dorvik
