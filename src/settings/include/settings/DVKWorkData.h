#pragma once

#include "settings/SettingRow.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dorvik {

/// The user's choices and window layouts. A new object holds the defaults; fields are called as the values of the
/// store, those of a row with their number after the name.
struct DVKWorkData {
    DVKWorkData();

    // Review.
    /// Empty the review log before a review.
    bool ClearLog = true;
    bool BackgroundReview = false;
    /// Steps for each tick of the timer in a background review.
    std::int16_t BackgroundTickCount = 100;

    /// Folders where type libraries are looked for, the project's own folder after them; none at first.
    std::vector<std::string> TypeLibraryFolders;

    // Toolbar and menu.
    bool ToolbarVisible = true;
    std::int32_t ToolbarPosition = 1;
    std::int32_t ToolbarRowIndex = 6;
    std::int32_t ToolbarTop = 50;
    std::int32_t ToolbarLeft = 350;
    bool PlaceMenuOnToolsMenu = false;

    // Last choices.
    /// The sample rulebase of the program at first.
    std::string LastRulebase;
    /// Shares its stored value with `LastReportsPath`: across runs the two are not separate.
    std::string LastResultsPath;
    std::string LastReportsPath;
    bool UseProjectFolderResults = true;
    bool UseProjectFolderReports = true;
    /// 0 no reports, 1 project report, 2 project and source file reports.
    std::int32_t LastReportOption = 1;
    /// The rulebase document; the program's sample at first.
    std::string RBDocPath;
    /// Unsaved projects before a review: 1 save, 2 ask, 3 leave unsaved.
    std::int32_t OptionPromptSave = 2;

    // Results view. Widths are fractions of the width of the table.
    SettingRow<double, 3> RVVLColWidth{{0.488, 0.127, 0.2}};
    /// How many of the sort columns, and below of the group columns, are in use.
    std::int32_t RVVLSortKeysNum = 0;
    SettingRow<std::int32_t, 5> RVVLSortCol{{0, 0, 0, 0, 0}};
    SettingRow<std::int32_t, 5> RVVLSortOrder{{0, 0, 0, 0, 0}};
    std::int32_t RVVLGroupsNum = 0;
    SettingRow<std::int32_t, 5> RVVLGroupCol{{0, 0, 0, 0, 0}};
    SettingRow<std::int32_t, 5> RVVLGroupSortOrder{{0, 0, 0, 0, 0}};
    bool RVFileShowZeroItems = true;
    std::int32_t RVFileSortKey = 1;
    bool RVFileSortAscending = true;
    bool RVProcShowZeroItems = true;
    std::int32_t RVProcSortKey = 1;
    bool RVProcSortAscending = true;
    double RVGridWidth = 0.498;
    std::int32_t CompletedItemsOption = 1;
    bool AlwaysSynchroniseVL = false;
    bool AlwaysShowWorkbench = true;
    bool ShowGroupByBox = false;
    bool GroupByCategory = false;
    bool GroupByRule = false;
    bool GroupBySeverity = false;
    bool GroupBySourceFile = false;

    // Review summary dialog. Tables 1 to 7; position and size in twips.
    bool AlwaysShowSummary = true;
    SettingRow<double, 2> RDT1ColWidth{{0.66, 0.3}};
    SettingRow<double, 7> RDT2ColWidth{{0.4, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1}};
    std::int16_t RDT2SortCol = 0;
    std::int16_t RDT2SortOrder = 0;
    SettingRow<double, 5> RDT4ColWidth{{0.4, 0.1, 0.1, 0.1, 0.16}};
    std::int16_t RDT4SortCol = 0;
    std::int16_t RDT4SortOrder = 0;
    SettingRow<double, 6> RDT5ColWidth{{0.4, 0.12, 0.12, 0.12, 0.12, 0.12}};
    std::int16_t RDT5SortCol = 0;
    std::int16_t RDT5SortOrder = 0;
    SettingRow<double, 2> RDT6ColWidth{{0.66, 0.3}};
    SettingRow<double, 2> RDT7ColWidth{{0.66, 0.3}};
    std::int32_t RVDTop = 210;
    std::int32_t RVDLeft = 420;
    std::int32_t RVDWidth = 8385;
    std::int32_t RVDHeight = 6660;

    // History view.
    SettingRow<double, 9> HVColWidth{{0.2, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1}};
    std::int16_t HVSortCol = 1;
    std::int16_t HVSortOrder = 1;

    /// Whether the file of `RBDocPath` exists.
    bool RBDocAvailable() const;

    /// Reads what the user's store has. A value that is missing, or cannot be read as its type, stays as it is.
    void LoadSettings();
    /// Writes all values at once. What goes wrong in either is logged.
    void SaveSettings() const;
};

}  // namespace dorvik
