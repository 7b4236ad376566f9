#include "WindowFixture.h"

#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "support/FilesystemPaths.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/code/CodeTabs.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/look/modQt.h"

#include <QCoreApplication>
#include <QLabel>

#include <filesystem>

namespace dorvik::test {

MessageAnswer AnsweringMessageBox::Show(const MessageText& message) {
    Messages.push_back(message);
    if (Answers.empty()) {
        return Refusal(message.Buttons);
    }
    const MessageAnswer answer = Answers.front();
    Answers.pop_front();
    return answer;
}

WindowFixture::WindowFixture() {
    std::filesystem::copy(
        DORVIK_SAMPLES, m_folder.HostPath(), std::filesystem::copy_options::recursive);
    m_facts.UserDataFolder = m_folder.Path("state\\");
    m_facts.ProgramFolder = ProgramPath(std::filesystem::path(DORVIK_PROGRAM_FOLDER)) + "\\";
    m_screen.OnReviewOptions = [this](frmReviewOptions& form) {
        form.cboRulebase.Set(m_facts.ProgramFolder + "Data\\Sample.dvk");
        form.Ok();
    };
    m_screen.OnProgress = [](frmProgress& form) {
        form.Activate();
    };
    Restart();
}

WindowFixture::~WindowFixture() {
    m_window.reset();
    m_desk.reset();
}

void WindowFixture::Restart() {
    m_window.reset();
    m_desk.reset();
    m_desk = std::make_unique<Desk>(m_screen);
    m_window = std::make_unique<MainWindow>(*m_desk);
    m_desk->Start();
    modGlobal::WorkData().AlwaysShowSummary = false;
    m_window->ShowDesk();
    m_window->show();
    Settle();
}

std::string WindowFixture::Sample(const std::string& name) const {
    return (m_folder.HostPath() / name).string();
}

void WindowFixture::OpenBilling() {
    m_window->Open({Sample("Billing/Billing.vbp")});
    Settle();
}

void WindowFixture::Edit(const char* component) {
    m_desk->Host().FindComponent(component)->CodeModule().InsertLines(1, "' edited");
    Settle();
}

void WindowFixture::Review() {
    m_desk->App().ReviewAgain();
    Settle();
}

void WindowFixture::Settle() {
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

QWidget* WindowFixture::Named(const char* name) const {
    for (QWidget* const widget : m_window->findChildren<QWidget*>()) {
        if (widget->accessibleName() == modQt::Text(name)) {
            return widget;
        }
    }
    return nullptr;
}

std::string WindowFixture::TextOf(const char* name) const {
    const auto* const label = qobject_cast<const QLabel*>(Named(name));
    return label == nullptr ? "no label" : modQt::Utf8(label->text());
}

std::size_t WindowFixture::TabCount() const {
    return static_cast<std::size_t>(m_window->Editors().Tabs().count());
}

}  // namespace dorvik::test
