#pragma once

#include "platform/host/HostFacts.h"
#include "platform/host/ScopedInstall.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsSections.h"
#include "support/TemporaryFolder.h"
#include "workstation/support/ScriptedScreen.h"
#include "workstation/window/Desk.h"
#include "workstation/window/MainWindow.h"

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace dorvik::test {

/// Keeps what is asked and answers in turn; without an answer it agrees to nothing.
class AnsweringMessageBox final : public IMessageBox {
public:
    MessageAnswer Show(const MessageText& message) override;

    std::vector<MessageText> Messages;
    std::deque<MessageAnswer> Answers;

private:
    ScopedInstall<IMessageBox> m_installed{*this};
};

/// The window with copies of the samples, on a screen whose user is the test.
class WindowFixture : public testing::Test {
protected:
    WindowFixture();
    ~WindowFixture() override;

    /// Makes the window anew, as a second run of the program would.
    void Restart();
    /// A path of this machine.
    std::string Sample(const std::string& name) const;
    void OpenBilling();
    /// Puts a comment at the top of a component, by its name.
    void Edit(const char* component);
    /// With the sample rulebase, in the foreground.
    void Review();
    /// Until nothing waits any more.
    static void Settle();
    QWidget* Named(const char* name) const;
    std::string TextOf(const char* name) const;
    std::size_t TabCount() const;

    TemporaryFolder m_folder;
    HostFacts m_facts;
    ScopedInstall<const HostFacts> m_installedFacts{m_facts};
    SettingsSections m_settings;
    ScopedSettingsStore m_store{RegistryRoot::CurrentUser, m_settings};
    AnsweringMessageBox m_boxes;
    ScriptedScreen m_screen;
    std::unique_ptr<Desk> m_desk;
    std::unique_ptr<MainWindow> m_window;
};

}  // namespace dorvik::test
