#include "rulebase/modTextTags.h"

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

TEST(modTextTags, SplitsAtTheFirstPoint) {
    EXPECT_EQ(modTextTags::Split("File.WF.x").Object, "File");
    EXPECT_EQ(modTextTags::Split("File.WF.x").Property, "WF.x");
    EXPECT_EQ(modTextTags::Split("File").Object, "");
}

}  // namespace dorvik
