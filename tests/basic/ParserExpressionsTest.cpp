#include "basic/ParsedText.h"

#include <gtest/gtest.h>

namespace dorvik::basic {
namespace {

struct ExpressionRow {
    const char* Source;
    const char* Tree;
};

void ExpectExpressionTrees(std::initializer_list<ExpressionRow> rows) {
    for (const ExpressionRow& row : rows) {
        EXPECT_EQ(ExpressionText(row.Source), row.Tree) << row.Source;
    }
}

TEST(ParserExpressions, EveryLevelBindsTighterThanTheNext) {
    ExpectExpressionTrees({
        {"-3 ^ 2", "(- (3 ^ 2))"},
        {"2 ^ -1", "(2 ^ (- 1))"},
        {"-a * b", "((- a) * b)"},
        {"a * -b + c", "((a * (- b)) + c)"},
        {"a * b \\ c", "((a * b) \\ c)"},
        {"a \\ b * c", "(a \\ (b * c))"},
        {"a \\ b Mod c", "((a \\ b) Mod c)"},
        {"a Mod b \\ c", "(a Mod (b \\ c))"},
        {"a Mod b + c", "((a Mod b) + c)"},
        {"a + b Mod c", "(a + (b Mod c))"},
        {"\"a\" & 1 + 2", "(\"a\" & (1 + 2))"},
        {"a & b = c", "((a & b) = c)"},
        {"Not a = b", "(Not (a = b))"},
        {"Not a And b", "((Not a) And b)"},
        {"a Or b And c", "(a Or (b And c))"},
        {"a Xor b Or c", "(a Xor (b Or c))"},
        {"a Eqv b Xor c", "(a Eqv (b Xor c))"},
        {"a Imp b Eqv c", "(a Imp (b Eqv c))"},
    });
}

TEST(ParserExpressions, EqualLevelsGoFromLeftToRight) {
    ExpectExpressionTrees({
        {"2 ^ 3 ^ 2", "((2 ^ 3) ^ 2)"},
        {"a - b + c", "((a - b) + c)"},
        {"a / b * c", "((a / b) * c)"},
        {"a = b <> c", "((a = b) <> c)"},
        {"a < b Like c", "((a < b) Like c)"},
        {"a Imp b Imp c", "((a Imp b) Imp c)"},
    });
}

TEST(ParserExpressions, ComparisonsHaveAllTheirSpellings) {
    ExpectExpressionTrees({
        {"a <= b", "(a <= b)"},
        {"a =< b", "(a <= b)"},
        {"a >= b", "(a >= b)"},
        {"a => b", "(a >= b)"},
        {"a <> b", "(a <> b)"},
        {"a >< b", "(a <> b)"},
        {"a Is Nothing", "(a Is Nothing)"},
        {"Not a Is Nothing", "(Not (a Is Nothing))"},
        {"a Like \"b*\"", "(a Like \"b*\")"},
    });
}

TEST(ParserExpressions, SignsAndNotStandBeforeAnyOperand) {
    ExpectExpressionTrees({
        {"- - a", "(- (- a))"},
        {"+-a", "(+ (- a))"},
        {"Not Not a", "(Not (Not a))"},
        {"a - -b", "(a - (- b))"},
        {"a = Not b", "(a = (Not b))"},
        {"a And Not b And c", "((a And (Not b)) And c)"},
    });
}

TEST(ParserExpressions, MembersKeysAndArgumentsFollowEachOther) {
    ExpectExpressionTrees({
        {"a.b.c", "a.b.c"},
        {"f(1)(2).x", "f(1)(2).x"},
        {"a!b!c", "a!b!c"},
        {"a![the key].x", "a!the key.x"},
        {"d(\"k\").e(1, 2)", "d(\"k\").e(1, 2)"},
        {"f()", "f()"},
        {"f(a, , c)", "f(a, _, c)"},
        {"f(, b)", "f(_, b)"},
        {"f(ByVal a)", "f(ByVal a)"},
        {"f(1, Name:=2, To:=3)", "f(1, Name:=2, To:=3)"},
        {"f((a))", "f({a})"},
        {"(a)", "{a}"},
        {"Left$(s, 2) & x%", "(Left$(s, 2) & x%)"},
    });
}

TEST(ParserExpressions, KeywordsAreNamesBehindAPointOrInBrackets) {
    ExpectExpressionTrees({
        {"x.Type + x.Item + x.End", "((x.Type + x.Item) + x.End)"},
        {"x!Next", "x!Next"},
        {"[Next] + [a name]", "(Next + a name)"},
        {"x.[If]", "x.If"},
    });
}

TEST(ParserExpressions, NewAndTypeOfNameAClass) {
    ExpectExpressionTrees({
        {"New Collection", "(New Collection)"},
        {"New Scripting.Dictionary", "(New Scripting.Dictionary)"},
        {"TypeOf x Is Collection", "(TypeOf x Is Collection)"},
        {"TypeOf x.y(1) Is C And b", "((TypeOf x.y(1) Is C) And b)"},
        {"Not TypeOf x Is C", "(Not (TypeOf x Is C))"},
    });
}

TEST(ParserExpressions, LiteralsHaveTheirTypes) {
    ExpectExpressionTrees({
        {"True And False", "(True And False)"},
        {"Null", "Null"},
        {"Empty", "Empty"},
        {"Nothing", "Nothing"},
        {"-32768", "(- 32768&)"},
        {"\"say \"\"so\"\"\"", "\"say \"so\"\""},
        {"#1/31/2000#", "#36556#"},
    });
}

TEST(ParserExpressions, NamesOfStatementsAreOrdinaryNames) {
    ExpectExpressionTrees({
        {"Name + Open + Close + Get + Put", "((((Name + Open) + Close) + Get) + Put)"},
        {"Date - Time", "(Date - Time)"},
        {"Step + Text + Base + Compare", "(((Step + Text) + Base) + Compare)"},
        {"Error(5) & Error$(6)", "(Error(5) & Error$(6))"},
        {"Input$(3, #1)", "Input$(3, 1)"},
    });
}

TEST(ParserExpressions, ABlankBeforeAPointBeginsAnArgumentOfACall) {
    EXPECT_EQ(BodyText("With o\nFoo .x\nEnd With"), "With o [call Foo <.x>]");
    EXPECT_EQ(BodyText("With o\nFoo.x\nEnd With"), "With o [call Foo.x <>]");
    EXPECT_EQ(BodyText("With o\nFoo !x, .y\nEnd With"), "With o [call Foo <!x, .y>]");
}

TEST(ParserExpressions, APointAtTheStartOfAContinuedLineBelongsToWhatStandsBefore) {
    EXPECT_EQ(BodyText("Foo.Bar _\n    .x = 1"), "Foo.Bar.x = 1");
}

TEST(ParserExpressions, APlaceIsThatOfTheOperatorOrOfTheName) {
    const ParsedModule parsed = ParseModule("Sub M()\n  x = \xC3\xA4 + _\n    b.c\nEnd Sub");
    ASSERT_TRUE(parsed.Errors.empty());
    const auto& body = std::get<ProcedureNode>(parsed.Module.Items[0]).Body;
    const auto& assignment = std::get<AssignStatement>(body.at(0).Node);
    EXPECT_EQ(body[0].Place, (SourcePlace{2, 3}));
    EXPECT_EQ(assignment.Value->Place, (SourcePlace{2, 9}));
    const auto& sum = std::get<BinaryNode>(assignment.Value->Node);
    EXPECT_EQ(sum.Left->Place, (SourcePlace{2, 7}));
    EXPECT_EQ(sum.Right->Place, (SourcePlace{3, 7}));
    EXPECT_EQ(sum.Right->Height, 2);
    EXPECT_EQ(assignment.Value->Height, 3);
}

}  // namespace
}  // namespace dorvik::basic
