#include "cli/RulebaseCommandFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class RulebaseShowCommand : public RulebaseCommandFixture {};

}  // namespace

TEST_F(RulebaseShowCommand, TellsTitleVersionContentsCategoriesSeveritiesAndTolerances) {
    RulebaseText text = Team();
    const std::string none = "ToleranceCount=\"-1|-1|-1|-1|-1|-1\"";
    text.Properties.replace(
        text.Properties.find(none), none.size(), "ToleranceCount=\"0|-1|-1|-1|-1|20\"");
    WriteBytes("team.dvk", text.Text());
    const ProgramResult result = Run({"rulebase", "show", "team.dvk"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(result.Error, IsEmpty());
    const auto lines = LinesOf(result.Output);
    for (const char* line :
         {"Title    Team rules",
          "Version  1.0.0003",
          "File     team.dvk",
          "  1  unauthorised keywords",
          "  1  coding conventions",
          "  1  naming conventions",
          "  0  authorised components",
          "   1  Layout        2",
          "      1  Fatal        900      0",
          "  Fatal violations  at most 0",
          "  Total violations  at most 20"}) {
        EXPECT_THAT(lines, Contains(line));
    }
}

TEST_F(RulebaseShowCommand, AHiddenCategoryIsShownAsOne) {
    RulebaseText text = Team();
    text.Categories.replace(text.Categories.find("False"), 5, "True");
    WriteBytes("team.dvk", text.Text());
    EXPECT_THAT(Run({"rulebase", "show", "team.dvk"}).Output, HasSubstr("Layout (hidden)"));
}

TEST_F(RulebaseShowCommand, WhatCannotBeReadIsNoted) {
    RulebaseText text = Team();
    text.LastRuleID = "many";
    WriteBytes("team.dvk", text.Text());
    RulebaseText partly = Team();
    partly.Properties = "<RulebaseProperties Name=\"Partly\"/>";
    WriteBytes("partly.dvk", partly.Text());
    const ProgramResult result = Run({"rulebase", "show", "partly.dvk"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(result.Error, HasSubstr("note: 10 parts of 'partly.dvk' cannot be read"));
    EXPECT_THAT(
        Run({"rulebase", "show", "team.dvk"}).Error, HasSubstr("'team.dvk' cannot be read"));
}

struct UnusableRow {
    const char* Name;
    const char* Says;
};

TEST_F(RulebaseShowCommand, SaysInOneSentenceWhyAFileIsNoUse) {
    WriteBytes("notes.txt", "no rulebase");
    WriteBytes("empty.dvk", "");
    WriteBytes("other.xml", "<Notes/>");
    RulebaseText newer;
    newer.SchemaVersion = "7.0";
    WriteBytes("newer.dvk", newer.Text());
    WriteBytes("bare.dvk", "<Dorvik_Rulebase SchemaVersion=\"6.2\"/>");
    WriteBytes("bomb.dvk", "<!DOCTYPE a [<!ENTITY b 'bb'>]><a SchemaVersion='6.2'>&b;</a>");
    WriteBytes("folder/x", "");
    constexpr UnusableRow kRows[] = {
        {"missing.dvk", "the rulebase 'missing.dvk' does not exist"},
        {"folder", "the rulebase 'folder' is a folder"},
        {"notes.txt", "Start tag expected, '<' not found (line 1)"},
        {"empty.dvk", "the rulebase 'empty.dvk' cannot be read: "},
        {"other.xml", "the element 'Notes' has no schema version"},
        {"newer.dvk", "its schema version is '7.0'"},
        {"bare.dvk", "parts of it are missing"},
        {"bomb.dvk", "document type"},
    };
    for (const char* command : {"show", "list", "check"}) {
        for (const UnusableRow& row : kRows) {
            if (std::string(command) == "check" && std::string(row.Name) == "bare.dvk") {
                continue;  // that one can be checked
            }
            const ProgramResult result = Run({"rulebase", command, row.Name});
            EXPECT_EQ(result.ExitCode, 2) << command << " " << row.Name;
            EXPECT_THAT(result.Errors(), SizeIs(1)) << result.Error;
            EXPECT_THAT(result.Error, HasSubstr(row.Says));
            EXPECT_THAT(result.Output, IsEmpty());
            ExpectClearSentences(result);
        }
    }
}

TEST_F(RulebaseShowCommand, WrongUseNamesTheCommandToAsk) {
    EXPECT_THAT(
        Run({"rulebase", "paint"}).Error,
        HasSubstr("unknown command 'paint' of 'dorvik rulebase' (see 'dorvik rulebase --help')"));
    EXPECT_THAT(Run({"rulebase"}).Error, HasSubstr("(see 'dorvik rulebase --help')"));
    EXPECT_THAT(Run({"rulebase", "show"}).Error, HasSubstr("(see 'dorvik rulebase show --help')"));
    EXPECT_EQ(Run({"rulebase", "show"}).ExitCode, 2);
    EXPECT_EQ(Run({"rulebase", "--help"}).ExitCode, 0);
}

TEST_F(RulebaseShowCommand, HelpFitsAnEightyColumnTerminal) {
    for (const char* command : {"show", "list", "explain", "check", "new", "save", "document"}) {
        for (const std::string& line : LinesOf(Run({"rulebase", command, "--help"}).Output)) {
            EXPECT_LE(line.size(), 80U) << line;
        }
    }
}

}  // namespace dorvik::test
