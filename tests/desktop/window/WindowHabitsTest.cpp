#include "WindowFixture.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/look/modQt.h"
#include "workstation/window/CommandPalette.h"
#include "workstation/window/modWindowSettings.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTreeWidget>

#include <chrono>
#include <thread>

namespace dorvik::test {

namespace {

using modQt::Text;
using modQt::Utf8;

class WindowHabitsTest : public WindowFixture {};

// ---- saving and closing ----

TEST_F(WindowHabitsTest, ClosingAsksToSave) {
    OpenBilling();
    Edit("modGlobals");
    m_boxes.Answers = {MessageAnswer::Cancel};
    EXPECT_FALSE(m_window->close());
    ASSERT_EQ(m_boxes.Messages.size(), 1U);
    EXPECT_EQ(
        m_boxes.Messages[0].Text, "Project 'Billing' has changes.\r\rDo you want to save them?");
    m_boxes.Answers = {MessageAnswer::Yes};
    EXPECT_TRUE(m_window->close());
    EXPECT_NE(m_folder.Read("Billing\\modGlobals.bas").find("' edited"), std::string::npos);
}

TEST_F(WindowHabitsTest, ClosingAProjectAsksToSaveAndMayLoseTheChanges) {
    OpenBilling();
    Edit("modGlobals");
    m_window->Run(WindowAction::CloseProject);
    EXPECT_EQ(m_desk->Host().ProjectCount(), 1);
    m_boxes.Answers = {MessageAnswer::No};
    m_window->Run(WindowAction::CloseProject);
    EXPECT_EQ(m_desk->Host().ProjectCount(), 0);
    EXPECT_EQ(m_folder.Read("Billing\\modGlobals.bas").find("' edited"), std::string::npos);
}

TEST_F(WindowHabitsTest, SavingWritesTheProjectOfTheFileInFront) {
    m_window->Open({Sample("Samples.vbg")});
    Edit("modGlobals");
    Edit("modClinic");
    m_desk->ShowCode("Clinic", "modClinic", 1);
    Settle();
    m_window->Run(WindowAction::Save);
    EXPECT_FALSE(m_desk->Host().Project("Clinic").IsDirty());
    EXPECT_TRUE(m_desk->Host().Project("Billing").IsDirty());
    m_boxes.Answers = {MessageAnswer::No};
}

// ---- settings ----

TEST_F(WindowHabitsTest, ThemeZoomAndLayoutAreThoseOfTheRunBefore) {
    m_window->Actions().ThemeMenu().actions()[2]->trigger();
    EXPECT_EQ(modTheme::Current(), ThemeName::Dark);
    EXPECT_EQ(modWindowSettings::Theme(), ThemeName::Dark);
    const qreal size = QApplication::font().pointSizeF();
    m_window->Run(WindowAction::ZoomIn);
    EXPECT_EQ(modWindowSettings::Zoom(), 110);
    EXPECT_GT(QApplication::font().pointSizeF(), size);
    m_window->Run(WindowAction::ZoomReset);
    EXPECT_EQ(QApplication::font().pointSizeF(), size);
    m_window->resize(777, 555);
    m_window->close();
    Restart();
    EXPECT_EQ(m_window->size(), QSize(777, 555));
    m_window->SetTheme(ThemeName::Light);
}

TEST_F(WindowHabitsTest, SettingsThatCannotBeReadAreAsIfThereWereNone) {
    m_settings.Set(
        modWindowSettings::kKey,
        {{"Zoom", std::string("big")},
         {"Theme", std::string("Plaid")},
         {"Geometry", std::string("?")}});
    EXPECT_EQ(modWindowSettings::Zoom(), 100);
    EXPECT_EQ(modWindowSettings::Theme(), ThemeName::System);
    Restart();
    EXPECT_TRUE(m_window->isVisible());
    m_settings.Set(modWindowSettings::kKey, {{"Zoom", std::string("9000")}});
    EXPECT_EQ(modWindowSettings::Zoom(), modWindowSettings::kMostZoom);
}

// ---- palette and facts ----

TEST_F(WindowHabitsTest, ThePaletteFindsACommandBySomeLettersAndRunsIt) {
    int runs = 0;
    CommandPalette palette(
        {{"File: Open...",
          "Ctrl+O",
          {},
          [] {
          }},
         {"Project: Review this project again",
          "F5",
          {},
          [&] {
              ++runs;
          }},
         {"View: Zoom in",
          "",
          {},
          [] {
          }}},
        nullptr);
    palette.show();
    EXPECT_EQ(palette.List().count(), 3);
    QTest::keyClicks(&palette.Box(), Text("rvag"));
    ASSERT_EQ(palette.List().count(), 1);
    EXPECT_NE(palette.List().item(0)->text().indexOf(Text("F5")), -1);
    QTest::keyClick(&palette.Box(), Qt::Key_Return);
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(palette.isVisible());
}

TEST_F(WindowHabitsTest, ThePaletteIsMovedThroughFromItsBox) {
    CommandPalette palette(
        {{"One",
          "",
          {},
          [] {
          }},
         {"Two",
          "",
          {},
          [] {
          }}},
        nullptr);
    palette.show();
    QTest::keyClick(&palette.Box(), Qt::Key_Down);
    EXPECT_EQ(palette.List().currentRow(), 1);
    QTest::keyClicks(&palette.Box(), Text("xyz"));
    QTest::keyClick(&palette.Box(), Qt::Key_Return);
    EXPECT_TRUE(palette.isVisible());
}

TEST_F(WindowHabitsTest, ThePaletteFindsPagesOfTheOptions) {
    std::int16_t shown = 0;
    m_screen.OnOptions = [&](frmOptions& form) {
        shown = form.tbsOptions.Shown.Value();
        form.Cancel();
    };
    for (const PaletteEntry& entry : m_window->PaletteEntries()) {
        if (entry.Text == "Options: Folders: reports") {
            entry.Run();
        }
    }
    EXPECT_EQ(shown, static_cast<std::int16_t>(frmOptions::Page::Folders));
}

TEST_F(WindowHabitsTest, TheFactsOfTheProjectAreShownWhenTheAddInAsksForThem) {
    OpenBilling();
    m_desk->Host().ExecuteCommand(hostcommand::kReferences);
    Settle();
    auto* const window = m_window->findChild<QDialog*>();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(Utf8(window->windowTitle()), "Billing - project");
    EXPECT_NE(window->findChildren<QTreeWidget*>().size(), 0);
    window->close();
    Settle();
}

TEST_F(WindowHabitsTest, EveryWidgetThatTakesInputHasAName) {
    OpenBilling();
    Review();
    Review();
    m_desk->ShowCode("Billing", "modPricing", 1);
    Settle();
    int widgets = 0;
    for (QWidget* const widget : m_window->findChildren<QWidget*>()) {
        if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0) {
            continue;
        }
        ++widgets;
        QAccessibleInterface* const named = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(named, nullptr);
        EXPECT_FALSE(named->text(QAccessible::Name).isEmpty())
            << widget->metaObject()->className() << " in "
            << Utf8(widget->parentWidget()->objectName());
    }
    EXPECT_GT(widgets, 8);
}

TEST_F(WindowHabitsTest, AGapIsMeasured) {
    EventGaps& gaps = m_window->Gaps();
    gaps.Reset();
    QTest::qWait(40);
    QTimer::singleShot(
        0, m_window.get(), [] { std::this_thread::sleep_for(std::chrono::milliseconds(120)); });
    QTest::qWait(60);
    EXPECT_GE(gaps.Longest().count(), 100);
    gaps.Reset();
    EXPECT_EQ(gaps.Longest().count(), 0);
}

}  // namespace

}  // namespace dorvik::test
