#include "RulesInReview.h"
#include "rulebase/model/TagItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::AdviceOf;
using test::Fill;
using test::Item;
using test::RulesInReview;
using test::RunForm;
using test::Script;
using test::SetTag;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// The rule of a usual standard: scope tag, array tag, data type tag, then a capital.
NamingConvention& AddUsualRule(RulesInReview& review) {
    NamingConvention& rule = review.AddNaming("Usual", ObjectType::Variable);
    Fill(rule.Prefix(), {Item(psScopeTag), Item(psArrayTag), Item(psDataTypeTag)});
    rule.Prefix().SetAdvice("Start with the scope and type tags.");
    rule.SetBodyActive(true);
    rule.SetBodyPattern("^[A-Z][a-zA-Z0-9]*$");
    rule.SetMinBodyLength(3);
    rule.SetBodyAdvice("Bad body.");
    SetTag(review.Rules().ScopeTags(), "Private (Module level)", "m_");
    SetTag(review.Rules().ScopeTags(), "Local", "");
    SetTag(review.Rules().DataTypeTags(), "String", "s");
    review.Rules().SetArrayTag("a");
    return rule;
}

TEST(NamingReview, AComposedPrefixAndABodyPass) {
    RulesInReview review;
    AddUsualRule(review);
    review.Run({"modA=Private m_asNames() As String\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
}

TEST(NamingReview, AWrongPrefixIsReportedAndTheBodyIsNotTested) {
    RulesInReview review;
    AddUsualRule(review);
    review.Run({"modA=Private m_names() As String\n"});
    EXPECT_THAT(AdviceOf(review), ElementsAre("Start with the scope and type tags."));
    EXPECT_THAT(review.Query("SELECT RuleType FROM Violations"), ElementsAre("5"));
    EXPECT_THAT(review.Query("SELECT LocMember FROM Violations"), ElementsAre("(Declarations)"));
}

TEST(NamingReview, AShortBodyAfterARightPrefixIsReportedWithTheAdviceOfTheBody) {
    RulesInReview review;
    AddUsualRule(review);
    review.Run({"modA=Private m_asNo() As String\n"});
    EXPECT_THAT(AdviceOf(review), ElementsAre("Bad body."));
}

TEST(NamingReview, AlternativesInATagStayOnePartAndTheLongestOneIsThePrefix) {
    RulesInReview review;
    AddUsualRule(review);
    SetTag(review.Rules().DataTypeTags(), "String", "s|str");
    review.Run({"modA=Private m_astrNames() As String\nPrivate m_asNames() As String\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
}

TEST(NamingReview, AnEmptyTagLeavesThePrefixUntested) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("Tagged", ObjectType::Variable);
    Fill(rule.Prefix(), {Item(psDataTypeTag)});
    SetTag(review.Rules().DataTypeTags(), "String", "");
    review.Run({"modA=Private anything As String\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
}

TEST(NamingReview, APrefixOfFourUnusedItemsIsNotTested) {
    RulesInReview review;
    review.AddNaming("Unused", ObjectType::Variable).Prefix().SetActive(true);
    review.Run({"modA=Private anything As String\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
}

TEST(NamingReview, ANameOnTheExclusionListIsPassedOverInAnyCaseForThatRuleOnly) {
    RulesInReview review;
    NamingConvention& first = review.AddLeastLength("First", ObjectType::Variable, 9);
    first.SetExclusionList("i;J");
    first.SetCaseSensitive(true);
    review.AddLeastLength("Second", ObjectType::Variable, 9);
    review.Run({"modA=Private I As String\nPrivate j As String\n"});
    EXPECT_THAT(review.Titles(), ElementsAre("Second", "Second"));
}

TEST(NamingReview, ANameEqualToItsPrefixHasAnEmptyBodyOfWhichOnlyTheLengthCounts) {
    RulesInReview review;
    NamingConvention& lengthless = review.AddNaming("Pattern", ObjectType::Variable);
    Fill(lengthless.Prefix(), {Item(psText, "str")});
    lengthless.SetBodyActive(true);
    lengthless.SetBodyPattern("^[A-Z]");
    NamingConvention& length = review.AddNaming("Length", ObjectType::Variable);
    Fill(length.Prefix(), {Item(psText, "str")});
    length.SetBodyActive(true);
    length.SetMinBodyLength(1);
    review.Run({"modA=Private str As String\n"});
    EXPECT_THAT(review.Titles(), ElementsAre("Length"));
}

TEST(NamingReview, ASuffixLongerThanTheRestAfterThePrefixLeavesTheBodyUncut) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("Both", ObjectType::Variable);
    Fill(rule.Prefix(), {Item(psText, "abc")});
    Fill(rule.Suffix(), {Item(psText, "bcd")});
    rule.SetBodyActive(true);
    rule.SetBodyPattern("^d$");  // what the prefix leaves of "abcd"
    review.Run({"modA=Private abcd As String\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
}

TEST(NamingReview, ASuffixIsTestedAtTheEndAndReportedWithItsOwnAdvice) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("Suffix", ObjectType::Variable);
    Fill(rule.Suffix(), {Item(psText, "_v")});
    rule.Suffix().SetAdvice("End %Variable.Name% in _v.");
    review.Run({"modA=Private one_v As Long\nPrivate _vtwo As Long\nPrivate three As Long\n"});
    EXPECT_THAT(AdviceOf(review), Contains("End three in _v."));
    EXPECT_THAT(AdviceOf(review), Not(Contains("End one_v in _v.")));
}

TEST(NamingReview, CaseCountsOnlyIfTheRuleSaysSo) {
    RulesInReview review;
    NamingConvention& strict = review.AddNaming("Strict", ObjectType::Variable);
    strict.SetCaseSensitive(true);
    strict.SetBodyActive(true);
    strict.SetBodyPattern("^[a-z]+$");
    NamingConvention& loose = review.AddNaming("Loose", ObjectType::Variable);
    loose.SetCaseSensitive(false);
    loose.SetBodyActive(true);
    loose.SetBodyPattern("^[a-z]+$");
    review.Run({"modA=Private ABC As Long\n"});
    EXPECT_THAT(review.Titles(), ElementsAre("Strict"));
}

TEST(NamingReview, ABodyThatIsTooLongOrTooShortIsReported) {
    RulesInReview review;
    NamingConvention& rule = review.AddLeastLength("Length", ObjectType::Variable, 2);
    rule.SetMaxBodyLength(4);
    review.Run({"modA=Private a As Long\nPrivate ab As Long\nPrivate abcd As Long\n"
                "Private abcde As Long\n"});
    EXPECT_THAT(review.Query("SELECT LineNum FROM Violations"), ElementsAre("1", "4"));
}

TEST(NamingReview, APublicWithEventsVariableRunsTheRulesOfThreeKindsInOrder) {
    RulesInReview review;
    for (const auto& [title, object] :
         {std::pair{"35", ObjectType::PrivateWithEventsVariable},
          std::pair{"34", ObjectType::PublicWithEventsVariable},
          std::pair{"33", ObjectType::WithEventsVariable},
          std::pair{"43", ObjectType::NoWithEventsVariable},
          std::pair{"28", ObjectType::Variable}}) {
        review.AddLeastLength(title, object, 30);
    }
    review.Run({"modA=Public WithEvents oApp As Thing\n"});
    EXPECT_THAT(review.Titles(), ElementsAre("28", "33", "34"));
}

TEST(NamingReview, EachDeclarationRunsTheRulesOfItsKinds) {
    RulesInReview review;
    for (std::int32_t type = kFirstObjectType; type <= kLastObjectType; ++type) {
        review.AddLeastLength(std::to_string(type), static_cast<ObjectType>(type), 90);
    }
    review.Run(
        {"modA=Public Const C = 1\nPrivate Const D = 1\n"
         "Private Declare Sub S Lib \"k\" (ByVal x As Long)\n"
         "Public Enum E\nOne = 1\nEnd Enum\n"
         "Private Type T\nX As Long\nEnd Type\n"
         "Private v As Long\n"
         "Sub P(ByVal a As Long)\nConst K = 1\nStatic s As Long\nDim d As Long\nlbl:\nEnd Sub\n"
         "Function F()\nEnd Function\n"
         "Property Get G()\nEnd Property\n"});
    EXPECT_THAT(
        review.Titles(),
        ElementsAre(
            "5",
            "22",
            "5",
            "26",  // constants
            "7",
            "1",
            "13",  // an external procedure and its argument
            "10",
            "9",
            "25",
            "24",
            "28",
            "43",
            "30",  // enumeration, type, variable
            "1",
            "20",
            "5",
            "27",
            "28",
            "43",
            "32",
            "28",
            "43",
            "31",
            "15",
            "17",
            "44",
            "17",
            "46",
            "17",
            "45",
            "12",
            "37",
            "18"));
}

TEST(NamingReview, AConditionDecidesWhetherARuleApplies) {
    RulesInReview review;
    NamingConvention& rule = review.AddLeastLength("Conditional", ObjectType::Variable, 30);
    rule.SetCondition(Script("Dim n\r\nDorvik.GetObjectProperty \"Variable\", \"Name\", n\r\n"
                             "If n = \"b\" Then Dorvik.ApplyConvention"));
    review.Run({"modA=Private a As Long\nPrivate b As Long\n"});
    EXPECT_THAT(review.Query("SELECT LineNum FROM Violations"), ElementsAre("2"));
}

TEST(NamingReview, AMalformedPatternIsLoggedAndTheNamePasses) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("Broken", ObjectType::Variable);
    rule.SetBodyActive(true);
    rule.SetBodyPattern("(");
    review.Run({"modA=Private a As Long\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(
        review.Log(),
        Contains(HasSubstr("Expected ')' in regular expression '(' at position 2 in rule "
                           "5000#C_NCHelper::TestPattern")));
}

TEST(NamingReview, ADataTypeWithoutTagIsLoggedAndTheNamePasses) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("Tagged", ObjectType::Variable);
    Fill(rule.Prefix(), {Item(psDataTypeTag)});
    review.Run({"modA=Private a As Nowhere\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(review.Log(), Contains(HasSubstr("Data type 'Nowhere' undefined.")));
}

TEST(NamingReview, TypesOfTheProjectItselfTakeTheTagOfTheirKind) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("Tagged", ObjectType::Variable);
    Fill(rule.Prefix(), {Item(psDataTypeTag)});
    rule.Prefix().SetAdvice("%NamingConvention.DataTypeTag%");
    SetTag(review.Rules().DataTypeTags(), "(Enumerations)", "en");
    SetTag(review.Rules().DataTypeTags(), "(User-Defined Types)", "ty");
    SetTag(review.Rules().DataTypeTags(), "String", "fx");
    review.Run(
        {"modA=Public Enum Colour\nRed = 1\nEnd Enum\n",
         "modB=Private Type Point\nX As Long\nEnd Type\n"
         "Private a As Colour\nPrivate b As modA.Colour\nPrivate c As Point\n"
         "Private d As String * 10\n"});
    EXPECT_THAT(AdviceOf(review), ElementsAre("en", "en", "ty", "fx"));
}

TEST(NamingReview, APropertyItemPutsAPropertyIntoThePattern) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("By file", ObjectType::Variable);
    Fill(rule.Prefix(), {Item(psProperty, "File.Name"), Item(psText, "_")});
    review.Run({"modA=Private modA_x As Long\nPrivate modB_x As Long\n"});
    EXPECT_THAT(review.Query("SELECT LineNum FROM Violations"), ElementsAre("2"));
}

TEST(NamingReview, AFailedPrefixOverwritesTheAdviceOfTheRuleForTheRestOfTheReview) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("Rule", ObjectType::Variable);
    rule.ViolationDefinition().SetAdvice("Never seen.");
    Fill(rule.Prefix(), {Item(psText, "x")});
    rule.Prefix().SetAdvice("");
    review.Run({"modA=Private a As Long\n"});
    EXPECT_THAT(AdviceOf(review), ElementsAre(""));
}

/// A form whose layout has one control of that program identifier.
std::string FormWith(const std::string& programId, const std::string& moreProperties = {}) {
    return "VERSION 5.00\nBegin VB.Form frmA\n" + moreProperties + "   Begin " + programId +
           " ctlOne\n   End\nEnd\nAttribute VB_Name = \"frmA\"\n";
}

NamingConvention& AddControlRule(RulesInReview& review) {
    NamingConvention& rule = review.AddNaming("Control", ObjectType::Control);
    Fill(rule.Prefix(), {Item(psControlTag)});
    return rule;
}

TEST(NamingReview, AControlWithoutTagIsADefaultViolationIfTheRulebaseSaysSo) {
    RulesInReview review;
    AddControlRule(review);
    review.Rules().SetUnknownControlViolation(true);
    RunForm(review, FormWith("Gadget.Dial"));
    EXPECT_THAT(review.Titles(), ElementsAre(review.Rules().DefaultViolations().Item(5).Title()));
    EXPECT_THAT(review.Query("SELECT RuleID FROM Violations"), ElementsAre("5000"));
    EXPECT_THAT(review.Query("SELECT RuleType FROM Violations"), ElementsAre("5"));
}

TEST(NamingReview, AControlWithoutTagTakesTheRowOfUnknownOnesOtherwise) {
    RulesInReview review;
    AddControlRule(review);
    RunForm(review, FormWith("Gadget.Dial"));  // "ctlOne" begins with "ctl"
    EXPECT_THAT(review.Titles(), IsEmpty());
}

TEST(NamingReview, AControlTakesTheTagOfItsProgramIdentifier) {
    RulesInReview review;
    AddControlRule(review);
    RunForm(review, FormWith("VB.CommandButton"));
    EXPECT_THAT(review.Titles(), ElementsAre("Control"));
}

TEST(NamingReview, AFormIsOfTheTypeOfItsRoleAmongMdiForms) {
    for (const auto& [property, expected] :
         {std::pair{"", "49"}, std::pair{"   MDIChild        =   -1  'True\n", "48"}}) {
        RulesInReview review;
        for (const auto& [title, object] :
             {std::pair{"48", ObjectType::MDIChildFormFile},
              std::pair{"49", ObjectType::NonMDIFormFile}}) {
            review.AddLeastLength(title, object, 30);
        }
        RunForm(review, FormWith("VB.Label", property));
        EXPECT_THAT(review.Titles(), ElementsAre(expected));
    }
}

TEST(NamingReview, AnMdiParentGetsItsRulesAtTheEndOfTheFileOnly) {
    RulesInReview review;
    for (const auto& [title, object] :
         {std::pair{"12", ObjectType::File},
          std::pair{"36", ObjectType::FormFile},
          std::pair{"47", ObjectType::MDIFormFile},
          std::pair{"48", ObjectType::MDIChildFormFile},
          std::pair{"49", ObjectType::NonMDIFormFile}}) {
        review.AddLeastLength(title, object, 30);
    }
    RunForm(review, "VERSION 5.00\nBegin VB.MDIForm frmA\nEnd\nAttribute VB_Name = \"frmA\"\n");
    EXPECT_THAT(review.Titles(), ElementsAre("12", "36", "47"));
}

}  // namespace

}  // namespace dorvik
