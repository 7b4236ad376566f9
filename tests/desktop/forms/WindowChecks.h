#pragma once

#include <QFont>
#include <QWidget>

#include <functional>
#include <stdexcept>
#include <string>

namespace dorvik::test {

/// Another size of the application's font as long as this lives.
class ScopedFontSize {
public:
    explicit ScopedFontSize(int points);
    ~ScopedFontSize();
    ScopedFontSize(const ScopedFontSize&) = delete;
    ScopedFontSize& operator=(const ScopedFontSize&) = delete;

private:
    QFont m_before;
};

/// The control of that name; a test fails without it.
template <typename Control>
Control& Find(QWidget& window, const std::string& name) {
    Control* const found = window.findChild<Control*>(QString::fromStdString(name));
    if (found == nullptr) {
        throw std::runtime_error("no control " + name);
    }
    return *found;
}

/// Every control of the window that is seen and takes input has a name for who does not see it.
void ExpectNamed(QWidget& window);
/// No label or button that is seen has less room than its text takes.
void ExpectNothingCut(QWidget& window);
/// No two controls that are seen have the same letter underlined.
void ExpectOwnMnemonics(QWidget& window);
/// Tab comes to every control that is seen and takes input, and back to the first.
void ExpectReachedByTab(QWidget& window);

/// All of them at the font sizes 9 and 18, on each page: `check` makes the window, and calls what it is given for each page.
void ExpectUsable(
    const std::function<void(const std::function<void(QWidget& window)>& onPage)>& open);

/// Shortcuts are those of the window that is in use.
void ShowActive(QWidget& window);

/// Where DORVIK_PICTURES names a folder, the window as it looks now is put there.
void SavePicture(QWidget& window, const std::string& name);

}  // namespace dorvik::test
