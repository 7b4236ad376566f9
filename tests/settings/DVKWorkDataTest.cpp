#include "settings/DVKWorkData.h"

#include "base/BasicError.h"
#include "platform/host/ScopedInstall.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace dorvik {
namespace {

template <typename Row>
auto Items(const Row& row) {
    std::vector<std::remove_cvref_t<decltype(row.Item(1))>> items;
    for (std::int32_t index = 1; index <= row.Count(); ++index) {
        items.push_back(row.Item(index));
    }
    return items;
}

using Widths = std::vector<double>;
using Longs = std::vector<std::int32_t>;

TEST(DVKWorkData, FirstRunUsesTheDefaultChoices) {
    const DVKWorkData data;
    EXPECT_TRUE(data.ClearLog);
    EXPECT_FALSE(data.BackgroundReview);
    EXPECT_EQ(data.BackgroundTickCount, 100);
    EXPECT_TRUE(data.TypeLibraryFolders.empty());
    EXPECT_TRUE(data.ToolbarVisible);
    EXPECT_EQ(data.ToolbarPosition, 1);
    EXPECT_EQ(data.ToolbarRowIndex, 6);
    EXPECT_EQ(data.ToolbarTop, 50);
    EXPECT_EQ(data.ToolbarLeft, 350);
    EXPECT_FALSE(data.PlaceMenuOnToolsMenu);
    EXPECT_EQ(data.LastResultsPath, "");
    EXPECT_EQ(data.LastReportsPath, "");
    EXPECT_TRUE(data.UseProjectFolderResults);
    EXPECT_TRUE(data.UseProjectFolderReports);
    EXPECT_EQ(data.LastReportOption, 1);
    EXPECT_EQ(data.OptionPromptSave, 2);
    EXPECT_TRUE(data.AlwaysShowWorkbench);
    EXPECT_TRUE(data.AlwaysShowSummary);
}

TEST(DVKWorkData, FirstRunUsesTheDefaultResultsView) {
    const DVKWorkData data;
    EXPECT_EQ(Items(data.RVVLColWidth), (Widths{0.488, 0.127, 0.2}));
    EXPECT_EQ(data.RVVLSortKeysNum, 0);
    EXPECT_EQ(Items(data.RVVLSortCol), Longs(5, 0));
    EXPECT_EQ(Items(data.RVVLSortOrder), Longs(5, 0));
    EXPECT_EQ(data.RVVLGroupsNum, 0);
    EXPECT_EQ(Items(data.RVVLGroupCol), Longs(5, 0));
    EXPECT_EQ(Items(data.RVVLGroupSortOrder), Longs(5, 0));
    EXPECT_TRUE(data.RVFileShowZeroItems);
    EXPECT_EQ(data.RVFileSortKey, 1);
    EXPECT_TRUE(data.RVFileSortAscending);
    EXPECT_TRUE(data.RVProcShowZeroItems);
    EXPECT_EQ(data.RVProcSortKey, 1);
    EXPECT_TRUE(data.RVProcSortAscending);
    EXPECT_DOUBLE_EQ(data.RVGridWidth, 0.498);
    EXPECT_EQ(data.CompletedItemsOption, 1);
    EXPECT_FALSE(data.AlwaysSynchroniseVL);
    EXPECT_FALSE(data.ShowGroupByBox);
    EXPECT_FALSE(data.GroupByCategory);
    EXPECT_FALSE(data.GroupByRule);
    EXPECT_FALSE(data.GroupBySeverity);
    EXPECT_FALSE(data.GroupBySourceFile);
}

TEST(DVKWorkData, FirstRunUsesTheDefaultSummaryAndHistoryLayout) {
    const DVKWorkData data;
    EXPECT_EQ(Items(data.RDT1ColWidth), (Widths{0.66, 0.3}));
    EXPECT_EQ(Items(data.RDT2ColWidth), (Widths{0.4, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1}));
    EXPECT_EQ(Items(data.RDT4ColWidth), (Widths{0.4, 0.1, 0.1, 0.1, 0.16}));
    EXPECT_EQ(Items(data.RDT5ColWidth), (Widths{0.4, 0.12, 0.12, 0.12, 0.12, 0.12}));
    EXPECT_EQ(Items(data.RDT6ColWidth), (Widths{0.66, 0.3}));
    EXPECT_EQ(Items(data.RDT7ColWidth), (Widths{0.66, 0.3}));
    EXPECT_EQ(data.RDT2SortCol + data.RDT4SortCol + data.RDT5SortCol, 0);
    EXPECT_EQ(data.RDT2SortOrder + data.RDT4SortOrder + data.RDT5SortOrder, 0);
    EXPECT_EQ(data.RVDTop, 210);
    EXPECT_EQ(data.RVDLeft, 420);
    EXPECT_EQ(data.RVDWidth, 8385);
    EXPECT_EQ(data.RVDHeight, 6660);
    EXPECT_EQ(Items(data.HVColWidth), (Widths{0.2, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1}));
    EXPECT_EQ(data.HVSortCol, 1);
    EXPECT_EQ(data.HVSortOrder, 1);
}

TEST(DVKWorkData, SampleRulebaseAndItsDocumentAreInTheDataFolderOfTheProgram) {
    const test::TemporaryFolder folder;
    HostFacts facts;
    facts.ProgramFolder = folder.Path();
    const ScopedInstall<const HostFacts> installed(facts);
    DVKWorkData data;
    EXPECT_EQ(data.LastRulebase, folder.Path("Data\\Sample.dvk"));
    EXPECT_EQ(data.RBDocPath, folder.Path("Data\\Sample.html"));
    EXPECT_FALSE(data.RBDocAvailable());
    folder.Write("Data\\Sample.html", "x");
    EXPECT_TRUE(data.RBDocAvailable());
}

TEST(DVKWorkData, WhatIsSetIsRead) {
    DVKWorkData data;
    data.LastRulebase = "C:\\a.dvk";
    data.BackgroundTickCount = 7;
    data.TypeLibraryFolders = {"C:\\Libs", "D:\\More"};
    data.RVVLColWidth.SetItem(2, 0.5);
    EXPECT_EQ(data.LastRulebase, "C:\\a.dvk");
    EXPECT_EQ(data.BackgroundTickCount, 7);
    EXPECT_EQ(data.TypeLibraryFolders, (std::vector<std::string>{"C:\\Libs", "D:\\More"}));
    EXPECT_DOUBLE_EQ(data.RVVLColWidth.Item(2), 0.5);
    EXPECT_THROW(data.RVVLColWidth.SetItem(4, 0.5), BasicError);
    EXPECT_THROW((void)data.RVVLColWidth.Item(0), BasicError);
}

}  // namespace
}  // namespace dorvik
