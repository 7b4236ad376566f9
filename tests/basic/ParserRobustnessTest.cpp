#include "basic/ParsedText.h"

#include <gtest/gtest.h>

#include <random>

namespace dorvik::basic {
namespace {

std::string Repeated(std::string_view text, int count) {
    std::string repeated;
    repeated.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        repeated += text;
    }
    return repeated;
}

std::string BodyErrors(const std::string& body) {
    return ErrorLines(ParseModule("Sub Main()\n" + body + "\nEnd Sub\n"));
}

constexpr int kMany = 10'000;

TEST(ParserRobustness, NestedExpressionsAreReadToTheLimitAndNoFurther) {
    struct Row {
        const char* Open;
        const char* Close;
    };
    const Row rows[] = {
        {"(", ")"}, {"f(", ")"}, {"-", ""}, {"Not ", ""}, {"1 + (", ")"}, {"a ^ -", ""}};
    for (const Row& row : rows) {
        const auto nested = [&](int levels) {
            return BodyErrors(
                "x = " + Repeated(row.Open, levels) + "1" + Repeated(row.Close, levels));
        };
        EXPECT_EQ(nested(kDeepestNesting), "") << row.Open;
        const std::string text = "The expression is nested more than 400 levels deep";
        EXPECT_NE(nested(kDeepestNesting + 1).find(text), std::string::npos) << row.Open;
        EXPECT_NE(nested(kMany).find(text), std::string::npos) << row.Open;
    }
}

TEST(ParserRobustness, ParenthesesThatNeverCloseAreAnError) {
    EXPECT_NE(BodyErrors("x = " + Repeated("(", 500'000)).find("1002"), std::string::npos);
    EXPECT_NE(BodyErrors("ReDim a(" + Repeated("(", 100'000)).find("1002"), std::string::npos);
}

TEST(ParserRobustness, ChainsAreReadToTheLimitAndNoFurther) {
    struct Row {
        const char* Start;
        const char* Term;
    };
    const Row rows[] = {
        {"a", " + a"},
        {"a", " & \"b\""},
        {"a", " ^ a"},
        {"a", " And b"},
        {"a", ".a"},
        {"a", "!a"},
        {"a", "(1)"}};
    for (const Row& row : rows) {
        const auto chain = [&](int terms) {
            return BodyErrors(std::string("x = ") + row.Start + Repeated(row.Term, terms));
        };
        const std::string text = "The expression has more than 1200 terms in one chain";
        EXPECT_EQ(chain(1'000), "") << row.Term;
        EXPECT_EQ(chain(kTallestExpression - 1), "") << row.Term;
        EXPECT_NE(chain(kTallestExpression).find(text), std::string::npos) << row.Term;
        EXPECT_NE(chain(100'000).find(text), std::string::npos) << row.Term;
    }
}

TEST(ParserRobustness, NoTreeIsTallerThanItsLimit) {
    const auto parsed = ParseModule(
        "Sub Main()\nx = " + Repeated("f(a + b + ", 300) + "1" + Repeated(")", 300) + "\nEnd Sub");
    ASSERT_EQ(ErrorLines(parsed), "");
    const auto& body = std::get<ProcedureNode>(parsed.Module.Items.at(0)).Body;
    EXPECT_LE(std::get<AssignStatement>(body.at(0).Node).Value->Height, kTallestExpression);
}

TEST(ParserRobustness, NestedBlocksAreReadToTheLimitAndNoFurther) {
    struct Row {
        const char* Open;
        const char* Close;
    };
    const Row rows[] = {
        {"If x Then\n", "End If\n"},
        {"Do\n", "Loop\n"},
        {"While x\n", "Wend\n"},
        {"With x\n", "End With\n"},
        {"Select Case x\nCase 1\n", "End Select\n"},
    };
    for (const Row& row : rows) {
        const auto nested = [&](int levels) {
            return BodyErrors(Repeated(row.Open, levels) + Repeated(row.Close, levels));
        };
        EXPECT_EQ(nested(kDeepestNesting), "") << row.Open;
        const std::string text = "1002 Blocks are nested more than 400 levels deep";
        for (int levels : {kDeepestNesting + 1, kMany}) {
            const std::string errors = nested(levels);
            EXPECT_NE(errors.find(text), std::string::npos) << row.Open;
            EXPECT_EQ(errors.find('\n'), std::string::npos) << errors.substr(0, 300);
        }
    }
}

TEST(ParserRobustness, SingleLineIfsMayNestToTheSameLimit) {
    EXPECT_EQ(BodyErrors(Repeated("If x Then ", kDeepestNesting) + "y = 1"), "");
    EXPECT_EQ(
        BodyErrors(Repeated("If x Then ", kMany) + "y = 1"),
        "2:4001 1002 Blocks are nested more than 400 levels deep");
}

TEST(ParserRobustness, TheDeepestBlocksMayHoldTheTallestExpression) {
    EXPECT_EQ(
        BodyErrors(
            Repeated("If x Then\n", kDeepestNesting) + "x = a" +
            Repeated(" + a", kTallestExpression - 1) + "\n" +
            Repeated("End If\n", kDeepestNesting)),
        "");
}

TEST(ParserRobustness, ItemsWithoutEndFollowEachOtherWithoutDepth) {
    EXPECT_EQ(ParseModule(Repeated("Sub A()\n", kMany)).Errors.size(), std::size_t{kMany});
    EXPECT_EQ(
        ParseModule(Repeated("Public Type T\nx As Long\n", kMany)).Errors.size(),
        std::size_t{kMany});
    EXPECT_EQ(ParseModule(Repeated("#If 1 Then\n", kMany)).Errors.size(), std::size_t{kMany});
    EXPECT_EQ(
        ErrorLines(ParseModule(Repeated("#If 1 Then\n", kMany) + Repeated("#End If\n", kMany))),
        "");
}

TEST(ParserRobustness, LinesOfTenMegabytes) {
    const int size = 10'000'000;
    EXPECT_EQ(BodyErrors("x = \"" + std::string(size, 'a') + "\""), "");
    EXPECT_EQ(BodyErrors("' " + std::string(size, 'a')), "");
    EXPECT_EQ(BodyErrors(std::string(size, ' ') + "x = 1"), "");
    EXPECT_EQ(BodyErrors(std::string(size, 'a') + " = 1"), "2:1 1030 Identifier too long");
    EXPECT_EQ(
        BodyErrors("x = " + std::string(size, '1')),
        "2:5 1031 Invalid number: '" + std::string(40, '1') + "' is out of the range of a Double");
    EXPECT_EQ(
        BodyErrors(std::string(size, ')')),
        "2:1 1002 The line has more than 1000000 words and signs");
}

TEST(ParserRobustness, AnArrayHasAtMost60Dimensions) {
    EXPECT_EQ(BodyErrors("Dim a(1" + Repeated(",1", 59) + ")"), "");
    EXPECT_EQ(
        BodyErrors("Dim a(1" + Repeated(",1", 60) + ")"),
        "2:127 1002 An array has at most 60 dimensions");
}

TEST(ParserRobustness, ManyLinesAreParsedOrToldOneByOne) {
    struct Row {
        const char* Line;
        bool Fails;
    };
    const Row rows[] = {
        {"x = y + foo(1)\n", false},
        {"x = )\n", true},
        {"Next\n", true},
        {"If a Then x Else y\n", false}};
    for (const Row& row : rows) {
        constexpr std::size_t kLines = 30'000;
        const auto parsed = ParseModule("Sub Main()\n" + Repeated(row.Line, kLines) + "End Sub\n");
        EXPECT_EQ(parsed.Errors.size(), row.Fails ? kLines : 0) << row.Line;
    }
}

TEST(ParserRobustness, AMillionLinesAreRead) {
    EXPECT_EQ(BodyErrors(Repeated("x = 1\n", 1'000'000)), "");
}

TEST(ParserRobustness, BytesThatAreNoTextAreErrorsAndNothingWorse) {
    constexpr char kText[] = "Sub A()\nx = \"\xFF\xFE\x80\"\n\xC3\x28 = 1\nx\0y = 2\n"
                             "\xED\xA0\x80 = 3\nx = \xE4\xB6\nEnd Sub";
    const auto parsed = ParseModule(std::string_view(kText, sizeof kText - 1));
    EXPECT_EQ(parsed.Errors.size(), 4u);
    EXPECT_EQ(parsed.Module.Lines.at(1), "x = \"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"");
}

TEST(ParserRobustness, NothingButNothingIsAModule) {
    for (const char* source : {"", "\n", "\r", "\xEF\xBB\xBF", "   ", " _", "'", ":::"}) {
        EXPECT_EQ(ErrorLines(ParseModule(source)), "") << source;
    }
}

TEST(ParserRobustness, AnyMixtureOfWordsIsParsedToItsEnd) {
    const char* const words[] = {"If",      "Then",   "Else",        "End",      "For",
                                 "Next",    "x",      "(",           ")",        "1",
                                 "\"a",     ".",      "!",           "=",        ":",
                                 "\n",      "\n",     "Do",          "Loop",     "Select",
                                 "Case",    "With",   "Sub",         "Function", ",",
                                 "-",       "Not",    "&H",          "#",        "#1/1/2000#",
                                 "[a]",     " _\n",   "Type",        "Enum",     "As",
                                 "Dim",     "ReDim",  "Private",     "Property", "Get",
                                 "ElseIf",  "EndIf",  "While",       "Wend",     "Exit",
                                 "On",      "Error",  "GoTo",        "Resume",   "100",
                                 "Name",    "Open",   "Debug.Print", "Call",     "Set",
                                 "Let",     "Mid(",   "To",          "Step",     "Each",
                                 "In",      "Is",     "TypeOf",      "New",      "Option",
                                 "#If",     "#Else",  "#End If",     "#Const",   "Const",
                                 "Declare", "Lib",    "Attribute",   "Try",      "Begin Dialog",
                                 "Static",  "Public", "ByVal",       "Optional", "ParamArray",
                                 ":=",      ";",      "'",           "&",        "%",
                                 "Erase",   "LSet",   "DefInt",      "\xC3\xA4"};
    std::mt19937 random(20240229);  // a fixed seed: the same texts in every run
    for (int text = 0; text < 300; ++text) {
        std::string source = "Sub A()\n";
        for (int i = 0; i < 300; ++i) {
            source += std::string(words[random() % std::size(words)]) + " ";
        }
        const auto parsed = ParseModule(source);
        std::int32_t line = 0;
        for (const CompileError& error : parsed.Errors) {
            EXPECT_GT(error.Place.Line, line) << source;
            EXPECT_LE(error.Place.Line, static_cast<std::int32_t>(parsed.Module.Lines.size()));
            line = error.Place.Line;
        }
        if (!parsed.Errors.empty()) {
            continue;
        }
        for (const ModuleItem& item : parsed.Module.Items) {
            EXPECT_FALSE(AstText(item).empty());
        }
    }
}

}  // namespace
}  // namespace dorvik::basic
