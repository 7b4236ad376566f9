#include "workstation/widgets/Bindings.h"

#include "workstation/controls/ComboBox.h"
#include "workstation/controls/TabStrip.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTabBar>

namespace dorvik {

namespace {

void FillCombo(QComboBox& box, const ComboBox& items) {
    box.clear();
    for (const ComboItem& item : items.Items()) {
        box.addItem(modPictures::Icon(item.Image), modQt::Text(item.Text));
    }
}

void ShowCombo(QComboBox& box, const ComboBox& items, ComboChange change) {
    const QSignalBlocker blocked(box);
    if (change == ComboChange::Items || box.count() != static_cast<int>(items.Count())) {
        FillCombo(box, items);
    } else if (change == ComboChange::ItemText) {
        for (std::size_t i = 0; i < items.Count(); ++i) {
            box.setItemText(static_cast<int>(i), modQt::Text(items.Item(i).Text));
        }
    }
    box.setCurrentIndex(items.SelectedIndex() ? static_cast<int>(*items.SelectedIndex()) : -1);
}

}  // namespace

void Bindings::Text(QLabel& label, Observable<std::string>& text) {
    label.setTextFormat(Qt::PlainText);
    Show<std::string>(text, [&label](const std::string& now) { label.setText(modQt::Text(now)); });
}

void Bindings::Text(QLineEdit& box, Observable<std::string>& text) {
    Show<std::string>(text, [&box](const std::string& now) {
        const QString shown = modQt::Text(now);
        if (box.text() != shown) {
            box.setText(shown);
        }
    });
    QObject::connect(&box, &QLineEdit::textChanged, &box, [&text](const QString& typed) {
        text.Set(modQt::Utf8(typed));
    });
}

void Bindings::Title(QWidget& window, Observable<std::string>& title) {
    Show<std::string>(
        title, [&window](const std::string& now) { window.setWindowTitle(modQt::Text(now)); });
}

void Bindings::SetChecked(QAbstractButton& button, bool checked) {
    const QSignalBlocker blocked(button);
    button.setChecked(checked);
    button.update();
}

void Bindings::OnClick(QAbstractButton& button, std::function<void()> click) {
    QObject::connect(&button, &QAbstractButton::clicked, &button, std::move(click));
}

void Bindings::Check(QAbstractButton& button, Observable<bool>& checked) {
    Show<bool>(checked, [&button](const bool& now) { SetChecked(button, now); });
    QObject::connect(
        &button, &QAbstractButton::toggled, &button, [&checked](bool now) { checked.Set(now); });
}

void Bindings::Enabled(QWidget& widget, Observable<bool>& enabled) {
    Show<bool>(enabled, [&widget](const bool& now) { widget.setEnabled(now); });
}

void Bindings::Visible(QWidget& widget, Observable<bool>& visible) {
    Show<bool>(visible, [&widget](const bool& now) { widget.setVisible(now); });
}

void Bindings::Combo(QComboBox& box, ComboBox& items) {
    ShowCombo(box, items, ComboChange::Items);
    Keep(items.Changed.Subscribe(
        [&box, &items](ComboChange change) { ShowCombo(box, items, change); }));
    Enabled(box, items.Enabled);
    QObject::connect(&box, &QComboBox::activated, &box, [&items](int index) {
        if (index >= 0) {
            items.Choose(static_cast<std::size_t>(index));
        }
    });
}

void Bindings::Tabs(QTabBar& bar, TabStrip& tabs) {
    Tabs(bar, tabs, [&tabs](std::int16_t tab) { tabs.Shown.Set(tab); });
}

void Bindings::Tabs(QTabBar& bar, TabStrip& tabs, std::function<void(std::int16_t)> choose) {
    for (const std::string& caption : tabs.Captions()) {
        bar.addTab(modQt::Text(caption));
    }
    Show<std::int16_t>(tabs.Shown, [&bar](const std::int16_t& shown) {
        const QSignalBlocker blocked(bar);
        bar.setCurrentIndex(shown - 1);
    });
    QObject::connect(&bar, &QTabBar::currentChanged, &bar, [choose = std::move(choose)](int index) {
        if (index >= 0) {
            choose(static_cast<std::int16_t>(index + 1));
        }
    });
}

}  // namespace dorvik
