#include "rulebase/model/Rulebase.h"

#include "foundation/text/modUtilFunctions.h"
#include "rulebase/model/modRulebaseDefaults.h"

#include <utility>

namespace dorvik {

namespace {

constexpr const char* kUntitledFile = "[Untitled]";

bool AnyTagDirty(const TagTable& table) {
    for (const auto& item : table) {
        if (item->Dirty()) {
            return true;
        }
    }
    return false;
}

void SetTagsDirty(TagTable& table, bool dirty) {
    for (const auto& item : table) {
        item->SetDirty(dirty);
    }
}

}  // namespace

std::string SeverityKeyOf(std::int32_t level) {
    return std::to_string(level) + "Key";
}

Rulebase::Rulebase() {
    modRulebaseDefaults::DefaultControlTags(m_controlTags);
    modRulebaseDefaults::DefaultDataTypeTags(m_dataTypeTags);
    modRulebaseDefaults::DefaultScopeTags(m_scopeTags);
    modRulebaseDefaults::DefaultSeverityList(m_severityList);
}

std::string Rulebase::FileTitle() const {
    return m_filename.empty() ? std::string(kUntitledFile)
                              : std::string(modUtilFunctions::FilenameFromFullPathName(m_filename));
}

bool Rulebase::Dirty() const {
    return m_dirty || m_authorisedComponents.Dirty() || m_authorisedReferences.Dirty() ||
           m_ruleLists.Dirty() || m_categoryList.Dirty() || m_severityList.Dirty() ||
           m_tolerances.Count.Dirty() || m_tolerances.Impact.Dirty() || m_report.Dirty() ||
           TagsDirty();
}

void Rulebase::SetDirty(bool dirty) {
    m_dirty = dirty;
    m_authorisedComponents.SetDirty(dirty);
    m_authorisedReferences.SetDirty(dirty);
    m_ruleLists.SetDirty(dirty);
    m_defaultViolations.SetDirty(dirty);
    m_categoryList.SetDirty(dirty);
    m_severityList.SetDirty(dirty);
    m_tolerances.Count.SetDirty(dirty);
    m_tolerances.Impact.SetDirty(dirty);
    m_report.SetDirty(dirty);
    SetTagsDirty(m_controlTags, dirty);
    SetTagsDirty(m_dataTypeTags, dirty);
    SetTagsDirty(m_scopeTags, dirty);
}

bool Rulebase::TagsDirty() const {
    return AnyTagDirty(m_controlTags) || AnyTagDirty(m_dataTypeTags) || AnyTagDirty(m_scopeTags);
}

std::int32_t Rulebase::RuleCount() const {
    return m_authorisedComponents.Count() + m_authorisedReferences.Count() +
           m_ruleLists.AllConventions().Count();
}

void Rulebase::SetTitle(std::string title) {
    m_title = std::move(title);
    m_dirty = true;
}

void Rulebase::SetVersion(std::string version) {
    m_version = std::move(version);
    m_dirty = true;
}

void Rulebase::SetDescription(std::string description) {
    m_description = std::move(description);
    m_dirty = true;
}

void Rulebase::SetAutoIncrementVersion(bool increment) {
    m_autoIncrementVersion = increment;
    m_dirty = true;
}

void Rulebase::SetUnknownControlViolation(bool raise) {
    m_unknownControlViolation = raise;
    m_dirty = true;
}

void Rulebase::SetUseCTagsAsDTTags(bool use) {
    m_useCTagsAsDTTags = use;
    m_dirty = true;
}

void Rulebase::SetArrayTag(std::string tag) {
    m_arrayTag = std::move(tag);
    m_dirty = true;
}

void Rulebase::SetTolerancePercentageComments(std::int32_t percentage) {
    m_tolerances.PercentageComments = percentage;
    m_dirty = true;
}

void Rulebase::SetToleranceCyclomaticComplexity(std::int32_t complexity) {
    m_tolerances.CyclomaticComplexity = complexity;
    m_dirty = true;
}

}  // namespace dorvik
