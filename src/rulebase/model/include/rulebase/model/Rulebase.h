#pragma once

#include "foundation/lists/ObjectKeyedArrayList.h"
#include "rulebase/model/AuthorisedComponents.h"
#include "rulebase/model/AuthorisedReferences.h"
#include "rulebase/model/CategoryList.h"
#include "rulebase/model/DefaultViolations.h"
#include "rulebase/model/Report.h"
#include "rulebase/model/RuleLists.h"
#include "rulebase/model/SeverityItem.h"
#include "rulebase/model/TagItem.h"
#include "rulebase/model/ToleranceSettings.h"

#include <cstdint>
#include <string>

namespace dorvik {

using TagTable = ObjectKeyedArrayList<TagItem>;
using SeverityTable = ObjectKeyedArrayList<SeverityItem>;

/// One rulebase in memory. A new one is complete and usable: it holds the default tag tables,
/// severity scale and default violations, so that a file only states what differs. It owns
/// everything in it and lives for one review or one edit.
///
/// Every write of a scalar but `Filename` sets the own dirty flag.
class Rulebase {
public:
    Rulebase();
    Rulebase(const Rulebase&) = delete;
    Rulebase& operator=(const Rulebase&) = delete;

    dorvik::AuthorisedReferences& AuthorisedReferences() { return m_authorisedReferences; }
    const dorvik::AuthorisedReferences& AuthorisedReferences() const {
        return m_authorisedReferences;
    }
    dorvik::AuthorisedComponents& AuthorisedComponents() { return m_authorisedComponents; }
    const dorvik::AuthorisedComponents& AuthorisedComponents() const {
        return m_authorisedComponents;
    }
    dorvik::RuleLists& RuleLists() { return m_ruleLists; }
    const dorvik::RuleLists& RuleLists() const { return m_ruleLists; }
    /// The tag tables are keyed by `TagName`.
    TagTable& ControlTags() { return m_controlTags; }
    const TagTable& ControlTags() const { return m_controlTags; }
    TagTable& DataTypeTags() { return m_dataTypeTags; }
    const TagTable& DataTypeTags() const { return m_dataTypeTags; }
    TagTable& ScopeTags() { return m_scopeTags; }
    const TagTable& ScopeTags() const { return m_scopeTags; }
    dorvik::DefaultViolations& DefaultViolations() { return m_defaultViolations; }
    const dorvik::DefaultViolations& DefaultViolations() const { return m_defaultViolations; }

    /// Full path of the file; empty until loaded or named.
    const std::string& Filename() const { return m_filename; }
    void SetFilename(std::string filename) { m_filename = std::move(filename); }
    /// The file's own name, "[Untitled]" without one.
    std::string FileTitle() const;

    /// The own flag or that of any list, and of the tags if all those are clear.
    /// Required: a changed default violation does not show here. A write reaches everything.
    bool Dirty() const;
    void SetDirty(bool dirty);

    const std::string& Title() const { return m_title; }
    void SetTitle(std::string title);
    const std::string& Version() const { return m_version; }
    void SetVersion(std::string version);
    const std::string& Description() const { return m_description; }
    void SetDescription(std::string description);
    /// Whether each save increments the version.
    bool AutoIncrementVersion() const { return m_autoIncrementVersion; }
    void SetAutoIncrementVersion(bool increment);
    bool UnknownControlViolation() const { return m_unknownControlViolation; }
    void SetUnknownControlViolation(bool raise);
    /// Authorised components, authorised references and rules.
    std::int32_t RuleCount() const;
    /// Control tags serve as data type tags too.
    bool UseCTagsAsDTTags() const { return m_useCTagsAsDTTags; }
    void SetUseCTagsAsDTTags(bool use);
    const std::string& ArrayTag() const { return m_arrayTag; }
    void SetArrayTag(std::string tag);

    dorvik::CategoryList& CategoryList() { return m_categoryList; }
    const dorvik::CategoryList& CategoryList() const { return m_categoryList; }
    /// Keyed by `SeverityKeyOf`.
    SeverityTable& SeverityList() { return m_severityList; }
    const SeverityTable& SeverityList() const { return m_severityList; }
    /// Filled by a load for an edit only.
    dorvik::Report& Report() { return m_report; }
    const dorvik::Report& Report() const { return m_report; }

    /// A write of a list, or of a limit in place, sets no flag but that of the list.
    ToleranceSettings& Tolerances() { return m_tolerances; }
    const ToleranceSettings& Tolerances() const { return m_tolerances; }
    void SetTolerancePercentageComments(std::int32_t percentage);
    void SetToleranceCyclomaticComplexity(std::int32_t complexity);

private:
    bool TagsDirty() const;

    dorvik::AuthorisedReferences m_authorisedReferences;
    dorvik::AuthorisedComponents m_authorisedComponents;
    dorvik::RuleLists m_ruleLists;
    TagTable m_controlTags;
    TagTable m_dataTypeTags;
    TagTable m_scopeTags;
    dorvik::DefaultViolations m_defaultViolations;
    std::string m_filename;
    bool m_dirty = false;
    std::string m_title = "Untitled";
    std::string m_version = "1.0.0";
    std::string m_description;
    bool m_autoIncrementVersion = true;
    bool m_unknownControlViolation = false;
    bool m_useCTagsAsDTTags = false;
    std::string m_arrayTag;
    dorvik::CategoryList m_categoryList;
    SeverityTable m_severityList;
    dorvik::Report m_report;
    ToleranceSettings m_tolerances;
};

}  // namespace dorvik
