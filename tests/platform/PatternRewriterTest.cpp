#include "platform/regex/PatternRewriter.h"

#include "platform/regex/PatternReader.h"
#include "platform/regex/modPatternFacts.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

PatternTree TreeOf(std::string_view pattern, PatternFlags flags) {
    PatternTree tree;
    PatternReader reader(pattern, flags);
    EXPECT_TRUE(reader.Read(tree)) << pattern;
    return tree;
}

std::string Rewritten(std::string_view pattern, PatternFlags flags) {
    PatternRewriter rewriter;
    return rewriter.Rewrite(TreeOf(pattern, flags)) ? rewriter.Text() : "too large";
}

TEST(PatternRewriter, WritesWhatTheLibraryReadsAsTheDialectMeansIt) {
    struct Row {
        const char* Pattern;
        PatternFlags Flags;
        const char* Text;
    };
    const PatternFlags plain;
    const PatternFlags ignoreCase{true, false};
    const PatternFlags multiline{false, true};
    for (const Row& row : {
             Row{"^On Error$", plain, R"(^On\ Error$)"},
             Row{"a.b", plain, "a[^\\x0a\\x0d\xE2\x80\xA8-\xE2\x80\xA9]b"},
             Row{"[^]", plain, "."},
             Row{"[]", plain, "(?!)"},
             Row{R"(\w\d\W)", plain, R"(\w\d[^0-9A-Z_a-z])"},
             Row{R"(\v\A\cM)", plain, R"(\x0bA\x0d)"},
             Row{"a{2,}?b{0,1}c{1,}", plain, "a{2,}?b?c+"},
             Row{"a{65536}", plain, "too large"},
             Row{"a{1,65536}", plain, "too large"},
             Row{"(a)(?:bc)*", plain, "(a)(?:bc)*"},
             Row{R"((a)\1{2})", plain, R"((a)(?:\g{1}){2})"},
             Row{"a|b", plain, "(?=)(?:a|b)"},
             Row{"^(a|b)", plain, "^(a|b)"},
             Row{"^(a|b)", multiline, R"((?=)(?:(?:^|(?<=[\n\r\x{2028}\x{2029}]))(a|b)))"},
             Row{"Get 1", ignoreCase, R"((?i)Get\ 1)"},
             Row{"asa", ignoreCase, "(?i)a(?-i)[Ss](?i)a"},
             Row{"a|b", ignoreCase, "(?=)(?:(?i)a(?-i)|(?i)b(?-i))"},
             Row{"[a-c]", ignoreCase, "[A-Ca-c]"},
         }) {
        EXPECT_EQ(Rewritten(row.Pattern, row.Flags), row.Text) << row.Pattern;
    }
}

TEST(modPatternFacts, FindWhereTheLibraryDiffers) {
    struct Row {
        const char* Pattern;
        bool RepeatsEmptyText;
        bool MayKeepStaleGroups;
        bool TakesLongestFirst;
    };
    for (const Row& row : {
             Row{"abc", false, false, true},
             Row{"^[a-z]+", false, false, true},
             Row{"^(a)b{2}c*(?=d|e)", false, false, true},
             Row{"a+b+", false, false, false},
             Row{"a+?", false, false, false},
             Row{"a|b", false, false, false},
             Row{"(?:ab)*", false, false, false},
             Row{"(a*)*", true, false, false},
             Row{"(?:a?b?)+", true, false, false},
             Row{"(?:a?){2}", false, false, false},
             Row{"(?=a)*", true, false, false},
             Row{"(a)*", false, false, false},
             Row{"(?:(a)|b)*", false, true, false},
             Row{"(?:(a)|(b))?", false, false, false},
             Row{"(?:(a)|(b)){2}", false, true, false},
             Row{"(?:(a)?b)+", false, true, false},
             Row{"(?:(a)+b)+", false, false, false},
             Row{"(?:(?!(a))b)+", false, true, false},
             Row{"(?:(?=(a))a)+", false, false, false},
             Row{R"((?:(.)\1)+)", false, false, false},
             Row{R"((?:\1(a))+)", false, true, false},
             Row{R"((a\1)+)", false, true, false},
             Row{R"((b)(?:\1a)+)", false, false, false},
         }) {
        const PatternTree tree = TreeOf(row.Pattern, {});
        EXPECT_EQ(modPatternFacts::RepeatsEmptyText(tree.Root), row.RepeatsEmptyText)
            << row.Pattern;
        EXPECT_EQ(modPatternFacts::MayKeepStaleGroups(tree.Root), row.MayKeepStaleGroups)
            << row.Pattern;
        EXPECT_EQ(modPatternFacts::TakesLongestFirst(tree.Root), row.TakesLongestFirst)
            << row.Pattern;
    }
}

}  // namespace
}  // namespace dorvik
