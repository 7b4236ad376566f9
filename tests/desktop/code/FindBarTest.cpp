#include "OpenedPane.h"
#include "workstation/look/modQt.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

#include <stdexcept>

namespace dorvik {

namespace {

using test::OpenedPane;

/// A pane with its find bar.
class FindingPane : public OpenedPane {
public:
    QLineEdit& Box(const char* name) {
        for (QLineEdit* box : View->findChildren<QLineEdit*>()) {
            if (box->accessibleName() == QString::fromUtf8(name)) {
                return *box;
            }
        }
        throw std::runtime_error("no such box");
    }
    void Press(const char* text) {
        for (QAbstractButton* button : View->findChildren<QAbstractButton*>()) {
            if (button->text() == QString::fromUtf8(text)) {
                button->click();
                return;
            }
        }
        throw std::runtime_error("no such button");
    }
    bool HasLabel(const char* text) {
        for (const QLabel* label : View->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text() == QString::fromUtf8(text)) {
                return true;
            }
        }
        return false;
    }
    void Enter(const char* name, const char* text) {
        Box(name).selectAll();
        QTest::keyClicks(&Box(name), QString::fromUtf8(text));
    }
};

}  // namespace

TEST(FindBar, FindsWhileItIsTyped) {
    FindingPane pane;
    pane.Key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &pane.Box("Find"));
    EXPECT_FALSE(pane.Box("Replace with").isVisible());
    pane.Enter("Find", "x = 1");
    EXPECT_EQ(pane.Editor().Range(), (CodeRange{4, 5, 4, 10}));
    EXPECT_TRUE(pane.HasLabel("1 of 2"));
    QTest::keyClick(&pane.Box("Find"), Qt::Key_Return);
    EXPECT_EQ(pane.Editor().Range(), (CodeRange{10, 5, 10, 10}));
    QTest::keyClick(&pane.Box("Find"), Qt::Key_F3);
    EXPECT_TRUE(pane.HasLabel("1 of 2 (from the other end)"));
    QTest::keyClick(&pane.Box("Find"), Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(pane.Editor().CaretLine(), 10);
    pane.Enter("Find", "nowhere");
    EXPECT_TRUE(pane.HasLabel("No matches"));
    QTest::keyClick(&pane.Box("Find"), Qt::Key_Escape);
    EXPECT_FALSE(pane.Box("Find").isVisible());
    EXPECT_TRUE(pane.Editor().hasFocus());
    pane.Key(Qt::Key_F, Qt::ControlModifier);
    pane.Editor().setFocus();
    pane.Key(Qt::Key_Escape);
    EXPECT_FALSE(pane.Box("Find").isVisible());
}

TEST(FindBar, OpensWhereThereIsNothingToLookFor) {
    FindingPane pane;
    pane.Key(Qt::Key_F3);
    EXPECT_TRUE(pane.Box("Find").hasFocus());
}

TEST(FindBar, OptionsNarrowIt) {
    FindingPane pane;
    pane.Editor().Select({3, 1, 3, 4});
    pane.Key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(pane.Box("Find").text(), QStringLiteral("Sub")) << "what is selected";
    EXPECT_TRUE(pane.HasLabel("1 of 4"));
    pane.Enter("Find", "b");
    pane.Press("Match &case");
    QTest::qWait(150);
    EXPECT_TRUE(pane.HasLabel("1 of 4")) << "not the name B";
    pane.Press("Match &case");
    pane.Press("&Whole word");
    QTest::keyClick(&pane.Box("Find"), Qt::Key_Return);
    EXPECT_TRUE(pane.HasLabel("1 of 1"));
    pane.Press("W&rap around");
    QTest::keyClick(&pane.Box("Find"), Qt::Key_Return);
    EXPECT_TRUE(pane.HasLabel("No more matches in this direction"));
}

TEST(FindBar, ReplacesOneByOne) {
    FindingPane pane;
    pane.Key(Qt::Key_H, Qt::ControlModifier);
    pane.Enter("Find", "1");
    pane.Enter("Replace with", "111");
    pane.Press("R&eplace");
    EXPECT_EQ(pane.Module().Texts()[3], "    x = 111");
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.Editor().Range(), (CodeRange{10, 9, 10, 10})) << "the next one is shown";
    pane.Press("R&eplace");
    EXPECT_EQ(pane.Module().Texts()[9], "    x = 111");
    EXPECT_EQ(pane.Shown(), pane.Kept());
}

TEST(FindBar, ReplacesAllAsOneStep) {
    FindingPane pane;
    const std::string before = pane.Kept();
    pane.Key(Qt::Key_H, Qt::ControlModifier);
    pane.Enter("Find", "sub");
    pane.Enter("Replace with", "Procedure");
    pane.Press("Replace &all");
    EXPECT_TRUE(pane.HasLabel("4 matches replaced"));
    EXPECT_EQ(pane.Module().Texts()[10], "End Procedure");
    EXPECT_EQ(pane.Shown(), pane.Kept());
    pane.Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pane.Kept(), before);
    EXPECT_EQ(pane.Shown(), before);
    EXPECT_FALSE(pane.Component().IsDirty());
}

TEST(FindBar, ReplacesWithinTheSelection) {
    FindingPane pane;
    pane.Editor().Select({3, 1, 8, 1});
    pane.Key(Qt::Key_H, Qt::ControlModifier);
    pane.Enter("Find", "x");
    pane.Enter("Replace with", "y");
    pane.Press("Replace &all");
    EXPECT_EQ(pane.Module().Texts()[3], "    y = 1");
    EXPECT_EQ(pane.Module().Texts()[9], "    x = 1");
    pane.Press("C&lose");
    pane.Key(Qt::Key_F3);
    EXPECT_EQ(pane.Editor().CaretLine(), 10) << "the whole module again";
}

TEST(FindBar, ReadOnlyFileIsNotReplacedIn) {
    FindingPane pane;
    pane.View->SetReadOnly(true);
    pane.Key(Qt::Key_H, Qt::ControlModifier);
    pane.Enter("Find", "x");
    pane.Enter("Replace with", "y");
    pane.Press("R&eplace");
    pane.Press("Replace &all");
    EXPECT_FALSE(pane.Component().IsDirty());
    EXPECT_TRUE(pane.HasLabel("The file is read-only"));
}

}  // namespace dorvik
