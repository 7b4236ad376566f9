#include "BenchFixture.h"
#include "support/FilesystemPaths.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFile>
#include <QFont>
#include <QLabel>
#include <QMenu>
#include <QProgressDialog>
#include <QSplitter>
#include <QSplitterHandle>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <filesystem>

namespace dorvik::test {

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class WorkbenchViewTest : public BenchFixture {
protected:
    QComboBox& Box(const QString& name) {
        for (QComboBox* const box : m_bench->findChildren<QComboBox*>()) {
            if (box->accessibleName() == name) {
                return *box;
            }
        }
        throw std::runtime_error("no such box");
    }
    QComboBox& Files() { return Box(QStringLiteral("Source file")); }
    QComboBox& Procedures() { return Box(QStringLiteral("Procedure")); }
    static void Choose(QComboBox& box, int index) {
        box.setCurrentIndex(index);
        Q_EMIT box.activated(index);
    }
    QLabel& Label(const QString& text) {
        for (QLabel* const label : m_bench->findChildren<QLabel*>()) {
            if (label->text() == text) {
                return *label;
            }
        }
        throw std::runtime_error("no such label");
    }
    static QMenu* MenuOf(const QWidget& widget, const QString& title) {
        for (const QAction* const action : widget.actions()) {
            if (action->menu() != nullptr && action->text().remove(QLatin1Char('&')) == title) {
                return action->menu();
            }
        }
        return nullptr;
    }
    QPoint Center(int row, int section) {
        return List().visualRect(List().model()->index(row, section)).center();
    }
    QString OwnFile(const std::string& name) const {
        return QString::fromStdString((m_folder.HostPath() / name).string());
    }
    QString Page() { return m_bench->Documentation().toPlainText(); }
};

TEST_F(WorkbenchViewTest, WithoutAProjectThePanelSaysSo) {
    Document().VisibleChanged(true);
    Document().Results().PopulateResults(m_criteria, false);
    EXPECT_TRUE(Label(QStringLiteral("No projects open.")).isVisible());
    EXPECT_FALSE(List().isVisible());
    OpenResults();
    EXPECT_TRUE(List().isVisible());
    EXPECT_FALSE(m_bench->Hotspots().isVisible());
}

TEST_F(WorkbenchViewTest, OpenResultsShowListBoxesAndDocumentation) {
    OpenResults();
    EXPECT_EQ(Rows().size(), 8);
    EXPECT_EQ(Files().count(), 5);
    EXPECT_EQ(modQt::Utf8(Files().currentText()), "(All Source Files)");
    EXPECT_FALSE(Procedures().isEnabled());
    EXPECT_THAT(modQt::Utf8(Page()), HasSubstr("Low Reference"));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, Center(3, 2));
    EXPECT_THAT(modQt::Utf8(Page()), HasSubstr("goto used"));
    EXPECT_THAT(modQt::Utf8(Page()), HasSubstr("GoTo Failed"));
    Keep(*m_bench, QStringLiteral("list"));
}

TEST_F(WorkbenchViewTest, TheBoxesChooseFileAndProcedure) {
    OpenResults();
    Choose(Files(), Files().findText(QStringLiteral("modA [5]")));
    EXPECT_TRUE(Procedures().isEnabled());
    EXPECT_EQ(Rows().size(), 4);
    Choose(Procedures(), Procedures().findText(QStringLiteral("Total [2]")));
    EXPECT_EQ(Rows(), QStringList({QStringLiteral("goto used"), QStringLiteral("GoTo used")}));
}

TEST_F(WorkbenchViewTest, TheButtonsShowTheViews) {
    OpenResults();
    QAbstractButton& hotspots = Button(QStringLiteral("Hotspots"));
    QAbstractButton& list = Button(QStringLiteral("Violation list"));
    hotspots.click();
    EXPECT_EQ(Document().Results().ViewType(), viewtype::kHotspots);
    EXPECT_TRUE(m_bench->Hotspots().isVisible());
    EXPECT_FALSE(List().isVisible());
    EXPECT_FALSE(list.isChecked());
    EXPECT_EQ(m_bench->Hotspots().model()->rowCount(), 4);
    Keep(*m_bench, QStringLiteral("hotspots"));
    hotspots.click();
    EXPECT_TRUE(hotspots.isChecked());
    EXPECT_TRUE(m_bench->Hotspots().isVisible());
    const QModelIndex module = m_bench->Hotspots().model()->index(0, 0);
    QTest::mouseClick(
        m_bench->Hotspots().viewport(),
        Qt::LeftButton,
        {},
        m_bench->Hotspots().visualRect(module).center());
    list.click();
    EXPECT_TRUE(List().isVisible());
    EXPECT_NE(Files().currentIndex(), 0);
}

TEST_F(WorkbenchViewTest, ThePlaceholderCoversAListWithoutRows) {
    OpenResults();
    QLabel& placeholder = Label(QStringLiteral("There are no violations to show."));
    EXPECT_FALSE(placeholder.isVisible());
    Choose(Files(), Files().findText(QStringLiteral("clsC")));
    EXPECT_TRUE(placeholder.isVisible());
    const QRect inside = List().viewport()->geometry();
    EXPECT_TRUE(inside.contains(placeholder.geometry()))
        << inside.x() << ' ' << inside.y() << ' ' << placeholder.x() << ' ' << placeholder.y();
    EXPECT_EQ(placeholder.width(), inside.width() - 6);  // at 96 dots an inch
    EXPECT_EQ(placeholder.height(), 62);
    Keep(*m_bench, QStringLiteral("placeholder"));
}

TEST_F(WorkbenchViewTest, TheGroupByBoxIsThatOfTheSettings) {
    OpenResults();
    EXPECT_FALSE(m_bench->Groups().isVisible());
    Settings().ShowGroupByBox = true;
    Document().ShowGroupBy();
    EXPECT_TRUE(m_bench->Groups().isVisible());
    Controls().List.ChooseGroups(
        {{NumberOf(ViolationColumn::SeverityText)}, {NumberOf(ViolationColumn::SourceFile)}});
    EXPECT_EQ(modQt::Utf8(Rows().front()), "Critical (1)");
    EXPECT_EQ(Settings().RVVLGroupsNum, 2);
    Keep(*m_bench, QStringLiteral("groups"));
}

TEST_F(WorkbenchViewTest, TheSplitterKeepsItsPartAndIgnoresAPositionAtTheEdge) {
    OpenResults();
    Splitter& splitter = Controls().Splitter;
    EXPECT_EQ(splitter.ContainerWidth(), 1100 * 15);  // at 96 dots an inch
    EXPECT_NEAR(List().width(), 0.498 * 1100, 2);
    splitter.Release(5000);
    EXPECT_NEAR(List().width(), 5000 / 15, 2);
    splitter.Release(999);
    EXPECT_NEAR(List().width(), 5000 / 15, 2);
    m_bench->resize(880, 500);
    EXPECT_NEAR(List().width(), 5000 / 15 * 0.8, 2);
}

TEST_F(WorkbenchViewTest, TheBarIsMovedByMouseAndKeyboard) {
    OpenResults();
    auto& splitter = *m_bench->findChild<QSplitter*>();
    QSplitterHandle& bar = *splitter.handle(1);
    const QPoint from = bar.rect().center();
    const auto drag = [&](int by) {
        QTest::mousePress(&bar, Qt::LeftButton, {}, from);
        const QPoint to = from + QPoint(by, 0);
        QMouseEvent move(
            QEvent::MouseMove,
            to,
            bar.mapToGlobal(to),
            Qt::NoButton,
            Qt::LeftButton,
            Qt::NoModifier);
        QApplication::sendEvent(&bar, &move);
        QTest::mouseRelease(
            &bar, Qt::LeftButton, {}, bar.mapFromGlobal(move.globalPosition().toPoint()));
    };
    const int before = List().width();
    drag(-100);
    EXPECT_NEAR(List().width(), before - 100, 2);
    EXPECT_NEAR(Controls().Splitter.Fraction(), (before - 100) / 1100.0, 0.01);
    EXPECT_NEAR(Settings().RVGridWidth, (before - 100) / 1100.0, 0.01);
    const double fraction = Controls().Splitter.Fraction();
    QTest::keyClick(&bar, Qt::Key_Right);
    EXPECT_GT(Controls().Splitter.Fraction(), fraction);
    drag(-2000);  // as far as it goes
    EXPECT_GE(Controls().Splitter.Left.Value(), Splitter::kLeast);
    EXPECT_NEAR(List().width(), Controls().Splitter.Left.Value() / 15.0, 2);
}

TEST_F(WorkbenchViewTest, ANarrowBenchHasItsBoxesInARowOfTheirOwn) {
    OpenResults();
    const auto bottomOf = [this](QWidget& widget) {
        return widget.mapTo(m_bench.get(), widget.rect().bottomLeft()).y();
    };
    QAbstractButton& button = Button(QStringLiteral("Hotspots"));
    EXPECT_LT(Files().mapTo(m_bench.get(), QPoint()).y(), bottomOf(button));
    m_bench->resize(m_bench->minimumSizeHint().width(), 500);
    QApplication::processEvents();
    EXPECT_LT(m_bench->width(), 700);
    EXPECT_GE(Files().mapTo(m_bench.get(), QPoint()).y(), bottomOf(button));
    EXPECT_GE(List().mapTo(m_bench.get(), QPoint()).y(), bottomOf(Files()));
    Keep(*m_bench, QStringLiteral("narrow"));
    m_bench->resize(1100, 500);
    QApplication::processEvents();
    EXPECT_LT(Files().mapTo(m_bench.get(), QPoint()).y(), bottomOf(button));
}

TEST_F(WorkbenchViewTest, ALinkOfTheDocumentationIsReported) {
    OpenResults();
    std::string link;
    const Subscription heard =
        m_bench->LinkActivated.Subscribe([&](const std::string& address) { link = address; });
    Q_EMIT m_bench->Documentation().anchorClicked(QUrl(QStringLiteral("https://example.org/r")));
    EXPECT_EQ(link, "https://example.org/r");
}

TEST_F(WorkbenchViewTest, AnotherReviewAndClosedResultsAreShown) {
    OpenResults();
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, Center(3, 2));
    Document().Results().CloseResults();
    EXPECT_TRUE(Rows().isEmpty());
    EXPECT_TRUE(Page().isEmpty());
    EXPECT_EQ(Files().count(), 0);
    Document().Results().PopulateResults(m_criteria, /*afterReview=*/true);
    EXPECT_EQ(Rows().size(), 8);
    EXPECT_EQ(List().SelectedKeys(), std::vector<std::int32_t>{1});
}

TEST_F(WorkbenchViewTest, GoToSourceIsTheButtonADoubleClickAndEnter) {
    OpenResults();
    m_host.Calls.clear();
    Button(QStringLiteral("Go To Source")).click();
    EXPECT_EQ(m_host.Calls.size(), 1U);  // the references of the project
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, Center(0, 2));
    EXPECT_EQ(m_host.Calls.size(), 2U);
    QTest::keyClick(&List(), Qt::Key_Return);
    EXPECT_EQ(m_host.Calls.size(), 3U);
}

TEST_F(WorkbenchViewTest, ThePopupOfTheListIsAMenuOfItsCommands) {
    OpenResults();
    m_ide.RefreshMenus();
    QContextMenuEvent event(
        QContextMenuEvent::Mouse, Center(1, 2), List().viewport()->mapToGlobal(Center(1, 2)));
    QApplication::sendEvent(List().viewport(), &event);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    Keep(*menu, QStringLiteral("popup"));
    QStringList texts;
    for (const QAction* const action : menu->actions()) {
        texts.append(action->text().remove(QLatin1Char('&')));
    }
    EXPECT_EQ(texts[0], QStringLiteral("Go To Source"));
    EXPECT_TRUE(texts.contains(QStringLiteral("Show Group By Box")));
    EXPECT_TRUE(texts.contains(QStringLiteral("Export as CSV...")));
    for (QAction* const action : menu->actions()) {
        if (action->text() == QStringLiteral("&Show Group By Box")) {
            action->trigger();
        }
    }
    EXPECT_TRUE(Settings().ShowGroupByBox);
    menu->close();
}

TEST_F(WorkbenchViewTest, TheKeyboardSortsByAMenu) {
    OpenResults();
    const auto sort = [](QMenu& menu, const QString& title) {
        menu.clear();
        Q_EMIT menu.aboutToShow();
        for (QAction* const action : menu.actions()) {
            if (action->text() == title) {
                action->trigger();
                return;
            }
        }
        ADD_FAILURE() << "no such column";
    };
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(List().viewport(), &event);
    auto* const popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(popup, nullptr);
    sort(*MenuOf(*popup, QStringLiteral("Sort by")), QStringLiteral("Title"));
    EXPECT_EQ(modQt::Utf8(Rows().first()), "goto used");
    popup->close();
    sort(*MenuOf(m_bench->Hotspots(), QStringLiteral("Sort by")), QStringLiteral("Lines"));
    EXPECT_EQ(Controls().Hotspots.Columns()[3].SortIcon, "SortAscending");
}

TEST_F(WorkbenchViewTest, SelectedRowsAndTheWholeListAreCopied) {
    OpenResults();
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, Center(3, 2));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ShiftModifier, Center(4, 2));
    QTest::keyClick(&List(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(
        modQt::Utf8(QApplication::clipboard()->text()),
        "No\t2. High\tgoto used\t750\tmodA\nNo\t2. High\tGoTo used\t1100\tmodA\n");
    Action(QStringLiteral("Copy all as text")).trigger();
    EXPECT_EQ(QApplication::clipboard()->text().count(QLatin1Char('\n')), 8);
    Button(QStringLiteral("Hotspots")).click();
    Action(QStringLiteral("Copy all as text")).trigger();
    EXPECT_THAT(modQt::Utf8(QApplication::clipboard()->text()), HasSubstr("modA\t5\t2,380\t100\t"));
}

TEST_F(WorkbenchViewTest, TheListIsExportedAsItIsShown) {
    OpenResults();
    Controls().List.ChooseGroups({{NumberOf(ViolationColumn::Category)}});
    Controls().List.SetSortKeys({{NumberOf(ViolationColumn::Impact), true}});
    const QString csv = OwnFile("list.csv");
    ASSERT_TRUE(m_bench->ExportTo(csv, TableFormat::Csv));
    EXPECT_EQ(
        modQt::Utf8(FileText(csv).left(210)),
        "Category,Completed,Severity,Title,Impact,Source File\r\n"
        ",No,1. Critical,Setting,900,Billing\r\n"
        ",No,4. Low,Reference,50,\r\n"
        "3rd party,No,5. Info,No header,10,modA\r\n"
        "clarity,No,3. Medium,Too long,500,modA\r\n"
        "clarity,No,2.");
    const QString html = OwnFile("list.html");
    ASSERT_TRUE(m_bench->ExportTo(html, TableFormat::Html));
    EXPECT_THAT(modQt::Utf8(FileText(html)), HasSubstr("<title>Billing violations</title>"));
    EXPECT_THAT(modQt::Utf8(FileText(html)), HasSubstr("<td>goto used</td>"));
}

TEST_F(WorkbenchViewTest, AFileThatCannotBeWrittenIsReported) {
    OpenResults();
    EXPECT_FALSE(m_bench->ExportTo(OwnFile("missing/list.csv"), TableFormat::Csv));
    ASSERT_EQ(m_boxes.Messages.size(), 1U);
    EXPECT_THAT(m_boxes.Messages[0].Text, HasSubstr("could not be written"));
}

TEST_F(WorkbenchViewTest, ALongExportCanBeCancelledAndLeavesTheFileAsItWas) {
    AddProject("Billing");
    WriteResults("Billing");
    ChangeResults(
        "Billing",
        "WITH RECURSIVE Counter(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM Counter WHERE n < "
        "60000) INSERT INTO Violations (ItemID, ItemType, RuleID, RuleType, Title, Severity, "
        "Impact, CategoryID, Completed) SELECT 2, 3, 5000, 4, 'Title', 2, 1, 7, 0 FROM Counter");
    Document().VisibleChanged(true);
    Document().Results().PopulateResults(m_criteria, false);
    const QString csv = OwnFile("list.csv");
    QTimer::singleShot(0, m_bench.get(), [this] {
        for (QProgressDialog* const box : m_bench->findChildren<QProgressDialog*>()) {
            box->cancel();
        }
    });
    EXPECT_FALSE(m_bench->ExportTo(csv, TableFormat::Csv));
    EXPECT_FALSE(QFile::exists(csv));
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
}

TEST_F(WorkbenchViewTest, EveryWidgetThatTakesInputHasAName) {
    OpenResults();
    Settings().ShowGroupByBox = true;
    Document().ShowGroupBy();
    for (QWidget* const widget : m_bench->findChildren<QWidget*>()) {
        const bool takesInput = widget->focusPolicy() & Qt::TabFocus && widget->isVisible();
        auto* const button = qobject_cast<QAbstractButton*>(widget);
        if (takesInput && (button == nullptr || button->text().isEmpty())) {
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->metaObject()->className();
        }
    }
}

TEST_F(WorkbenchViewTest, NoTextIsCutInALargeFont) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(18);
    QApplication::setFont(large);
    m_bench = std::make_unique<WorkbenchView>(Document());
    m_bench->resize(1600, 600);
    m_bench->show();
    OpenResults();
    Controls().List.ChooseGroups({{NumberOf(ViolationColumn::SeverityText)}});
    Settings().ShowGroupByBox = true;
    Document().ShowGroupBy();
    QApplication::processEvents();
    for (QWidget* const widget : m_bench->findChildren<QWidget*>()) {
        const bool hasText = qobject_cast<QAbstractButton*>(widget) != nullptr ||
                             qobject_cast<QLabel*>(widget) != nullptr;
        if (hasText && widget->isVisible()) {
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
                << modQt::Utf8(widget->property("text").toString());
            EXPECT_GE(widget->height(), widget->minimumSizeHint().height());
        }
    }
    EXPECT_GE(
        List().visualRect(List().model()->index(0, 0)).height(), List().fontMetrics().height());
    Keep(*m_bench, QStringLiteral("large"));
    QApplication::setFont(usual);
}

TEST_F(WorkbenchViewTest, DarkAndHighContrastAreDrawn) {
    OpenResults();
    Controls().List.ChooseGroups({{NumberOf(ViolationColumn::SeverityText)}});
    Settings().ShowGroupByBox = true;
    Document().ShowGroupBy();
    Controls().List.ChooseDataRow(2);
    const auto brightness = [this] {
        const QImage image = m_bench->grab().toImage();
        return image.pixelColor(image.width() / 4, image.height() - 20).lightness();
    };
    EXPECT_GT(brightness(), 200);
    modTheme::Apply(ThemeName::Dark);
    QApplication::processEvents();
    EXPECT_LT(brightness(), 60);
    Keep(*m_bench, QStringLiteral("dark"));
    modTheme::Apply(ThemeName::HighContrast);
    QApplication::processEvents();
    EXPECT_LT(brightness(), 30);
    Keep(*m_bench, QStringLiteral("contrast"));
    modTheme::Apply(ThemeName::Light);
    QApplication::processEvents();
    Keep(*m_bench, QStringLiteral("light"));
}

}  // namespace

}  // namespace dorvik::test
