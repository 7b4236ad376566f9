#include "workstation/bench/DocumentationView.h"

#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"

#include <QApplication>
#include <QFile>
#include <QPrinter>
#include <QTest>
#include <QTextBlock>
#include <QTextFrame>
#include <QTimer>
#include <QWheelEvent>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik::test {

namespace {

using testing::ElementsAre;

constexpr std::string_view kPage =
    "<SMALL STYLE='font: bold 8pt'>[0012]Jumps</SMALL><H3 ALIGN=left STYLE='font: bold 12pt "
    "\"Tahoma\"; color: #c33'>High GoTo used</H3><P STYLE='font: 9pt'>See <A "
    "HREF='https://example.org/a?b=c'>the rule</A></P>";

class DocumentationViewTest : public testing::Test {
protected:
    void SetUp() override {
        m_pane.SetBodyMargins({5, 6, 7, 8});
        m_pane.SetInnerHTML(std::string(kPage));
        QFont font;
        font.setPointSize(9);
        m_view.setFont(font);
        m_view.resize(400, 300);
        m_view.show();
    }

    QTextCharFormat FormatOf(const QString& text) {
        return m_view.document()->find(text).charFormat();
    }

    DocumentPane m_pane;
    DocumentationView m_view{m_pane};
};

TEST_F(DocumentationViewTest, ShowsThePageOfThePane) {
    EXPECT_EQ(modQt::Utf8(m_view.toPlainText()), "[0012]Jumps\nHigh GoTo used\nSee the rule");
    const QTextFrameFormat frame = m_view.document()->rootFrame()->frameFormat();
    EXPECT_EQ(frame.topMargin(), 5);
    EXPECT_EQ(frame.bottomMargin(), 6);
    EXPECT_EQ(frame.leftMargin(), 7);
    EXPECT_EQ(frame.rightMargin(), 8);
    m_pane.Navigate("about:blank");
    EXPECT_TRUE(m_view.toPlainText().isEmpty());
}

TEST_F(DocumentationViewTest, TheTitleHasTheColourOfTheTheme) {
    modTheme::Apply(ThemeName::Dark);
    EXPECT_EQ(FormatOf(QStringLiteral("High GoTo")).foreground().color(), modTheme::Colours().Fail);
    modTheme::Apply(ThemeName::Light);
    EXPECT_EQ(FormatOf(QStringLiteral("High GoTo")).foreground().color(), modTheme::Colours().Fail);
}

TEST_F(DocumentationViewTest, ZoomReachesTextsOfAnySize) {
    const double title = FormatOf(QStringLiteral("High GoTo")).font().pointSizeF();
    EXPECT_DOUBLE_EQ(title, 12);  // as the page has it, not as headings of that level are
    const double text = FormatOf(QStringLiteral("See")).font().pointSizeF();
    QTest::keyClick(&m_view, Qt::Key_Plus, Qt::ControlModifier);
    QTest::keyClick(&m_view, Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(m_view.Zoom(), 1.2);
    EXPECT_NEAR(FormatOf(QStringLiteral("High GoTo")).font().pointSizeF(), 1.2 * title, 0.01);
    EXPECT_NEAR(FormatOf(QStringLiteral("See")).font().pointSizeF(), 1.2 * text, 0.01);
    m_pane.SetInnerHTML(std::string(kPage));
    EXPECT_NEAR(FormatOf(QStringLiteral("See")).font().pointSizeF(), 1.2 * text, 0.01);
    QTest::keyClick(&m_view, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(m_view.Zoom(), 1.1);
    QTest::keyClick(&m_view, Qt::Key_0, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(m_view.Zoom(), 1);
    EXPECT_NEAR(FormatOf(QStringLiteral("See")).font().pointSizeF(), text, 0.01);
    m_view.ZoomBy(-99);
    EXPECT_DOUBLE_EQ(m_view.Zoom(), 0.5);
    m_view.ZoomBy(99);
    EXPECT_DOUBLE_EQ(m_view.Zoom(), 3);
}

TEST_F(DocumentationViewTest, ThePageFollowsTheFontOfTheProgram) {
    QFont large;
    large.setPointSize(18);
    m_view.setFont(large);
    EXPECT_NEAR(FormatOf(QStringLiteral("High GoTo")).font().pointSizeF(), 24, 0.01);
}

TEST_F(DocumentationViewTest, TheWheelZoomsWithControl) {
    QWheelEvent up(
        {50, 50},
        m_view.mapToGlobal(QPointF(50, 50)),
        {},
        {0, 120},
        Qt::NoButton,
        Qt::ControlModifier,
        Qt::NoScrollPhase,
        false);
    QApplication::sendEvent(m_view.viewport(), &up);
    EXPECT_DOUBLE_EQ(m_view.Zoom(), 1.1);
}

TEST_F(DocumentationViewTest, ALinkIsReportedAndNotFollowed) {
    std::vector<std::string> links;
    const Subscription heard =
        m_view.LinkActivated.Subscribe([&](const std::string& link) { links.push_back(link); });
    const QTextCursor link = m_view.document()->find(QStringLiteral("the rule"));
    QTest::mouseClick(
        m_view.viewport(), Qt::LeftButton, {}, m_view.cursorRect(link).center() - QPoint(3, 0));
    EXPECT_THAT(links, ElementsAre("https://example.org/a?b=c"));
    EXPECT_EQ(modQt::Utf8(m_view.toPlainText().left(6)), "[0012]");
}

TEST_F(DocumentationViewTest, APageLoadsNothing) {
    EXPECT_FALSE(
        m_view.loadResource(QTextDocument::ImageResource, QUrl(QStringLiteral("file:///etc/hosts")))
            .isValid());
}

TEST_F(DocumentationViewTest, ThePrintIsSeenBeforeItIsMade) {
    QString title;
    QTimer::singleShot(0, &m_view, [&title] {
        title = QApplication::activeModalWidget()->windowTitle();
        QApplication::activeModalWidget()->close();
    });
    QTest::keyClick(&m_view, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(modQt::Utf8(title), "Print the documentation");
}

TEST_F(DocumentationViewTest, IsPrinted) {
    const TemporaryFolder folder;
    const QString file = QString::fromStdString((folder.HostPath() / "page.pdf").string());
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    m_view.Print(printer);
    QFile printed(file);
    ASSERT_TRUE(printed.open(QIODevice::ReadOnly));
    EXPECT_TRUE(printed.readAll().startsWith("%PDF"));
}

}  // namespace

}  // namespace dorvik::test
