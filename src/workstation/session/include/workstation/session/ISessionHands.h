#pragma once

#include "workstation/session/SessionRefusal.h"
#include "workstation/session/modSessionWords.h"

#include <string>

namespace dorvik {

class frmAbout;
class frmOptions;
class frmProgress;
class frmReviewOptions;
class frmReviewSummary;

/// Does what the user of a session does, by the widgets of a window in place of the calls of the models. Without it, and
/// for what it leaves alone, a session calls the models.
class ISessionHands {
public:
    virtual ~ISessionHands() = default;

    /// A command of the script, its name and the words after it. False where the models are to be called.
    virtual bool
    Do(const std::string& name, const SessionWords& words, SessionRefusal& refusal) = 0;
    /// After each command, done here or by the models, with why it was refused.
    virtual void Done(const SessionRefusal& refusal) = 0;

    // A form is shown; what shows it may last until `Gone`, which may come while one of its buttons is being clicked.
    virtual void Shown(frmAbout& form) = 0;
    virtual void Shown(frmOptions& form) = 0;
    virtual void Shown(frmReviewOptions& form) = 0;
    virtual void Shown(frmProgress& form) = 0;
    virtual void Shown(frmReviewSummary& form) = 0;
    virtual void Gone(const void* form) = 0;

    // A step in a form, a `dialog` command without its name. False where the form is to be called.
    virtual bool Step(const SessionWords& words, frmAbout& form, SessionRefusal& refusal) = 0;
    virtual bool Step(const SessionWords& words, frmOptions& form, SessionRefusal& refusal) = 0;
    virtual bool
    Step(const SessionWords& words, frmReviewOptions& form, SessionRefusal& refusal) = 0;
};

}  // namespace dorvik
