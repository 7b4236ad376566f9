#include "reports/classic/ReportLegend.h"

#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {
namespace {

void AddSeverity(SeverityTable& table, std::int32_t level, std::string title, std::int32_t colour) {
    auto item = std::make_shared<SeverityItem>();
    item->SetSeverityLevel(level);
    item->SetKey(SeverityKeyOf(level));
    item->SetTitle(std::move(title));
    item->SetColour(colour);
    table.Add(item->Key(), item, true, false);
}

void AddCategory(CategoryList& list, std::int32_t id, std::string title) {
    auto item = std::make_shared<CategoryItem>();
    item->SetID(id);
    item->SetTitle(std::move(title));
    list.Add(item, false);
}

TEST(ReportLegend, StyleSheetHasThirtyLinesEachEnded) {
    const std::string sheet = ReportLegend().GetStyleSheet();
    std::size_t lines = 0;
    for (std::size_t at = sheet.find("\r\n"); at != std::string::npos;
         at = sheet.find("\r\n", at + 2)) {
        ++lines;
    }
    EXPECT_EQ(lines, 30U);
    EXPECT_THAT(sheet, testing::StartsWith("<style type=\"text/css\">\r\n<!--\r\nbody {"));
    EXPECT_THAT(sheet, testing::EndsWith("}\r\n-->\r\n</style>\r\n"));
}

TEST(ReportLegend, ASeverityWithoutAKnownColourKeepsItsLine) {
    SeverityTable severities;
    AddSeverity(severities, 1, "Critical", 0);
    AddSeverity(severities, 2, "High", 17);
    AddSeverity(severities, 3, "Medium", 16);
    ReportLegend legend;
    legend.Load(severities, {});
    EXPECT_THAT(
        legend.GetStyleSheet(),
        testing::HasSubstr("\r\n.critical{background-color : ; color : Black;}\r\n"
                           ".high{background-color : ; color : Black;}\r\n"
                           ".medium{background-color : Yellow; color : Black;}\r\n"
                           ".low{background-color : ; color : Black;}\r\n"
                           ".information{background-color : ; color : Black;}\r\n.passtext{"));
}

TEST(ReportLegend, ColoursAreNamedByTheirIndex) {
    constexpr const char* kNames[] = {
        "",
        "Black",
        "Blue",
        "Aqua",
        "Navy",
        "Teal",
        "Green",
        "Gray",
        "Purple",
        "Maroon",
        "Olive",
        "Lime",
        "Silver",
        "Magenta",
        "Red",
        "White",
        "Yellow",
        ""};
    std::int32_t colour = 0;
    for (const char* name : kNames) {
        EXPECT_EQ(ReportLegend::LongColourToTextColour(colour), name) << colour;
        ++colour;
    }
    EXPECT_EQ(ReportLegend::LongColourToTextColour(-1), "");
    EXPECT_EQ(ReportLegend::LongColourToTextColour(0xFF00FF), "");
}

TEST(ReportLegend, SeverityTextsAndClassesGoByTheLevelOfTheItem) {
    SeverityTable severities;
    AddSeverity(severities, 5, "Note", 1);
    AddSeverity(severities, 1, "Stop", 2);
    AddSeverity(severities, 6, "Beyond", 3);
    AddSeverity(severities, 0, "Below", 3);
    ReportLegend legend;
    legend.Load(severities, {});
    EXPECT_EQ(legend.GetSeverityText(1), "Stop");
    EXPECT_EQ(legend.GetSeverityText(2), "");
    EXPECT_EQ(legend.GetSeverityText(5), "Note");
    EXPECT_EQ(legend.GetSeverityText(0), "");
    EXPECT_EQ(legend.GetSeverityText(6), "");
    constexpr const char* kClasses[] = {"", "critical", "high", "medium", "low", "information", ""};
    std::int32_t level = 0;
    for (const char* name : kClasses) {
        EXPECT_EQ(ReportLegend::GetSeverityClass(level), name) << level;
        ++level;
    }
}

TEST(ReportLegend, CategoriesAreNamedByTheirTitle) {
    CategoryList categories;
    AddCategory(categories, 7, "Jumps");
    ReportLegend legend;
    legend.Load({}, categories);
    EXPECT_EQ(legend.GetCategoryText(-1), "Unallocated");
    EXPECT_EQ(legend.GetCategoryText(7), "Jumps");
    EXPECT_EQ(legend.GetCategoryText(8), "");
    EXPECT_EQ(legend.GetCategoryText(0), "");
}

TEST(ReportLegend, TakenTwiceItHasTheCategoriesOfTheSecond) {
    const test::CapturedLog log;
    CategoryList first;
    AddCategory(first, 7, "Jumps");
    CategoryList second;
    AddCategory(second, 7, "Leaps");
    ReportLegend legend;
    legend.Load({}, first);
    legend.Load({}, second);
    EXPECT_EQ(legend.GetCategoryText(7), "Leaps");
    EXPECT_THAT(log.Entries(), testing::IsEmpty());
}

}  // namespace
}  // namespace dorvik
