#pragma once

#include "workstation/widgets/Bindings.h"

#include <QDialog>

#include <functional>

namespace dorvik {

/// The window of a form. Closing it and Escape are what the form's Cancel is; the window stays until the form is closed,
/// then the code that showed it takes it away.
class FormWindow : public QDialog {
public:
    ~FormWindow() override;

    /// Ends what connects the window with its form, which may then go before the window does.
    virtual void Detach();
    bool IsDetached() const { return m_isDetached; }

    void reject() override;

protected:
    FormWindow(QWidget* parent, std::function<void()> leave);

    Bindings& Bound() { return m_bindings; }
    /// Ctrl+Tab.
    void OnNextPage(std::function<void()> next);

private:
    std::function<void()> m_leave;
    Bindings m_bindings;
    bool m_isDetached = false;
};

}  // namespace dorvik
