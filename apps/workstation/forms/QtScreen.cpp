#include "workstation/forms/QtScreen.h"

#include "AboutWindow.h"
#include "OptionsWindow.h"
#include "ProgressWindow.h"
#include "ReviewOptionsWindow.h"
#include "SummaryWindow.h"
#include "modFileChoice.h"
#include "modPathText.h"
#include "workstation/look/modQt.h"

#include <QApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QScopedValueRollback>
#include <QTimer>
#include <QUrl>

#include <memory>
#include <utility>

namespace dorvik {

using modQt::Make;

namespace {

/// A file, unless it has the scheme of an address.
QUrl AddressOf(std::string_view target) {
    const QUrl address(modQt::Text(target));
    const bool isWeb = address.scheme() == QStringLiteral("http") ||
                       address.scheme() == QStringLiteral("https") ||
                       address.scheme() == QStringLiteral("mailto");
    return isWeb ? address : QUrl::fromLocalFile(modPathText::Shown(target));
}

void Leave(frmAbout& form) {
    form.Ok();
}

template <typename Form>
void Leave(Form& form) {
    form.Cancel();
}

}  // namespace

QtScreen::~QtScreen() {
    for (const auto& [form, kept] : m_windows) {
        const std::unique_ptr<QWidget> window(kept.data());
    }
}

template <typename Form>
void QtScreen::RunModal(Form& form, FormWindow& window) {
    const QPointer<FormWindow> kept(&window);
    QEventLoop loop;
    const Subscription closed = form.Closed.Subscribe([&loop] { loop.quit(); });
    window.setWindowModality(Qt::ApplicationModal);
    window.show();
    if (!form.IsClosed()) {
        loop.exec();
    }
    // The loop also ends where the program does.
    if (!form.IsClosed()) {
        Leave(form);
    }
    const std::unique_ptr<FormWindow> gone(kept.data());
}

void QtScreen::ShowModal(frmAbout& form) {
    RunModal(form, Make<AboutWindow>(form, ModalOwner(), [this](const std::string& address) {
                 OpenWithSystem(address);
             }));
}

void QtScreen::ShowModal(frmOptions& form) {
    RunModal(form, Make<OptionsWindow>(form, ModalOwner()));
}

void QtScreen::ShowModal(frmReviewOptions& form) {
    RunModal(form, Make<ReviewOptionsWindow>(form, ModalOwner()));
}

void QtScreen::ShowModal(frmProgress& form) {
    ProgressWindow& window = Make<ProgressWindow>(form, ModalOwner());
    const QPointer<ProgressWindow> kept(&window);
    Keep(&form, window);
    QEventLoop loop;
    const QScopedValueRollback<const frmProgress*> modalForm(m_modalProgress, &form);
    const QScopedValueRollback<QEventLoop*> modalLoop(m_modalLoop, &loop);
    const Subscription closed = form.Closed.Subscribe([&loop] { loop.quit(); });
    window.setWindowModality(Qt::ApplicationModal);
    window.show();
    QTimer::singleShot(0, &window, [&form] { form.Activate(); });
    loop.exec();
    // By now the form may be shown again, in another window, or may have gone.
    if (kept != nullptr && !kept->IsDetached()) {
        Drop(&form);
    }
}

void QtScreen::Show(frmProgress& form) {
    if (WindowOf(&form) == nullptr) {
        ProgressWindow& window = Make<ProgressWindow>(form, m_owner);
        Keep(&form, window);
        // The user is at work elsewhere.
        window.setAttribute(Qt::WA_ShowWithoutActivating);
        if (m_progressPlace) {
            window.move(*m_progressPlace);
        }
    }
    WindowOf(&form)->show();
}

void QtScreen::Hide(frmProgress& form) {
    if (const FormWindow* const window = WindowOf(&form)) {
        m_progressPlace = window->pos();
    }
    Drop(&form);
    if (m_modalProgress == &form) {
        m_modalLoop->quit();
    }
}

void QtScreen::Show(frmReviewSummary& form) {
    if (WindowOf(&form) == nullptr) {
        Keep(&form, Make<SummaryWindow>(form, m_owner));
    }
    WindowOf(&form)->show();
    WindowOf(&form)->raise();
    WindowOf(&form)->activateWindow();
}

void QtScreen::Hide(frmReviewSummary& form) {
    Drop(&form);
}

QWidget* QtScreen::ModalOwner() const {
    QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : m_owner.data();
}

FormWindow* QtScreen::WindowOf(const void* form) const {
    const auto found = m_windows.find(form);
    return found == m_windows.end() ? nullptr : static_cast<FormWindow*>(found->second.data());
}

void QtScreen::Keep(const void* form, FormWindow& window) {
    Drop(form);
    m_windows[form] = &window;
}

void QtScreen::Drop(const void* form) {
    FormWindow* const window = WindowOf(form);
    m_windows.erase(form);
    if (window != nullptr) {
        window->Detach();
        window->hide();
        window->deleteLater();
    }
}

std::optional<std::string> QtScreen::ChooseFile(const FileRequest& request) {
    return modFileChoice::File(request, ModalOwner());
}

std::optional<std::string>
QtScreen::ChooseFolder(std::string_view title, std::string_view startAt) {
    return modFileChoice::Folder(title, startAt, ModalOwner());
}

bool QtScreen::OpenWithSystem(std::string_view target) {
    return QDesktopServices::openUrl(AddressOf(target));
}

void QtScreen::OpenWithChoice(std::string_view file) {
    OpenWithSystem(file);
}

}  // namespace dorvik
