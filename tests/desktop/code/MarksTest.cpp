#include "OpenedPane.h"
#include "workstation/code/MarkLayer.h"
#include "workstation/code/MarkMargin.h"
#include "workstation/look/modQt.h"

#include <QHelpEvent>
#include <QToolTip>
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

namespace dorvik {

namespace {

using test::OpenedPane;

/// Marks at lines 4 (two of them) and 5, which is continued in line 6.
class MarkedPane : public OpenedPane {
public:
    MarkedPane() {
        View->SetMarkTips([](const MarkedViolation& violation) {
            return MarkTip{"Rule <" + std::to_string(violation.ViolationID) + ">", "Do better."};
        });
        View->Marks().Set(
            {{1, 4, {"    x = 1", 4, 4, "A"}},
             {2, 2, {"    x = 1", 4, 4, "A"}},
             {3, 5, {"    y = 2 + _", 5, 4, "A"}}});
        QCoreApplication::processEvents();
    }

    MarkMargin& Margin() { return Child<MarkMargin>(); }
    MarkOverview& Overview() { return Child<MarkOverview>(); }
    QPoint InMargin(int line) {
        const int y = Editor().YOfLine(line) + Editor().LineHeight() / 2;
        const QPoint place = Editor().viewport()->mapTo(View.get(), QPoint(0, y));
        return {Margin().width() / 2, Margin().mapFrom(View.get(), place).y()};
    }
    int UnderlinedSeverity(int line, int column) {
        const auto bits = static_cast<unsigned>(Editor().SendScintilla(
            QsciScintillaBase::SCI_INDICATORALLONFOR,
            static_cast<unsigned long>(Editor().Position(line, column))));
        for (int severity = 1; severity <= 5; ++severity) {
            if ((bits &
                 1U << static_cast<unsigned>(QsciScintillaBase::INDIC_CONTAINER + severity)) != 0) {
                return severity;
            }
        }
        return 0;
    }

private:
    template <typename Widget>
    Widget& Child() {
        for (QWidget* widget : View->findChildren<QWidget*>()) {
            if (auto* found = dynamic_cast<Widget*>(widget)) {
                return *found;
            }
        }
        throw std::runtime_error("no such widget");
    }
};

QString TipAt(QWidget& widget, const QPoint& place) {
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    QHelpEvent help(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QCoreApplication::sendEvent(&widget, &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();  // nothing is shown anew
}

}  // namespace

TEST(Marks, StatementsAreUnderlinedByTheWorst) {
    MarkedPane pane;
    EXPECT_EQ(pane.UnderlinedSeverity(4, 5), 2);
    EXPECT_EQ(pane.UnderlinedSeverity(4, 1), 0) << "not its indentation";
    EXPECT_EQ(pane.UnderlinedSeverity(5, 5), 5);
    EXPECT_EQ(pane.UnderlinedSeverity(6, 9), 5) << "the statement goes on";
    EXPECT_EQ(pane.UnderlinedSeverity(7, 1), 0);
    EXPECT_EQ(pane.UnderlinedSeverity(10, 5), 0) << "the same text in another procedure";
}

TEST(Marks, AreDrawnInTheMargin) {
    MarkedPane pane;
    const QImage shown = pane.Margin().grab().toImage();
    const auto hasMark = [&](int line) {
        const QPoint place = pane.InMargin(line) * shown.devicePixelRatio();
        return shown.pixelColor(place) != shown.pixelColor(0, shown.height() - 1);
    };
    EXPECT_TRUE(hasMark(4));
    EXPECT_TRUE(hasMark(5));
    EXPECT_FALSE(hasMark(3));
    EXPECT_FALSE(hasMark(6));
}

TEST(Marks, MoveWithTheCode) {
    MarkedPane pane;
    pane.GoTo(4, 1);
    pane.Key(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.View->Marks().SeverityOf(5), 2) << "a line break in front moves the line";
    EXPECT_EQ(pane.UnderlinedSeverity(5, 5), 2);
    EXPECT_EQ(pane.UnderlinedSeverity(4, 1), 0);
    pane.GoTo(1, 1);
    pane.Key(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.View->Marks().SeverityOf(6), 2);
    EXPECT_EQ(pane.UnderlinedSeverity(6, 5), 2);
    pane.Key(Qt::Key_Z, Qt::ControlModifier);
    pane.Key(Qt::Key_Z, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.UnderlinedSeverity(4, 5), 2);
}

TEST(Marks, ComeBackWhenTheirLineDoes) {
    MarkedPane pane;
    pane.Editor().Select({4, 1, 5, 1});
    pane.Key(Qt::Key_Delete);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.View->Marks().SeverityOf(4), 5) << "that of the line below";
    pane.Key(Qt::Key_Z, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.UnderlinedSeverity(4, 5), 2);
    EXPECT_EQ(pane.UnderlinedSeverity(5, 5), 5);
}

TEST(Marks, TipSaysWhatIsWrongThere) {
    MarkedPane pane;
    const QString tip = TipAt(pane.Margin(), pane.InMargin(4));
    EXPECT_TRUE(tip.contains(modQt::Text("Rule &lt;2&gt;"))) << modQt::Utf8(tip);
    EXPECT_TRUE(tip.contains(modQt::Text("Rule &lt;1&gt;")));
    EXPECT_LT(tip.indexOf(modQt::Text("&lt;2")), tip.indexOf(modQt::Text("&lt;1")));
    EXPECT_TRUE(tip.contains(modQt::Text("Do better.")));
    EXPECT_EQ(TipAt(pane.Margin(), pane.InMargin(3)), QString());
    const auto pointOf = [&](int line, int column) {
        const auto position = static_cast<long>(pane.Editor().Position(line, column));
        return QPoint(
            static_cast<int>(pane.Editor().SendScintilla(
                QsciScintillaBase::SCI_POINTXFROMPOSITION, 0UL, position)) +
                2,
            pane.Editor().YOfLine(line) + pane.Editor().LineHeight() / 2);
    };
    QWidget& code = *pane.Editor().viewport();
    EXPECT_TRUE(TipAt(code, pointOf(6, 9)).contains(modQt::Text("Rule &lt;3&gt;")));
    EXPECT_EQ(TipAt(code, pointOf(7, 2)), QString());
}

TEST(Marks, ClickChoosesTheWorst) {
    MarkedPane pane;
    std::int32_t chosen = 0;
    const Subscription watch = pane.View->MarkChosen.Subscribe(
        [&](const MarkedViolation& violation) { chosen = violation.ViolationID; });
    QTest::mouseClick(&pane.Margin(), Qt::LeftButton, {}, pane.InMargin(3));
    EXPECT_EQ(chosen, 0);
    QTest::mouseClick(&pane.Margin(), Qt::LeftButton, {}, pane.InMargin(4));
    EXPECT_EQ(chosen, 2);
    EXPECT_EQ(pane.Editor().CaretLine(), 4);
    QTest::mouseClick(&pane.Overview(), Qt::LeftButton, {}, pane.Overview().MarkRect(5).center());
    EXPECT_EQ(chosen, 3);
}

TEST(Marks, KeysGoFromOneToTheNext) {
    MarkedPane pane;
    pane.GoTo(1, 1);
    pane.Key(Qt::Key_F8);
    EXPECT_EQ(pane.Editor().CaretLine(), 4);
    pane.Key(Qt::Key_F8);
    EXPECT_EQ(pane.Editor().CaretLine(), 5);
    EXPECT_FALSE(pane.View->GoToNextViolation());
    EXPECT_EQ(pane.Editor().CaretLine(), 5);
    pane.Key(Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_EQ(pane.Editor().CaretLine(), 4);
}

}  // namespace dorvik
