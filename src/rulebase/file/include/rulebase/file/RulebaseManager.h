#pragma once

#include "rulebase/model/Rulebase.h"
#include "rulebase/model/RulebaseLoadCriteria.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

class KyXMLElement;

/// The only reader and writer of rulebase files (".dvk"). Every section is read and written under
/// its own trap: a failure costs the rest of that section, is logged under module
/// "RulebaseManager", and the load continues.
class RulebaseManager {
public:
    /// `applicationName` is the running program's own name, `localAppPath` the folder of the
    /// installed programs with its closing backslash; together they decide whether hidden
    /// categories are shown.
    RulebaseManager(std::string applicationName, std::string localAppPath);
    /// For the running program as its log names it and the installation as the settings tell it.
    /// Raises `kObjectNotSet` while no one uses the objects of `modGlobal`.
    RulebaseManager();

    /// The rulebase of `criteria.RulebaseFile`, filtered by the criteria unless `LoadForEdit` is
    /// set; null if it cannot be read, after a message box that says why. The criteria receive the
    /// element counts and the IDs of hidden categories.
    /// Raises `kyErrNoFilename` if the criteria name no file.
    std::unique_ptr<Rulebase> LoadRulebase(RulebaseLoadCriteria& criteria);

    /// Reads only what the choice of review options needs: categories, severities and element
    /// counts, and into `tolerances`, unless it is null, the tolerances. The lists are emptied
    /// first. False if the file cannot be read, after a message box.
    bool LoadReviewOptions(
        std::string_view rulebaseFile,
        CategoryList& categories,
        SeverityTable& severities,
        RulebaseLoadCriteria& criteria,
        ToleranceSettings* tolerances);

    /// Writes the whole file; with an empty `filename` to the rulebase's own, which stays as it is. The file
    /// there is replaced only by one that has every section and can be read back as it was meant.
    /// The version is incremented first if the rulebase requests it, also when the save then fails.
    /// False after a failure, which is reported in a message box, and `Dirty` then stays.
    /// Raises `kyErrNoFilename` if neither names a file.
    bool Save(Rulebase& rulebase, std::string_view filename);

    /// Whether hidden categories are shown: in the administrator's program, and where it is installed.
    bool IsAdminInstalled() const;

    /// Brings a document of an older schema up to the current one, in memory, so that a reader finds
    /// every attribute that it expects. Returns the version reached: empty, and nothing changed, for
    /// a version that is not known, newer ones included. `SchemaVersion` in the document stays.
    static std::string UpdateSchema(KyXMLElement& root, std::string_view fromVersion);
    /// One step each. A failure, as of a section that is not there, is logged and ends the step.
    static void Apply_6_1_SchemaUpdates(KyXMLElement& root);
    static void Apply_6_2_SchemaUpdates(KyXMLElement& root);

private:
    static void Warn(const std::string& text);
    static bool CheckSchemaVersion(KyXMLElement& root);

    static bool SaveSections(KyXMLElement& root, Rulebase& rulebase, std::string& failure);
    // False if the section is not written whole; `failure` is why the first one was not.
    static bool SaveProperties(KyXMLElement& root, Rulebase& rulebase, std::string& failure);
    static bool SaveControlTags(KyXMLElement& root, const TagTable& table, std::string& failure);
    static bool SaveDataTypeTags(KyXMLElement& root, const TagTable& table, std::string& failure);
    static bool SaveScopeTags(KyXMLElement& root, const TagTable& table, std::string& failure);
    static bool SaveDefaultViolations(
        KyXMLElement& root, const DefaultViolations& violations, std::string& failure);
    static bool
    SaveCategoryList(KyXMLElement& root, const CategoryList& list, std::string& failure);
    static bool
    SaveSeverityList(KyXMLElement& root, const SeverityTable& table, std::string& failure);
    static bool SaveAuthorisedComponents(
        KyXMLElement& root, const AuthorisedComponents& list, std::string& failure);
    static bool SaveAuthorisedReferences(
        KyXMLElement& root, const AuthorisedReferences& list, std::string& failure);
    static bool
    SaveUnauthorisedKeywords(KyXMLElement& root, const RuleLists& rules, std::string& failure);
    static bool
    SaveCodingConventions(KyXMLElement& rulesElement, const RuleLists& rules, std::string& failure);
    static bool
    SaveNamingConventions(KyXMLElement& rulesElement, const RuleLists& rules, std::string& failure);
    static bool SaveReport(KyXMLElement& root, const Report& report, std::string& failure);
    static bool SaveViolationDefintion(
        KyXMLElement& rule, const ViolationDefinition& definition, std::string& failure);

    std::string m_applicationName;
    std::string m_localAppPath;
};

}  // namespace dorvik
