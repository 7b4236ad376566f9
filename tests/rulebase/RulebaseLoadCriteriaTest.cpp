#include "rulebase/model/RulebaseLoadCriteria.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

TEST(RulebaseLoadCriteria, ANewOneTakesNothingAndIsClean) {
    const RulebaseLoadCriteria criteria;
    EXPECT_EQ(criteria.RulebaseFile(), "");
    EXPECT_FALSE(criteria.AuthorisedComponents());
    EXPECT_FALSE(criteria.UnauthorisedKeywords());
    EXPECT_FALSE(criteria.DocumentationConventions());
    EXPECT_FALSE(criteria.LoadForEdit());
    EXPECT_FALSE(criteria.SeverityLevel(1));
    EXPECT_EQ(criteria.ExcludedCategoryIDCount(), 0);
    EXPECT_FALSE(criteria.Dirty());
}

TEST(RulebaseLoadCriteria, AWriteMarksItOnlyIfTheValueChanges) {
    const auto writes = {
        +[](RulebaseLoadCriteria& c) { c.SetRulebaseFile("C:\\a.dvk"); },
        +[](RulebaseLoadCriteria& c) { c.SetRulebaseTitle("Team"); },
        +[](RulebaseLoadCriteria& c) { c.SetRulebaseVersion("1"); },
        +[](RulebaseLoadCriteria& c) { c.SetAuthorisedComponents(true); },
        +[](RulebaseLoadCriteria& c) { c.SetAuthorisedReferences(true); },
        +[](RulebaseLoadCriteria& c) { c.SetUnauthorisedKeywords(true); },
        +[](RulebaseLoadCriteria& c) { c.SetCodingConventions(true); },
        +[](RulebaseLoadCriteria& c) { c.SetNamingConventions(true); },
        +[](RulebaseLoadCriteria& c) { c.SetDocumentationConventions(true); },
        +[](RulebaseLoadCriteria& c) { c.SetLoadForEdit(true); },
        +[](RulebaseLoadCriteria& c) { c.SetSeverityLevel(5, true); },
        +[](RulebaseLoadCriteria& c) { c.AddExcludedCategoryID(7); },
    };
    for (const auto write : writes) {
        RulebaseLoadCriteria criteria;
        write(criteria);
        EXPECT_TRUE(criteria.Dirty());
        criteria.SetDirty(false);
        write(criteria);
        EXPECT_FALSE(criteria.Dirty());
    }
}

TEST(RulebaseLoadCriteria, AChangeOfCaseInTheFileNameIsNoChange) {
    RulebaseLoadCriteria criteria;
    criteria.SetRulebaseFile("C:\\Team.dvk");
    criteria.SetDirty(false);
    criteria.SetRulebaseFile("c:\\team.DVK");
    EXPECT_FALSE(criteria.Dirty());
}

TEST(RulebaseLoadCriteria, CountsOfALoadDoNotMarkIt) {
    RulebaseLoadCriteria criteria;
    criteria.NumUnauthKeywords = 30;
    EXPECT_FALSE(criteria.Dirty());
}

TEST(RulebaseLoadCriteria, LevelsOutsideOneToFiveReadFalseAndIgnoreWrites) {
    RulebaseLoadCriteria criteria;
    for (const std::int32_t level : {-1, 0, 6}) {
        criteria.SetSeverityLevel(level, true);
        EXPECT_FALSE(criteria.SeverityLevel(level));
    }
    EXPECT_FALSE(criteria.Dirty());
    criteria.SetSeverityLevel(3, true);
    EXPECT_TRUE(criteria.SeverityLevel(3));
    EXPECT_FALSE(criteria.SeverityLevel(2));
}

TEST(RulebaseLoadCriteria, ExcludedCategoriesAreHeldOnce) {
    RulebaseLoadCriteria criteria;
    criteria.AddExcludedCategoryID(7);
    criteria.AddExcludedCategoryID(7);
    criteria.AddExcludedCategoryID(2);
    EXPECT_EQ(criteria.ExcludedCategoryIDCount(), 2);
    EXPECT_EQ(criteria.ExcludedCategoryID(2), 2);
    EXPECT_TRUE(criteria.IsExcludedCategoryID(7));
    criteria.RemoveExcludedCategoryID(7);
    EXPECT_FALSE(criteria.IsExcludedCategoryID(7));
}

}  // namespace
}  // namespace dorvik
