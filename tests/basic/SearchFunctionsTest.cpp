#include "BuiltinCalls.h"
#include "basic/library/TextSearch.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

using namespace sample;

TEST(SearchFunctions, InStr) {
    ExpectCalls({
        {"InStr", {X("abcabc"), X("bc")}, "Long 2"},
        {"InStr", {X("abcabc"), X("x")}, "Long 0"},
        {"InStr", {I(3), X("abcabc"), X("bc")}, "Long 5"},
        {"InStr", {I(3), X("abcabc"), X("bc"), I(0)}, "Long 5"},
        {"InStr", {I(6), X("abcabc"), X("bc")}, "Long 0"},
        {"InStr", {I(7), X("abcabc"), X("bc")}, "Long 0"},
        {"InStr", {I(99), X("abcabc"), X("bc")}, "Long 0"},
        {"InStr", {X(""), X("a")}, "Long 0"},
        {"InStr", {X(""), X("")}, "Long 0"},
        {"InStr", {X("abc"), X("")}, "Long 1"},
        {"InStr", {I(2), X("abc"), X("")}, "Long 2"},
        {"InStr", {I(0), X("abc"), X("b")}, "error 5"},
        {"InStr", {I(-1), X("abc"), X("b")}, "error 5"},
        {"InStr", {N(), X("abc")}, "Null"},
        {"InStr", {X("abc"), N()}, "Null"},
        {"InStr", {I(1), N(), X("a")}, "Null"},
        {"InStr", {N(), X("abc"), X("a")}, "error 94"},
        {"InStr", {X("abC"), X("B")}, "Long 0"},
        {"InStr", {I(1), X("abC"), X("Bc"), I(1)}, "Long 2"},
        {"InStr", {I(1), X("abC"), X("B"), I(2)}, "error 5"},
        {"InStr", {I(1), X("abC"), X("B"), I(-1)}, "error 5"},
        {"InStr", {X("a\u00e4\u20acb"), X("b")}, "Long 4"},
        {"InStr", {I(3), X("\u00e4b\u00e4b"), X("b")}, "Long 4"},
        {"InStr", {I(1), X("x\u00c4"), X("\u00e4"), I(1)}, "Long 2"},
        {"InStr", {I(12345), I(34)}, "Long 3"},
    });
    ExpectCalls({{"InStr", {X("abC"), X("B")}, "Long 2"}}, true);
}

TEST(SearchFunctions, InStrRev) {
    ExpectCalls({
        {"InStrRev", {X("abcabc"), X("bc")}, "Long 5"},
        {"InStrRev", {X("abcabc"), X("bc"), I(-1)}, "Long 5"},
        {"InStrRev", {X("abcabc"), X("bc"), I(6)}, "Long 5"},
        {"InStrRev", {X("abcabc"), X("bc"), I(5)}, "Long 2"},
        {"InStrRev", {X("abcabc"), X("bc"), I(2)}, "Long 0"},
        {"InStrRev", {X("abcabc"), X("x")}, "Long 0"},
        {"InStrRev", {X("abcabc"), X("bc"), I(7)}, "Long 0"},
        {"InStrRev", {X(""), X("a")}, "Long 0"},
        {"InStrRev", {X("abc"), X("")}, "Long 3"},
        {"InStrRev", {X("abc"), X(""), I(2)}, "Long 2"},
        {"InStrRev", {X("abc"), X("b"), I(0)}, "error 5"},
        {"InStrRev", {X("abc"), X("b"), I(-2)}, "error 5"},
        {"InStrRev", {N(), X("b")}, "error 94"},
        {"InStrRev", {X("abc"), N()}, "error 94"},
        {"InStrRev", {X("aBcaBc"), X("bC"), I(-1), I(1)}, "Long 5"},
        {"InStrRev", {X("aBcaBc"), X("bC")}, "Long 0"},
        {"InStrRev", {X("b\u00e4b\u20ac"), X("b")}, "Long 3"},
        {"InStrRev", {X("\u00c4b\u00c4c"), X("\u00e4"), I(-1), I(1)}, "Long 3"},
    });
}

TEST(SearchFunctions, StrComp) {
    ExpectCalls({
        {"StrComp", {X("abc"), X("abd")}, "Integer -1"},
        {"StrComp", {X("abc"), X("abc")}, "Integer 0"},
        {"StrComp", {X("b"), X("abc")}, "Integer 1"},
        {"StrComp", {X("a"), X("A")}, "Integer 1"},
        {"StrComp", {X("a"), X("A"), I(1)}, "Integer 0"},
        {"StrComp", {X("a"), X("A"), I(0)}, "Integer 1"},
        {"StrComp", {X("\u00e4"), X("z")}, "Integer 1"},
        {"StrComp", {N(), X("A")}, "Null"},
        {"StrComp", {X("a"), N()}, "Null"},
        {"StrComp", {X("a"), X("A"), I(3)}, "error 5"},
    });
    ExpectCalls({{"StrComp", {X("a"), X("A")}, "Integer 0"}}, true);
}

TEST(SearchFunctions, Replace) {
    ExpectCalls({
        {"Replace", {X("abcabc"), X("b"), X("--")}, "String a--ca--c"},
        {"Replace", {X("abcabc"), X("b"), X("")}, "String acac"},
        {"Replace", {X("aaa"), X("aa"), X("b")}, "String ba"},
        {"Replace", {X("abcabc"), X("b"), X("x"), I(3)}, "String caxc"},
        {"Replace", {X("abcabc"), X("b"), X("x"), I(1), I(1)}, "String axcabc"},
        {"Replace", {X("abcabc"), X("b"), X("x"), I(3), I(0)}, "String cabc"},
        {"Replace", {X("abc"), X("b"), X("x"), I(4)}, "String "},
        {"Replace", {X("abc"), X("b"), X("x"), I(99)}, "String "},
        {"Replace", {X("abc"), X(""), X("x")}, "String abc"},
        {"Replace", {X(""), X("a"), X("x")}, "String "},
        {"Replace", {X("abc"), X("B"), X("x")}, "String abc"},
        {"Replace", {X("abc"), X("B"), X("x"), I(1), I(-1), I(1)}, "String axc"},
        {"Replace", {X("\u00c4b\u00e4"), X("\u00e4"), X("ae"), I(1), I(-1), I(1)}, "String aebae"},
        {"Replace", {X("abc"), X("b"), X("x"), I(0)}, "error 5"},
        {"Replace", {X("abc"), X("b"), X("x"), I(1), I(-2)}, "error 5"},
        {"Replace", {N(), X("b"), X("x")}, "error 94"},
        {"Replace", {X("a"), N(), X("x")}, "error 94"},
        {"Replace", {X("a"), X("a"), N()}, "error 94"},
    });
}

TEST(SearchFunctions, AReplacementBeyondTheStringLimitIsRefusedBeforeItIsMade) {
    const Value text = CallBuiltin("String", {L(100'000), X("a")});
    const Value with = CallBuiltin("String", {L(100'000), X("b")});
    ExpectCalls({{"Replace", {text, X("a"), with}, "error 14"}});
}

TEST(SearchFunctions, TheHostIsAskedWhileALongTextWithManyNearMissesIsSearched) {
    const Value text = CallBuiltin("String", {L(8'000'000), X("a")});
    const Value sought = X(std::string(400'000, 'a') + "b");
    FixedContext context;
    EXPECT_EQ(Shown(CallBuiltin(context, "InStr", std::vector<Value>{text, sought})), "Long 0");
    EXPECT_EQ(
        Shown(CallBuiltin(context, "InStr", std::vector<Value>{L(1), text, sought, I(1)})),
        "Long 0");
    EXPECT_EQ(Shown(CallBuiltin(context, "InStrRev", std::vector<Value>{text, sought})), "Long 0");
    EXPECT_GT(context.Breaths, 10);
}

TEST(TextSearch, FindsLongTextsInAnyCaseAtTheirPlaceInTheText) {
    FixedContext context;
    // The Kelvin sign is longer than its small form, so places in both forms differ.
    const std::string sought = std::string(40, 'k') + "\u00e4";
    const std::string text = "\u212a\u212a." + std::string(39, 'K') + "\u212a\u00c4." + sought;
    TextSearch search(context, text, sought, true);
    const auto first = search.Next(0);
    EXPECT_EQ(first.Start, 7u);
    EXPECT_EQ(first.Size, 39u + 3 + 2);
    const auto second = search.Next(first.Start + first.Size);
    EXPECT_EQ(text.substr(second.Start), sought);
    EXPECT_FALSE(search.Next(second.Start + second.Size).IsFound());
    EXPECT_EQ(TextSearch::Last(context, text, sought, true, text.size() - 1).Start, first.Start);
}

TEST(ArrayTextFunctions, Split) {
    ExpectCalls({
        {"Split", {X("a b c")}, "String()[a|b|c]"},
        {"Split", {X("a,b,,c"), X(",")}, "String()[a|b||c]"},
        {"Split", {X(","), X(",")}, "String()[|]"},
        {"Split", {X("")}, "String()[]"},
        {"Split", {X("abc"), X("")}, "String()[abc]"},
        {"Split", {X("abc"), X("x")}, "String()[abc]"},
        {"Split", {X("a,b,c"), X(","), I(2)}, "String()[a|b,c]"},
        {"Split", {X("a,b,c"), X(","), I(1)}, "String()[a,b,c]"},
        {"Split", {X("a,b,c"), X(","), I(9)}, "String()[a|b|c]"},
        {"Split", {X("a,b,c"), X(","), I(0)}, "String()[]"},
        {"Split", {X("a,b,c"), X(","), I(-2)}, "error 5"},
        {"Split", {X("aXbxc"), X("x"), I(-1), I(1)}, "String()[a|b|c]"},
        {"Split", {X("aXbxc"), X("x")}, "String()[aXb|c]"},
        {"Split", {X("a--b--c"), X("--")}, "String()[a|b|c]"},
        {"Split", {X("a\u20acb"), X("\u20ac")}, "String()[a|b]"},
        {"Split", {N()}, "error 94"},
        {"UBound", {CallBuiltin("Split", {X("")})}, "Long -1"},
        {"LBound", {CallBuiltin("Split", {X("")})}, "Long 0"},
    });
}

TEST(ArrayTextFunctions, JoinAndFilter) {
    const Value words = A({X("ab"), X("Bc"), X("cd")});
    ExpectCalls({
        {"Join", {words}, "String ab Bc cd"},
        {"Join", {words, X("")}, "String abBccd"},
        {"Join", {words, X(", ")}, "String ab, Bc, cd"},
        {"Join", {A({})}, "String "},
        {"Join", {A({I(1), D(2.5), B(true), E()}), X(";")}, "String 1;2.5;True;"},
        {"Join", {A({N()})}, "error 94"},
        {"Join", {A({Value::Error(5)})}, "error 13"},
        {"Join", {X("abc")}, "error 13"},
        {"Filter", {words, X("b")}, "String()[ab]"},
        {"Filter", {words, X("b"), B(true), I(1)}, "String()[ab|Bc]"},
        {"Filter", {words, X("b"), B(false)}, "String()[Bc|cd]"},
        {"Filter", {words, X("x")}, "String()[]"},
        {"Filter", {words, X("")}, "String()[ab|Bc|cd]"},
        {"Filter", {X("abc"), X("a")}, "error 13"},
        {"UBound", {CallBuiltin("Filter", {words, X("x")})}, "Long -1"},
    });
}

TEST(ArrayTextFunctions, AJoinBeyondTheStringLimitIsRefusedBeforeItIsMade) {
    std::vector<Value> elements(1000, X("a"));
    const Value array = CallBuiltin("Array", elements);
    ExpectCalls({{"Join", {array, CallBuiltin("Space", {L(1'000'000)})}, "error 14"}});
}

TEST(ArrayTextFunctions, TooManyPartsAreRefusedBeforeTheyAreMade) {
    const Value text = CallBuiltin("String", {L(60'000'000), X(",")});
    ExpectCalls({{"Split", {text, X(",")}, "error 7"}});
}

}  // namespace dorvik::basic
