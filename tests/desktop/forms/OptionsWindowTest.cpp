#include "workstation/forms/OptionsWindow.h"

#include "WindowChecks.h"
#include "workstation/dialogs/DialogsFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <gmock/gmock.h>

namespace dorvik::test {
namespace {

class OptionsWindowTest : public DialogsFixture {
protected:
    void Open() {
        m_window.reset();
        m_form = std::make_unique<frmOptions>(m_screen);
        m_window = std::make_unique<OptionsWindow>(*m_form, nullptr);
        ShowActive(*m_window);
    }
    void Turn(frmOptions::Page page) {
        m_form->tbsOptions.Shown.Set(static_cast<std::int16_t>(page));
    }
    template <typename Control>
    Control& At(const std::string& name) {
        return Find<Control>(*m_window, name);
    }
    QPushButton& Button(QDialogButtonBox::StandardButton button) {
        return *m_window->findChild<QDialogButtonBox*>()->button(button);
    }

    std::unique_ptr<frmOptions> m_form;
    std::unique_ptr<OptionsWindow> m_window;
};

TEST_F(OptionsWindowTest, ShowsTheSettings) {
    Settings().AlwaysShowSummary = true;
    Settings().BackgroundTickCount = 250;
    Settings().LastReportOption = 2;
    Settings().CompletedItemsOption = 2;
    Settings().RVFileSortKey = 3;
    Settings().RVFileSortAscending = false;
    Settings().UseProjectFolderResults = false;
    Settings().LastResultsPath = "\\home\\ann\\results";
    Open();
    EXPECT_EQ(m_window->windowTitle().toStdString(), "Options");
    EXPECT_TRUE(At<QCheckBox>("chkShowSummary").isChecked());
    EXPECT_EQ(At<QLineEdit>("txtTickCount").text().toStdString(), "250");
    EXPECT_EQ(At<QComboBox>("cboReports").currentText().toStdString(), "Detailed");
    EXPECT_TRUE(At<QRadioButton>("optCompleted2").isChecked());
    EXPECT_EQ(At<QComboBox>("lstProjectMember").currentText().toStdString(), "Impact");
    EXPECT_TRUE(At<QRadioButton>("optPMOrderDescending").isChecked());
    EXPECT_EQ(At<QLineEdit>("txtResultsFolder").text().toStdString(), "/home/ann/results");
}

TEST_F(OptionsWindowTest, WhatTheKeyboardEntersIsTakenByOk) {
    Open();
    Turn(frmOptions::Page::General);
    QTest::keyClick(&At<QCheckBox>("chkShowWorkbench"), Qt::Key_Space);
    Turn(frmOptions::Page::Review);
    QLineEdit& ticks = At<QLineEdit>("txtTickCount");
    ticks.selectAll();
    QTest::keyClicks(&ticks, QStringLiteral("4a2"));
    EXPECT_EQ(ticks.text().toStdString(), "42");
    QTest::keyClick(&At<QComboBox>("cboReports"), Qt::Key_D);
    Turn(frmOptions::Page::ResultsView);
    At<QRadioButton>("optCompleted1").setFocus();
    QTest::keyClick(&At<QRadioButton>("optCompleted1"), Qt::Key_Right);
    QTest::mouseClick(&At<QRadioButton>("optFMOrderDescending"), Qt::LeftButton);
    Turn(frmOptions::Page::Folders);
    At<QCheckBox>("chkResultsFolder").click();
    QLineEdit& folder = At<QLineEdit>("txtResultsFolder");
    folder.clear();
    QTest::keyClicks(&folder, QStringLiteral("/home/bob"));
    const bool showsBefore = Settings().AlwaysShowWorkbench;
    QTest::keyClick(&folder, Qt::Key_Return);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_FALSE(m_form->Cancelled());
    EXPECT_NE(Settings().AlwaysShowWorkbench, showsBefore);
    EXPECT_EQ(Settings().BackgroundTickCount, 42);
    EXPECT_EQ(Settings().LastReportOption, 2);
    EXPECT_EQ(Settings().CompletedItemsOption, 2);
    EXPECT_FALSE(Settings().RVProcSortAscending);
    EXPECT_EQ(Settings().LastResultsPath, "\\home\\bob");
}

TEST_F(OptionsWindowTest, EscapeAndTheCloseButtonCancel) {
    for (const bool byKey : {true, false}) {
        Open();
        const bool clears = Settings().ClearLog;
        At<QCheckBox>("chkClearLog").click();
        if (byKey) {
            QTest::keyClick(m_window.get(), Qt::Key_Escape);
        } else {
            m_window->close();
        }
        EXPECT_TRUE(m_form->IsClosed());
        EXPECT_TRUE(m_form->Cancelled());
        EXPECT_EQ(Settings().ClearLog, clears);
    }
}

TEST_F(OptionsWindowTest, CtrlTabTurnsThePages) {
    Open();
    for (const int page : {1, 2, 3, 0}) {
        QTest::keyClick(m_window.get(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(m_window->findChild<QTabWidget*>()->currentIndex(), page);
    }
}

TEST_F(OptionsWindowTest, AClickOnATabTurnsToItsPage) {
    Open();
    QTabBar& bar = *m_window->findChild<QTabBar*>();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(3).center());
    EXPECT_TRUE(m_form->PageIsShown(frmOptions::Page::Folders));
    EXPECT_TRUE(At<QLineEdit>("txtRBDoc").isVisible());
    EXPECT_FALSE(At<QCheckBox>("chkClearLog").isVisible());
}

TEST_F(OptionsWindowTest, TheFolderOfTheProjectLeavesNothingToChoose) {
    Settings().UseProjectFolderReports = true;
    Open();
    EXPECT_FALSE(At<QLineEdit>("txtReportsFolder").isEnabled());
    EXPECT_FALSE(At<QPushButton>("cmdReportsFolder").isEnabled());
    Turn(frmOptions::Page::Folders);
    QTest::keyClick(&At<QCheckBox>("chkReportsFolder"), Qt::Key_Space);
    EXPECT_TRUE(At<QLineEdit>("txtReportsFolder").isEnabled());
    EXPECT_TRUE(At<QPushButton>("cmdReportsFolder").isEnabled());
}

TEST_F(OptionsWindowTest, WhatIsBrowsedForIsInItsBox) {
    Settings().UseProjectFolderResults = false;
    Open();
    Turn(frmOptions::Page::Folders);
    m_screen.Chosen = "\\srv\\results";
    At<QPushButton>("cmdResultsFolder").click();
    EXPECT_EQ(At<QLineEdit>("txtResultsFolder").text().toStdString(), "/srv/results");
    m_screen.Chosen = "\\srv\\Rules.html";
    At<QPushButton>("cmdRBDoc").click();
    EXPECT_EQ(At<QLineEdit>("txtRBDoc").text().toStdString(), "/srv/Rules.html");
    Button(QDialogButtonBox::Ok).click();
    EXPECT_EQ(Settings().RBDocPath, "\\srv\\Rules.html");
}

TEST_F(OptionsWindowTest, EveryPageIsUsableAtEachFontSize) {
    ExpectUsable([&](const auto& onPage) {
        Open();
        for (std::int16_t page = 1; page <= m_form->tbsOptions.Count(); ++page) {
            SCOPED_TRACE("page " + std::to_string(page));
            m_form->tbsOptions.Shown.Set(page);
            onPage(*m_window);
            SavePicture(*m_window, "options" + std::to_string(page));
        }
    });
}

}  // namespace
}  // namespace dorvik::test
