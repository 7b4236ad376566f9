#include "workstation/code/CodeTabs.h"

#include "workstation/filehost/HostFolder.h"
#include "workstation/look/modQt.h"

#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>

namespace dorvik {

namespace {

/// The project of a module, a class and a form, and its tabs.
class OpenedTabs {
public:
    OpenedTabs() {
        Tabs = std::make_unique<CodeTabs>(Host);
        Host.Open(m_folder.Project());
        Tabs->resize(700, 400);
        Tabs->show();
        QCoreApplication::processEvents();
    }

    FileComponent& Component(const char* name) { return Host.Project(1).Component(name); }
    std::string Titles() const {
        std::string titles;
        for (int index = 0; index < Tabs->count(); ++index) {
            titles += (index > 0 ? "|" : "") + modQt::Utf8(Tabs->tabText(index));
        }
        return titles;
    }

    FileHost Host;
    std::unique_ptr<CodeTabs> Tabs;

private:
    test::HostFolder m_folder;
};

}  // namespace

TEST(CodeTabs, FollowTheWindowsOfTheHost) {
    OpenedTabs opened;
    EXPECT_EQ(opened.Tabs->count(), 0);
    FileComponent& module = opened.Component("modMain");
    module.CodeModule().CodePane().Show();
    EXPECT_EQ(opened.Titles(), "modMain (code)");
    FileComponent& form = opened.Component("frmMain");
    form.DesignerWindow()->SetVisible(true);
    form.CodeModule().CodePane().Show();
    EXPECT_EQ(opened.Titles(), "modMain (code)|frmMain (layout)|frmMain (code)");
    EXPECT_EQ(opened.Tabs->CurrentComponent(), &form);
    EXPECT_NE(opened.Tabs->CurrentPane(), nullptr);
    module.CodeModule().CodePane().Window().SetFocus();
    EXPECT_EQ(opened.Tabs->CurrentPane(), opened.Tabs->PaneOf(module));
    form.DesignerWindow()->SetFocus();
    EXPECT_EQ(opened.Tabs->CurrentPane(), nullptr) << "a layout is in front";
    EXPECT_EQ(opened.Tabs->currentWidget(), opened.Tabs->DesignerOf(form));
    form.DesignerWindow()->Close();
    EXPECT_EQ(opened.Titles(), "modMain (code)|frmMain (code)");
    EXPECT_EQ(opened.Tabs->DesignerOf(form), nullptr);
}

TEST(CodeTabs, AClosedTabKeepsWhatWasTyped) {
    OpenedTabs opened;
    FileComponent& module = opened.Component("modMain");
    opened.Tabs->ShowCode(module);
    QWidget* editor = opened.Tabs->PaneOf(module)->focusProxy();
    editor->setFocus();
    QTest::keyClicks(editor, QStringLiteral("x"));
    EXPECT_EQ(opened.Titles(), "modMain (code) *");
    Q_EMIT opened.Tabs->tabCloseRequested(0);
    EXPECT_EQ(opened.Tabs->count(), 0);
    EXPECT_FALSE(module.CodeModule().CodePane().Window().Visible());
    EXPECT_TRUE(module.IsDirty());
    opened.Tabs->ShowCode(module);
    EXPECT_EQ(opened.Titles(), "modMain (code) *");
    ASSERT_TRUE(opened.Host.SaveAll());
    EXPECT_EQ(opened.Titles(), "modMain (code)");
}

TEST(CodeTabs, KeysAndMiddleButton) {
    OpenedTabs opened;
    opened.Tabs->ShowCode(opened.Component("modMain"));
    opened.Tabs->ShowCode(opened.Component("clsThing"));
    opened.Tabs->ShowDesigner(opened.Component("frmMain"));
    QCoreApplication::processEvents();
    EXPECT_EQ(opened.Tabs->currentIndex(), 2);
    const auto focused = [&] {
        return opened.Tabs->currentWidget()->focusProxy();
    };
    QTest::keyClick(focused(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(opened.Tabs->currentIndex(), 0);
    QTest::keyClick(focused(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(opened.Tabs->currentIndex(), 1) << "from the code as well";
    QTest::keyClick(focused(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(opened.Tabs->currentIndex(), 0);
    QTest::keyClick(focused(), Qt::Key_W, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(opened.Titles(), "clsThing (code)|frmMain (layout)");
    EXPECT_EQ(opened.Component("modMain").CodeModule().CountOfLines(), 5) << "no control character";
    QTabBar* bar = opened.Tabs->tabBar();
    QTest::mouseClick(bar, Qt::MiddleButton, {}, bar->tabRect(1).center());
    EXPECT_EQ(opened.Titles(), "clsThing (code)");
}

TEST(CodeTabs, GoWithTheirProject) {
    OpenedTabs opened;
    opened.Tabs->ShowCode(opened.Component("modMain"));
    opened.Tabs->ShowDesigner(opened.Component("frmMain"));
    opened.Host.CloseProject("P");
    EXPECT_EQ(opened.Tabs->count(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(opened.Tabs->CurrentComponent(), nullptr);
}

TEST(CodeTabs, RenamedComponentHasItsNewName) {
    OpenedTabs opened;
    opened.Tabs->ShowCode(opened.Component("modMain"));
    opened.Host.RenameComponent("P", "modMain", "modStart");
    EXPECT_EQ(opened.Titles(), "modStart (code) *");
}

TEST(CodeTabs, PassOnWhatPanesSay) {
    OpenedTabs opened;
    std::string said;
    const Subscription opens = opened.Tabs->PaneOpened.Subscribe(
        [&](CodePaneView& pane) { said += "opened " + pane.Component().Name() + ";"; });
    const Subscription saves = opened.Tabs->SaveRequested.Subscribe(
        [&](FileComponent& component) { said += "save " + component.Name() + ";"; });
    opened.Tabs->ShowCode(opened.Component("clsThing"));
    QTest::keyClick(opened.Tabs->CurrentPane()->focusProxy(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(said, "opened clsThing;save clsThing;");
    opened.Tabs->CurrentPane()->SetZoom(3);
    opened.Tabs->ShowCode(opened.Component("modMain"));
    EXPECT_EQ(opened.Tabs->CurrentPane()->Zoom(), 3) << "all panes have one size";
}

}  // namespace dorvik
