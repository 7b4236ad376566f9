#pragma once

#include "workstation/screen/IScreen.h"

#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

/// Shows nothing, and runs a review at once.
class EmptyScreen final : public IScreen {
public:
    void ShowModal(frmAbout&) override {}
    void ShowModal(frmOptions&) override {}
    void ShowModal(frmReviewOptions&) override {}
    void ShowModal(frmProgress& form) override;
    void Show(frmProgress&) override {}
    void Hide(frmProgress&) override {}
    void Show(frmReviewSummary&) override {}
    void Hide(frmReviewSummary&) override {}
    std::optional<std::string> ChooseFile(const FileRequest&) override { return std::nullopt; }
    std::optional<std::string> ChooseFolder(std::string_view, std::string_view) override {
        return std::nullopt;
    }
    bool OpenWithSystem(std::string_view) override { return false; }
    void OpenWithChoice(std::string_view) override {}
};

}  // namespace dorvik
