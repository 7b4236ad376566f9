#pragma once

#include "rulebase/RulebaseText.h"
#include "rulebase/file/RulebaseManager.h"
#include "support/CapturedLog.h"
#include "support/RecordingMessageBox.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

namespace dorvik::test {

/// A folder for rulebase files, a log and a message box that listen, a manager that runs where the
/// administrator's program is not installed, and criteria that take everything for a review.
class RulebaseManagerFixture : public testing::Test {
protected:
    RulebaseManagerFixture() : m_manager("DVKWork", m_folder.Path()) {
        for (std::int32_t level = 1; level <= 5; ++level) {
            m_criteria.SetSeverityLevel(level, true);
        }
        m_criteria.SetAuthorisedComponents(true);
        m_criteria.SetAuthorisedReferences(true);
        m_criteria.SetUnauthorisedKeywords(true);
        m_criteria.SetCodingConventions(true);
        m_criteria.SetNamingConventions(true);
    }

    std::unique_ptr<Rulebase> Load(const std::string& bytes) {
        m_criteria.SetRulebaseFile(m_folder.Write("team.dvk", bytes));
        return m_manager.LoadRulebase(m_criteria);
    }
    std::unique_ptr<Rulebase> Load(const RulebaseText& text) { return Load(text.Text()); }
    std::unique_ptr<Rulebase> LoadForEdit(const std::string& bytes) {
        m_criteria.SetLoadForEdit(true);
        return Load(bytes);
    }
    /// As the file stands in the folder.
    std::unique_ptr<Rulebase> LoadForEditFile(std::string_view name) {
        m_criteria.SetLoadForEdit(true);
        m_criteria.SetRulebaseFile(m_folder.Path(name));
        return m_manager.LoadRulebase(m_criteria);
    }

    void ExpectOneWarning(const std::string& text) const {
        ASSERT_EQ(m_box.Messages.size(), 1U);
        EXPECT_EQ(m_box.Messages[0].Text, text);
        EXPECT_EQ(m_box.Messages[0].Icon, MessageIcon::Exclamation);
    }
    /// The file is refused with the message for that, and the one log line holds the reason.
    void ExpectRefused(const std::string& bytes, std::string_view reason) {
        m_log.Clear();
        m_box.Messages.clear();
        EXPECT_EQ(Load(bytes), nullptr);
        ExpectOneWarning(
            "Unable to load the rulebase because of an unexpected error during parsing.");
        const std::vector<std::string> entries = m_log.Entries();
        ASSERT_EQ(entries.size(), 1U);
        EXPECT_NE(entries[0].find(reason), std::string::npos) << entries[0];
        EXPECT_NE(entries[0].find(m_folder.Path("team.dvk")), std::string::npos) << entries[0];
        EXPECT_TRUE(entries[0].ends_with("#KyXMLDoc::LoadFromFile")) << entries[0];
    }

    TemporaryFolder m_folder;
    CapturedLog m_log;
    RecordingMessageBox m_box;
    RulebaseLoadCriteria m_criteria;
    RulebaseManager m_manager;
};

/// The text with one part in another form. The part must be there.
inline std::string Changed(std::string text, std::string_view from, std::string_view to) {
    const std::size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    return place == std::string::npos ? text : text.replace(place, from.size(), to);
}

}  // namespace dorvik::test
