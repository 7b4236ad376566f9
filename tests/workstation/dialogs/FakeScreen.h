#pragma once

#include "platform/host/IMessageBox.h"
#include "platform/host/ScopedInstall.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/screen/FileRequest.h"
#include "workstation/screen/IScreen.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// A screen that writes down what is wanted of it and gives the answers that a test has put in.
class FakeScreen final : public IScreen {
public:
    void ShowModal(frmAbout&) override { Calls.emplace_back("about"); }
    void ShowModal(frmOptions&) override { Calls.emplace_back("options"); }
    void ShowModal(frmReviewOptions&) override { Calls.emplace_back("review options"); }
    void ShowModal(frmProgress& form) override {
        Calls.emplace_back("progress as modal");
        form.Activate();
    }
    void Show(frmProgress&) override { Calls.emplace_back("show progress"); }
    void Hide(frmProgress&) override { Calls.emplace_back("hide progress"); }
    void Show(frmReviewSummary&) override { Calls.emplace_back("show summary"); }
    void Hide(frmReviewSummary&) override { Calls.emplace_back("hide summary"); }

    std::optional<std::string> ChooseFile(const FileRequest& request) override {
        Requests.push_back(request);
        return Chosen;
    }
    std::optional<std::string>
    ChooseFolder(std::string_view title, std::string_view startAt) override {
        Calls.push_back("folder: " + std::string(title) + " at " + std::string(startAt));
        return Chosen;
    }
    bool OpenWithSystem(std::string_view target) override {
        Calls.push_back("open " + std::string(target));
        return HasProgram;
    }
    void OpenWithChoice(std::string_view file) override {
        Calls.push_back("choose for " + std::string(file));
    }

    std::vector<std::string> Calls;
    std::vector<FileRequest> Requests;
    std::optional<std::string> Chosen;
    bool HasProgram = true;
};

/// Keeps the messages that are shown, as long as this lives, and answers questions as a test has put in; without an
/// answer with the one that agrees to nothing.
class AnsweringMessageBox final : public IMessageBox {
public:
    AnsweringMessageBox() : m_installed(*this) {}

    MessageAnswer Show(const MessageText& message) override {
        Messages.push_back(message);
        if (message.Buttons == MessageButtons::Ok || Answers.empty()) {
            return Refusal(message.Buttons);
        }
        const MessageAnswer answer = Answers.front();
        Answers.pop_front();
        return answer;
    }

    std::vector<MessageText> Messages;
    std::deque<MessageAnswer> Answers;

private:
    ScopedInstall<IMessageBox> m_installed;
};

}  // namespace dorvik::test
