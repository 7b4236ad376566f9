#pragma once

#include "Fallbacks.h"
#include "FormHands.h"
#include "MessageHands.h"
#include "workstation/bench/WorkbenchView.h"
#include "workstation/session/ISessionHands.h"
#include "workstation/widgets/CommandBars.h"

#include <QMainWindow>
#include <QMenu>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>

class QComboBox;
class QMenuBar;

namespace dorvik {
class Session;
}

namespace dorvik::test {

/// Plays a session by hand: the bench, its bars and its dialogs are shown by their widgets, and the user's commands are
/// clicks and keys on them. After each command the widgets have to show what the models have.
class WidgetHands final : public ISessionHands {
public:
    /// REQUIRES: both outlive this.
    WidgetHands(Session& session, Fallbacks& fallbacks);
    ~WidgetHands() override;

    bool Do(const std::string& name, const SessionWords& words, SessionRefusal& refusal) override;
    void Done(const SessionRefusal& refusal) override;

    /// How often a command was done by hand, by its name. The steps in forms are those of "dialog".
    const std::map<std::string, int>& ByHand() const { return m_byHand; }

    void Shown(frmAbout& form) override { m_forms.Show(form); }
    void Shown(frmOptions& form) override { m_forms.Show(form); }
    void Shown(frmReviewOptions& form) override { m_forms.Show(form); }
    void Shown(frmProgress& form) override { m_forms.Show(form); }
    void Shown(frmReviewSummary& form) override { m_forms.Show(form); }
    void Gone(const void* form) override { m_forms.Drop(form); }
    bool Step(const SessionWords& words, frmAbout& form, SessionRefusal&) override {
        return Counted("dialog", m_forms.Step(words, form));
    }
    bool Step(const SessionWords& words, frmOptions& form, SessionRefusal&) override {
        return Counted("dialog", m_forms.Step(words, form));
    }
    bool Step(const SessionWords& words, frmReviewOptions& form, SessionRefusal&) override {
        return Counted("dialog", m_forms.Step(words, form));
    }

private:
    struct Command;
    static const Command kCommands[];
    struct FoundAction;

    bool Stop(const SessionWords& words, SessionRefusal& refusal);
    bool Menu(const SessionWords& words, SessionRefusal& refusal);
    bool File(const SessionWords& words, SessionRefusal& refusal);
    bool Procedure(const SessionWords& words, SessionRefusal& refusal);
    bool View(const SessionWords& words, SessionRefusal& refusal);
    bool Row(const SessionWords& words, SessionRefusal& refusal);
    bool Complete(const SessionWords& words, SessionRefusal& refusal);
    bool Sort(const SessionWords& words, SessionRefusal& refusal);
    bool Group(const SessionWords& words, SessionRefusal& refusal);
    bool Ungroup(const SessionWords& words, SessionRefusal& refusal);
    bool Header(const SessionWords& words, SessionRefusal& refusal);
    bool Item(const SessionWords& words, SessionRefusal& refusal);
    bool GoToSource(const SessionWords& words, SessionRefusal& refusal);
    bool Summary(const SessionWords& words, SessionRefusal& refusal);
    bool Cancel(const SessionWords& words, SessionRefusal& refusal);

    bool Counted(const std::string& name, bool isDone) {
        m_byHand[name] += isDone ? 1 : 0;
        return isDone;
    }
    void FollowDocument();
    bool IsList() const;
    WorkbenchControls& Controls() const;
    QMenu* DorvikMenu() const;
    QComboBox& Box(std::string_view name) const;
    bool ChooseIn(std::string_view name, const ComboBox& items, const std::string& key);
    void ClickButton(std::string_view text) const;
    bool ClickRow(std::size_t row);
    bool Trigger(const FoundAction& found, std::string_view tag, SessionRefusal& refusal);

    void CompareBench();
    void CompareBars();

    Session& m_session;
    Fallbacks& m_fallbacks;
    FormHands m_forms;
    MessageHands m_messages;
    QMainWindow m_window;
    QMenuBar& m_bar;
    QMenu m_tools;
    std::unique_ptr<CommandMenuBar> m_menuBar;
    std::unique_ptr<CommandToolBar> m_toolBar;
    std::unique_ptr<WorkbenchView> m_bench;
    const udocDorvik* m_document = nullptr;
    std::map<std::string, int> m_byHand;
    Subscription m_stepRefused;
};

}  // namespace dorvik::test
