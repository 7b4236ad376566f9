#include "workstation/bench/DocumentationView.h"

#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QWheelEvent>

#include <algorithm>
#include <memory>
#include <vector>

namespace dorvik {

namespace {

constexpr int kLeastZoom = -5;
constexpr int kMostZoom = 20;
constexpr double kUsualFontSize = 9;

// The colour that the pages have for titles is meant for white paper.
constexpr QLatin1String kTitleColour("color: #c33");

QString Page(const DocumentPane& pane, const QColor& title) {
    QString html = modQt::Text(pane.InnerHTML());
    return html.replace(kTitleColour, QStringLiteral("color: ") + title.name());
}

double PointSize(const QTextCharFormat& format) {
    return format.hasProperty(QTextFormat::FontPointSize) ? format.fontPointSize()
                                                          : format.font().pointSizeF();
}

/// Texts have sizes of their own, which Qt's zoom does not reach, and those of headings would count less than Qt's own.
void Enlarge(QTextDocument& document, double factor) {
    QTextCursor cursor(&document);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        std::vector<QTextFragment> parts;
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            parts.push_back(part.fragment());
        }
        for (const QTextFragment& part : parts) {
            QTextCharFormat format = part.charFormat();
            format.setFontPointSize(PointSize(format) * factor);
            format.clearProperty(QTextFormat::FontSizeAdjustment);
            cursor.setPosition(part.position());
            cursor.setPosition(part.position() + part.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
        }
    }
}

void SetMargins(QTextDocument& document, const DocumentPane::Margins& margins) {
    document.setDocumentMargin(0);
    QTextFrameFormat format = document.rootFrame()->frameFormat();
    format.setTopMargin(margins.Top);
    format.setBottomMargin(margins.Bottom);
    format.setLeftMargin(margins.Left);
    format.setRightMargin(margins.Right);
    document.rootFrame()->setFrameFormat(format);
}

}  // namespace

DocumentationView::DocumentationView(DocumentPane& pane, QWidget* parent)
    : QTextBrowser(parent), m_pane(pane) {
    setOpenLinks(false);
    setAccessibleName(QStringLiteral("Documentation of the violation"));
    setTextInteractionFlags(
        Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard | Qt::LinksAccessibleByKeyboard);
    QObject::connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        LinkActivated.Raise(modQt::Utf8(link.toString(QUrl::FullyEncoded)));
    });
    AddActions();
    m_changed = m_pane.Changed.Subscribe([this] { ShowPage(); });
    m_themeChanged = modTheme::Changed().Subscribe([this] { ShowPage(); });
    ShowPage();
}

void DocumentationView::ShowPage() {
    setHtml(Page(m_pane, modTheme::Colours().Fail));
    SetMargins(*document(), m_pane.BodyMargins());
    // Pages are written for the usual size of fonts.
    Enlarge(*document(), Zoom() * font().pointSizeF() / kUsualFontSize);
}

QVariant DocumentationView::loadResource(int, const QUrl&) {
    return {};
}

void DocumentationView::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        ShowPage();
    }
}

// ---- zoom ----

void DocumentationView::ZoomBy(int steps) {
    m_zoom = std::clamp(m_zoom + steps, kLeastZoom, kMostZoom);
    ShowPage();
}

void DocumentationView::ResetZoom() {
    ZoomBy(-m_zoom);
}

void DocumentationView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::ZoomIn) ||
        (event->key() == Qt::Key_Equal && event->modifiers() == Qt::ControlModifier)) {
        ZoomBy(1);
    } else if (event->matches(QKeySequence::ZoomOut)) {
        ZoomBy(-1);
    } else if (event->key() == Qt::Key_0 && event->modifiers() == Qt::ControlModifier) {
        ResetZoom();
    } else if (event->matches(QKeySequence::Print)) {
        PreviewPrint();
    } else {
        QTextBrowser::keyPressEvent(event);
    }
}

void DocumentationView::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        ZoomBy(event->angleDelta().y() > 0 ? 1 : -1);
        event->accept();
    } else {
        QTextBrowser::wheelEvent(event);
    }
}

// ---- printing ----

void DocumentationView::Print(QPrinter& printer) const {
    QTextDocument paper;
    paper.setDefaultFont(document()->defaultFont());
    paper.setHtml(
        QStringLiteral("<body style='color: black'>") + modQt::Text(m_pane.InnerHTML()) +
        QStringLiteral("</body>"));
    Enlarge(paper, 1);
    paper.print(&printer);
}

void DocumentationView::PreviewPrint() {
    QPrinter printer;
    QPrintPreviewDialog preview(&printer, this);
    preview.setWindowTitle(QStringLiteral("Print the documentation"));
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, this, [this](QPrinter* paper) {
        Print(*paper);
    });
    preview.exec();
}

void DocumentationView::AddActions() {
    const auto add = [this](const QString& text, const QKeySequence& keys, auto&& run) {
        auto& action = modQt::Make<QAction>(text, this);
        action.setShortcut(keys);
        action.setShortcutContext(Qt::WidgetWithChildrenShortcut);
        QObject::connect(&action, &QAction::triggered, this, run);
        addAction(&action);
        m_commands.append(&action);
    };
    add(QStringLiteral("&Larger"), QKeySequence::ZoomIn, [this] { ZoomBy(1); });
    add(QStringLiteral("&Smaller"), QKeySequence::ZoomOut, [this] { ZoomBy(-1); });
    add(QStringLiteral("&Normal size"), QKeySequence(Qt::CTRL | Qt::Key_0), [this] {
        ResetZoom();
    });
    add(QStringLiteral("&Print..."), QKeySequence::Print, [this] { PreviewPrint(); });
}

void DocumentationView::contextMenuEvent(QContextMenuEvent* event) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu(event->pos()));
    menu->addSeparator();
    menu->addActions(m_commands);
    menu->exec(event->globalPos());
}

}  // namespace dorvik
