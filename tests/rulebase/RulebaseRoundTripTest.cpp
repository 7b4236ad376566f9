#include "rulebase/RandomRulebase.h"
#include "rulebase/RulebaseManagerFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace dorvik {
namespace {

/// Loads for an edit where the administrator's program runs, so that nothing is left out.
class RulebaseRoundTripTest : public test::RulebaseManagerFixture {
protected:
    RulebaseManager m_administrator{"DVKAdmin", ""};
};

TEST_F(RulebaseRoundTripTest, TwoHundredRandomRulebasesComeBackAsTheyWereAndSaveToTheSameBytes) {
    m_criteria.SetLoadForEdit(true);
    m_criteria.SetRulebaseFile(m_folder.Path("first.dvk"));
    std::int32_t rules = 0;
    std::int32_t sections = 0;
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        const auto original = test::RandomRulebase(seed).Make();
        const std::string version = original->Version();
        ASSERT_TRUE(m_administrator.Save(*original, m_folder.Path("first.dvk")));
        const auto loaded = m_administrator.LoadRulebase(m_criteria);
        ASSERT_NE(loaded, nullptr);
        ASSERT_EQ(test::DescriptionOf(*loaded), test::DescriptionOf(*original));
        EXPECT_FALSE(loaded->Dirty());
        loaded->SetVersion(version);  // the save increments it
        ASSERT_TRUE(m_administrator.Save(*loaded, m_folder.Path("second.dvk")));
        ASSERT_EQ(m_folder.Read("first.dvk"), m_folder.Read("second.dvk"));
        rules += loaded->RuleLists().AllConventions().Count();
        sections += loaded->Report().Sections().Count();
    }
    EXPECT_TRUE(m_log.Entries().empty());
    EXPECT_TRUE(m_box.Messages.empty());
    EXPECT_GT(rules, 1000);
    EXPECT_GT(sections, 200);
}

TEST_F(RulebaseRoundTripTest, TheDescriptionTellsRulebasesApart) {
    EXPECT_NE(
        test::DescriptionOf(*test::RandomRulebase(1).Make()),
        test::DescriptionOf(*test::RandomRulebase(2).Make()));
    EXPECT_EQ(
        test::DescriptionOf(*test::RandomRulebase(3).Make()),
        test::DescriptionOf(*test::RandomRulebase(3).Make()));
}

TEST_F(RulebaseRoundTripTest, AVeryLongTextSurvives) {
    Rulebase rulebase;
    const std::string text = std::string(4'000'000, 'x') + "\r\n<end>";
    rulebase.SetDescription(text);
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("long.dvk")));
    const auto loaded = LoadForEditFile("long.dvk");
    ASSERT_NE(loaded, nullptr);
    EXPECT_TRUE(loaded->Description() == text);
}

// Required: categories are sorted by the load, of equal titles the later one first.
TEST_F(RulebaseRoundTripTest, CategoriesOfOneTitleChangePlacesWithEachLoad) {
    Rulebase rulebase;
    for (int number = 0; number < 2; ++number) {
        const auto item = std::make_shared<CategoryItem>();
        item->SetTitle("Layout");
        rulebase.CategoryList().Add(item, true);
    }
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("a.dvk")));
    EXPECT_EQ(LoadForEditFile("a.dvk")->CategoryList().Item(1)->ID(), 2);
}

}  // namespace
}  // namespace dorvik
