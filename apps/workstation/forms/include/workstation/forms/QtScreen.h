#pragma once

#include "workstation/controls/Event.h"
#include "workstation/screen/IScreen.h"

#include <QPoint>
#include <QPointer>
#include <QWidget>

#include <map>
#include <optional>

class QEventLoop;

namespace dorvik {

class FormWindow;

/// Shows the forms as windows. Closing a window, and Escape, are its form's Cancel.
class QtScreen final : public IScreen {
public:
    /// `owner` is the window that all others belong to, null for none. It may go before this does.
    explicit QtScreen(QWidget* owner = nullptr) : m_owner(owner) {}
    /// The windows that are still there go with it.
    ~QtScreen() override;
    QtScreen(const QtScreen&) = delete;
    QtScreen& operator=(const QtScreen&) = delete;

    void SetOwner(QWidget* owner) { m_owner = owner; }

    void ShowModal(frmAbout& form) override;
    void ShowModal(frmOptions& form) override;
    void ShowModal(frmReviewOptions& form) override;
    /// Comes back when the form is hidden or closed.
    void ShowModal(frmProgress& form) override;
    void Show(frmProgress& form) override;
    void Hide(frmProgress& form) override;
    void Show(frmReviewSummary& form) override;
    void Hide(frmReviewSummary& form) override;

    /// Paths are the program's own, those of a dialog the machine's.
    std::optional<std::string> ChooseFile(const FileRequest& request) override;
    std::optional<std::string>
    ChooseFolder(std::string_view title, std::string_view startAt) override;

    bool OpenWithSystem(std::string_view target) override;
    /// The desktop has no such dialog that every system knows: the file is opened with what the system has.
    void OpenWithChoice(std::string_view file) override;

private:
    template <typename Form>
    void RunModal(Form& form, FormWindow& window);
    /// The window that a modal one is to be in front of.
    QWidget* ModalOwner() const;
    FormWindow* WindowOf(const void* form) const;
    void Keep(const void* form, FormWindow& window);
    /// A window may be in the middle of a handler: it is hidden and detached now, and goes when that is over.
    void Drop(const void* form);

    QPointer<QWidget> m_owner;
    std::map<const void*, QPointer<QWidget>> m_windows;  // by the address of the form
    const frmProgress* m_modalProgress = nullptr;
    QEventLoop* m_modalLoop = nullptr;  // in which m_modalProgress is shown
    std::optional<QPoint> m_progressPlace;
};

}  // namespace dorvik
