#pragma once

#include "workstation/screen/IScreen.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// A screen whose user is the test. Without an action a modal form closes as it was shown.
class ScriptedScreen final : public IScreen {
public:
    std::vector<std::string> Calls;
    std::function<void(frmAbout&)> OnAbout;
    std::function<void(frmOptions&)> OnOptions;
    std::function<void(frmReviewOptions&)> OnReviewOptions;
    std::function<void(frmProgress&)> OnProgress;
    std::function<void()> OnChooseFile;  // before the answer
    std::optional<std::string> ChosenFile;
    FileRequest LastRequest;
    frmProgress* ShownProgress = nullptr;
    frmReviewSummary* ShownSummary = nullptr;

    void ShowModal(frmAbout& form) override { Run("about", OnAbout, form); }
    void ShowModal(frmOptions& form) override { Run("options", OnOptions, form); }
    void ShowModal(frmReviewOptions& form) override {
        Run("review options", OnReviewOptions, form);
    }
    void ShowModal(frmProgress& form) override { Run("progress", OnProgress, form); }
    void Show(frmProgress& form) override {
        Calls.push_back("progress shown");
        ShownProgress = &form;
    }
    void Hide(frmProgress& /*form*/) override {
        Calls.push_back("progress hidden");
        ShownProgress = nullptr;
    }
    void Show(frmReviewSummary& form) override {
        Calls.push_back("summary shown");
        ShownSummary = &form;
    }
    void Hide(frmReviewSummary& /*form*/) override {
        Calls.push_back("summary hidden");
        ShownSummary = nullptr;
    }
    std::optional<std::string> ChooseFile(const FileRequest& request) override {
        LastRequest = request;
        if (OnChooseFile) {
            OnChooseFile();
        }
        return ChosenFile;
    }
    std::optional<std::string>
    ChooseFolder(std::string_view /*title*/, std::string_view /*startAt*/) override {
        return ChosenFile;
    }
    bool OpenWithSystem(std::string_view target) override {
        Calls.push_back("open " + std::string(target));
        return true;
    }
    void OpenWithChoice(std::string_view file) override {
        Calls.push_back("choose program for " + std::string(file));
    }

private:
    template <typename Form>
    void Run(std::string_view name, const std::function<void(Form&)>& action, Form& form) {
        Calls.emplace_back(name);
        if (action) {
            action(form);
        }
    }
};

}  // namespace dorvik::test
