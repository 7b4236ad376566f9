#pragma once

#include "rulebase/Rulebase.h"
#include "rulebase/RulebaseLoadCriteria.h"

#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// The only reader and writer of rulebase files (".dvk"). Every section is read and written under
/// its own trap: a failure costs the rest of that section, is logged under module
/// "RulebaseManager", and the load goes on.
class RulebaseManager {
public:
    /// `applicationName` is the running program's own name, `localAppPath` the folder of the
    /// installed programs with its closing backslash; together they decide whether hidden
    /// categories are shown.
    RulebaseManager(std::string applicationName, std::string localAppPath);
    /// For the running program and its installation as the settings tell them.
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

    /// Writes the whole file; with an empty `filename` to the rulebase's own, which stays as it is.
    /// The version is incremented first if the rulebase asks for it, also when the save then fails.
    /// False after a failure, which is told in a message box, and `Dirty` then stays.
    /// Raises `kyErrNoFilename` if neither names a file.
    bool Save(Rulebase& rulebase, std::string_view filename);

    /// Whether hidden categories are shown: in the administrator's program, and where it is installed.
    bool IsAdminInstalled() const;

private:
    std::string m_applicationName;
    std::string m_localAppPath;
};

}  // namespace dorvik
