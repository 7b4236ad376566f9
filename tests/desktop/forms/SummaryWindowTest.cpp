#include "workstation/forms/SummaryWindow.h"

#include "WindowChecks.h"
#include "workstation/dialogs/SummaryFixture.h"
#include "workstation/forms/QtScreen.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

namespace dorvik::test {
namespace {

class SummaryWindowTest : public SummaryFixture {
protected:
    void SetUp() override {
        SummaryFixture::SetUp();
        WriteReview();
    }
    void TearDown() override {
        m_window.reset();
        m_form.reset();
        SummaryFixture::TearDown();
    }
    void OpenWindow() {
        m_window.reset();
        Open();
        m_window = std::make_unique<SummaryWindow>(*m_form, nullptr);
        ShowActive(*m_window);
    }
    /// The form on the desktop itself.
    void OpenOnDesktop() {
        m_form = std::make_unique<frmReviewSummary>(m_desktop);
        m_form->Initialise(m_results, m_log.Path(), "");
        m_desktop.Show(*m_form);
    }
    static SummaryWindow* Shown() {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            auto* const window = dynamic_cast<SummaryWindow*>(widget);
            if (window != nullptr && window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    template <typename Control>
    Control& At(const std::string& name) {
        return Find<Control>(*m_window, name);
    }
    std::string Cell(int row, int column) {
        const QAbstractItemModel& list = *At<QAbstractItemView>("lvwReview").model();
        return list.index(row, column).data().toString().toStdString();
    }

    QtScreen m_desktop;
    std::unique_ptr<SummaryWindow> m_window;
};

TEST_F(SummaryWindowTest, EachTabHasItsPage) {
    OpenWindow();
    EXPECT_EQ(m_window->windowTitle().toStdString(), "Billing - Review Summary");
    QTabBar& tabs = At<QTabBar>("tbsReview");
    ASSERT_EQ(tabs.count(), 7);
    EXPECT_EQ(Cell(0, 0), "Dorvik Review Summary");
    for (int index = 6; index >= 0; --index) {
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(index).center());
        EXPECT_EQ(m_form->CurrentTab(), index + 1);
        EXPECT_EQ(At<QComboBox>("cboSourceFiles").isVisible(), index == 4);
        EXPECT_EQ(
            At<QAbstractItemView>("lvwReview").model()->rowCount(),
            static_cast<int>(m_form->lvwReview.Count()));
    }
}

TEST_F(SummaryWindowTest, CtrlTabGoesFromTheLastTabToTheFirst) {
    OpenWindow();
    for (const std::int16_t tab : {2, 3, 4, 5, 6, 7, 1}) {
        QTest::keyClick(m_window.get(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(m_form->CurrentTab(), tab);
        EXPECT_EQ(At<QTabBar>("tbsReview").currentIndex(), tab - 1);
    }
}

TEST_F(SummaryWindowTest, ADoubleClickOnAFileShowsItsProcedures) {
    OpenWindow();
    m_form->SwitchTab(5);
    QAbstractItemView& list = At<QAbstractItemView>("lvwReview");
    const QModelIndex module = list.model()->index(1, 0);
    EXPECT_EQ(Cell(1, 0), "modA (modA.bas)");
    QTest::qWait(1);
    const QPoint place = list.visualRect(module).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(At<QComboBox>("cboSourceFiles").currentText().toStdString(), "modA (modA.bas)");
    EXPECT_EQ(Cell(0, 0), "Help");
}

TEST_F(SummaryWindowTest, TheBoxOfFilesIsUsedByTheKeyboard) {
    OpenWindow();
    m_form->SwitchTab(5);
    QTest::keyClick(&At<QComboBox>("cboSourceFiles"), Qt::Key_Down);
    EXPECT_EQ(m_form->cboSourceFiles.SelectedIndex(), 1U);
    EXPECT_EQ(Cell(0, 0), "Help");
}

TEST_F(SummaryWindowTest, TheButtonsOpenWhatIsThere) {
    modFiles::WriteBytesAtomically(m_log.Path(), "x");
    OpenWindow();
    EXPECT_TRUE(At<QPushButton>("cmdViewLog").isEnabled());
    EXPECT_FALSE(At<QPushButton>("cmdViewReport").isEnabled());
    EXPECT_EQ(At<QPushButton>("cmdViewLog").text().toStdString(), "&View Log");
    At<QPushButton>("cmdViewLog").click();
    EXPECT_THAT(m_screen.Calls, testing::ElementsAre("open " + m_log.Path()));
}

TEST_F(SummaryWindowTest, TheWindowStandsWhereItWasClosed) {
    Settings().RVDLeft = 1500;
    Settings().RVDTop = 600;
    Settings().RVDWidth = 9000;
    Settings().RVDHeight = 6000;
    OpenWindow();
    EXPECT_EQ(m_window->pos(), QPoint(100, 40));
    EXPECT_EQ(m_window->size(), QSize(600, 400));
    m_window->move(60, 30);
    m_window->resize(640, 480);
    QTest::qWait(1);
    At<QPushButton>("cmdClose").click();
    EXPECT_EQ(Settings().RVDLeft, 900);
    EXPECT_EQ(Settings().RVDTop, 450);
    EXPECT_EQ(Settings().RVDWidth, 9600);
    EXPECT_EQ(Settings().RVDHeight, 7200);
}

TEST_F(SummaryWindowTest, AWindowThatIsNotMovedKeepsItsTwips) {
    Settings().RVDLeft = 424;
    Settings().RVDWidth = 9007;
    OpenWindow();
    At<QPushButton>("cmdClose").click();
    EXPECT_EQ(Settings().RVDLeft, 424);
    EXPECT_EQ(Settings().RVDWidth, 9007);
}

TEST_F(SummaryWindowTest, APlaceOffTheScreenIsBroughtBack) {
    Settings().RVDLeft = 900000;
    Settings().RVDTop = -900000;
    OpenWindow();
    const QRect shown(m_window->pos(), m_window->size());
    EXPECT_TRUE(m_window->screen()->availableGeometry().contains(shown));
}

TEST_F(SummaryWindowTest, TheDesktopShowsItUntilItIsClosed) {
    OpenOnDesktop();
    ASSERT_NE(Shown(), nullptr);
    EXPECT_FALSE(Shown()->isModal());
    QTest::keyClick(Shown(), Qt::Key_Escape);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(SummaryWindowTest, AHandlerOfTheEndMayDestroyTheForm) {
    OpenOnDesktop();
    const Subscription heard = m_form->Closed.Subscribe([&] { m_form.reset(); });
    Find<QPushButton>(*Shown(), "cmdClose").click();
    EXPECT_EQ(m_form, nullptr);
    EXPECT_EQ(Shown(), nullptr);
    QTest::qWait(10);
}

TEST_F(SummaryWindowTest, AFormThatGoesTakesItsWindowWithIt) {
    OpenOnDesktop();
    m_form->SwitchTab(5);
    m_form.reset();
    EXPECT_EQ(Shown(), nullptr);
    QTest::qWait(10);
}

TEST_F(SummaryWindowTest, EveryPageIsUsableAtEachFontSize) {
    modFiles::WriteBytesAtomically(m_log.Path(), "x");
    ExpectUsable([&](const auto& onPage) {
        OpenWindow();
        for (std::int16_t tab = 1; tab <= m_form->tbsReview.Count(); ++tab) {
            SCOPED_TRACE("page " + std::to_string(tab));
            m_form->SwitchTab(tab);
            onPage(*m_window);
            SavePicture(*m_window, "summary" + std::to_string(tab));
        }
    });
}

}  // namespace
}  // namespace dorvik::test
