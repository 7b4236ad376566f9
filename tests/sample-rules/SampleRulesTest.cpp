#include "SampleFolder.h"
#include "SampleReview.h"
#include "rulebase/model/IRule.h"
#include "rulebase/model/Rulebase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace dorvik;
using namespace dorvik::test;
using testing::IsEmpty;
using testing::Not;

namespace {

std::string Where(const SamplePlace& place) {
    return place.File + ":" + std::to_string(place.Line);
}

std::vector<std::string> Places(const std::vector<ExpectedFinding>& findings) {
    std::vector<std::string> places;
    for (const ExpectedFinding& finding : findings) {
        places.push_back(Where(finding.Place));
    }
    std::sort(places.begin(), places.end());
    return places;
}

std::vector<SampleFinding> FlaggedIn(const SampleReview& review) {
    std::vector<SampleFinding> flagged;
    for (const SampleSource& source : review.Sources()) {
        const std::vector<SampleFinding> findings = review.Findings(source);
        if (source.MustFlag) {
            EXPECT_THAT(findings, Not(IsEmpty())) << source.Name;
            flagged.insert(flagged.end(), findings.begin(), findings.end());
            continue;
        }
        for (const SampleFinding& finding : findings) {
            ADD_FAILURE() << Where(finding.Place) << " must pass: " << finding.Texts;
        }
    }
    return flagged;
}

void ExpectTexts(
    const std::vector<ExpectedFinding>& expected, const std::vector<SampleFinding>& found) {
    for (const ExpectedFinding& one : expected) {
        const bool holds = std::any_of(found.begin(), found.end(), [&](const SampleFinding& other) {
            return other.Place == one.Place && other.Texts.find(one.Piece) != std::string::npos;
        });
        EXPECT_TRUE(holds) << Where(one.Place) << " does not say: " << one.Piece;
    }
    for (const SampleFinding& one : found) {
        // Required: a percent sign that is left over is a tag that was not filled in.
        EXPECT_EQ(one.Texts.find('%'), std::string::npos) << one.Texts;
    }
}

std::map<std::int32_t, std::string> RulesOfTheRulebase() {
    std::map<std::int32_t, std::string> titles;
    SampleReview review;
    const std::unique_ptr<Rulebase> rulebase = review.Load();
    const auto& rules = rulebase->RuleLists().AllConventions();
    for (std::int32_t i = 1; i <= rules.Count(); ++i) {
        titles[rules.Item(i)->RuleID()] = rules.Item(i)->Title();
    }
    return titles;
}

class SampleRule : public testing::TestWithParam<std::string> {};

std::string TestName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

}  // namespace

TEST_P(SampleRule, FindsWhatItMustAndNothingElse) {
    const SampleFolder folder(GetParam());
    SampleReview review;
    ASSERT_TRUE(review.Run(folder, folder.RuleID())) << "there is no rule " << folder.RuleID();

    const std::vector<SampleFinding> flagged = FlaggedIn(review);
    std::vector<std::string> places;
    for (const SampleFinding& finding : flagged) {
        places.push_back(Where(finding.Place));
    }
    std::sort(places.begin(), places.end());
    EXPECT_EQ(places, Places(folder.Expected()));
    ExpectTexts(folder.Expected(), flagged);
    for (const SampleSource& source : review.Sources()) {
        EXPECT_THAT(SampleReview::RuleErrors(source), IsEmpty()) << source.Name;
    }
}

INSTANTIATE_TEST_SUITE_P(
    SampleRules, SampleRule, testing::ValuesIn(SampleFolder::Names()), TestName);

TEST(SampleRules, EachRuleHasASourceToFlagAndOneToPass) {
    std::map<std::int32_t, std::string> folders;
    for (const std::string& name : SampleFolder::Names()) {
        folders[SampleFolder(name).RuleID()] = name;
    }
    for (const auto& [id, title] : RulesOfTheRulebase()) {
        ASSERT_NE(folders.count(id), 0U) << id << " '" << title << "' has no folder";
        const SampleFolder folder(folders[id]);
        EXPECT_THAT(folder.SourceNames("flag"), Not(IsEmpty())) << folders[id];
        EXPECT_THAT(folder.SourceNames("pass"), Not(IsEmpty())) << folders[id];
        EXPECT_THAT(folder.Expected(), Not(IsEmpty())) << folders[id];
    }
}

TEST(SampleRules, EachFolderBelongsToARule) {
    const std::map<std::int32_t, std::string> rules = RulesOfTheRulebase();
    for (const std::string& name : SampleFolder::Names()) {
        EXPECT_NE(rules.count(SampleFolder(name).RuleID()), 0U) << name;
    }
}
