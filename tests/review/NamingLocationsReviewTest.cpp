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
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A rule whose prefix is one item, with the prefix as its advice.
NamingConvention& AddPrefixRule(
    RulesInReview& review, const std::string& title, ObjectType object, PrefixSuffixItem item) {
    NamingConvention& rule = review.AddNaming(title, object);
    Fill(rule.Prefix(), {std::move(item)});
    rule.Prefix().SetAdvice("%NamingConvention.ScopeTag%");
    return rule;
}

/// A rule whose suffix is one item.
NamingConvention& AddSuffixRule(
    RulesInReview& review, const std::string& title, ObjectType object, PrefixSuffixItem item) {
    NamingConvention& rule = review.AddNaming(title, object);
    Fill(rule.Suffix(), {std::move(item)});
    return rule;
}

/// A text as a pattern that matches it.
std::string Escaped(std::string_view text) {
    std::string pattern;
    for (const char character : text) {
        pattern.append(character == '(' || character == ')' ? "\\" : "").append(1, character);
    }
    return pattern;
}

TEST(NamingLocations, EachScopeHasItsTag) {
    RulesInReview review;
    for (const char* row :
         {"Public (Global)",
          "Friend",
          "Private (Module level)",
          "Local",
          "Local (Static)",
          "ByVal Argument",
          "ByRef Argument"}) {
        review.Rules().ScopeTags().Item(row)->SetTagValue(Escaped(row));
    }
    for (const ObjectType type :
         {ObjectType::Const, ObjectType::Variable, ObjectType::Procedure, ObjectType::Argument}) {
        AddPrefixRule(review, "Scope", type, Item(psScopeTag));
    }
    review.Run({"modA=Global Const C = 1\nPublic v As Long\nPrivate w As Long\n"
                "Friend Function F(ByVal a, ByRef b, c)\nConst K = 1\nDim d\nStatic e\n"
                "End Function\n"});
    EXPECT_THAT(
        AdviceOf(review),
        ElementsAre(
            Escaped("Public (Global)"),
            Escaped("Public (Global)"),
            Escaped("Private (Module level)"),
            "ByVal Argument",
            "ByRef Argument",
            "ByRef Argument",
            "Local",
            "Local",
            Escaped("Local (Static)"),
            "Friend"));
}

TEST(NamingLocations, AnEventAndItsArgumentsRunTheRulesOfTheirKinds) {
    RulesInReview review;
    for (const auto& [title, object] :
         {std::pair{"11", ObjectType::Event},
          std::pair{"1", ObjectType::Argument},
          std::pair{"13", ObjectType::DeclareArgument},
          std::pair{"19", ObjectType::EventArgument},
          std::pair{"20", ObjectType::ProcedureArgument}}) {
        review.AddLeastLength(title, object, 30);
    }
    review.Review().AddFile(
        "clsA.cls",
        "VERSION 1.0 CLASS\nAttribute VB_Name = \"clsA\"\n"
        "Public Event Done(ByVal n As Long, s As String)\n");
    review.RunProject("Type=Exe\nName=\"P\"\nClass=clsA; clsA.cls\n");
    EXPECT_THAT(review.Titles(), ElementsAre("11", "1", "19", "1", "19"));
    EXPECT_THAT(
        review.Query("SELECT LineNum FROM Violations"), ElementsAre("1", "1", "1", "1", "1"));
}

TEST(NamingLocations, AFormAtTheEndOfItsLayoutIsReportedUnderTheDeclarations) {
    RulesInReview review;
    review.AddLeastLength("49", ObjectType::NonMDIFormFile, 30);
    RunForm(review, "VERSION 5.00\nBegin VB.Form frmA\nEnd\nAttribute VB_Name = \"frmA\"\n");
    EXPECT_THAT(review.Titles(), ElementsAre("49"));
    EXPECT_THAT(review.Query("SELECT LocMember FROM Violations"), ElementsAre("(Declarations)"));
    EXPECT_THAT(review.Query("SELECT Loc FROM Violations"), ElementsAre("2"));
    EXPECT_THAT(review.Query("SELECT LineNum FROM Violations"), ElementsAre("0"));
}

TEST(NamingLocations, AControlWithoutTagInASuffixIsTheDefaultViolationToo) {
    RulesInReview review;
    AddSuffixRule(review, "Control", ObjectType::Control, Item(psControlTag));
    review.Rules().SetUnknownControlViolation(true);
    RunForm(
        review,
        "VERSION 5.00\nBegin VB.Form frmA\n   Begin Gadget.Dial ctlOne\n   End\nEnd\n"
        "Attribute VB_Name = \"frmA\"\n");
    EXPECT_THAT(review.Titles(), ElementsAre(review.Rules().DefaultViolations().Item(5).Title()));
}

TEST(NamingLocations, ASuffixWhoseTagIsMissingIsNotTestedAndTheBodyIsUncut) {
    RulesInReview review;
    NamingConvention& rule =
        AddSuffixRule(review, "Type", ObjectType::Variable, Item(psDataTypeTag));
    rule.SetBodyActive(true);
    rule.SetBodyPattern("^thing$");
    review.Run({"modA=Private thing As Gadget\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(review.Log(), Contains(HasSubstr("Data type 'Gadget' undefined.")));
}

TEST(NamingLocations, AFailedPrefixEndsTheTestsBeforeTheSuffix) {
    RulesInReview review;
    NamingConvention& rule = AddPrefixRule(review, "Both", ObjectType::Variable, Item(psText, "x"));
    Fill(rule.Suffix(), {Item(psText, "y")});
    rule.Prefix().SetAdvice("Prefix.");
    rule.Suffix().SetAdvice("Suffix.");
    review.Run({"modA=Private a As Long\nPrivate xa As Long\nPrivate xay As Long\n"});
    EXPECT_THAT(AdviceOf(review), ElementsAre("Prefix.", "Suffix."));
}

TEST(NamingLocations, APropertyItemWithoutAPointIsLoggedAndNotTested) {
    RulesInReview review;
    AddPrefixRule(review, "NoDot", ObjectType::Variable, Item(psProperty, "NoDot"));
    review.Run({"modA=Private a As Long\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(
        review.Log(),
        Contains("[Event:Variable][Rule:5000] Unknown virtual object 'NoDot' or object not in "
                 "scope."));
}

TEST(NamingLocations, ARuleOnAMissingPropertyIsLoggedAndRaisesNothing) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("Colour", ObjectType::Variable);
    rule.SetPropertyName("Colour");
    rule.SetBodyActive(true);
    rule.SetMinBodyLength(9);
    review.Run({"modA=Private a As Long\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(
        review.Log(), Contains(HasSubstr("Virtual object property 'Variable.Colour' not found.")));
}

TEST(NamingLocations, AnObjectOfATypeWithoutRulesCostsNoRuleExecution) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("Enum", ObjectType::Enum);
    rule.SetCondition(Script("Dorvik.DebugPrint \"ran\""));
    review.Run({"modA=Private a As Long\nPublic Const C = 1\nSub Work()\nEnd Sub\n"});
    EXPECT_THAT(review.Query("SELECT RuleExecutions FROM Review"), ElementsAre("0"));
    EXPECT_THAT(review.Log(), testing::Not(Contains(HasSubstr("ran"))));
}

TEST(NamingLocations, AMalformedPatternIsLoggedWithItsRule) {
    RulesInReview review;
    AddPrefixRule(review, "Broken", ObjectType::Variable, Item(psText, "("));
    review.Run({"modA=Private a As Long\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(
        review.Log(),
        Contains(HasSubstr("Expected ')' in regular expression '^(' at position 3 in rule "
                           "5000#C_NCHelper::TestPattern")));
}

TEST(NamingLocations, APatternThatTakesTooLongIsAnErrorOfItsRuleAndDisablesIt) {
    RulesInReview review;
    NamingConvention& rule = review.AddNaming("Endless", ObjectType::Variable);
    rule.SetBodyActive(true);
    rule.SetBodyPattern("^([a-z]+[0-9]?)+[!?]$");
    std::string module = "modA=";
    for (const char* last : {"a", "b", "c", "d", "e"}) {
        module += "Private abcdefghijklmnopqrstuvwxyzabcdefg" + std::string(last) + " As Long\n";
    }
    review.Run({module});
    EXPECT_THAT(review.Titles(), IsEmpty());
    const std::vector<std::string> log = review.Log();
    EXPECT_EQ(
        std::count_if(
            log.begin(),
            log.end(),
            [](const std::string& line) {
                return line.find("Expression too complex") != std::string::npos;
            }),
        3);
    EXPECT_THAT(
        log,
        Contains("[Event:Variable][Rule:5000] Disabled for the rest of the review, because its "
                 "pattern was stopped 3 times: rule 5000 (Endless)"));
}

}  // namespace

}  // namespace dorvik
