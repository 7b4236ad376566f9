#pragma once

#include "criteria/ReviewCriteria.h"
#include "platform/host/HostFacts.h"
#include "platform/host/ScopedInstall.h"
#include "results/ResultsDB.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "support/CapturedLog.h"
#include "support/RecordingMessageBox.h"
#include "support/TemporaryFolder.h"
#include "workstation/screen/IScreen.h"
#include "workstation/view/ResultsView.h"
#include "workstation/view/WorkbenchControls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// A screen whose user is the test.
class ScriptedScreen final : public IScreen {
public:
    void ShowModal(frmAbout&) override {}
    void ShowModal(frmOptions&) override {}
    void ShowModal(frmReviewOptions& form) override { OnOptions(form); }
    void ShowModal(frmProgress&) override {}
    void Show(frmProgress&) override {}
    void Hide(frmProgress&) override {}
    void Show(frmReviewSummary& form) override { Summary = &form; }
    void Hide(frmReviewSummary&) override { Summary = nullptr; }
    std::optional<std::string> ChooseFile(const FileRequest&) override { return std::nullopt; }
    std::optional<std::string> ChooseFolder(std::string_view, std::string_view) override {
        return std::nullopt;
    }
    bool OpenWithSystem(std::string_view target) override {
        Opened.emplace_back(target);
        return true;
    }
    void OpenWithChoice(std::string_view) override {}

    std::function<void(frmReviewOptions&)> OnOptions = [](frmReviewOptions&) {
    };
    frmReviewSummary* Summary = nullptr;  // null while none is shown
    std::vector<std::string> Opened;
};

/// The process-wide objects, as long as this lives.
class GlobalObjectsInUse {
public:
    GlobalObjectsInUse() { modGlobal::CreateGlobalObjects(); }
    ~GlobalObjectsInUse() { modGlobal::DestroyGlobalObjects(); }
    GlobalObjectsInUse(const GlobalObjectsInUse&) = delete;
    GlobalObjectsInUse& operator=(const GlobalObjectsInUse&) = delete;
};

/// A work bench, and projects with results of a known shape:
///
///     file 1  the project file: violation 2
///     file 2  "modA", a module of 100 lines: violation 6 of the file itself
///       procedure 1  "Declarations": violation 3
///       procedure 2  "Total", a function of complexity 9, 20 lines: violations 4 and 5
///       procedure 3  "Rate", a friend property get: violation 7
///       procedure 4  "Rate", a property let without a scope
///     file 3  "frmB", a form
///       procedure 5  "Layout": violation 8
///       procedure 6  "Form_Load", a private sub
///     file 4  "clsC", a class without violations
///
///     violation  item  severity  impact  category   title        location
///     1          1 1   4         50      -1         "Reference"  1 "(Reference)"
///     2          1 2   1         900     -1         "Setting"    1 "(Project)"
///     3          1 3   3         500     8          "Too long"   3
///     4          2 3   2         750     7          "goto used"  4
///     5          2 3   2         1100    7          "GoTo used"  4
///     6          2 2   5         10      9          "No header"  3
///     7          3 3   4         20      8          "Too long"   6
///     8          5 3   2         30      8          "Name"       5 "Text1(3)"
///
/// Categories are 7 "Jumps", 8 "clarity" and 9 "3rd party", severities those of every rulebase.
class WorkbenchFixture : public testing::Test {
protected:
    WorkbenchFixture();

    /// Adds a project to the list, selected, and says so to nobody.
    void AddProject(std::string_view name);
    std::string ProjectFile(std::string_view name) const {
        return m_folder.Path(std::string(name) + ".vbp");
    }
    std::string DatabaseFile(std::string_view name) const {
        return m_folder.Path("Dorvik\\" + std::string(name) + "_DORVIK.mdb");
    }
    void WriteResults(std::string_view name) const;
    /// Runs a statement of the bare engine on the results of a project.
    void ChangeResults(std::string_view name, const std::string& sql) const;
    /// One with results, and the bench is shown.
    void OpenBench();

    DVKWorkData& Settings() { return modGlobal::WorkData(); }
    /// The user selects in a box.
    void ChooseFile(std::string_view key);
    void ChooseProcedure(std::string_view key);
    /// Makes a violation current.
    void ChooseViolation(std::int32_t id);

    static std::vector<std::string> Texts(const ComboBox& box);
    static std::vector<std::string> Keys(const ComboBox& box);
    static std::string SelectedKey(const ComboBox& box);
    /// The violations in the list, in the order shown.
    std::vector<std::int32_t> Violations() const;
    std::vector<std::string> GroupTexts();
    /// The texts of a column of the hotspots, without the blanks in front.
    std::vector<std::string> Hotspots(std::size_t column) const;

    TemporaryFolder m_folder;
    HostFacts m_facts{
        "ann",
        m_folder.Path("Program\\"),
        m_folder.Path("User\\"),
        m_folder.Path(),
        m_folder.Path("Settings\\"),
        m_folder.Path("Machine\\")};
    ScopedInstall<const HostFacts> m_installed{m_facts};
    GlobalObjectsInUse m_globals;
    CapturedLog m_log;
    RecordingMessageBox m_boxes;
    ScriptedScreen m_screen;
    std::shared_ptr<ReviewCriteria> m_criteria = std::make_shared<ReviewCriteria>();
    WorkbenchControls m_controls;
    ResultsView m_view{m_controls, m_screen};
};

}  // namespace dorvik::test
