#include "workstation/window/StepPlayer.h"

#include "platform/host/modHostConsole.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/look/modQt.h"
#include "workstation/window/CommandPalette.h"
#include "workstation/window/Desk.h"
#include "workstation/window/MainWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QTabBar>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

constexpr std::chrono::milliseconds kBetweenSteps{60};
constexpr std::chrono::milliseconds kBetweenTries{100};
constexpr int kMostTries = 300;

QString Plain(const QString& text) {
    QString plain = text;
    return plain.remove(u'&');
}

QString TextOf(const QWidget& widget) {
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        return label->text();
    }
    if (const auto* const box = qobject_cast<const QLineEdit*>(&widget)) {
        return box->text();
    }
    if (const auto* const box = qobject_cast<const QComboBox*>(&widget)) {
        return box->currentText();
    }
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
        return Plain(button->text());
    }
    return widget.windowTitle();
}

void SendKey(QWidget& target, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(&target, &event);
    }
}

}  // namespace

StepPlayer::StepPlayer(Desk& desk, MainWindow& window, QString pictures)
    : m_desk(desk), m_window(window), m_pictures(std::move(pictures)) {}

bool StepPlayer::Play(const QString& file) {
    QFile script(file);
    if (!script.open(QIODevice::ReadOnly)) {
        return false;
    }
    m_folder = QFileInfo(file).absolutePath();
    m_lines = QString::fromUtf8(script.readAll()).split(u'\n');
    Next(kBetweenSteps);
    return true;
}

void StepPlayer::Next(std::chrono::milliseconds delay) {
    QTimer::singleShot(delay, &m_window, [this] { Run(); });
}

/// A step may open a modal window, in whose event loop the steps go on: which is the next is settled before.
void StepPlayer::Run() {
    while (m_line < m_lines.size() &&
           (m_lines[m_line].trimmed().isEmpty() || m_lines[m_line].trimmed().startsWith(u'#'))) {
        ++m_line;
    }
    if (m_line >= m_lines.size()) {
        return;
    }
    const qsizetype number = m_line++;
    const QString line = m_lines[number].trimmed();
    const bool isWaiting = line.startsWith(modQt::Text("wait")) ||
                           line.startsWith(modQt::Text("expect")) ||
                           line.startsWith(modQt::Text("shot"));
    if (!isWaiting) {
        Next(kBetweenSteps);
    }
    m_delay = kBetweenSteps;
    const Outcome outcome = RunLine(line);
    if (!outcome.IsDone && isWaiting && ++m_tries < kMostTries) {
        m_line = number;
        Next(kBetweenTries);
        return;
    }
    m_tries = 0;
    if (!outcome.IsDone) {
        const std::string fault = "step " + std::to_string(number + 1) + " (" + modQt::Utf8(line) +
                                  "): " + modQt::Utf8(outcome.Fault) + "\n";
        modHostConsole::Write(HostStream::Error, fault);
        QCoreApplication::exit(1);
        return;
    }
    if (isWaiting) {
        Next(m_delay);
    }
}

StepPlayer::Outcome StepPlayer::RunLine(const QString& line) {
    struct Row {
        const char* Word;
        Step Do;
    };
    static constexpr Row kRows[] = {
        {"open", &StepPlayer::Open},
        {"menu", &StepPlayer::Menu},
        {"button", &StepPlayer::Button},
        {"tab", &StepPlayer::Tab},
        {"focus", &StepPlayer::Focus},
        {"key", &StepPlayer::Key},
        {"type", &StepPlayer::Type},
        {"theme", &StepPlayer::Theme},
        {"zoom", &StepPlayer::Zoom},
        {"size", &StepPlayer::Size},
        {"wait", &StepPlayer::Wait},
        {"wait-review", &StepPlayer::WaitReview},
        {"expect-window", &StepPlayer::ExpectWindow},
        {"expect", &StepPlayer::Expect},
        {"shot", &StepPlayer::Shot},
        {"quit", &StepPlayer::Quit},
    };
    const QString word = line.section(u' ', 0, 0);
    const QString about = line.section(u' ', 1).trimmed();
    for (const Row& row : kRows) {
        if (word == modQt::Text(row.Word)) {
            return (this->*row.Do)(about);
        }
    }
    return {false, modQt::Text("there is no such step")};
}

QWidget& StepPlayer::Front() const {
    if (QWidget* const modal = QApplication::activeModalWidget()) {
        return *modal;
    }
    if (QWidget* const active = QApplication::activeWindow()) {
        return *active;
    }
    return m_window;
}

QWidget* StepPlayer::Named(const QString& name) const {
    for (QWidget* const window : {&Front(), static_cast<QWidget*>(&m_window)}) {
        for (QWidget* const widget : window->findChildren<QWidget*>()) {
            if (widget->isVisible() &&
                (widget->accessibleName() == name || widget->objectName() == name)) {
                return widget;
            }
        }
    }
    return nullptr;
}

StepPlayer::Outcome StepPlayer::Open(const QString& about) {
    const bool isOpened = m_desk.OpenPaths({modQt::Utf8(QDir(m_folder).filePath(about))});
    return {isOpened, modQt::Text("nothing was opened")};
}

StepPlayer::Outcome StepPlayer::Menu(const QString& about) {
    for (const PaletteEntry& entry : m_window.PaletteEntries()) {
        if (entry.Text == modQt::Utf8(about)) {
            entry.Run();
            return {};
        }
    }
    return {false, modQt::Text("there is no such item, or it is disabled")};
}

StepPlayer::Outcome StepPlayer::Button(const QString& about) {
    for (auto* const button : Front().findChildren<QAbstractButton*>()) {
        const bool isMeant = Plain(button->text()) == about || button->accessibleName() == about;
        if (isMeant && button->isVisible() && button->isEnabled()) {
            button->click();
            return {};
        }
    }
    return {
        false,
        modQt::Text("there is no such button, or it is disabled, in '") + Front().windowTitle() +
            u'\''};
}

StepPlayer::Outcome StepPlayer::Tab(const QString& about) {
    for (auto* const bar : Front().findChildren<QTabBar*>()) {
        for (int i = 0; i < bar->count(); ++i) {
            if (bar->isVisible() && Plain(bar->tabText(i)).startsWith(about)) {
                bar->setCurrentIndex(i);
                Q_EMIT bar->tabBarClicked(i);
                return {};
            }
        }
    }
    return {false, modQt::Text("there is no such tab in '") + Front().windowTitle() + u'\''};
}

StepPlayer::Outcome StepPlayer::Focus(const QString& about) {
    QWidget* const widget = Named(about);
    if (widget != nullptr) {
        widget->setFocus();
    }
    return {widget != nullptr, modQt::Text("there is no such widget")};
}

StepPlayer::Outcome StepPlayer::Key(const QString& about) {
    const QKeySequence sequence(about);
    if (sequence.isEmpty()) {
        return {false, modQt::Text("there is no such key")};
    }
    QWidget* const focus = QApplication::focusWidget();
    const QKeyCombination key = sequence[0];
    SendKey(focus != nullptr ? *focus : Front(), key.key(), key.keyboardModifiers(), QString());
    return {};
}

StepPlayer::Outcome StepPlayer::Type(const QString& about) {
    for (const QChar letter : about) {
        QWidget* const focus = QApplication::focusWidget();
        SendKey(focus != nullptr ? *focus : Front(), 0, Qt::NoModifier, QString(letter));
    }
    return {};
}

StepPlayer::Outcome StepPlayer::Theme(const QString& about) {
    m_window.SetTheme(modTheme::FromName(modQt::Utf8(about)));
    return {};
}

StepPlayer::Outcome StepPlayer::Zoom(const QString& about) {
    const int percent = about.toInt();
    m_window.SetZoom(percent);
    return {percent > 0, modQt::Text("that is no size")};
}

StepPlayer::Outcome StepPlayer::Size(const QString& about) {
    const QFontMetrics metrics = m_window.fontMetrics();
    m_window.resize(
        about.section(u' ', 0, 0).toInt() * metrics.averageCharWidth(),
        about.section(u' ', 1, 1).toInt() * metrics.height());
    return {};
}

StepPlayer::Outcome StepPlayer::Wait(const QString& about) {
    m_delay = std::chrono::milliseconds(about.toInt());
    return {};
}

StepPlayer::Outcome StepPlayer::WaitReview(const QString& /*about*/) {
    const bool isRunning =
        m_desk.App().BackgroundReviewActive() || m_desk.State() == ReviewState::Running;
    return {!isRunning, modQt::Text("the review does not end")};
}

StepPlayer::Outcome StepPlayer::ExpectWindow(const QString& about) {
    const QString title = Front().windowTitle();
    return {title == about, modQt::Text("the window in front is '") + title + u'\''};
}

StepPlayer::Outcome StepPlayer::Expect(const QString& about) {
    const QString name = about.section(u' ', 0, 0);
    const QString text = about.section(u' ', 1);
    const QWidget* const widget = Named(name);
    if (widget == nullptr) {
        return {false, modQt::Text("there is no such widget")};
    }
    return {TextOf(*widget) == text, modQt::Text("it shows '") + TextOf(*widget) + u'\''};
}

StepPlayer::Outcome StepPlayer::Shot(const QString& about) {
    QPixmap picture = m_window.grab();
    QPainter painter(&picture);
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window != &m_window && window->isVisible()) {
            const QPoint place = window->pos() - m_window.pos();
            painter.drawPixmap(std::max(place.x(), 0), std::max(place.y(), 0), window->grab());
        }
    }
    painter.end();
    const bool isSaved = QDir().mkpath(m_pictures) &&
                         picture.save(QDir(m_pictures).filePath(about + modQt::Text(".png")));
    return {isSaved, modQt::Text("the picture cannot be written")};
}

StepPlayer::Outcome StepPlayer::Quit(const QString& /*about*/) {
    QCoreApplication::exit(0);
    return {};
}

}  // namespace dorvik
