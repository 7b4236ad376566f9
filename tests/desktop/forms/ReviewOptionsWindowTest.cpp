#include "workstation/forms/ReviewOptionsWindow.h"

#include "WindowChecks.h"
#include "workstation/dialogs/ReviewOptionsFixture.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

namespace dorvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ReviewOptionsWindowTest : public ReviewOptionsFixture {
protected:
    void OpenWindow() {
        m_window.reset();
        Open();
        ShowWindow();
    }
    void OpenFilter() {
        m_window.reset();
        m_form = std::make_unique<frmReviewOptions>(m_screen);
        CategoryList categories;
        const auto category = std::make_shared<CategoryItem>();
        category->SetTitle("Clarity");
        categories.Add(category, true);
        m_form->SetCategoryList(categories);
        m_form->FilterOptions(m_filter);
        ShowWindow();
    }
    void ShowWindow() {
        m_window = std::make_unique<ReviewOptionsWindow>(*m_form, nullptr);
        ShowActive(*m_window);
    }
    void Turn(Page page) { m_form->tbsOptions.Shown.Set(static_cast<std::int16_t>(page)); }
    template <typename Control>
    Control& At(const std::string& name) {
        return Find<Control>(*m_window, name);
    }
    QPushButton& Button(QDialogButtonBox::StandardButton button) {
        return *m_window->findChild<QDialogButtonBox*>()->button(button);
    }
    /// The button of the page in front.
    QPushButton& SelectButton(const QString& name) {
        for (QPushButton* const button : m_window->findChildren<QPushButton*>(name)) {
            if (button->isVisible()) {
                return *button;
            }
        }
        throw std::runtime_error("no such button");
    }
    void Retype(const std::string& name, const std::string& text) {
        QLineEdit& box = At<QLineEdit>(name);
        box.selectAll();
        QTest::keyClicks(&box, QString::fromStdString(text));
    }
    QLineEdit& Rulebase() { return *At<QComboBox>("cboRulebase").lineEdit(); }
    std::string HostPathOf(const std::string& name) const {
        return modTextCase::ReplaceAll(m_folder.Path(name), "\\", "/");
    }
    std::vector<std::string> Tabs() {
        std::vector<std::string> captions;
        const QTabBar& bar = *m_window->findChild<QTabBar*>();
        for (int index = 0; index < bar.count(); ++index) {
            if (bar.isTabVisible(index)) {
                captions.push_back(bar.tabText(index).toStdString());
            }
        }
        return captions;
    }

    RulebaseLoadCriteria m_filter;
    std::unique_ptr<ReviewOptionsWindow> m_window;
};

TEST_F(ReviewOptionsWindowTest, AReviewHasAllPages) {
    OpenWindow();
    EXPECT_EQ(m_window->windowTitle().toStdString(), "Review Options");
    EXPECT_THAT(
        Tabs(),
        ElementsAre(
            "Projects", "Results", "Conventions", "Categories", "Severities", "Tolerances"));
    EXPECT_FALSE(At<QLineEdit>("txtTitle").isVisible());
}

TEST_F(ReviewOptionsWindowTest, AFilterHasThreePages) {
    OpenFilter();
    EXPECT_EQ(m_window->windowTitle().toStdString(), "Filter Options");
    EXPECT_THAT(Tabs(), ElementsAre("Conventions", "Categories", "Severities"));
    EXPECT_EQ(m_window->findChild<QTabWidget*>()->currentIndex(), 2);
    for (const int page : {3, 4, 2}) {
        QTest::keyClick(m_window.get(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(m_window->findChild<QTabWidget*>()->currentIndex(), page);
    }
}

TEST_F(ReviewOptionsWindowTest, TypingARulebaseLoadsIt) {
    OpenWindow();
    QTest::keyClicks(&Rulebase(), QString::fromStdString(HostPathOf("Rules.dvk")));
    EXPECT_EQ(m_form->cboRulebase.Value(), m_folder.Path("Rules.dvk"));
    EXPECT_EQ(At<QAbstractItemView>("lvwCategories").model()->rowCount(), 3);
    EXPECT_EQ(At<QLineEdit>("txtCount6").text().toStdString(), "40");
}

TEST_F(ReviewOptionsWindowTest, BrowsingForARulebasePutsItIntoTheBox) {
    OpenWindow();
    m_screen.Chosen = m_folder.Path("Rules.dvk");
    At<QPushButton>("cmdRulebase").click();
    EXPECT_EQ(Rulebase().text().toStdString(), HostPathOf("Rules.dvk"));
    EXPECT_EQ(m_form->cboRulebase.Value(), m_folder.Path("Rules.dvk"));
}

TEST_F(ReviewOptionsWindowTest, TheBoxOffersTheInstalledRulebases) {
    m_folder.Write("program\\Settings\\Rulebase\\House.dvk", "x");
    OpenWindow();
    QComboBox& box = At<QComboBox>("cboRulebase");
    ASSERT_EQ(box.count(), 1);
    EXPECT_EQ(m_form->cboRulebase.Value(), "");
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(m_form->cboRulebase.Value(), m_folder.Path("program\\Settings\\Rulebase\\House.dvk"));
}

TEST_F(ReviewOptionsWindowTest, AMarkInTheTreeIsSetByTheKeyboard) {
    OpenWindow();
    QAbstractItemView& tree = At<QAbstractItemView>("tvwProjects");
    tree.setFocus();
    tree.setCurrentIndex(tree.model()->index(0, 0));
    const std::string before = TreeText(m_form->tvwProjects.Roots());
    EXPECT_THAT(before, testing::StartsWith("Demo+"));
    QTest::keyClick(&tree, Qt::Key_Space);
    EXPECT_EQ(TreeText(m_form->tvwProjects.Roots()), modTextCase::ReplaceAll(before, "+", "-"));
}

TEST_F(ReviewOptionsWindowTest, SelectAllAndNoneActOnThePageInFront) {
    OpenWindow();
    Turn(Page::Conventions);
    SelectButton(QStringLiteral("cmdSelectNone")).click();
    EXPECT_THAT(CheckedKeys(m_form->lvwConventions), IsEmpty());
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), testing::Not(IsEmpty()));
    SelectButton(QStringLiteral("cmdSelectAll")).click();
    EXPECT_THAT(CheckedKeys(m_form->lvwConventions), ElementsAre("AC", "AR", "CC", "NC", "UK"));
    Turn(Page::Projects);
    SelectButton(QStringLiteral("cmdSelectNone")).click();
    EXPECT_FALSE(m_form->Projects().AnyProjectChecked());
}

TEST_F(ReviewOptionsWindowTest, ResetChecksAllLists) {
    OpenWindow();
    m_form->lvwConventions.SetAll(false);
    m_form->lvwCategories.SetAll(false);
    At<QPushButton>("cmdReset").click();
    EXPECT_THAT(CheckedKeys(m_form->lvwConventions), testing::SizeIs(5));
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), testing::SizeIs(1));
}

TEST_F(ReviewOptionsWindowTest, ARefusedDialogStaysOnThePageOfTheFault) {
    OpenWindow();
    Turn(Page::Tolerances);
    Button(QDialogButtonBox::Ok).click();
    ASSERT_THAT(m_messages.Messages, testing::SizeIs(1));
    EXPECT_EQ(m_messages.Messages[0].Text, "Please select a rulebase for the review.");
    EXPECT_FALSE(m_form->IsClosed());
    EXPECT_EQ(m_window->findChild<QTabWidget*>()->currentIndex(), 0);
    EXPECT_EQ(m_window->focusWidget(), &At<QComboBox>("cboRulebase"));
}

TEST_F(ReviewOptionsWindowTest, TheSameFaultAgainMovesTheFocusAgain) {
    OpenWindow();
    Button(QDialogButtonBox::Ok).click();
    At<QAbstractItemView>("tvwProjects").setFocus();
    Button(QDialogButtonBox::Ok).click();
    EXPECT_EQ(m_window->focusWidget(), &At<QComboBox>("cboRulebase"));
}

TEST_F(ReviewOptionsWindowTest, AFolderThatIsNotThereIsCreatedIfTheUserWantsIt) {
    OpenWindow();
    QTest::keyClicks(&Rulebase(), QString::fromStdString(HostPathOf("Rules.dvk")));
    Turn(Page::Results);
    if (At<QCheckBox>("chkResultsFolder").isChecked()) {
        QTest::keyClick(&At<QCheckBox>("chkResultsFolder"), Qt::Key_Space);
    }
    Retype("txtResultsFolder", HostPathOf("made"));
    m_messages.Answers = {MessageAnswer::No};
    QTest::keyClick(&At<QLineEdit>("txtResultsFolder"), Qt::Key_Return);
    EXPECT_FALSE(m_form->IsClosed());
    EXPECT_EQ(m_window->focusWidget(), &At<QLineEdit>("txtResultsFolder"));
    m_messages.Answers = {MessageAnswer::Yes};
    QTest::keyClick(&At<QLineEdit>("txtResultsFolder"), Qt::Key_Return);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_TRUE(modFiles::FolderExists(m_folder.Path("made")));
}

TEST_F(ReviewOptionsWindowTest, WhatIsEnteredReachesTheCriteria) {
    OpenWindow();
    QTest::keyClicks(&Rulebase(), QString::fromStdString(HostPathOf("Rules.dvk")));
    Turn(Page::Results);
    At<QCheckBox>("chkBackground").click();
    At<QRadioButton>("optReports2").click();
    if (!At<QCheckBox>("chkResultsFolder").isChecked()) {
        At<QCheckBox>("chkResultsFolder").click();
    }
    if (!At<QCheckBox>("chkReportsFolder").isChecked()) {
        At<QCheckBox>("chkReportsFolder").click();
    }
    Turn(Page::Tolerances);
    Retype("txtCount1", "7x8");
    Retype("txtImpact6", "9000");
    At<QLineEdit>("txtCount6").clear();
    Retype("txtComplexity", "12");
    const bool background = m_form->chkBackground.Value();
    Button(QDialogButtonBox::Ok).click();
    ASSERT_FALSE(m_form->Cancelled());
    EXPECT_EQ(m_criteria->BackgroundReview(), background);
    EXPECT_EQ(m_criteria->ReportOption(), 2);
    EXPECT_EQ(m_criteria->Tolerances().Count.Item(1), 78) << "no key but digits is taken";
    EXPECT_EQ(m_criteria->Tolerances().Impact.Item(6), 9000);
    EXPECT_EQ(m_criteria->Tolerances().Count.Item(6), -1);
    EXPECT_EQ(m_criteria->Tolerances().CyclomaticComplexity, 12);
}

TEST_F(ReviewOptionsWindowTest, ABatchHasATitleAndNoBackground) {
    MakeBatch();
    OpenWindow();
    EXPECT_TRUE(At<QLineEdit>("txtTitle").isVisible());
    EXPECT_FALSE(At<QCheckBox>("chkBackground").isEnabled());
    QTest::keyClicks(&At<QLineEdit>("txtTitle"), QStringLiteral("Nightly"));
    EXPECT_EQ(m_form->txtTitle.Value(), "Nightly");
}

TEST_F(ReviewOptionsWindowTest, AReportsFolderIsForReports) {
    OpenWindow();
    m_form->chkReportsFolder.Set(false);
    m_form->optReports.Set(0);
    EXPECT_FALSE(At<QLineEdit>("txtReportsFolder").isEnabled());
    At<QRadioButton>("optReports1").click();
    EXPECT_TRUE(At<QLineEdit>("txtReportsFolder").isEnabled());
    At<QCheckBox>("chkReportsFolder").click();
    EXPECT_FALSE(At<QPushButton>("cmdReportsFolder").isEnabled());
}

TEST_F(ReviewOptionsWindowTest, EscapeCancels) {
    OpenWindow();
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_TRUE(m_form->Cancelled());
}

TEST_F(ReviewOptionsWindowTest, EveryPageIsUsableAtEachFontSize) {
    MakeBatch();
    m_criteria->SetReviewType(ReviewType_IDE);
    ExpectUsable([&](const auto& onPage) {
        OpenWindow();
        m_form->cboRulebase.Set(m_folder.Path("Rules.dvk"));
        for (std::int16_t page = 1; page <= m_form->tbsOptions.Count(); ++page) {
            SCOPED_TRACE("page " + std::to_string(page));
            m_form->tbsOptions.Shown.Set(page);
            onPage(*m_window);
            SavePicture(*m_window, "review" + std::to_string(page));
        }
    });
}

TEST_F(ReviewOptionsWindowTest, TheDialogOfABatchAndTheFilterAreUsableToo) {
    MakeBatch();
    ExpectUsable([&](const auto& onPage) {
        OpenWindow();
        onPage(*m_window);
        SavePicture(*m_window, "batch");
        OpenFilter();
        for (const Page page : {Page::Conventions, Page::Categories, Page::Severities}) {
            Turn(page);
            onPage(*m_window);
        }
        SavePicture(*m_window, "filter");
    });
}

}  // namespace
}  // namespace dorvik::test
