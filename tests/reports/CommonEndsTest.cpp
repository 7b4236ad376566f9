#include "reports/format/CommonEnds.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik::test {

namespace {

struct EndsRow {
    std::vector<std::string> Texts;
    const char* Head;
    const char* Tail;
};

class CommonEndsTest : public testing::TestWithParam<EndsRow> {};

TEST_P(CommonEndsTest, EachTextIsTheHeadItsMiddleAndTheTail) {
    CommonEnds ends;
    for (const std::string& text : GetParam().Texts) {
        ends.Add(text);
    }
    EXPECT_EQ(GetParam().Head, ends.Head());
    EXPECT_EQ(GetParam().Tail, ends.Tail());
    for (const std::string& text : GetParam().Texts) {
        EXPECT_EQ(text, ends.Head() + std::string(ends.MiddleOf(text)) + ends.Tail());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Texts,
    CommonEndsTest,
    testing::Values(
        EndsRow{{"alike", "alike", "alike"}, "alike", ""},
        EndsRow{{"", ""}, "", ""},
        EndsRow{{"", "more"}, "", ""},
        EndsRow{{"the name x is", "the name yy is", "the name x is"}, "the name ", " is"},
        EndsRow{{"short", "short and more"}, "short", ""},
        EndsRow{{"short and more", "short", "short and more"}, "short", ""},
        // The second leaves no tail, so a third that ends like the first must not bring one back.
        EndsRow{{"a one", "b two", "c one"}, "", ""},
        EndsRow{{"one", "one two", "one three two"}, "one", ""},
        // Both ends of the shorter text would overlap in "aa".
        EndsRow{{"aaa", "aa", "aaaa"}, "aa", ""},
        EndsRow{{"xaay", "xay", "xaaay"}, "xa", "y"},
        // A character of several bytes is never cut: these differ in its last byte, or in its first.
        EndsRow{{"n\xC3\xA4h", "n\xC3\xB6h"}, "n", "h"},
        EndsRow{{"\xC3\xA4!", "\xC4\xA4!"}, "", "!"}));

}  // namespace

}  // namespace dorvik::test
