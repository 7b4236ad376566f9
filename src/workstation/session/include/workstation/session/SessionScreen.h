#pragma once

#include "workstation/controls/Event.h"
#include "workstation/screen/IScreen.h"
#include "workstation/session/DialogDump.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class HostCallList;
class ISessionHands;

/// The screen of a session: dialogs are filled and left as the script has it, and nothing is shown.
class SessionScreen final : public IScreen {
public:
    /// REQUIRES: `calls` outlives this. What is opened with the system is noted there. A foreground review is cancelled
    /// as soon as `isInterrupted` holds.
    SessionScreen(HostCallList& calls, std::function<bool()> isInterrupted)
        : m_calls(calls), m_isInterrupted(std::move(isInterrupted)) {}

    /// For the next dialog; one for which there is none left is cancelled.
    void QueueStep(modDialogDump::DialogCommand step) { m_steps.push_back(std::move(step)); }
    /// For the next file or folder dialog, nothing to cancel it; one for which there is none is cancelled.
    void QueueChoice(std::optional<std::string> path) { m_choices.push_back(std::move(path)); }
    /// Null, as at first, for none: forms are called then. REQUIRES: it outlives this, or null is set before it ends.
    void SetHands(ISessionHands* hands) { m_hands = hands; }
    /// The next foreground review is cancelled when its source file with that number, from 1, begins.
    void CancelAt(std::int32_t sourceFile) { m_cancelAt = sourceFile; }

    /// The dialog of review options as it was when it last opened, as JSON; empty before.
    const std::string& OptionsDump() const { return m_optionsDump; }
    /// The progress window as it was last, as JSON.
    std::string ProgressDump() const;
    /// Null while none is open.
    frmReviewSummary* Summary() const { return m_summary; }
    /// No form is left.
    void Forget();

    void ShowModal(frmAbout& form) override;
    void ShowModal(frmOptions& form) override;
    void ShowModal(frmReviewOptions& form) override;
    void ShowModal(frmProgress& form) override;
    void Show(frmProgress& form) override;
    void Hide(frmProgress& form) override;
    void Show(frmReviewSummary& form) override;
    void Hide(frmReviewSummary& form) override;
    std::optional<std::string> ChooseFile(const FileRequest& request) override;
    std::optional<std::string>
    ChooseFolder(std::string_view title, std::string_view startAt) override;
    bool OpenWithSystem(std::string_view target) override;
    void OpenWithChoice(std::string_view file) override;

    /// A step could not be done in the dialog that is open.
    Event<std::int32_t, const std::string&> Refused;  // the line of the script

private:
    template <typename Form>
    void Play(Form& form);
    template <typename Form>
    void TellShown(Form& form);
    void TellGone(const void* form);
    std::optional<std::string> NextChoice();

    HostCallList& m_calls;
    std::function<bool()> m_isInterrupted;
    ISessionHands* m_hands = nullptr;
    std::deque<modDialogDump::DialogCommand> m_steps;
    std::deque<std::optional<std::string>> m_choices;
    std::optional<std::int32_t> m_cancelAt;
    std::string m_optionsDump;
    std::string m_progressDump;
    frmProgress* m_progress = nullptr;
    frmReviewSummary* m_summary = nullptr;
    std::vector<Subscription> m_progressEvents;
    Subscription m_summaryClosed;
};

}  // namespace dorvik
