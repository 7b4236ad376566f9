#include "cli/commands/results/ToleranceLimits.h"

#include "results/modTolerances.h"

#include <gmock/gmock.h>

#include <set>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;

TEST(ToleranceLimits, EachNameHasALimitOfItsOwn) {
    ToleranceSettings tolerances;
    std::int32_t limit = 0;
    for (const auto& measure : modTolerances::kMeasures) {
        modToleranceLimits::Apply(
            {std::string(measure.Name) + "=" + std::to_string(limit++)}, tolerances);
    }
    for (std::size_t place = 0; place < modTolerances::kMeasures.size(); ++place) {
        EXPECT_EQ(modToleranceLimits::Limit(tolerances, place), static_cast<int>(place));
    }
    EXPECT_EQ(tolerances.Count.Item(1), 0);
    EXPECT_EQ(tolerances.Count.Item(6), 5);
    EXPECT_EQ(tolerances.Impact.Item(1), 6);
    EXPECT_EQ(tolerances.Impact.Item(6), 11);
    EXPECT_EQ(tolerances.PercentageComments, 12);
    EXPECT_EQ(tolerances.CyclomaticComplexity, 13);
}

TEST(ToleranceLimits, NoneClearsAndTheLastOfOneNameCounts) {
    ToleranceSettings tolerances;
    tolerances.CyclomaticComplexity = 20;
    modToleranceLimits::Apply({"CC=5", "cc=NONE", "TVC=1", "tvc=2"}, tolerances);
    EXPECT_EQ(tolerances.CyclomaticComplexity, ToleranceSettings::kNotSet);
    EXPECT_EQ(tolerances.Count.Item(6), 2);
}

TEST(ToleranceLimits, WhatIsNoToleranceIsToldWithTheWayToWriteIt) {
    for (const char* const text :
         {"CVC", "CVC=", "CVC=-1", "CVC=1.5", "CVC=1 ", "CVC=99999999999", "CVC=+1", "CVC=x"}) {
        EXPECT_FALSE(modToleranceLimits::Parse(text).has_value()) << text;
        EXPECT_THAT(modToleranceLimits::Check(text), HasSubstr("CVC=NUMBER or CVC=none")) << text;
    }
    EXPECT_THAT(
        modToleranceLimits::Check("XYZ=1"),
        HasSubstr("unknown tolerance 'XYZ' (known: CVC, HVC, MVC, LVC, IVC, TVC, CVI"));
    EXPECT_EQ(modToleranceLimits::Check("pc=40"), "");
}

TEST(ToleranceLimits, OnlyThePercentageOfCommentsIsALowerLimit) {
    EXPECT_EQ(modToleranceLimits::Words(0, 3), "at most 3");
    EXPECT_EQ(modToleranceLimits::Words(12, 30), "at least 30");
    EXPECT_EQ(modToleranceLimits::Words(13, 10), "at most 10");
}

}  // namespace

}  // namespace dorvik::test
