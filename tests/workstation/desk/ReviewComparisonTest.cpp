#include "workstation/desk/ReviewComparison.h"

#include <gtest/gtest.h>

namespace dorvik::test {
namespace {

FoundViolation
Violation(std::int32_t id, std::int32_t rule, std::string procedure, std::string text) {
    FoundViolation found;
    found.ViolationID = id;
    found.RuleID = rule;
    found.Title = "Rule " + std::to_string(rule);
    found.File = "modMain.bas";
    found.Procedure = std::move(procedure);
    found.Text = std::move(text);
    return found;
}

std::vector<std::pair<FindingChange, std::int32_t>> Changes(const ReviewComparison& comparison) {
    std::vector<std::pair<FindingChange, std::int32_t>> changes;
    for (const ReviewComparison::Row& row : comparison.Rows()) {
        changes.emplace_back(row.Change, row.Violation.ViolationID);
    }
    return changes;
}

using List = std::vector<std::pair<FindingChange, std::int32_t>>;

TEST(ReviewComparison, WithoutAnythingNothingHasChanged) {
    EXPECT_EQ(ReviewComparison({}, {}).Summary(), "0 new, 0 gone, 0 unchanged");
}

TEST(ReviewComparison, NewOnesComeFirstThenThoseThatAreGoneThenTheOthers) {
    const ReviewComparison comparison(
        {Violation(1, 7, "Main", "GoTo Done"), Violation(2, 8, "Main", "End")},
        {Violation(1, 8, "Main", "End"), Violation(2, 9, "Main", "Stop")});
    EXPECT_EQ(
        Changes(comparison),
        (List{{FindingChange::New, 2}, {FindingChange::Gone, 1}, {FindingChange::Unchanged, 1}}));
    EXPECT_EQ(comparison.Summary(), "1 new, 1 gone, 1 unchanged");
}

TEST(ReviewComparison, ALineThatMovedOrWasIndentedIsTheSame) {
    FoundViolation moved = Violation(5, 7, "MAIN", "\t  goto done  ");
    moved.Line = 90;
    EXPECT_EQ(
        ReviewComparison({Violation(1, 7, "Main", "GoTo Done")}, {moved}).Summary(),
        "0 new, 0 gone, 1 unchanged");
}

TEST(ReviewComparison, AnotherRuleFileProcedureOrTextIsAnother) {
    const FoundViolation base = Violation(1, 7, "Main", "GoTo Done");
    FoundViolation otherFile = base;
    otherFile.File = "modTools.bas";
    for (const FoundViolation& other :
         {Violation(1, 8, "Main", "GoTo Done"),
          Violation(1, 7, "Leave", "GoTo Done"),
          Violation(1, 7, "Main", "GoTo There"),
          otherFile}) {
        EXPECT_EQ(ReviewComparison({base}, {other}).Summary(), "1 new, 1 gone, 0 unchanged");
    }
}

TEST(ReviewComparison, OfSeveralThatAreTheSameAsManyAreUnchangedAsThereAreOnBothSides) {
    const auto same = [](std::int32_t id) {
        return Violation(id, 7, "Main", "GoTo Done");
    };
    EXPECT_EQ(
        Changes(ReviewComparison({same(1)}, {same(1), same(2), same(3)})),
        (List{{FindingChange::New, 2}, {FindingChange::New, 3}, {FindingChange::Unchanged, 1}}));
    EXPECT_EQ(
        Changes(ReviewComparison({same(1), same(2), same(3)}, {same(9)})),
        (List{{FindingChange::Gone, 2}, {FindingChange::Gone, 3}, {FindingChange::Unchanged, 9}}));
}

}  // namespace
}  // namespace dorvik::test
