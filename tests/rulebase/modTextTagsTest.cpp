#include "rulebase/check/modTextTags.h"

#include "base/modTextCase.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

std::string Tags(std::string_view text) {
    std::string tags;
    for (const TextTag& tag : modTextTags::Find(text).Tags) {
        tags += tag.Text() + " ";
    }
    return tags;
}

struct TagsRow {
    const char* Text;
    const char* Tags;
};

constexpr TagsRow kRows[] = {
    {"", ""},
    {"no tag at all", ""},
    {"one lone % sign", ""},
    {"%Procedure.Name%", "%Procedure.Name% "},
    {"a %A.B% c %D.E% f", "%A.B% %D.E% "},
    {"%A.B% twice %a.b%", "%A.B% "},
    {"%A.B.C%", "%A.B.C% "},
    {"%.Name%", ""},
    {"%Name%", ""},
    {"%File.WF.count%", "%File.WF.count% "},
};

}  // namespace

TEST(modTextTags, FindsWhatAReviewFillsIn) {
    for (const TagsRow& row : kRows) {
        EXPECT_EQ(Tags(row.Text), row.Tags) << row.Text;
    }
}

TEST(modTextTags, TheFirstPairOfPercentSignsThatIsNoTagEndsTheSearch) {
    const auto found = modTextTags::Find("%A.B% is 100% of %C.D%, %E.F%");
    EXPECT_EQ(found.Tags.size(), 1U);
    EXPECT_EQ(found.Stopper, " of ");
    ASSERT_EQ(found.Unreached.size(), 2U);
    EXPECT_EQ(found.Unreached.front().Text(), "%C.D%");
    EXPECT_EQ(found.Unreached.back().Text(), "%E.F%");
}

TEST(modTextTags, TheFirstTagThatIsOneTooManyEndsTheSearch) {
    std::string text;
    for (std::size_t tag = 0; tag < modTextTags::kMostTags; ++tag) {
        text += "%A.B" + std::to_string(tag) + "%";
    }
    EXPECT_EQ(modTextTags::Find(text + text).Tags.size(), modTextTags::kMostTags);
    EXPECT_FALSE(modTextTags::Find(text + text).HasMore);
    const auto found = modTextTags::Find(text + "%C.D%" + text);
    EXPECT_EQ(found.Tags.size(), modTextTags::kMostTags);
    EXPECT_TRUE(found.HasMore);
}

// As a replacement of text would do it, only that no other place than a percent sign is looked at.
TEST(modTextTags, ATagIsFilledInWhereverItStandsInAnyCase) {
    const struct {
        const char* Text;
        const char* Filled;
        std::size_t Places;
    } rows[] = {
        {"", "", 0},
        {"%A.b%", "x", 1},
        {"%a.B%%A.b%", "xx", 2},
        {"%A.b%A.b%", "xA.b%", 1},
        {"5%A.b%", "5x", 1},
        {"%%A.b%", "%x", 1},
        {"%A.c%A.b%", "%A.cx", 1},
        {"%A.b %A.b", "%A.b %A.b", 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(modTextTags::FillIn(row.Text, "%A.b%", "x"), row.Filled) << row.Text;
        EXPECT_EQ(
            modTextTags::FillIn(row.Text, "%A.b%", "x"),
            modTextCase::ReplaceAll(row.Text, "%A.b%", "x"));
        EXPECT_EQ(modTextTags::CountPlaces(row.Text, "%A.b%"), row.Places) << row.Text;
    }
}

TEST(modTextTags, SplitsAtTheFirstPoint) {
    EXPECT_EQ(modTextTags::Split("File.WF.x").Object, "File");
    EXPECT_EQ(modTextTags::Split("File.WF.x").Property, "WF.x");
    EXPECT_EQ(modTextTags::Split("File").Object, "");
}

}  // namespace dorvik
