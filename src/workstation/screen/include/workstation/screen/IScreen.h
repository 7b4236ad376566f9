#pragma once

#include "workstation/screen/FileRequest.h"

#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class frmAbout;
class frmOptions;
class frmProgress;
class frmReviewOptions;
class frmReviewSummary;

/// What the models of the work bench need of the screen that they are shown on. Message boxes and waiting input are not
/// among it: those are `modHost::ShowMessage` and `modHost::YieldToInput`.
///
/// A form is owned by the code that shows it. A modal form is shown until it closes, which its own `Closed` says; input
/// is processed meanwhile. One that is not modal is shown until `Hide`, which it calls itself where it is destroyed before.
class IScreen {
public:
    virtual ~IScreen() = default;

    virtual void ShowModal(frmAbout& form) = 0;
    virtual void ShowModal(frmOptions& form) = 0;
    virtual void ShowModal(frmReviewOptions& form) = 0;
    /// Calls `Activate` of the form once it is shown.
    virtual void ShowModal(frmProgress& form) = 0;
    virtual void Show(frmProgress& form) = 0;
    virtual void Hide(frmProgress& form) = 0;
    virtual void Show(frmReviewSummary& form) = 0;
    virtual void Hide(frmReviewSummary& form) = 0;

    /// Nothing where the user cancels.
    virtual std::optional<std::string> ChooseFile(const FileRequest& request) = 0;
    virtual std::optional<std::string>
    ChooseFolder(std::string_view title, std::string_view startAt) = 0;

    /// Opens a file or web address with the program that the system has for it. False where it has none.
    virtual bool OpenWithSystem(std::string_view target) = 0;
    /// Lets the user choose the program that opens a file.
    virtual void OpenWithChoice(std::string_view file) = 0;
};

}  // namespace dorvik
