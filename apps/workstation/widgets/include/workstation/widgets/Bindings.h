#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/Observable.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

class QAbstractButton;
class QComboBox;
class QLabel;
class QLineEdit;
class QTabBar;
class QWidget;

namespace dorvik {

class ComboBox;
class TabStrip;

/// What keeps the widgets of a window and the values of a model alike. A value is shown at once and whenever it changes;
/// where the widget takes input, what the user does is set in the model. REQUIRES: the models outlive the bindings, and
/// the bindings the input to the widgets.
class Bindings {
public:
    void Text(QLabel& label, Observable<std::string>& text);
    void Text(QLineEdit& box, Observable<std::string>& text);
    void Title(QWidget& window, Observable<std::string>& title);
    void Check(QAbstractButton& button, Observable<bool>& checked);
    /// `checked` while `value` has one value; a click sets it.
    template <typename Value>
    void Option(QAbstractButton& button, Observable<Value>& value, Value meant);
    void Enabled(QWidget& widget, Observable<bool>& enabled);
    void Visible(QWidget& widget, Observable<bool>& visible);
    void Combo(QComboBox& box, ComboBox& items);
    /// A tab is put in front by a click and by the keys of the bar.
    void Tabs(QTabBar& bar, TabStrip& tabs);
    /// The same where more than `Shown` depends on it: what the user chooses goes to `choose`.
    void Tabs(QTabBar& bar, TabStrip& tabs, std::function<void(std::int16_t)> choose);

    /// Calls `show` at once and after each change.
    template <typename Value>
    void Show(Observable<Value>& value, std::function<void(const Value&)> show) {
        show(value.Value());
        Keep(value.Changed.Subscribe(std::move(show)));
    }
    void Keep(Subscription subscription) { m_kept.push_back(std::move(subscription)); }
    void Clear() { m_kept.clear(); }

private:
    static void OnClick(QAbstractButton& button, std::function<void()> click);
    static void SetChecked(QAbstractButton& button, bool checked);

    std::vector<Subscription> m_kept;
};

template <typename Value>
void Bindings::Option(QAbstractButton& button, Observable<Value>& value, Value meant) {
    Show<Value>(value, [&button, meant](const Value& now) { SetChecked(button, now == meant); });
    OnClick(button, [&value, meant] { value.Set(meant); });
}

}  // namespace dorvik
