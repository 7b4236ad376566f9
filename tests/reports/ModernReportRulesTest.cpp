#include "reports/modern/ModernReportRules.h"

#include "reports/ReviewedProject.h"

#include <gtest/gtest.h>

namespace dorvik::test {

namespace {

ModernViolation Item(std::int32_t rule, std::string title, std::string description) {
    ModernViolation item;
    item.Violation = Breach(rule, 2, 100, std::move(title));
    item.Violation.Description = std::move(description);
    return item;
}

TEST(ModernRuleTable, ViolationsOfOneRuleShareItsRow) {
    const ModernRuleTable table = ModernRuleTable::Of(
        {Item(7, "No GoTo", "'A' jumps"),
         Item(8, "No Call", "calls"),
         Item(7, "No GoTo", "'B' jumps")});
    ASSERT_EQ(2U, table.Rules.size());
    EXPECT_EQ((std::vector<std::size_t>{0, 1, 0}), table.RuleOfViolation);
    EXPECT_EQ("'", table.Rules.at(0).Description.Head());
    EXPECT_EQ("' jumps", table.Rules.at(0).Description.Tail());
}

TEST(ModernRuleTable, OneNumberWithTwoTitlesOrSeveritiesIsTwoRows) {
    std::vector<ModernViolation> items{
        Item(0, "Component", "x"), Item(0, "Reference", "x"), Item(0, "Component", "x")};
    items.back().Violation.Severity = 5;
    const ModernRuleTable table = ModernRuleTable::Of(items);
    EXPECT_EQ((std::vector<std::size_t>{0, 1, 2}), table.RuleOfViolation);
}

}  // namespace

}  // namespace dorvik::test
