#include "cli/ResultsCommandFixture.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::SizeIs;

/// The rulebase tolerates no violation of severity 1; there are two, both in one file.
class ReviewTolerance : public ResultsCommandFixture {
protected:
    ProgramResult Review(std::vector<std::string> words) const {
        words.insert(
            words.begin(), {"review", "Shop.vbp", "--rulebase", "team.dvk", "--conventions", "uk"});
        return Run(words);
    }
};

TEST_F(ReviewTolerance, EachToleranceTurnsTheVerdictAtItsLimit) {
    const struct {
        const char* Passes;
        const char* Fails;
        const char* Description;
    } rows[] = {
        {"CVC=2", "CVC=1", "Critical Violation Count"},
        {"HVC=0", nullptr, "High Violation Count"},
        {"MVC=2", "MVC=1", "Medium Violation Count"},
        {"LVC=1", "LVC=0", "Low Violation Count"},
        {"IVC=1", "IVC=0", "Information Violation Count"},
        {"TVC=5", "TVC=4", "Total Violation Count"},
        {"CVI=1800", "CVI=1799", "Critical Violation Impact"},
        {"HVI=0", nullptr, "High Violation Impact"},
        {"MVI=1000", "MVI=999", "Medium Violation Impact"},
        {"LVI=600", "LVI=599", "Low Violation Impact"},
        {"IVI=10", "IVI=9", "Information Violation Impact"},
        {"TVI=2910", "TVI=2909", "Total Violation Impact"},
        {"PC=0", "PC=1", "Percentage Comments"},
        {"cc=2", "cc=1", "Cyclomatic Complexity"},
    };
    for (const auto& row : rows) {
        const ProgramResult pass = Review({"--tolerance", "CVC=none", "--tolerance", row.Passes});
        EXPECT_EQ(pass.ExitCode, 0) << row.Passes << pass.Output << pass.Error;
        EXPECT_THAT(pass.Output, HasSubstr("Verdict     passed"));
        if (row.Fails != nullptr) {
            const ProgramResult fail =
                Review({"--tolerance", "CVC=none", "--tolerance", row.Fails});
            EXPECT_EQ(fail.ExitCode, 1) << row.Fails;
            EXPECT_THAT(fail.Output, HasSubstr(std::string("failed: ") + row.Description + "\n"));
        }
    }
}

TEST_F(ReviewTolerance, WhatIsNotNamedComesFromTheRulebase) {
    EXPECT_THAT(
        Review({"--tolerance", "TVC=1,CC=1"}).Output,
        HasSubstr(
            "failed: Critical Violation Count, Total Violation Count, Cyclomatic Complexity"));
    EXPECT_EQ(Values({"criteria"}, "tolerances", "limit"), "0 1 1 ");
}

TEST_F(ReviewTolerance, NoneClearsWhatTheRulebaseSets) {
    EXPECT_EQ(Review({"--tolerance", "cvc=None"}).ExitCode, 0);
    EXPECT_EQ(Values({"criteria"}, "tolerances", "limit"), "");
}

TEST_F(ReviewTolerance, TheLastOfOneNameCounts) {
    EXPECT_EQ(Review({"--tolerance", "CVC=0", "--tolerance", "CVC=2"}).ExitCode, 0);
}

TEST_F(ReviewTolerance, WhatIsNoToleranceIsWrongUse) {
    for (const char* const text : {"CVC", "CVC=", "CVC=-1", "CVC=x", "XYZ=1", "=1", ""}) {
        const ProgramResult result = Review({"--tolerance", text});
        EXPECT_EQ(result.ExitCode, 2) << text;
        EXPECT_EQ(result.Output, "") << text;
        EXPECT_THAT(result.Errors(), SizeIs(1)) << text;
        EXPECT_THAT(result.Error, HasSubstr("--tolerance")) << text;
    }
}

}  // namespace

}  // namespace dorvik::test
