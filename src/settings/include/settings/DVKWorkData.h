#pragma once

#include "settings/SettingRow.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik {

/// The user's choices and window layouts. A new object holds the defaults. They are not kept between
/// runs yet: reading them from the user's store and writing them back comes with the store itself.
class DVKWorkData {
public:
    DVKWorkData();

    // Review.
    /// Empty the review log before a review.
    bool ClearLog() const { return m_clearLog; }
    void SetClearLog(bool value) { m_clearLog = value; }
    bool BackgroundReview() const { return m_backgroundReview; }
    void SetBackgroundReview(bool value) { m_backgroundReview = value; }
    /// Steps for each tick of the timer in a background review.
    std::int16_t BackgroundTickCount() const { return m_backgroundTickCount; }
    void SetBackgroundTickCount(std::int16_t value) { m_backgroundTickCount = value; }

    /// Folders where type libraries are looked for, the project's own folder after them; none at first.
    const std::vector<std::string>& TypeLibraryFolders() const { return m_typeLibraryFolders; }
    void SetTypeLibraryFolders(std::vector<std::string> folders) {
        m_typeLibraryFolders = std::move(folders);
    }

    // Toolbar and menu.
    bool ToolbarVisible() const { return m_toolbarVisible; }
    void SetToolbarVisible(bool value) { m_toolbarVisible = value; }
    std::int32_t ToolbarPosition() const { return m_toolbarPosition; }
    void SetToolbarPosition(std::int32_t value) { m_toolbarPosition = value; }
    std::int32_t ToolbarRowIndex() const { return m_toolbarRowIndex; }
    void SetToolbarRowIndex(std::int32_t value) { m_toolbarRowIndex = value; }
    std::int32_t ToolbarTop() const { return m_toolbarTop; }
    void SetToolbarTop(std::int32_t value) { m_toolbarTop = value; }
    std::int32_t ToolbarLeft() const { return m_toolbarLeft; }
    void SetToolbarLeft(std::int32_t value) { m_toolbarLeft = value; }
    bool PlaceMenuOnToolsMenu() const { return m_placeMenuOnToolsMenu; }
    void SetPlaceMenuOnToolsMenu(bool value) { m_placeMenuOnToolsMenu = value; }

    // Last choices.
    /// The sample rulebase of the program at first.
    const std::string& LastRulebase() const { return m_lastRulebase; }
    void SetLastRulebase(std::string_view value) { m_lastRulebase = value; }
    /// Shares its stored value with `LastReportsPath`: across runs the two are not separate.
    const std::string& LastResultsPath() const { return m_lastResultsPath; }
    void SetLastResultsPath(std::string_view value) { m_lastResultsPath = value; }
    const std::string& LastReportsPath() const { return m_lastReportsPath; }
    void SetLastReportsPath(std::string_view value) { m_lastReportsPath = value; }
    bool UseProjectFolderResults() const { return m_useProjectFolderResults; }
    void SetUseProjectFolderResults(bool value) { m_useProjectFolderResults = value; }
    bool UseProjectFolderReports() const { return m_useProjectFolderReports; }
    void SetUseProjectFolderReports(bool value) { m_useProjectFolderReports = value; }
    /// 0 no reports, 1 project report, 2 project and source file reports.
    std::int32_t LastReportOption() const { return m_lastReportOption; }
    void SetLastReportOption(std::int32_t value) { m_lastReportOption = value; }
    /// The rulebase document; the program's sample at first.
    const std::string& RBDocPath() const { return m_rbDocPath; }
    void SetRBDocPath(std::string_view value) { m_rbDocPath = value; }
    /// Unsaved projects before a review: 1 save, 2 ask, 3 leave unsaved.
    std::int32_t OptionPromptSave() const { return m_optionPromptSave; }
    void SetOptionPromptSave(std::int32_t value) { m_optionPromptSave = value; }

    // Results view. Widths are fractions of the width of the table.
    SettingRow<double, 3>& RVVLColWidth() { return m_rvvlColWidth; }
    const SettingRow<double, 3>& RVVLColWidth() const { return m_rvvlColWidth; }
    /// How many of the sort columns, and below of the group columns, are in use.
    std::int32_t RVVLSortKeysNum() const { return m_rvvlSortKeysNum; }
    void SetRVVLSortKeysNum(std::int32_t value) { m_rvvlSortKeysNum = value; }
    SettingRow<std::int32_t, 5>& RVVLSortCol() { return m_rvvlSortCol; }
    const SettingRow<std::int32_t, 5>& RVVLSortCol() const { return m_rvvlSortCol; }
    SettingRow<std::int32_t, 5>& RVVLSortOrder() { return m_rvvlSortOrder; }
    const SettingRow<std::int32_t, 5>& RVVLSortOrder() const { return m_rvvlSortOrder; }
    std::int32_t RVVLGroupsNum() const { return m_rvvlGroupsNum; }
    void SetRVVLGroupsNum(std::int32_t value) { m_rvvlGroupsNum = value; }
    SettingRow<std::int32_t, 5>& RVVLGroupCol() { return m_rvvlGroupCol; }
    const SettingRow<std::int32_t, 5>& RVVLGroupCol() const { return m_rvvlGroupCol; }
    SettingRow<std::int32_t, 5>& RVVLGroupSortOrder() { return m_rvvlGroupSortOrder; }
    const SettingRow<std::int32_t, 5>& RVVLGroupSortOrder() const { return m_rvvlGroupSortOrder; }
    bool RVFileShowZeroItems() const { return m_rvFileShowZeroItems; }
    void SetRVFileShowZeroItems(bool value) { m_rvFileShowZeroItems = value; }
    std::int32_t RVFileSortKey() const { return m_rvFileSortKey; }
    void SetRVFileSortKey(std::int32_t value) { m_rvFileSortKey = value; }
    bool RVFileSortAscending() const { return m_rvFileSortAscending; }
    void SetRVFileSortAscending(bool value) { m_rvFileSortAscending = value; }
    bool RVProcShowZeroItems() const { return m_rvProcShowZeroItems; }
    void SetRVProcShowZeroItems(bool value) { m_rvProcShowZeroItems = value; }
    std::int32_t RVProcSortKey() const { return m_rvProcSortKey; }
    void SetRVProcSortKey(std::int32_t value) { m_rvProcSortKey = value; }
    bool RVProcSortAscending() const { return m_rvProcSortAscending; }
    void SetRVProcSortAscending(bool value) { m_rvProcSortAscending = value; }
    double RVGridWidth() const { return m_rvGridWidth; }
    void SetRVGridWidth(double value) { m_rvGridWidth = value; }
    std::int32_t CompletedItemsOption() const { return m_completedItemsOption; }
    void SetCompletedItemsOption(std::int32_t value) { m_completedItemsOption = value; }
    bool AlwaysSynchroniseVL() const { return m_alwaysSynchroniseVL; }
    void SetAlwaysSynchroniseVL(bool value) { m_alwaysSynchroniseVL = value; }
    bool AlwaysShowWorkbench() const { return m_alwaysShowWorkbench; }
    void SetAlwaysShowWorkbench(bool value) { m_alwaysShowWorkbench = value; }
    bool ShowGroupByBox() const { return m_showGroupByBox; }
    void SetShowGroupByBox(bool value) { m_showGroupByBox = value; }
    bool GroupByCategory() const { return m_groupByCategory; }
    void SetGroupByCategory(bool value) { m_groupByCategory = value; }
    bool GroupByRule() const { return m_groupByRule; }
    void SetGroupByRule(bool value) { m_groupByRule = value; }
    bool GroupBySeverity() const { return m_groupBySeverity; }
    void SetGroupBySeverity(bool value) { m_groupBySeverity = value; }
    bool GroupBySourceFile() const { return m_groupBySourceFile; }
    void SetGroupBySourceFile(bool value) { m_groupBySourceFile = value; }

    // Review summary dialog. Tables 1 to 7; position and size in twips.
    bool AlwaysShowSummary() const { return m_alwaysShowSummary; }
    void SetAlwaysShowSummary(bool value) { m_alwaysShowSummary = value; }
    SettingRow<double, 2>& RDT1ColWidth() { return m_rdt1ColWidth; }
    const SettingRow<double, 2>& RDT1ColWidth() const { return m_rdt1ColWidth; }
    SettingRow<double, 7>& RDT2ColWidth() { return m_rdt2ColWidth; }
    const SettingRow<double, 7>& RDT2ColWidth() const { return m_rdt2ColWidth; }
    std::int16_t RDT2SortCol() const { return m_rdt2SortCol; }
    void SetRDT2SortCol(std::int16_t value) { m_rdt2SortCol = value; }
    std::int16_t RDT2SortOrder() const { return m_rdt2SortOrder; }
    void SetRDT2SortOrder(std::int16_t value) { m_rdt2SortOrder = value; }
    SettingRow<double, 5>& RDT4ColWidth() { return m_rdt4ColWidth; }
    const SettingRow<double, 5>& RDT4ColWidth() const { return m_rdt4ColWidth; }
    std::int16_t RDT4SortCol() const { return m_rdt4SortCol; }
    void SetRDT4SortCol(std::int16_t value) { m_rdt4SortCol = value; }
    std::int16_t RDT4SortOrder() const { return m_rdt4SortOrder; }
    void SetRDT4SortOrder(std::int16_t value) { m_rdt4SortOrder = value; }
    SettingRow<double, 6>& RDT5ColWidth() { return m_rdt5ColWidth; }
    const SettingRow<double, 6>& RDT5ColWidth() const { return m_rdt5ColWidth; }
    std::int16_t RDT5SortCol() const { return m_rdt5SortCol; }
    void SetRDT5SortCol(std::int16_t value) { m_rdt5SortCol = value; }
    std::int16_t RDT5SortOrder() const { return m_rdt5SortOrder; }
    void SetRDT5SortOrder(std::int16_t value) { m_rdt5SortOrder = value; }
    SettingRow<double, 2>& RDT6ColWidth() { return m_rdt6ColWidth; }
    const SettingRow<double, 2>& RDT6ColWidth() const { return m_rdt6ColWidth; }
    SettingRow<double, 2>& RDT7ColWidth() { return m_rdt7ColWidth; }
    const SettingRow<double, 2>& RDT7ColWidth() const { return m_rdt7ColWidth; }
    std::int32_t RVDTop() const { return m_rvdTop; }
    void SetRVDTop(std::int32_t value) { m_rvdTop = value; }
    std::int32_t RVDLeft() const { return m_rvdLeft; }
    void SetRVDLeft(std::int32_t value) { m_rvdLeft = value; }
    std::int32_t RVDWidth() const { return m_rvdWidth; }
    void SetRVDWidth(std::int32_t value) { m_rvdWidth = value; }
    std::int32_t RVDHeight() const { return m_rvdHeight; }
    void SetRVDHeight(std::int32_t value) { m_rvdHeight = value; }

    // History view.
    SettingRow<double, 9>& HVColWidth() { return m_hvColWidth; }
    const SettingRow<double, 9>& HVColWidth() const { return m_hvColWidth; }
    std::int16_t HVSortCol() const { return m_hvSortCol; }
    void SetHVSortCol(std::int16_t value) { m_hvSortCol = value; }
    std::int16_t HVSortOrder() const { return m_hvSortOrder; }
    void SetHVSortOrder(std::int16_t value) { m_hvSortOrder = value; }

    /// Whether the file of `RBDocPath` exists.
    bool RBDocAvailable() const;

private:
    bool m_clearLog = true;
    bool m_backgroundReview = false;
    std::int16_t m_backgroundTickCount = 100;
    std::vector<std::string> m_typeLibraryFolders;
    bool m_toolbarVisible = true;
    std::int32_t m_toolbarPosition = 1;
    std::int32_t m_toolbarRowIndex = 6;
    std::int32_t m_toolbarTop = 50;
    std::int32_t m_toolbarLeft = 350;
    bool m_placeMenuOnToolsMenu = false;
    std::string m_lastRulebase;
    std::string m_lastResultsPath;
    std::string m_lastReportsPath;
    bool m_useProjectFolderResults = true;
    bool m_useProjectFolderReports = true;
    std::int32_t m_lastReportOption = 1;
    std::string m_rbDocPath;
    std::int32_t m_optionPromptSave = 2;
    SettingRow<double, 3> m_rvvlColWidth{{0.488, 0.127, 0.2}};
    std::int32_t m_rvvlSortKeysNum = 0;
    SettingRow<std::int32_t, 5> m_rvvlSortCol{{0, 0, 0, 0, 0}};
    SettingRow<std::int32_t, 5> m_rvvlSortOrder{{0, 0, 0, 0, 0}};
    std::int32_t m_rvvlGroupsNum = 0;
    SettingRow<std::int32_t, 5> m_rvvlGroupCol{{0, 0, 0, 0, 0}};
    SettingRow<std::int32_t, 5> m_rvvlGroupSortOrder{{0, 0, 0, 0, 0}};
    bool m_rvFileShowZeroItems = true;
    std::int32_t m_rvFileSortKey = 1;
    bool m_rvFileSortAscending = true;
    bool m_rvProcShowZeroItems = true;
    std::int32_t m_rvProcSortKey = 1;
    bool m_rvProcSortAscending = true;
    double m_rvGridWidth = 0.498;
    std::int32_t m_completedItemsOption = 1;
    bool m_alwaysSynchroniseVL = false;
    bool m_alwaysShowWorkbench = true;
    bool m_showGroupByBox = false;
    bool m_groupByCategory = false;
    bool m_groupByRule = false;
    bool m_groupBySeverity = false;
    bool m_groupBySourceFile = false;
    bool m_alwaysShowSummary = true;
    SettingRow<double, 2> m_rdt1ColWidth{{0.66, 0.3}};
    SettingRow<double, 7> m_rdt2ColWidth{{0.4, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1}};
    std::int16_t m_rdt2SortCol = 0;
    std::int16_t m_rdt2SortOrder = 0;
    SettingRow<double, 5> m_rdt4ColWidth{{0.4, 0.1, 0.1, 0.1, 0.16}};
    std::int16_t m_rdt4SortCol = 0;
    std::int16_t m_rdt4SortOrder = 0;
    SettingRow<double, 6> m_rdt5ColWidth{{0.4, 0.12, 0.12, 0.12, 0.12, 0.12}};
    std::int16_t m_rdt5SortCol = 0;
    std::int16_t m_rdt5SortOrder = 0;
    SettingRow<double, 2> m_rdt6ColWidth{{0.66, 0.3}};
    SettingRow<double, 2> m_rdt7ColWidth{{0.66, 0.3}};
    std::int32_t m_rvdTop = 210;
    std::int32_t m_rvdLeft = 420;
    std::int32_t m_rvdWidth = 8385;
    std::int32_t m_rvdHeight = 6660;
    SettingRow<double, 9> m_hvColWidth{{0.2, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1}};
    std::int16_t m_hvSortCol = 1;
    std::int16_t m_hvSortOrder = 1;
};

}  // namespace dorvik
