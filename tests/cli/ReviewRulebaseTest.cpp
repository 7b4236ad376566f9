// A review never goes with less than its rulebase without a word.

#include "cli/RulebaseCommandFixture.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace dorvik::test {

namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kTolerances = "ToleranceCount=\"0|-1|-1|-1|-1|-1\"";

class ReviewRulebase : public RulebaseCommandFixture {
protected:
    ReviewRulebase() { WriteModuleProject("A", "    Stop"); }

    /// The rulebase of the tests with one text in place of another.
    void WriteChanged(const std::string& from, const std::string& to) const {
        std::ifstream stream(DORVIK_RULEBASE, std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(stream), {}};
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos);
        text.replace(at, from.size(), to);
        WriteBytes("changed.dvk", text);
    }
    ProgramResult Review(std::vector<std::string> more = {}) const {
        std::vector<std::string> arguments{"review", "A.vbp", "--rulebase", "changed.dvk"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
    /// The sentences of `rulebase check` about the same file.
    std::vector<std::string> Checked() const {
        std::vector<std::string> sentences;
        const std::string output = Run({"rulebase", "check", "changed.dvk"}).Output;
        for (std::size_t at = 0, end = 0; (end = output.find('\n', at)) != std::string::npos;
             at = end + 1) {
            sentences.push_back(
                output.substr(at + std::string("changed.dvk: ").size(), end - at - 13));
        }
        return sentences;
    }
};

}  // namespace

TEST_F(ReviewRulebase, ARuleThatCannotBeReadEndsTheReviewBeforeItBegins) {
    WriteChanged("RuleID=\"", "RuleID=\"x");
    const ProgramResult result = Review();
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Output, IsEmpty());
    EXPECT_FALSE(Exists("Dorvik/A_DORVIK.mdb"));
    ASSERT_EQ(result.Errors().size(), 2U) << result.Error;
    EXPECT_THAT(
        result.Errors()[0],
        AllOf(
            HasSubstr("changed.dvk', line "),
            HasSubstr("UnauthorisedKeyword"),
            HasSubstr(", RuleID: 'x")));
    EXPECT_THAT(
        result.Errors()[1],
        AllOf(
            HasSubstr("nothing was reviewed"),
            HasSubstr("(use --accept-faults to review with the rest)")));
    ExpectClearSentences(result);
    for (const std::string& sentence : Checked()) {
        EXPECT_THAT(result.Error, HasSubstr(sentence)) << "what the check says of the same file";
    }
}

TEST_F(ReviewRulebase, AMissingToleranceDoesNotTurnAFailIntoAPass) {
    WriteChanged(kTolerances, "ToleranceCount=\"0|0|0|0|0|0\"");
    EXPECT_EQ(Review().ExitCode, 1);
    WriteChanged(kTolerances, "");
    const ProgramResult result = Review();
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(
        result.Error, HasSubstr("RulebaseProperties, ToleranceCount: the attribute is missing"));
}

TEST_F(ReviewRulebase, WithAcceptFaultsTheRestIsUsedAndTheFaultsAreTold) {
    WriteChanged(kTolerances, "");
    const ProgramResult result = Review({"--accept-faults"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(
            HasSubstr("ToleranceCount: the attribute is missing"),
            HasSubstr("note: the unreadable parts of")));
    EXPECT_THAT(result.Output, HasSubstr("passed"));
}

TEST_F(ReviewRulebase, WhatAReviewDoesNotReadDoesNotEndIt) {
    RulebaseText withoutReport = Team();
    withoutReport.Report = "";
    RulebaseText offRule = Team();
    offRule.Keywords = "<UnauthorisedKeywords>" + KeywordElement("x", 3, 1, "30", "False") +
                       "</UnauthorisedKeywords>";
    for (const RulebaseText& text : {withoutReport, offRule}) {
        WriteBytes("changed.dvk", text.Text());
        const ProgramResult result = Review();
        EXPECT_LE(result.ExitCode, 1) << result.Error;
        EXPECT_FALSE(Checked().empty()) << "the check tells it all the same";
    }
}

TEST_F(ReviewRulebase, AnOlderSchemaIsNoFault) {
    WriteChanged("SchemaVersion=\"6.2\"", "SchemaVersion=\"6.1\"");
    const ProgramResult result = Review();
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(result.Error, IsEmpty());
}

TEST_F(ReviewRulebase, TwoRulesOfOneNumberEndTheReviewUnlessOneOfThemIsOff) {
    RulebaseText text = Team();
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") + KeywordElement("5000") +
                    "</UnauthorisedKeywords>";
    WriteBytes("changed.dvk", text.Text());
    const ProgramResult result = Review();
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(
        result.Error, HasSubstr("RuleID: the number is already that of UnauthorisedKeyword 5000"));
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000", 3, 1, "30", "False") +
                    KeywordElement("5000") + "</UnauthorisedKeywords>";
    WriteBytes("changed.dvk", text.Text());
    EXPECT_NE(Review().ExitCode, 2);
}

TEST_F(ReviewRulebase, WhatIsNoRulebaseIsToldAsTheCheckTellsIt) {
    WriteBytes("changed.dvk", "<Dorvik_Rulebase SchemaVersion=\"6.2\">\n<Oops>\n");
    const ProgramResult review = Review();
    const ProgramResult check = Run({"rulebase", "check", "changed.dvk"});
    EXPECT_EQ(review.ExitCode, 2);
    ASSERT_EQ(review.Errors().size(), 1U);
    const std::string reason = check.Error.substr(check.Error.find("cannot be read: "));
    EXPECT_THAT(review.Error, HasSubstr(reason));
    EXPECT_THAT(reason, HasSubstr("line"));
}

TEST_F(ReviewRulebase, AScriptThatDoesNotCompileIsToldAsTheCheckTellsIt) {
    RulebaseText text = Team();
    text.Coding =
        R"(<CodingConventions><CodingConvention RuleID="5001" RuleActive="True" Title="S" Description="" PendingViolation="False" EndEventID="-1" Condition="Sub Main()%CRLF%x = %CRLF%End Sub" ParserEventID="28"><ViolationDefinition Name="C" Description="" SeverityLevel="3" Impact="1" CategoryID="-1" Advice=""/></CodingConvention></CodingConventions>)";
    WriteBytes("changed.dvk", text.Text());
    const ProgramResult result = Review();
    EXPECT_EQ(result.ExitCode, 2);
    ASSERT_FALSE(Checked().empty());
    EXPECT_THAT(result.Error, HasSubstr(Checked().front()));
    EXPECT_THAT(result.Error, HasSubstr("CodingConvention 5001 'S', Condition: line 2, column "));
}

TEST_F(ReviewRulebase, TheCriteriaCountTheRulesThatTookPart) {
    RulebaseText text = Team();
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") +
                    KeywordElement("5003", 3, 1, "30", "False") + "</UnauthorisedKeywords>";
    text.LastRuleID = "5003";
    text.References =
        R"(<AuthorisedReferences><AuthorisedReference Advice="" Description="d" Filename="f" LibID="1" VersionList=""/><AuthorisedReference Advice="" Description="d" Filename="f" LibID="2" VersionList=""/></AuthorisedReferences>)";
    WriteBytes("changed.dvk", text.Text());
    ASSERT_LE(Review().ExitCode, 1);
    // One keyword and the naming convention; the other keyword and the coding convention are off.
    EXPECT_THAT(
        Run({"results", "Dorvik/A_DORVIK.mdb", "criteria"}).Output,
        AllOf(HasSubstr("Active rules  2\n"), HasSubstr("Listed"), Not(HasSubstr("Rules\n"))));
    EXPECT_THAT(
        Run({"results", "Dorvik/A_DORVIK.mdb", "criteria", "--json"}).Output,
        HasSubstr("\"activeRules\": 2,"));
}

TEST_F(ReviewRulebase, TheTemplateOfTheResultsIsNamedWhereItIsMissing) {
    // Nothing of the installation may be moved away from under other tests, so a copy of the program is.
    const std::filesystem::path program(DORVIK_PROGRAM);
    std::filesystem::create_directories(Work("bin"));
    std::filesystem::copy_file(program, Work("bin/dorvik"));
    const int status = std::system(
        ("cd '" + Work("").string() + "' && XDG_STATE_HOME='" + Work("state").string() +
         "' ./bin/dorvik review A.vbp --rulebase '" + DORVIK_RULEBASE + "' > out.txt 2> err.txt")
            .c_str());
    EXPECT_NE(status, 0);
    EXPECT_THAT(Bytes("err.txt"), HasSubstr("the template of the results databases '"));
    EXPECT_THAT(Bytes("err.txt"), HasSubstr("is missing; install dorvik again"));
}

}  // namespace dorvik::test
