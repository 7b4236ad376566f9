#include "rulebase/check/RulebaseCheck.h"

#include "rulebase/RulebaseText.h"
#include "rulebase/check/IScriptChecker.h"
#include "support/CapturedLog.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

namespace dorvik {

namespace {

using test::RulebaseText;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

std::vector<std::string> TextsOf(const RulebaseCheck& check) {
    std::vector<std::string> texts;
    for (const RulebaseFault& fault : check.Faults()) {
        texts.push_back(std::string(FaultKindName(fault.Kind)) + " " + fault.Text());
    }
    return texts;
}

std::vector<std::string> CheckText(const RulebaseText& text, IScriptChecker* scripts = nullptr) {
    const test::CapturedLog log;
    const test::TemporaryFolder folder;
    RulebaseCheck check(scripts);
    EXPECT_TRUE(check.Run(folder.Write("a.dvk", text.Text()))) << check.Problem();
    return TextsOf(check);
}

std::string ProblemOf(std::string_view bytes) {
    const test::CapturedLog log;
    const test::TemporaryFolder folder;
    RulebaseCheck check;
    EXPECT_FALSE(check.Run(folder.Write("a.dvk", bytes)));
    return check.Problem();
}

/// A keyword with these parts, the rest without a fault.
std::string Keyword(
    const std::string& condition,
    const std::string& events,
    const std::string& description,
    const std::string& advice = "") {
    return R"(<UnauthorisedKeyword RuleID="5000" RuleActive="True" Title="K" Description="" Condition=")" +
           condition + R"(" ParserEventID=")" + events +
           R"("><ViolationDefinition Name="K" Description=")" + description +
           R"(" SeverityLevel="3" Impact="0" CategoryID="-1" Advice=")" + advice +
           R"("/></UnauthorisedKeyword>)";
}

RulebaseText WithKeywords(const std::string& rules) {
    RulebaseText text;
    text.Keywords = "<UnauthorisedKeywords>" + rules + "</UnauthorisedKeywords>";
    return text;
}

struct CodingParts {
    std::string Pending = "False";
    std::string EndEvent = "-1";
    std::string Events = "30";
    std::string Condition = "Sub Main()%CRLF%End Sub";
    std::string Description;
};

RulebaseText WithCoding(const CodingParts& parts) {
    RulebaseText text;
    text.Coding =
        R"(<CodingConventions><CodingConvention RuleID="5000" RuleActive="True" Title="C" Description="" PendingViolation=")" +
        parts.Pending + R"(" EndEventID=")" + parts.EndEvent + R"(" Condition=")" +
        parts.Condition + R"(" ParserEventID=")" + parts.Events +
        R"("><ViolationDefinition Name="C" Description=")" + parts.Description +
        R"(" SeverityLevel="3" Impact="0" CategoryID="-1" Advice=""/></CodingConvention></CodingConventions>)";
    return text;
}

struct NamingParts {
    std::string ObjectType = "28";
    std::string PropertyName = "Name";
    std::string PrefixItems = R"(<PrefixItem PSType="4" PSValue=""/>)";
    std::string PrefixAdvice;
    std::string Body = R"(BodyActive="False" BodyPattern="" BodyMaxLength="0" BodyMinLength="0")";
    std::string PrefixActive = "True";
};

RulebaseText WithNaming(const NamingParts& parts) {
    RulebaseText text;
    text.Naming =
        R"(<NamingConventions><NamingConvention RuleID="5000" RuleActive="True" CaseSensitive="True" Title="N" Description="" ObjectType=")" +
        parts.ObjectType + R"(" PropertyType="0" PropertyName=")" + parts.PropertyName +
        R"(" Condition="" ExclusionList="" PrefixActive=")" + parts.PrefixActive +
        R"(" PrefixAdvice=")" + parts.PrefixAdvice + "\" " + parts.Body +
        R"( BodyAdvice="" SuffixActive="False" SuffixAdvice=""><PrefixItems>)" + parts.PrefixItems +
        R"(</PrefixItems><ViolationDefinition Name="N" Description="" SeverityLevel="3" Impact="0" CategoryID="-1" Advice=""/></NamingConvention></NamingConventions>)";
    return text;
}

}  // namespace

TEST(RulebaseCheck, TheSampleRulebaseIsClean) {
    const test::CapturedLog log;
    RulebaseCheck check;
    ASSERT_TRUE(
        check.Run(test::ProgramPath(std::filesystem::path(DORVIK_DATA_FOLDER) / "Sample.dvk")));
    EXPECT_THAT(TextsOf(check), IsEmpty());
}

TEST(RulebaseCheck, ARulebaseWithoutRulesIsClean) {
    EXPECT_THAT(CheckText({}), IsEmpty());
}

TEST(RulebaseCheck, TellsAPartOfATolerancesListThatIsTooLargeToBeRead) {
    for (const char* part : {"99999999999", "1e999", "1D999", "-99999999999"}) {
        std::string text = RulebaseText().Text();
        const std::size_t place = text.find("ToleranceCount=\"");
        ASSERT_NE(place, std::string::npos);
        const std::size_t start = place + std::string("ToleranceCount=\"").size();
        text.replace(start, text.find('"', start) - start, std::string(part) + "|-1|-1|-1|-1|-1");
        const test::CapturedLog log;
        const test::TemporaryFolder folder;
        RulebaseCheck check;
        EXPECT_TRUE(check.Run(folder.Write("a.dvk", text)));
        EXPECT_THAT(
            TextsOf(check),
            ::testing::Contains(HasSubstr("is not a whole number and is too large")));
    }
}

TEST(RulebaseCheck, SaysWhyAFileCannotBeChecked) {
    EXPECT_THAT(ProblemOf("no XML at all"), HasSubstr("Start tag expected"));
    EXPECT_THAT(ProblemOf(""), ::testing::Not(IsEmpty()));
    EXPECT_EQ(ProblemOf("<Notes/>"), "the element 'Notes' has no schema version");
    RulebaseText text;
    text.SchemaVersion = "7.0";
    EXPECT_THAT(
        ProblemOf(text.Text()),
        HasSubstr("its schema version is '7.0'; supported versions are 6.0, 6.1 and 6.2"));
    EXPECT_THAT(
        ProblemOf("<!DOCTYPE a [<!ENTITY b 'c'>]><a SchemaVersion='6.2'>&b;</a>"),
        HasSubstr("document type"));
}

TEST(RulebaseCheck, AFileOfAnOlderSchemaIsCheckedAsItWouldBeLoaded) {
    RulebaseText text = WithKeywords(Keyword("x", "30", "%Nothing.Name%"));
    text.SchemaVersion = "6.1";
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(HasSubstr("%Nothing.Name% names an object that does not exist")));
}

TEST(RulebaseCheck, TellsAMissingAttributeAndALaterFaultInTheSameSection) {
    std::string rule = Keyword("x", "30", "");
    rule.replace(rule.find(" Condition=\"x\""), 14, "");
    std::string second = Keyword("y", "99", "");
    second.replace(second.find("5000"), 4, "5001");
    RulebaseText text = WithKeywords(rule + second);
    text.LastRuleID = "5001";
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(
            "unreadable UnauthorisedKeyword 5000 'K', Condition: the attribute is missing; the "
            "rules from here on are not loaded",
            "unknown UnauthorisedKeyword 5001 'K', ParserEventID: there is no event 99; events "
            "have the "
            "numbers 1 to 37"));
}

TEST(RulebaseCheck, TellsWhatBelongsWhereSomethingElseStands) {
    std::string rule = Keyword("x", "30|x", "");
    rule.replace(rule.find("RuleActive=\"True\""), 17, "RuleActive=\"Perhaps\"");
    EXPECT_THAT(
        CheckText(WithKeywords(rule)),
        ElementsAre(
            HasSubstr("RuleActive: 'Perhaps' was found where True or False was expected"),
            HasSubstr("ParserEventID: '30|x' was found where a list of whole numbers")));
    RulebaseText text;
    text.LastRuleID = "many";
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(
            "unreadable Rules, LastRuleID: 'many' was found where a whole number was expected"));
}

TEST(RulebaseCheck, TellsTextBetweenTheElements) {
    RulebaseText text;
    text.ControlTags = "<ControlTags>here</ControlTags>";
    EXPECT_THAT(CheckText(text), ElementsAre(HasSubstr("there is text between the elements")));
}

TEST(RulebaseCheck, TellsMissingSectionsEachByItsName) {
    RulebaseText text;
    text.ScopeTags = "";
    text.Report = "";
    text.Naming = "";
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(
            HasSubstr("the element 'ScopeTags' is missing"),
            HasSubstr("Rules: the element 'NamingConventions' is missing"),
            HasSubstr("the element 'Report' is missing")));
}

TEST(RulebaseCheck, ToleranceListsAreReadLenientlyAndThatIsTold) {
    RulebaseText text;
    const std::string list = "ToleranceCount=\"-1|-1|-1|-1|-1|-1\"";
    text.Properties.replace(
        text.Properties.find(list), list.size(), "ToleranceCount=\"-1|none|-1|-1|-1|-1|3\"");
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(
            HasSubstr("the list has more than six parts"),
            HasSubstr("'none' is not a whole number and would count as 0")));
}

TEST(RulebaseCheck, AFifthPrefixItemEndsTheSection) {
    NamingParts parts;
    parts.PrefixItems = "";
    for (int item = 0; item < 5; ++item) {
        parts.PrefixItems += R"(<PrefixItem PSType="1" PSValue="a"/>)";
    }
    EXPECT_THAT(
        CheckText(WithNaming(parts)),
        ElementsAre(HasSubstr("PrefixItem 5: a prefix or suffix has four items at most")));
}

TEST(RulebaseCheck, ASixthDefaultViolationIsTold) {
    RulebaseText text;
    text.DefaultViolations = "<DefaultViolations>";
    for (int item = 0; item < 6; ++item) {
        text.DefaultViolations +=
            R"(<ViolationItem Advice="" CategoryID="-1" Description="" Impact="900" SeverityLevel="1"/>)";
    }
    text.DefaultViolations += "</DefaultViolations>";
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(HasSubstr("ViolationItem 6: there are only five default violations")));
}

TEST(RulebaseCheck, ALevelThatIsNotBuiltInNeedsItsLevelText) {
    RulebaseText text;
    const std::string level = R"(<SeverityItem Colour="1" Description="" Impact="9" Title="T" )";
    text.Severities = "<SeverityList>" + level + R"(SeverityLevel="5"/>)" + level +
                      R"(SeverityLevel="6"/></SeverityList>)";
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(HasSubstr("SeverityItem 2, SeverityLevelText: the attribute is missing")));
}

TEST(RulebaseCheck, ARuleNumberOfASectionThatIsTooLargeIsTold) {
    RulebaseText text;
    text.Report = R"(<Report><Section SectionType="Category" CategoryID="1" )"
                  R"(CategoryRuleList="99999999999"/></Report>)";
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(HasSubstr("Section 1, CategoryRuleList: '99999999999' is too large a number")));
}

TEST(RulebaseCheck, IdentifiersMustBeUnique) {
    RulebaseText text = WithKeywords(Keyword("x", "30", "") + Keyword("y", "30", ""));
    text.Categories =
        R"(<CategoryList LastID="1"><CategoryItem ID="1" Title="A" Description="" Hidden="False"/><CategoryItem ID="1" Title="B" Description="" Hidden="False"/><CategoryItem ID="4" Title="D" Description="" Hidden="False"/></CategoryList>)";
    text.ScopeTags =
        R"(<ScopeTags><ScopeTag TagName="Local" TagValue="" TagExample=""/><ScopeTag TagName="local" TagValue="" TagExample=""/></ScopeTags>)";
    text.Components =
        R"(<AuthorisedComponents><AuthorisedComponent Advice="" Filename="a.ocx" LibID="{A}" VersionList=""/><AuthorisedComponent Advice="" Filename="b.ocx" LibID="{a}" VersionList=""/></AuthorisedComponents>)";
    text.LastRuleID = "4999";
    EXPECT_THAT(
        CheckText(text),
        UnorderedElementsAre(
            HasSubstr("ScopeTag 'local', TagName: 'local' is already that of ScopeTag 'Local'"),
            HasSubstr("CategoryItem 'B', ID: '1' is already that of CategoryItem 'A'"),
            HasSubstr("CategoryList, LastID: it is 1, less than the ID 4"),
            HasSubstr("AuthorisedComponent 'b.ocx', LibID: '{a}' is already that of"),
            HasSubstr("UnauthorisedKeyword 5000 'K', RuleID: the number is already that of"),
            HasSubstr("Rules, LastRuleID: it is 4999, less than the number of")));
}

TEST(RulebaseCheck, CategoriesAndSeveritiesMustBeThere) {
    const RulebaseText text = WithKeywords(test::KeywordElement("5000", 6, 7));
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(
            HasSubstr("unknown UnauthorisedKeyword 5000 'No Stop', ViolationDefinition CategoryID: "
                      "there is no category 7; use the ID of a category, or -1 for none"),
            HasSubstr("SeverityLevel: 6 is not a severity from 1 to 5")));
}

TEST(RulebaseCheck, AHiddenCategoryIsACategory) {
    RulebaseText text = WithKeywords(test::KeywordElement("5000", 3, 1));
    text.Categories =
        R"(<CategoryList LastID="1"><CategoryItem ID="1" Title="A" Description="" Hidden="True"/></CategoryList>)";
    EXPECT_THAT(CheckText(text), IsEmpty());
}

TEST(RulebaseCheck, KeywordsActAtThreeEventsOnly) {
    EXPECT_THAT(CheckText(WithKeywords(Keyword("x", "10|28|30", ""))), IsEmpty());
    EXPECT_THAT(
        CheckText(WithKeywords(Keyword("x", "30|34", ""))),
        ElementsAre(HasSubstr(
            "keywords are tested at events 10, 28 and 30 only, not at event 34 (end Procedure)")));
    EXPECT_THAT(
        CheckText(WithKeywords(Keyword("x", "", ""))),
        ElementsAre(HasSubstr("the rule is not assigned to any event, so it is never applied")));
}

TEST(RulebaseCheck, PatternsMustCompile) {
    EXPECT_THAT(
        CheckText(WithKeywords(Keyword("(", "30", ""))),
        ElementsAre(HasSubstr("pattern UnauthorisedKeyword 5000 'K', Condition: ")));
    EXPECT_THAT(
        CheckText(WithKeywords(Keyword("", "30", ""))),
        ElementsAre(HasSubstr("the pattern is empty, so it matches every statement")));
    NamingParts body;
    body.Body = R"(BodyActive="True" BodyPattern="[a" BodyMaxLength="3" BodyMinLength="5")";
    EXPECT_THAT(
        CheckText(WithNaming(body)),
        ElementsAre(
            HasSubstr("BodyPattern: "),
            HasSubstr("it is greater than BodyMaxLength: no body has at least 5 characters and at "
                      "most 3")));
    NamingParts prefix;
    prefix.PrefixItems = R"(<PrefixItem PSType="1" PSValue="(a"/>)";
    EXPECT_THAT(CheckText(WithNaming(prefix)), ElementsAre(HasSubstr("PrefixItems: ")));
    RulebaseText tags;
    tags.ScopeTags =
        R"x(<ScopeTags><ScopeTag TagName="Local" TagValue="l)" TagExample=""/></ScopeTags>)x";
    EXPECT_THAT(CheckText(tags), ElementsAre(HasSubstr("ScopeTag 'Local', TagValue: ")));
}

TEST(RulebaseCheck, APieceOfAPatternMayGoOnInTheNextItem) {
    NamingParts parts;
    parts.PrefixItems =
        R"x(<PrefixItem PSType="1" PSValue="(a"/><PrefixItem PSType="4" PSValue=""/><PrefixItem PSType="1" PSValue=")?"/>)x";
    EXPECT_THAT(CheckText(WithNaming(parts)), IsEmpty());
}

TEST(RulebaseCheck, TagsMustNameWhatExists) {
    EXPECT_THAT(
        CheckText(WithKeywords(
            Keyword("x", "30", "%Procdure.Name% %Procedure.Nmae%", "%Reference.FullFilename%"))),
        ElementsAre(
            HasSubstr("tag UnauthorisedKeyword 5000 'K', ViolationDefinition Description: "
                      "%Procdure.Name% names an object that does not exist; is 'Procedure' meant?"),
            HasSubstr("%Procedure.Nmae% reads a property that 'Procedure' does not have; is "
                      "'Name' meant?"),
            HasSubstr("ViolationDefinition Advice: %Reference.FullFilename% reads a property "
                      "that is never set")));
}

TEST(RulebaseCheck, UnlistedPropertiesThatCanBeReadAreNoFault) {
    EXPECT_THAT(
        CheckText(WithKeywords(Keyword(
            "x",
            "30",
            "%File.ReviewStatus% %Source.IsBlank% %VBP.Filename% %Project.Keyword% "
            "%Procedure.WF.x% %NamingConvention.ScopeTag%"))),
        IsEmpty());
}

TEST(RulebaseCheck, ATagBehindALonePercentSignIsNotFilledIn) {
    EXPECT_THAT(
        CheckText(WithKeywords(Keyword("x", "30", "100% of %Procedure.Name%"))),
        ElementsAre(HasSubstr("%Procedure.Name% is not replaced, because the percent sign before ' "
                              "of ' does not begin a tag")));
    EXPECT_THAT(CheckText(WithKeywords(Keyword("x", "30", "100% of all"))), IsEmpty());
}

TEST(RulebaseCheck, ObjectsMustBeInScopeAtTheEventsOfTheRule) {
    EXPECT_THAT(
        CheckText(WithKeywords(Keyword("x", "10|30", "%Procedure.Name%"))),
        ElementsAre("scope UnauthorisedKeyword 5000 'K', ViolationDefinition Description: "
                    "%Procedure.Name% reads 'Procedure', which is not in scope at event 10 "
                    "(Declaration)"));
}

TEST(RulebaseCheck, TheTextsOfAPendingViolationAreFilledInAtItsEndEvent) {
    CodingParts parts{"True", "35", "30", "Sub Main()%CRLF%End Sub", "%Procedure.Name%"};
    EXPECT_THAT(
        CheckText(WithCoding(parts)),
        ElementsAre(HasSubstr("not in scope at event 35 (end File)")));
    parts.EndEvent = "34";
    EXPECT_THAT(CheckText(WithCoding(parts)), IsEmpty());
    parts.Events = "10";
    EXPECT_THAT(CheckText(WithCoding(parts)), IsEmpty());
    parts.Condition = "Sub Main()%CRLF%Dorvik.RaiseViolation%CRLF%End Sub";
    EXPECT_THAT(
        CheckText(WithCoding(parts)),
        ElementsAre(HasSubstr("not in scope at event 10 (Declaration)")));
}

TEST(RulebaseCheck, APendingViolationNeedsAnEventThatEndsAScope) {
    for (const char* event : {"-1", "30", "99"}) {
        CodingParts parts;
        parts.Pending = "True";
        parts.EndEvent = event;
        EXPECT_THAT(
            CheckText(WithCoding(parts)),
            ElementsAre(HasSubstr("never-fires CodingConvention 5000 'C', EndEventID: a pending "
                                  "violation must have an end event, which is 8, 17, "
                                  "24, 27, 34, 35, 36 or 37")))
            << event;
    }
}

TEST(RulebaseCheck, ACodingConventionWithoutAScriptRaisesNothingUnlessItIsPending) {
    CodingParts parts;
    parts.Condition = "";
    EXPECT_THAT(CheckText(WithCoding(parts)), ElementsAre(HasSubstr("the rule has no script")));
    parts.Pending = "True";
    parts.EndEvent = "34";
    EXPECT_THAT(CheckText(WithCoding(parts)), IsEmpty());
}

TEST(RulebaseCheck, NamingConventionsNeedAnObjectThatIsTestedAndAPropertyOfIt) {
    NamingParts parts;
    parts.ObjectType = "0";
    EXPECT_THAT(
        CheckText(WithNaming(parts)),
        ElementsAre(HasSubstr("there is no object type 0; object types have the numbers 1 to 49")));
    parts.ObjectType = "21";
    EXPECT_THAT(
        CheckText(WithNaming(parts)),
        ElementsAre(HasSubstr("naming conventions are never applied to 'Reference'")));
    parts.ObjectType = "28";
    parts.PropertyName = "Nam";
    EXPECT_THAT(
        CheckText(WithNaming(parts)),
        ElementsAre(HasSubstr("PropertyName: 'Nam' reads a property that 'Variable' does not "
                              "have; is 'Name' meant?")));
}

TEST(RulebaseCheck, PartsOfANameNeedWhatTheyAreMadeFrom) {
    NamingParts parts;
    parts.PrefixItems =
        R"(<PrefixItem PSType="2" PSValue=""/><PrefixItem PSType="7" PSValue=""/><PrefixItem PSType="5" PSValue="Procedure.Name"/><PrefixItem PSType="5" PSValue="Name"/>)";
    EXPECT_THAT(
        CheckText(WithNaming(parts)),
        ElementsAre(
            HasSubstr(
                "PrefixItem 1: 'Variable' has no 'ProgID', so there is no control tag for it"),
            HasSubstr("PrefixItem 2: there is no item type 7"),
            HasSubstr("PrefixItem 3: 'Procedure.Name' reads 'Procedure', which is not in scope "
                      "at event 25 (Variable)"),
            HasSubstr("PrefixItem 4: 'Name' is not an object and a property joined by a point")));
}

TEST(RulebaseCheck, AnArgumentHasAScopeTagWithoutAScope) {
    NamingParts parts;
    parts.ObjectType = "20";
    EXPECT_THAT(CheckText(WithNaming(parts)), IsEmpty());
    parts.ObjectType = "6";
    EXPECT_THAT(
        CheckText(WithNaming(parts)),
        ElementsAre(HasSubstr("'Control' has no 'Scope', so there is no scope tag for it")));
}

TEST(RulebaseCheck, ARuleThatTestsNothingIsTold) {
    NamingParts parts;
    parts.PrefixActive = "False";
    EXPECT_THAT(CheckText(WithNaming(parts)), ElementsAre(HasSubstr("the rule tests nothing")));
}

TEST(RulebaseCheck, TagRowsThatNothingAsksForAreTold) {
    RulebaseText text;
    text.ControlTags =
        R"x(<ControlTags><ControlTag TagName="(Unknown)" TagValue="x" TagDescription="" TagExample=""/></ControlTags>)x";
    text.DataTypeTags =
        R"x(<DataTypeTags><DataTypeTag TagName="(Clases)" TagValue="x" TagExample=""/><DataTypeTag TagName="CInvoice" TagValue="inv" TagExample=""/></DataTypeTags>)x";
    text.ScopeTags =
        R"(<ScopeTags><ScopeTag TagName="Private" TagValue="m" TagExample=""/></ScopeTags>)";
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(
            HasSubstr("ControlTag '(Unknown)', TagName: no control has this name"),
            HasSubstr("DataTypeTag '(Clases)', TagName: no data type has this name"),
            HasSubstr("ScopeTag 'Private', TagName: no scope has this name")));
}

TEST(RulebaseCheck, TheReportMayOnlyNameWhatIsThere) {
    RulebaseText text = WithKeywords(Keyword("x", "30", ""));
    text.Report =
        R"(<Report><Section SectionType="Category" CategoryID="1" CategoryRuleList="5000|6000"/><Section SectionType="category" CategoryID="9" CategoryRuleList=""/><Section SectionType="Table" TableKey="k" TableText="" TableTitle=""/></Report>)";
    EXPECT_THAT(
        CheckText(text),
        ElementsAre(
            HasSubstr("Section 3, TableType: the attribute is missing"),
            HasSubstr("Section 1, CategoryRuleList: there is no rule 6000"),
            HasSubstr("Section 2, CategoryID: there is no category 9")));
}

TEST(RulebaseCheck, AScriptHasASubMain) {
    CodingParts parts;
    parts.Condition = "x = 1";
    EXPECT_THAT(
        CheckText(WithCoding(parts)), ElementsAre(HasSubstr("the script has no 'Sub Main'")));
}

TEST(RulebaseCheck, ScriptsGoToTheCheckerWithTheirNumbers) {
    class Checker final : public IScriptChecker {
    public:
        std::vector<std::vector<ScriptFault>> Check(std::span<const RuleScript> scripts) override {
            for (const RuleScript& script : scripts) {
                Seen.push_back(std::to_string(script.RuleID) + ":" + script.Text);
            }
            return {{{2, "'Fro' is not declared"}, {3, "'Nope' is not defined", 5}}};
        }
        std::vector<std::string> Seen;
    } checker;
    EXPECT_THAT(
        CheckText(WithCoding({}), &checker),
        ElementsAre(
            "script CodingConvention 5000 'C', Condition: line 2: 'Fro' is not declared",
            "script CodingConvention 5000 'C', Condition: line 3, column 5: 'Nope' is not "
            "defined"));
    EXPECT_THAT(checker.Seen, ElementsAre("5000:Sub Main()\r\nEnd Sub"));
}

TEST(RulebaseCheck, ARunForgetsTheOneBefore) {
    const test::CapturedLog log;
    const test::TemporaryFolder folder;
    RulebaseCheck check;
    check.Run(folder.Write("bad.dvk", WithKeywords(Keyword("(", "30", "")).Text()));
    EXPECT_EQ(check.Faults().size(), 1U);
    EXPECT_TRUE(check.Run(folder.Write("good.dvk", RulebaseText().Text())));
    EXPECT_THAT(check.Faults(), IsEmpty());
}

TEST(RulebaseCheck, WhatItFindsIsNoLineInTheLog) {
    const test::CapturedLog log;
    const test::TemporaryFolder folder;
    RulebaseText text = WithKeywords(Keyword("(", "x", ""));
    text.Report = "";
    RulebaseCheck check;
    check.Run(folder.Write("a.dvk", text.Text()));
    EXPECT_EQ(check.Faults().size(), 3U);
    EXPECT_THAT(log.Lines(), IsEmpty());
}

}  // namespace dorvik
