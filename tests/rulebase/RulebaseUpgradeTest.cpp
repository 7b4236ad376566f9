#include "foundation/xml/KyXMLDoc.h"
#include "rulebase/RulebaseManagerFixture.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik {
namespace {

using test::Changed;
using test::RulebaseText;
using RulebaseUpgradeTest = test::RulebaseManagerFixture;

const char* const kOldNaming =
    R"(<NamingConventions><NamingConvention RuleID="5000" RuleActive="True" Title="Text boxes" Description="" ObjectType="6" PropertyType="2" PropertyName="Name" Condition="" PrefixActive="False" PrefixAdvice="" BodyActive="False" BodyPattern="" BodyMaxLength="0" BodyMinLength="0" BodyAdvice="" SuffixActive="False" SuffixAdvice=""><ViolationDefinition Name="Bad" Description="" SeverityLevel="3" Impact="500" CategoryID="1" Advice=""/></NamingConvention></NamingConventions>)";

/// A file as a release before the current one wrote it.
RulebaseText OldText(const std::string& version) {
    RulebaseText text;
    text.SchemaVersion = version;
    const std::string tolerances =
        version == "6.0"
            ? ""
            : R"( ToleranceCount="7|-1|-1|-1|-1|-1" ToleranceImpact="-1|-1|-1|-1|-1|-1" TolerancePercentageComments="12" ToleranceCyclomaticComplexity="-1")";
    text.Properties =
        R"(<RulebaseProperties Name="Old rules" Version="1.0.0" AutoIncrementVersion="False" Description="" UnknownControlViolation="False" UseCTagsAsDTTags="False")" +
        tolerances + "/>";
    text.ControlTags =
        R"(<ControlTags><ControlTag TagName="VB.TextBox" TagValue="tb"/></ControlTags>)";
    text.DataTypeTags =
        R"(<DataTypeTags><DataTypeTag TagName="String" TagValue="s"/></DataTypeTags>)";
    text.ScopeTags = R"(<ScopeTags><ScopeTag TagName="Local" TagValue="l"/></ScopeTags>)";
    text.Naming = kOldNaming;
    text.Report = version == "6.0" ? "" : "<Report/>";
    return text;
}

std::string Upgraded(const std::string& text, const std::string& version, std::string& reached) {
    KyXMLDoc document;
    EXPECT_TRUE(document.LoadFromString(text));
    reached = RulebaseManager::UpdateSchema(*document.RootElement(), version);
    return document.XMLString();
}

TEST_F(RulebaseUpgradeTest, A60DocumentGetsTheAdditionsOfBothSteps) {
    std::string reached;
    const std::string text = Upgraded(OldText("6.0").Text(), "6.0", reached);
    EXPECT_EQ(reached, "6.2");
    for (
        const char* const part :
        {R"(UseCTagsAsDTTags="False" ToleranceCount="-1|-1|-1|-1|-1|-1" ToleranceImpact="-1|-1|-1|-1|-1|-1" TolerancePercentageComments="-1" ToleranceCyclomaticComplexity="-1" ArrayTag=""/>)",
         R"(<ControlTag TagName="VB.TextBox" TagValue="tb" TagDescription="" TagExample=""/>)",
         R"(<DataTypeTag TagName="String" TagValue="s" TagExample=""/>)",
         R"(<ScopeTag TagName="Local" TagValue="l" TagExample=""/>)",
         R"(SuffixAdvice="" ExclusionList="" CaseSensitive="True">)",
         R"(</Rules><Report/></Dorvik_Rulebase>)"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
    }
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseUpgradeTest, A61DocumentGetsTheAdditionsOfTheLastStepOnly) {
    std::string reached;
    const std::string text = Upgraded(OldText("6.1").Text(), "6.1", reached);
    EXPECT_EQ(reached, "6.2");
    EXPECT_NE(text.find(R"(ToleranceCount="7|-1|-1|-1|-1|-1")"), std::string::npos);
    EXPECT_NE(text.find(R"(ArrayTag="")"), std::string::npos);
    EXPECT_EQ(text.find("<Report/>"), text.rfind("<Report/>"));
}

TEST_F(RulebaseUpgradeTest, TheSchemaVersionInTheDocumentIsNotRewritten) {
    std::string reached;
    EXPECT_NE(
        Upgraded(OldText("6.0").Text(), "6.0", reached).find(R"(SchemaVersion="6.0")"),
        std::string::npos);
}

TEST_F(RulebaseUpgradeTest, AnUnknownVersionChangesNothingAndReachesNone) {
    KyXMLDoc document;
    ASSERT_TRUE(document.LoadFromString(OldText("6.0").Text()));
    const std::string before = document.XMLString();
    for (const char* const version : {"5.9", "5.0", "7.0", "6.2", "6.3", "6", "6.00", ""}) {
        EXPECT_EQ(RulebaseManager::UpdateSchema(*document.RootElement(), version), "") << version;
        EXPECT_EQ(document.XMLString(), before) << version;
    }
}

TEST_F(RulebaseUpgradeTest, A60FileLoadsWithNoTolerancesSetAndAnEmptyReport) {
    const auto rulebase = LoadForEdit(OldText("6.0").Text());
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Title(), "Old rules");
    for (std::int32_t place = 1; place <= 6; ++place) {
        EXPECT_EQ(rulebase->Tolerances().Count.Item(place), -1);
        EXPECT_EQ(rulebase->Tolerances().Impact.Item(place), -1);
    }
    EXPECT_EQ(rulebase->Tolerances().PercentageComments, -1);
    EXPECT_EQ(rulebase->Tolerances().CyclomaticComplexity, -1);
    EXPECT_EQ(rulebase->ControlTags().Item("VB.TextBox")->TagValue(), "tb");
    EXPECT_EQ(rulebase->ControlTags().Item("VB.TextBox")->TagDescription(), "");
    EXPECT_EQ(rulebase->ArrayTag(), "");
    EXPECT_EQ(rulebase->Report().Sections().Count(), 0);
    EXPECT_FALSE(rulebase->Dirty());
    EXPECT_TRUE(m_log.Entries().empty());
    EXPECT_TRUE(m_box.Messages.empty());
}

TEST_F(RulebaseUpgradeTest, ANamingConventionOfA61FileBecomesCaseSensitive) {
    const auto rulebase = LoadForEdit(OldText("6.1").Text());
    ASSERT_NE(rulebase, nullptr);
    ASSERT_EQ(rulebase->RuleLists().NamingConventions().Count(), 1);
    EXPECT_TRUE(rulebase->RuleLists().NamingConventions().Item(1)->CaseSensitive());
    EXPECT_EQ(rulebase->RuleLists().NamingConventions().Item(1)->ExclusionList(), "");
    EXPECT_EQ(rulebase->Tolerances().Count.Item(1), 7);
    EXPECT_EQ(rulebase->Tolerances().PercentageComments, 12);
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseUpgradeTest, AnAttributeThatAnOldFileHasAlreadyIsSetToTheValueOfTheUpgrade) {
    const std::string text = Changed(
        OldText("6.1").Text(),
        R"(RuleActive="True")",
        R"(RuleActive="True" CaseSensitive="False")");
    const auto rulebase = LoadForEdit(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_TRUE(rulebase->RuleLists().NamingConventions().Item(1)->CaseSensitive());
}

TEST_F(RulebaseUpgradeTest, ARulebaseWithoutControlTagElementsUpgradesWithoutError) {
    for (const char* const version : {"6.0", "6.1"}) {
        RulebaseText text = OldText(version);
        text.ControlTags = "<ControlTags/>";
        const auto rulebase = LoadForEdit(text.Text());
        ASSERT_NE(rulebase, nullptr) << version;
        EXPECT_EQ(rulebase->ControlTags().Count(), 23);
        EXPECT_TRUE(m_log.Entries().empty()) << version;
    }
}

TEST_F(RulebaseUpgradeTest, VersionsBeforeAndBehindTheKnownOnesAreRefused) {
    for (const char* const version : {"5.9", "7.0"}) {
        m_box.Messages.clear();
        RulebaseText text = OldText("6.0");
        text.SchemaVersion = version;
        EXPECT_EQ(Load(text), nullptr) << version;
        ExpectOneWarning("Unable to load the rulebase because it has an incorrect schema version.");
    }
}

TEST_F(RulebaseUpgradeTest, TheFileStaysAsItWasUntilASaveWhichWritesTheCurrentVersion) {
    const std::string before = OldText("6.1").Text();
    const auto rulebase = LoadForEdit(before);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(m_folder.Read("team.dvk"), before);
    ASSERT_TRUE(m_manager.Save(*rulebase, ""));
    EXPECT_NE(m_folder.Read("team.dvk").find(R"(SchemaVersion="6.2")"), std::string::npos);
    EXPECT_NE(m_folder.Read("team.dvk").find(R"(CaseSensitive="True")"), std::string::npos);
    EXPECT_NE(LoadForEditFile("team.dvk"), nullptr);
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseUpgradeTest, AMissingSectionEndsItsStepWhichIsLoggedUnderItsName) {
    RulebaseText text = OldText("6.1");
    text.DataTypeTags.clear();
    std::string reached;
    const std::string upgraded = Upgraded(text.Text(), "6.1", reached);
    EXPECT_EQ(reached, "6.2");
    EXPECT_NE(upgraded.find(R"(TagDescription="" TagExample="")"), std::string::npos);
    EXPECT_EQ(upgraded.find("ExclusionList"), std::string::npos);
    EXPECT_EQ(m_log.Entries().size(), 1U);
    EXPECT_TRUE(m_log.Contains("has no element DataTypeTags"));
    EXPECT_TRUE(m_log.Contains("#RulebaseManager::Apply_6_2_SchemaUpdates"));
}

TEST_F(RulebaseUpgradeTest, TheReaderMeetsTheAttributesThatAnUnfinishedUpgradeDidNotAdd) {
    RulebaseText text = OldText("6.0");
    text.Properties.clear();
    const auto rulebase = LoadForEdit(text.Text());
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Title(), "Untitled");
    EXPECT_EQ(rulebase->RuleLists().NamingConventions().Count(), 1)
        << "the last step fails behind the rules";
    EXPECT_TRUE(m_log.Contains("#RulebaseManager::Apply_6_1_SchemaUpdates"));
    EXPECT_TRUE(m_log.Contains("#RulebaseManager::Apply_6_2_SchemaUpdates"));
    EXPECT_TRUE(m_log.Contains("#RulebaseManager::LoadProperties"));
    EXPECT_TRUE(m_log.Contains("#RulebaseManager::LoadReport"));
}

TEST_F(RulebaseUpgradeTest, ReviewOptionsAreReadFromAnOldFileToo) {
    const std::string file = m_folder.Write("old.dvk", OldText("6.0").Text());
    CategoryList categories;
    SeverityTable severities;
    ToleranceSettings tolerances;
    EXPECT_TRUE(m_manager.LoadReviewOptions(file, categories, severities, m_criteria, &tolerances));
    EXPECT_EQ(categories.Count(), 1);
    EXPECT_EQ(m_criteria.NumNamingConventions, 1);
    EXPECT_EQ(tolerances.PercentageComments, -1);
    EXPECT_TRUE(m_log.Entries().empty());
}

}  // namespace
}  // namespace dorvik
