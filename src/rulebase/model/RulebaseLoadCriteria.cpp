#include "rulebase/model/RulebaseLoadCriteria.h"

#include "base/modTextCase.h"

#include <utility>

namespace dorvik {

void RulebaseLoadCriteria::SetRulebaseFile(std::string file) {
    if (!modTextCase::Equal(m_rulebaseFile, file)) {
        m_dirty = true;
    }
    m_rulebaseFile = std::move(file);
}

void RulebaseLoadCriteria::SetRulebaseTitle(std::string title) {
    m_dirty = m_dirty || m_rulebaseTitle != title;
    m_rulebaseTitle = std::move(title);
}

void RulebaseLoadCriteria::SetRulebaseVersion(std::string version) {
    m_dirty = m_dirty || m_rulebaseVersion != version;
    m_rulebaseVersion = std::move(version);
}

void RulebaseLoadCriteria::SetLoadForEdit(bool loadForEdit) {
    m_dirty = m_dirty || m_loadForEdit != loadForEdit;
    m_loadForEdit = loadForEdit;
}

bool RulebaseLoadCriteria::SeverityLevel(std::int32_t level) const {
    return level >= 1 && level <= kLevels && m_levels[static_cast<std::size_t>(level - 1)];
}

void RulebaseLoadCriteria::SetSeverityLevel(std::int32_t level, bool take) {
    if (level < 1 || level > kLevels) {
        return;
    }
    bool& current = m_levels[static_cast<std::size_t>(level - 1)];
    m_dirty = m_dirty || current != take;
    current = take;
}

void RulebaseLoadCriteria::AddExcludedCategoryID(std::int32_t id) {
    if (!IsExcludedCategoryID(id)) {
        m_excluded.Add(id);
        m_dirty = true;
    }
}

void RulebaseLoadCriteria::RemoveExcludedCategoryID(std::int32_t id) {
    if (IsExcludedCategoryID(id)) {
        m_excluded.RemoveByValue(id);
        m_dirty = true;
    }
}

void RulebaseLoadCriteria::SetFlag(Section section, bool take) {
    bool& current = m_sections[static_cast<std::size_t>(section)];
    m_dirty = m_dirty || current != take;
    current = take;
}

}  // namespace dorvik
