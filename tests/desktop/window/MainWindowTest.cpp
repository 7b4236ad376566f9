#include "WindowFixture.h"
#include "platform/host/modHostPath.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/bench/WorkbenchView.h"
#include "workstation/code/CodeTabs.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/look/modQt.h"
#include "workstation/window/CommandPalette.h"
#include "workstation/window/ComparisonView.h"
#include "workstation/window/ExplorerView.h"
#include "workstation/window/StartPage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDockWidget>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>

#include <algorithm>
#include <filesystem>

namespace dorvik::test {

namespace {

using modQt::Text;
using modQt::Utf8;

class MainWindowTest : public WindowFixture {
protected:
    QTreeWidgetItem* Item(const char* text) {
        const auto found =
            m_window->Explorer().findItems(Text(text), Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.front();
    }
    void Drop(const std::vector<std::string>& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string& path : paths) {
            urls.push_back(QUrl::fromLocalFile(Text(path)));
        }
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(m_window.get(), &enter);
        if (enter.isAccepted()) {
            QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(m_window.get(), &drop);
        }
        Settle();
    }
    std::vector<std::string> MenuTexts() {
        std::vector<std::string> texts;
        for (const QAction* const action : m_window->menuBar()->actions()) {
            texts.push_back(Utf8(action->text()));
        }
        return texts;
    }
    std::string Results(const std::string& project) {
        return Sample(project + "/Dorvik/" + project + "_DORVIK.mdb");
    }
};

// ---- menus ----

TEST_F(MainWindowTest, TheMenusAreThoseOfTheEnvironmentWithTheAddInsInFrontOfTools) {
    EXPECT_EQ(
        MenuTexts(),
        (std::vector<std::string>{
            "&File", "&Edit", "&View", "&Project", "D&orvik", "&Tools", "&Window", "&Help"}));
}

TEST_F(MainWindowTest, TheToolbarOfTheAddInIsShown) {
    const auto bars = m_window->findChildren<QToolBar*>(Text("Dorvik Tools"));
    ASSERT_EQ(bars.size(), 1);
    EXPECT_EQ(bars.front()->actions().size(), 5);
    EXPECT_TRUE(bars.front()->isVisible());
}

TEST_F(MainWindowTest, EveryCommandOfThePaletteHasATextOfItsOwnAndShortcutsDiffer) {
    OpenBilling();
    std::vector<std::string> texts;
    std::vector<std::string> shortcuts;
    for (const PaletteEntry& entry : m_window->PaletteEntries()) {
        texts.push_back(entry.Text);
        if (!entry.Shortcut.empty()) {
            shortcuts.push_back(entry.Shortcut);
        }
    }
    EXPECT_GT(texts.size(), 30U);
    for (auto* const list : {&texts, &shortcuts}) {
        std::ranges::sort(*list);
        const auto twice = std::ranges::adjacent_find(*list);
        EXPECT_EQ(twice, list->end()) << *twice;
    }
}

TEST_F(MainWindowTest, WithoutAProjectWhatNeedsOneIsDisabled) {
    EXPECT_FALSE(m_window->Actions().Action(WindowAction::ReviewAgain).isEnabled());
    EXPECT_FALSE(m_window->Actions().Action(WindowAction::CloseProject).isEnabled());
    OpenBilling();
    EXPECT_TRUE(m_window->Actions().Action(WindowAction::ReviewAgain).isEnabled());
    EXPECT_TRUE(m_window->Actions().Action(WindowAction::CloseProject).isEnabled());
}

TEST_F(MainWindowTest, EveryEditCommandIsOneOfThePane) {
    OpenBilling();
    EXPECT_FALSE(m_window->Editors().Can(EditorCommand::Find));
    m_window->Explorer().Opened.Raise(
        *m_window->Explorer().NodeOf(Item("modGlobals (modGlobals.bas)")));
    Settle();
    for (int command = 0; command <= static_cast<int>(EditorCommand::Uncomment); ++command) {
        EXPECT_TRUE(m_window->Editors().Can(static_cast<EditorCommand>(command))) << command;
    }
}

// ---- opening ----

TEST_F(MainWindowTest, AProjectFillsTheTreeTheTitleAndTheStatus) {
    EXPECT_EQ(TextOf("Project"), "No project");
    OpenBilling();
    EXPECT_NE(Item("Billing"), nullptr);
    EXPECT_NE(Item("modGlobals (modGlobals.bas)"), nullptr);
    EXPECT_EQ(Utf8(m_window->windowTitle()), "Billing[*] - Dorvik Workstation");
    EXPECT_EQ(TextOf("Project"), "Billing");
}

TEST_F(MainWindowTest, AFolderStandsForAllProjectsBelowIt) {
    m_window->Open({m_folder.HostPath().string()});
    EXPECT_EQ(m_desk->Host().ProjectCount(), 3);
    EXPECT_TRUE(m_boxes.Messages.empty());
}

TEST_F(MainWindowTest, WhatIsNotThereIsReported) {
    m_window->Open({Sample("none.vbp")});
    ASSERT_EQ(m_boxes.Messages.size(), 1U);
    EXPECT_NE(m_boxes.Messages[0].Text.find("none.vbp"), std::string::npos);
    EXPECT_TRUE(m_desk->RecentFiles().empty());
}

TEST_F(MainWindowTest, ProjectsGroupsFoldersAndResultsAreTakenWhenTheyAreDropped) {
    Drop({Sample("Billing/Billing.vbp")});
    EXPECT_EQ(m_desk->Host().ProjectCount(), 1);
    Drop({Sample("Samples.vbg")});
    EXPECT_EQ(m_desk->Host().ProjectCount(), 3);
    Drop({Sample("Billing/modGlobals.bas")});
    EXPECT_EQ(m_desk->Host().ProjectCount(), 3);
    EXPECT_TRUE(m_boxes.Messages.empty());
}

TEST_F(MainWindowTest, AResultsDatabaseIsShownWithoutItsProject) {
    OpenBilling();
    Review();
    m_desk->CloseProject("Billing");
    ASSERT_TRUE(std::filesystem::exists(Results("Billing")));
    Drop({Results("Billing")});
    EXPECT_TRUE(m_desk->Results().ResultsAvailable());
    EXPECT_TRUE(m_desk->AddIn().IDEHelper()->WorkbenchVisible());
}

TEST_F(MainWindowTest, FilesAndFoldersAreChosenInADialog) {
    m_screen.ChosenFile =
        modHostPath::ToProgram(modHostPath::FromUser(Sample("Clinic/Clinic.vbp")));
    m_window->Run(WindowAction::Open);
    EXPECT_EQ(m_desk->Host().ProjectCount(), 1);
    m_screen.ChosenFile = modHostPath::ToProgram(modHostPath::FromUser(Sample("Warehouse")));
    m_window->Run(WindowAction::OpenFolder);
    EXPECT_EQ(m_desk->Host().ProjectCount(), 2);
    m_screen.ChosenFile.reset();
    m_window->Run(WindowAction::Open);
    EXPECT_EQ(m_desk->Host().ProjectCount(), 2);
}

TEST_F(MainWindowTest, WhatWasOpenedLastIsOfferedInTheNextRun) {
    OpenBilling();
    m_window->Open({Sample("Samples.vbg")});
    Restart();
    EXPECT_EQ(
        m_desk->RecentFiles(),
        (std::vector<std::string>{Sample("Samples.vbg"), Sample("Billing/Billing.vbp")}));
    const auto items = m_window->Actions().RecentMenu().actions();
    ASSERT_EQ(items.size(), 2);
    items[1]->trigger();
    EXPECT_EQ(m_desk->Host().ProjectCount(), 1);
}

TEST_F(MainWindowTest, TheStartPageIsShownUntilThereIsATab) {
    EXPECT_TRUE(m_window->StartPageIsShown());
    OpenBilling();
    EXPECT_TRUE(m_window->StartPageIsShown());
    m_desk->ShowCode("Billing", "modGlobals", 1);
    Settle();
    EXPECT_FALSE(m_window->StartPageIsShown());
    m_window->Run(WindowAction::CloseTab);
    Settle();
    EXPECT_TRUE(m_window->StartPageIsShown());
}

TEST_F(MainWindowTest, TheStartPageOpensARecentFile) {
    StartPage page(nullptr);
    std::string opened;
    const Subscription requested =
        page.FileRequested.Subscribe([&](const std::string& file) { opened = file; });
    page.SetRecentFiles({"/a/One.vbp"});
    page.SetSamples({"/b/Two.vbg"});
    for (auto* const button : page.findChildren<QAbstractButton*>()) {
        if (button->accessibleName() == Text("Two.vbg")) {
            button->click();
        }
    }
    EXPECT_EQ(opened, "/b/Two.vbg");
}

TEST_F(MainWindowTest, TheSamplesOfTheRepositoryAreFound) {
    const std::vector<std::string> samples = SampleProjects(DORVIK_PROGRAM_FOLDER);
    EXPECT_TRUE(SampleProjects("/").empty());
    EXPECT_TRUE(std::ranges::any_of(
        samples, [](const std::string& file) { return file.ends_with("Billing/Billing.vbp"); }));
}

// ---- the tree of projects ----

TEST_F(MainWindowTest, AFileIsOpenedByADoubleClickAndByEnter) {
    OpenBilling();
    ExplorerView& tree = m_window->Explorer();
    QTreeWidgetItem* const item = Item("modGlobals (modGlobals.bas)");
    tree.scrollToItem(item);
    const QPoint place = tree.visualItemRect(item).center();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, place);
    Settle();
    EXPECT_EQ(TabCount(), 1U);
    tree.setCurrentItem(Item("modPricing (modPricing.bas)"));
    QTest::keyClick(&tree, Qt::Key_Return);
    Settle();
    EXPECT_EQ(TabCount(), 2U);
    EXPECT_EQ(m_window->Editors().Place()->File, m_folder.Path("Billing\\modPricing.bas"));
}

TEST_F(MainWindowTest, AProcedureIsOpenedAtItsLine) {
    OpenBilling();
    QTreeWidgetItem* const file = Item("modPricing (modPricing.bas)");
    file->setExpanded(true);
    ASSERT_GT(file->childCount(), 0);
    const ExplorerNode node = *m_window->Explorer().NodeOf(file->child(0));
    m_window->Explorer().Opened.Raise(node);
    Settle();
    EXPECT_GT(node.Line, 0);
    EXPECT_EQ(m_window->Editors().Place()->Line, node.Line);
    EXPECT_EQ(TextOf("Place"), "Line " + std::to_string(node.Line) + ", column 1");
}

TEST_F(MainWindowTest, CodeAndLayoutAreThoseOfTheSelectedFileOrOfTheOneInFront) {
    m_window->Run(WindowAction::ShowCode);
    EXPECT_EQ(TabCount(), 0U);
    OpenBilling();
    m_window->Explorer().setCurrentItem(Item("Billing"));
    m_window->Run(WindowAction::ShowCode);
    EXPECT_EQ(TabCount(), 0U);
    m_window->Explorer().setCurrentItem(Item("frmInvoice (frmInvoice.frm)"));
    m_window->Run(WindowAction::ShowDesigner);
    Settle();
    ASSERT_EQ(TabCount(), 1U);
    EXPECT_EQ(m_window->Editors().Place()->Line, 0);
    m_window->Run(WindowAction::ShowCode);
    Settle();
    ASSERT_EQ(TabCount(), 2U);
    EXPECT_EQ(m_window->Editors().Place()->File, m_folder.Path("Billing\\Forms\\frmInvoice.frm"));
    EXPECT_TRUE(m_boxes.Messages.empty());
}

TEST_F(MainWindowTest, WhatIsOpenInTheTreeStaysOpen) {
    OpenBilling();
    Item("modPricing (modPricing.bas)")->setExpanded(true);
    m_window->Open({Sample("Clinic/Clinic.vbp")});
    Settle();
    EXPECT_TRUE(Item("modPricing (modPricing.bas)")->isExpanded());
    EXPECT_GT(Item("modPricing (modPricing.bas)")->childCount(), 0);
    EXPECT_FALSE(Item("modGlobals (modGlobals.bas)")->isExpanded());
}

TEST_F(MainWindowTest, AChangeIsMarkedInTheTreeAndTheTitle) {
    OpenBilling();
    EXPECT_FALSE(m_window->isWindowModified());
    Edit("modGlobals");
    EXPECT_NE(Item("modGlobals (modGlobals.bas) *"), nullptr);
    EXPECT_NE(Item("Billing *"), nullptr);
    EXPECT_TRUE(m_window->isWindowModified());
    m_window->Run(WindowAction::SaveAll);
    EXPECT_NE(Item("modGlobals (modGlobals.bas)"), nullptr);
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(MainWindowTest, CountsOfViolationsAreThoseOfTheShownResults) {
    OpenBilling();
    EXPECT_EQ(TextOf("Violations"), "No results");
    Review();
    const auto all = modFindings::Read(m_folder.Path("Billing\\Dorvik\\Billing_DORVIK.mdb"));
    ASSERT_GT(all.size(), 9U);
    EXPECT_EQ(Utf8(Item("Billing")->text(1)), std::to_string(all.size()));
    EXPECT_EQ(TextOf("Violations"), std::to_string(all.size()) + " violations");
    m_desk->CloseProject("Billing");
    Settle();
    EXPECT_EQ(TextOf("Violations"), "No results");
}

// ---- reviewing ----

TEST_F(MainWindowTest, AReviewShowsTheBenchAndItsState) {
    OpenBilling();
    EXPECT_EQ(TextOf("Review"), "Ready");
    Review();
    EXPECT_EQ(TextOf("Review"), "Reviewed");
    ASSERT_NE(m_window->Workbench(), nullptr);
    EXPECT_TRUE(m_window->Workbench()->isVisible());
}

TEST_F(MainWindowTest, ThePaneOfTheBenchFollowsItsWindowAndTheOtherWayRound) {
    auto* const pane =
        qobject_cast<QDockWidget*>(m_window->findChild<QDockWidget*>(Text("Work bench")));
    ASSERT_NE(pane, nullptr);
    m_desk->AddIn().IDEHelper()->SetWorkbenchVisible(true);
    Settle();
    EXPECT_TRUE(pane->isVisible());
    EXPECT_EQ(Utf8(pane->windowTitle()), "Dorvik Work Bench");
    pane->close();
    Settle();
    EXPECT_FALSE(m_desk->AddIn().IDEHelper()->WorkbenchVisible());
    pane->toggleViewAction()->trigger();
    Settle();
    EXPECT_TRUE(m_desk->AddIn().IDEHelper()->WorkbenchVisible());
}

TEST_F(MainWindowTest, AfterTheSecondReviewTheChangesAreShown) {
    OpenBilling();
    Review();
    EXPECT_EQ(m_desk->Comparison(), nullptr);
    FileCodeModule& module = m_desk->Host().FindComponent("modPricing")->CodeModule();
    module.InsertLines(module.CountOfLines() + 1, "Public Sub Added()\r\n    End\r\nEnd Sub");
    m_window->Run(WindowAction::SaveAll);
    Review();
    ASSERT_NE(m_desk->Comparison(), nullptr);
    const std::int32_t isNew = m_desk->Comparison()->Count(FindingChange::New);
    const std::int32_t isGone = m_desk->Comparison()->Count(FindingChange::Gone);
    EXPECT_GT(isNew, 0);
    EXPECT_EQ(TextOf("Review"), "Reviewed: " + m_desk->Comparison()->Summary());
    ComparisonView& view = m_window->Comparison();
    EXPECT_EQ(view.ShownRows(), static_cast<std::size_t>(isNew + isGone));
    view.SetShown(FindingChange::Unchanged, true);
    EXPECT_EQ(view.ShownRows(), m_desk->Comparison()->Rows().size());
    view.SetShown(FindingChange::New, false);
    EXPECT_EQ(
        view.ShownRows(), m_desk->Comparison()->Rows().size() - static_cast<std::size_t>(isNew));
}

TEST_F(MainWindowTest, AViolationOfTheComparisonIsFoundInTheSource) {
    OpenBilling();
    Review();
    const auto all = modFindings::Read(m_folder.Path("Billing\\Dorvik\\Billing_DORVIK.mdb"));
    const auto found = std::ranges::find_if(all, [](const FoundViolation& item) {
        return item.File == "modPricing.bas" && item.Line > 0;
    });
    ASSERT_NE(found, all.end());
    m_window->Comparison().Opened.Raise(*found);
    Settle();
    ASSERT_TRUE(m_window->Editors().Place());
    EXPECT_EQ(m_window->Editors().Place()->File, m_folder.Path("Billing\\modPricing.bas"));
}

TEST_F(MainWindowTest, TheNextAndThePreviousViolationAreShownInTheSource) {
    OpenBilling();
    Review();
    Grid& list = m_desk->Document().Controls().List;
    m_window->Run(WindowAction::NextViolation);
    const auto first = list.CurrentKey();
    // Those of the project itself have no place in the source.
    ASSERT_TRUE(m_desk->Results().GetViolationDetails());
    EXPECT_FALSE(m_desk->Results().GetViolationDetails()->File.empty());
    m_window->Run(WindowAction::NextViolation);
    EXPECT_NE(list.CurrentKey(), first);
    m_window->Run(WindowAction::PreviousViolation);
    EXPECT_EQ(list.CurrentKey(), first);
    m_window->Run(WindowAction::PreviousViolation);  // round to the last one
    EXPECT_EQ(list.CurrentRow(), list.RowCount() - 1);
}

TEST_F(MainWindowTest, ViolationsAreMarkedBesideTheirLines) {
    OpenBilling();
    m_desk->ShowCode("Billing", "modPricing", 1);
    Settle();
    CodePaneView* const pane = m_window->Editors().Tabs().CurrentPane();
    ASSERT_NE(pane, nullptr);
    EXPECT_TRUE(pane->Marks().Violations().empty());
    Review();
    EXPECT_FALSE(pane->Marks().Violations().empty());
    m_desk->SelectViolation(pane->Marks().Violations().front().ViolationID);
    EXPECT_EQ(
        m_desk->Document().Controls().List.CurrentKey(),
        pane->Marks().Violations().front().ViolationID);
}

}  // namespace

}  // namespace dorvik::test
