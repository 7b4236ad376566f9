#include "workstation/session/SessionScreen.h"

#include "criteria/ProgressInfo.h"
#include "criteria/ReviewAction.h"
#include "workstation/dialogs/frmAbout.h"
#include "workstation/dialogs/frmOptions.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/dialogs/frmReviewSummary.h"
#include "workstation/host/HostCallList.h"
#include "workstation/session/ISessionHands.h"

#include <utility>

namespace dorvik {

namespace {

/// Counts the source files that a review begins.
class FileCounter {
public:
    /// The number of the file that has begun; 0 where none has.
    std::int32_t Begun(const ProgressInfo& progress) {
        const bool isNew =
            progress.Action() == reviewaction::kReviewing && progress.CurrentSourceFile() > 0 &&
            (progress.CurrentProject() != m_project || progress.CurrentSourceFile() != m_file);
        if (!isNew) {
            return 0;
        }
        m_project = progress.CurrentProject();
        m_file = progress.CurrentSourceFile();
        return ++m_count;
    }

private:
    std::int32_t m_project = 0;
    std::int32_t m_file = 0;
    std::int32_t m_count = 0;
};

}  // namespace

template <typename Form>
void SessionScreen::TellShown(Form& form) {
    if (m_hands != nullptr) {
        m_hands->Shown(form);
    }
}

void SessionScreen::TellGone(const void* form) {
    if (m_hands != nullptr && form != nullptr) {
        m_hands->Gone(form);
    }
}

template <typename Form>
void SessionScreen::Play(Form& form) {
    TellShown(form);
    for (const modDialogDump::DialogRefusal& refusal :
         modDialogDump::Play(m_steps, form, m_hands)) {
        Refused.Raise(refusal.Line, refusal.Reason);
    }
    TellGone(&form);
}

/// There is nothing in it but its button.
void SessionScreen::ShowModal(frmAbout& form) {
    TellShown(form);
    bool isLeft = false;
    while (!isLeft && !m_steps.empty()) {
        const modDialogDump::DialogCommand step = std::move(m_steps.front());
        m_steps.pop_front();
        isLeft = step.Command.front() == "ok" || step.Command.front() == "cancel";
        if (!isLeft) {
            Refused.Raise(step.Line, "The dialog has no field '" + step.Command.front() + "'.");
        }
    }
    SessionRefusal refusal;
    if (m_hands == nullptr || !m_hands->Step({"ok"}, form, refusal)) {
        form.Ok();
    }
    TellGone(&form);
}

void SessionScreen::ShowModal(frmOptions& form) {
    Play(form);
}

void SessionScreen::ShowModal(frmReviewOptions& form) {
    m_optionsDump = modDialogDump::Dump(form);
    Play(form);
}

void SessionScreen::ShowModal(frmProgress& form) {
    m_progress = &form;
    m_progressEvents.clear();
    m_progressEvents.push_back(form.Closed.Subscribe([this, &form] {
        m_progressDump = modDialogDump::Dump(&form);
        m_progress = nullptr;
        TellGone(&form);
    }));
    TellShown(form);
    {
        FileCounter files;
        const Subscription cancelling =
            form.ProgressShown.Subscribe([&](const ProgressInfo& progress) {
                if (m_isInterrupted() || (m_cancelAt && files.Begun(progress) == *m_cancelAt)) {
                    form.Cancel();
                }
            });
        form.Activate();
    }
    // A background review has only begun.
    if (m_progress == nullptr) {
        m_cancelAt.reset();
    }
}

void SessionScreen::Show(frmProgress& form) {
    m_progress = &form;
    TellShown(form);
}

void SessionScreen::Hide(frmProgress& form) {
    TellGone(&form);
}

void SessionScreen::Show(frmReviewSummary& form) {
    m_summary = &form;
    m_summaryClosed = form.Closed.Subscribe([this] {
        TellGone(m_summary);
        m_summary = nullptr;
    });
    TellShown(form);
}

void SessionScreen::Hide(frmReviewSummary& form) {
    TellGone(&form);
    m_summary = nullptr;
}

std::string SessionScreen::ProgressDump() const {
    return m_progress == nullptr && !m_progressDump.empty() ? m_progressDump
                                                            : modDialogDump::Dump(m_progress);
}

void SessionScreen::Forget() {
    if (m_progress != nullptr) {
        m_progress->Visible.Set(false);
        m_progressDump = modDialogDump::Dump(m_progress);
    }
    TellGone(m_progress);
    TellGone(m_summary);
    m_progress = nullptr;
    m_summary = nullptr;
    m_progressEvents.clear();
    m_summaryClosed.End();
}

std::optional<std::string> SessionScreen::NextChoice() {
    if (m_choices.empty()) {
        return std::nullopt;
    }
    std::optional<std::string> choice = std::move(m_choices.front());
    m_choices.pop_front();
    return choice;
}

std::optional<std::string> SessionScreen::ChooseFile(const FileRequest& /*request*/) {
    return NextChoice();
}

std::optional<std::string>
SessionScreen::ChooseFolder(std::string_view /*title*/, std::string_view /*startAt*/) {
    return NextChoice();
}

bool SessionScreen::OpenWithSystem(std::string_view target) {
    m_calls.Add("open " + std::string(target));
    return true;
}

void SessionScreen::OpenWithChoice(std::string_view file) {
    m_calls.Add("open " + std::string(file));
}

}  // namespace dorvik
