#include "rulebase/model/Report.h"

#include "rulebase/model/CategoryItem.h"
#include "rulebase/model/TableItem.h"
#include "rulebase/model/UnauthorisedKeyword.h"

#include <gtest/gtest.h>

#include <memory>

namespace dorvik {
namespace {

std::shared_ptr<TableItem> Table() {
    auto table = std::make_shared<TableItem>();
    table->SetTableKey("tags");
    table->SetTableTitle("Tags");
    table->SetTableText("All tags");
    table->SetTableType(7);
    table->SetDirty(false);
    return table;
}

std::shared_ptr<CategoryItem> Category() {
    auto category = std::make_shared<CategoryItem>();
    category->SetID(4);
    category->SetTitle("Layout");
    category->SetDescription("How code looks");
    category->CategoryRules().Add(std::make_shared<UnauthorisedKeyword>());
    return category;
}

Report ReportOfBoth() {
    Report report;
    report.Sections().Add(Table());
    report.Sections().Add(Category());
    report.SetDirty(false);
    return report;
}

TEST(Report, ANewOneIsCleanAndHasNoSections) {
    const Report report;
    EXPECT_FALSE(report.Dirty());
    EXPECT_EQ(report.Sections().Count(), 0);
    EXPECT_EQ(report.CloneSections().Count(), 0);
}

TEST(Report, IsDirtyWhenItsListATableOrTheRulesOfACategoryAre) {
    Report report = ReportOfBoth();
    EXPECT_FALSE(report.Dirty());
    std::dynamic_pointer_cast<TableItem>(report.Sections().Item(1))->SetTableText("Other");
    EXPECT_TRUE(report.Dirty());
    report.SetDirty(false);
    auto& rules =
        std::dynamic_pointer_cast<CategoryItem>(report.Sections().Item(2))->CategoryRules();
    rules.Add(std::make_shared<UnauthorisedKeyword>());
    EXPECT_TRUE(report.Dirty());
    report.SetDirty(false);
    EXPECT_FALSE(rules.Dirty());
    report.Sections().Remove(1);
    EXPECT_TRUE(report.Dirty());
}

TEST(Report, AWriteOfDirtyReachesEverySection) {
    Report report = ReportOfBoth();
    report.SetDirty(true);
    EXPECT_TRUE(report.Sections().Dirty());
    EXPECT_TRUE(std::dynamic_pointer_cast<TableItem>(report.Sections().Item(1))->Dirty());
    const auto category = std::dynamic_pointer_cast<CategoryItem>(report.Sections().Item(2));
    EXPECT_TRUE(category->CategoryRules().Dirty());
}

TEST(Report, ACategoryTitleAloneDoesNotMakeItDirty) {
    Report report = ReportOfBoth();
    std::dynamic_pointer_cast<CategoryItem>(report.Sections().Item(2))->SetTitle("Other");
    EXPECT_FALSE(report.Dirty());
}

TEST(Report, AClonedTableIsCopiedFieldByFieldItsDirtyFlagToo) {
    Report report = ReportOfBoth();
    const auto table = std::dynamic_pointer_cast<TableItem>(report.Sections().Item(1));
    for (const bool dirty : {true, false}) {
        table->SetDirty(dirty);
        const auto clone = report.CloneSections();
        const auto copy = std::dynamic_pointer_cast<TableItem>(clone.Item(1));
        ASSERT_NE(copy, nullptr);
        EXPECT_NE(copy, table);
        EXPECT_EQ(copy->TableKey(), "tags");
        EXPECT_EQ(copy->TableTitle(), "Tags");
        EXPECT_EQ(copy->TableText(), "All tags");
        EXPECT_EQ(copy->TableType(), 7);
        EXPECT_EQ(copy->Dirty(), dirty);
    }
}

TEST(Report, AClonedCategorySharesItsRulesButNotItsListOfThem) {
    Report report = ReportOfBoth();
    const auto category = std::dynamic_pointer_cast<CategoryItem>(report.Sections().Item(2));
    const auto clone = report.CloneSections();
    const auto copy = std::dynamic_pointer_cast<CategoryItem>(clone.Item(2));
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, category);
    EXPECT_EQ(copy->ID(), 4);
    EXPECT_EQ(copy->Key(), "4K");
    EXPECT_EQ(copy->Title(), "Layout");
    EXPECT_EQ(copy->Description(), "How code looks");
    EXPECT_EQ(copy->CategoryRules().Item(1), category->CategoryRules().Item(1));
    copy->CategoryRules().Remove(1);
    EXPECT_EQ(category->CategoryRules().Count(), 1);
    EXPECT_FALSE(category->CategoryRules().Dirty());
}

TEST(Report, TheFlagOfAClonedListIsThatOfTheSections) {
    Report report = ReportOfBoth();
    EXPECT_FALSE(report.CloneSections().Dirty());
    report.Sections().SetDirty(true);
    EXPECT_TRUE(report.CloneSections().Dirty());
}

TEST(Report, SectionsCanBeReplacedByAnEditedClone) {
    Report report = ReportOfBoth();
    Report::SectionList clone = report.CloneSections();
    clone.Remove(2);
    report.SetSections(std::move(clone));
    EXPECT_EQ(report.Sections().Count(), 1);
    EXPECT_TRUE(report.Dirty());
}

TEST(TableItem, AsAListItemShowsKeyTitleAndTextAndNoNumber) {
    const auto table = Table();
    const IListItem& item = *table;
    EXPECT_EQ(item.Key(), "tags");
    EXPECT_EQ(item.Title(), "Tags");
    EXPECT_EQ(item.Description(), "All tags");
    EXPECT_EQ(item.ID(), 0);
    std::static_pointer_cast<IListItem>(table)->SetKey("other");
    EXPECT_EQ(table->TableKey(), "other");
}

TEST(TableItem, OnlyAChangeOfTitleOrTextMakesItDirty) {
    const auto table = Table();
    table->SetTableKey("other");
    table->SetTableType(8);
    table->SetTableTitle("Tags");
    table->SetTableText("All tags");
    EXPECT_FALSE(table->Dirty());
    table->SetTableTitle("tags");
    EXPECT_TRUE(table->Dirty());
    table->SetDirty(false);
    table->SetTableText("all tags");
    EXPECT_TRUE(table->Dirty());
    table->SetTableText("all tags");
    EXPECT_TRUE(table->Dirty()) << "a write of the same value does not clear it";
}

}  // namespace
}  // namespace dorvik
