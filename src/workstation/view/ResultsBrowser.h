#pragma once

#include "HotspotView.h"
#include "ShownResults.h"
#include "ViolationListView.h"
#include "workstation/controls/ComboBox.h"
#include "workstation/view/WorkbenchControls.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik {

/// The boxes of files and procedures, and what a selection in them shows in the view at hand.
class ResultsBrowser {
public:
    /// What a selection in these boxes needs.
    struct Surroundings {
        WorkbenchControls& Controls;
        ShownResults& Results;
        ViolationListView& List;
        HotspotView& Hotspots;
        /// With whether all files are shown.
        Event<bool>& EnableDisableGroupBySrcFiles;
        /// The number of projects that are open.
        std::function<std::int32_t()> ProjectCount;
    };

    /// REQUIRES: all of them outlive this.
    explicit ResultsBrowser(Surroundings surroundings) : m_at(std::move(surroundings)) {}

    void Initialise();
    std::int32_t ViewType() const { return m_viewType; }
    /// The results have been opened.
    void ShowReview();
    /// The results are about to be closed.
    void Clear();
    /// Fills the boxes again and keeps the file, if it still is there.
    void RebuildFiles();
    void SwitchView(std::int32_t newType);
    void RefreshViolationsList();
    void SaveViewColumnDetails() const;
    /// Does nothing where the box has no such file.
    void SelectFile(std::string_view name);
    /// Another name for a file in the box, and in the hotspots if they show files.
    void RenameFile(std::string_view key, std::string_view name);
    std::optional<SourceDetails> GetSourceDetails();
    /// The key of the project file; empty where the box does not have it.
    std::string ProjectFileKey() const;

private:
    bool ShowsList() const { return m_viewType == viewtype::kViolationList; }
    std::string DefaultFileKey() const;
    void PopulateSourceFilesCombo();
    void SelectSFComboItem(std::string_view key, bool populate);
    void ShowSelectedFile(bool populate);
    void PopulateProceduresCombo(std::int32_t sourceId, bool populate);
    void ShowSelectedProcedure();
    void SelectProcedure(std::size_t index);
    void PopulateViolationsList(const ComboItem& item);

    void m_imgcboFiles_Click();
    void m_imgcboProcedures_Click();

    Surroundings m_at;
    std::int32_t m_viewType = viewtype::kViolationList;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace dorvik
