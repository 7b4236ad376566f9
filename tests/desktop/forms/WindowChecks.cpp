#include "WindowChecks.h"

#include "workstation/look/modTheme.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

namespace dorvik::test {

namespace {

std::string Described(const QWidget& widget) {
    return std::string(widget.metaObject()->className()) + " '" +
           widget.objectName().toStdString() + "'";
}

/// Parts that Qt puts into its own controls are named with them.
bool IsPart(const QWidget& widget) {
    return widget.objectName().startsWith(QStringLiteral("qt_")) ||
           qobject_cast<const QComboBox*>(widget.parentWidget()) != nullptr ||
           qobject_cast<const QAbstractItemView*>(widget.parentWidget()) != nullptr;
}

std::vector<QWidget*> Seen(QWidget& window) {
    std::vector<QWidget*> seen;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->isVisibleTo(&window) && widget->window() == &window) {
            seen.push_back(widget);
        }
    }
    return seen;
}

std::vector<QWidget*> Inputs(QWidget& window) {
    std::vector<QWidget*> inputs;
    for (QWidget* const widget : Seen(window)) {
        const bool takesInput = (widget->focusPolicy() & Qt::TabFocus) != 0 &&
                                widget->isEnabled() && widget->focusProxy() == nullptr;
        if (takesInput && !IsPart(*widget)) {
            inputs.push_back(widget);
        }
    }
    return inputs;
}

QString CaptionOf(const QWidget& widget) {
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->text();
    }
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    return label != nullptr && label->buddy() != nullptr ? label->text() : QString();
}

}  // namespace

ScopedFontSize::ScopedFontSize(int points) : m_before(QApplication::font()) {
    QFont font = m_before;
    font.setPointSize(points);
    QApplication::setFont(font);
}

ScopedFontSize::~ScopedFontSize() {
    QApplication::setFont(m_before);
}

void ExpectNamed(QWidget& window) {
    const std::vector<QWidget*> inputs = Inputs(window);
    EXPECT_FALSE(inputs.empty());
    for (QWidget* const widget : inputs) {
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(spoken, nullptr) << Described(*widget);
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << Described(*widget);
    }
}

void ExpectNothingCut(QWidget& window) {
    for (QWidget* const widget : Seen(window)) {
        const auto* const label = qobject_cast<const QLabel*>(widget);
        const bool hasText = label != nullptr ||
                             qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                             qobject_cast<const QTabBar*>(widget) != nullptr;
        if (!hasText || IsPart(*widget)) {
            continue;
        }
        if (label != nullptr && label->wordWrap()) {
            EXPECT_LE(label->heightForWidth(label->width()), label->height()) << Described(*widget);
            continue;
        }
        EXPECT_LE(widget->sizeHint().width(), widget->width()) << Described(*widget);
        EXPECT_LE(widget->sizeHint().height(), widget->height()) << Described(*widget);
    }
}

void ExpectOwnMnemonics(QWidget& window) {
    std::map<std::string, std::string> owners;
    for (const QWidget* const widget : Seen(window)) {
        const QKeySequence key = QKeySequence::mnemonic(CaptionOf(*widget));
        if (!key.isEmpty()) {
            const auto [owner, isNew] =
                owners.emplace(key.toString().toStdString(), Described(*widget));
            EXPECT_TRUE(isNew) << owner->first << " of " << owner->second << " is also that of "
                               << Described(*widget);
        }
    }
}

void ExpectReachedByTab(QWidget& window) {
    std::set<const QWidget*> reached;
    const std::vector<QWidget*> inputs = Inputs(window);
    ASSERT_FALSE(inputs.empty());
    window.activateWindow();
    inputs.front()->setFocus();
    for (std::size_t i = 0; i < inputs.size() + 2; ++i) {
        const QWidget* const focus = window.focusWidget();
        if (focus != nullptr) {
            reached.insert(focus);
            reached.insert(focus->parentWidget());
        }
        QTest::keyClick(&window, Qt::Key_Tab);
    }
    for (const QWidget* const widget : inputs) {
        // Of options that exclude each other, one is reached and the arrow keys lead on.
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        const bool isOption = button != nullptr && button->autoExclusive();
        const bool isReached =
            std::any_of(reached.begin(), reached.end(), [&](const QWidget* focus) {
                return focus == widget || (isOption && focus->parent() == widget->parent() &&
                                           qobject_cast<const QRadioButton*>(focus) != nullptr);
            });
        EXPECT_TRUE(isReached) << Described(*widget);
    }
}

void ExpectUsable(
    const std::function<void(const std::function<void(QWidget& window)>& onPage)>& open) {
    for (const int points : {9, 18}) {
        const ScopedFontSize size(points);
        open([&](QWidget& window) {
            SCOPED_TRACE(std::to_string(points) + " points");
            window.show();
            QTest::qWait(1);
            ExpectNamed(window);
            ExpectNothingCut(window);
            ExpectOwnMnemonics(window);
            ExpectReachedByTab(window);
        });
    }
}

void ShowActive(QWidget& window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

void SavePicture(QWidget& window, const std::string& name) {
    const QString folder = qEnvironmentVariable("DORVIK_PICTURES");
    if (folder.isEmpty()) {
        return;
    }
    for (const ThemeName theme : {ThemeName::Dark, ThemeName::HighContrast, ThemeName::Light}) {
        modTheme::Apply(theme);
        window.show();
        QTest::qWait(1);
        window.grab().save(
            folder + QStringLiteral("/") +
            QString::fromStdString(name + "-" + std::string(modTheme::NameOf(theme)) + ".png"));
    }
}

}  // namespace dorvik::test
