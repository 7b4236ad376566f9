#pragma once

#include "platform/host/modFiles.h"
#include "workstation/dialogs/ReviewedFiles.h"
#include "workstation/dialogs/frmReviewOptions.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

using Page = frmReviewOptions::Page;

/// The texts of the nodes with "+" where they are checked, else "-", and what is below them in brackets.
inline std::string TreeText(const std::vector<std::unique_ptr<CheckNode>>& nodes) {
    std::string text;
    for (const auto& node : nodes) {
        text += node->Text + (node->Checked ? "+" : "-");
        if (!node->Children.empty()) {
            text += "(" + TreeText(node->Children) + ")";
        }
        text += node == nodes.back() ? "" : " ";
    }
    return text;
}

inline std::vector<std::string> CheckedKeys(const CheckList& list) {
    std::vector<std::string> keys;
    for (const CheckItem& item : list.Items()) {
        if (item.Checked) {
            keys.push_back(item.Key);
        }
    }
    return keys;
}

inline void Uncheck(CheckList& list, std::string_view key) {
    list.SetChecked(list.Find(key).value(), false);
}

/// A dialog over the files and the rulebase of the test.
class ReviewOptionsFixture : public ReviewedFiles {
protected:
    void Open() {
        m_form = std::make_unique<frmReviewOptions>(m_screen);
        m_form->ReviewOptions(m_criteria);
    }
    /// With the rulebase of the test chosen.
    void OpenAndChoose() {
        Open();
        m_form->cboRulebase.Set(m_folder.Path("Rules.dvk"));
    }
    void MakeBatch() {
        m_criteria->SetReviewType(ReviewType_Batch);
        m_criteria->SetBackgroundReview(true);
    }

    /// OK is refused with that one message on that page.
    void ExpectRefusal(const std::string& text, Page page, const std::string& control) {
        m_messages.Messages.clear();
        EXPECT_FALSE(m_form->Ok());
        EXPECT_FALSE(m_form->IsClosed());
        ASSERT_THAT(m_messages.Messages, testing::SizeIs(1));
        EXPECT_EQ(
            m_messages.Messages[0],
            (MessageText{MessageIcon::Exclamation, "Dorvik Workstation", text}));
        EXPECT_EQ(m_form->tbsOptions.Shown.Value(), static_cast<std::int16_t>(page));
        EXPECT_EQ(m_form->Focus.Value(), control);
    }

    std::unique_ptr<frmReviewOptions> m_form;
};

}  // namespace dorvik::test
