#include "rulebase/RulebaseManagerFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <regex>
#include <string>
#include <vector>

namespace dorvik {
namespace {

using test::Changed;
using test::CodingElement;
using test::FullRulebaseText;
using test::KeywordElement;
using test::NamingElement;
using test::RulebaseText;
using RulebaseBadInputTest = test::RulebaseManagerFixture;

const char* const kOneItem = R"(<PrefixItem PSType="1" PSValue="txt"/>)";

TEST_F(RulebaseBadInputTest, AFifthPrefixItemFails) {
    RulebaseText text;
    std::string items;
    for (int item = 0; item < 5; ++item) {
        items += kOneItem;
    }
    text.Naming = "<NamingConventions>" + NamingElement("5000", kOneItem, "True") +
                  NamingElement("5001", items, "True") + "</NamingConventions>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().NamingConventions().Count(), 1);
    EXPECT_EQ(m_log.Entries().size(), 1U);
    EXPECT_TRUE(m_log.Contains("Subscript out of range: the element PrefixItem (line "));
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadNamingConventions"));
}

TEST_F(RulebaseBadInputTest, AMissingAttributeEndsItsSectionOnly) {
    RulebaseText text;
    text.Properties = R"(<RulebaseProperties Name="Team rules"/>)";
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") + "</UnauthorisedKeywords>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Title(), "Team rules");
    EXPECT_EQ(rulebase->Version(), "1.0.0");
    EXPECT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Count(), 1);
    EXPECT_EQ(m_log.Entries().size(), 1U);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadProperties"));
    EXPECT_TRUE(m_box.Messages.empty()) << "the log is quiet";
}

TEST_F(RulebaseBadInputTest, ARuleNumberThatIsNoNumberLosesTheRulesBehindIt) {
    RulebaseText text;
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") + KeywordElement("x") +
                    KeywordElement("5002") + "</UnauthorisedKeywords>";
    text.Coding = "<CodingConventions>" + CodingElement("5003") + "</CodingConventions>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Count(), 1);
    EXPECT_EQ(rulebase->RuleLists().CodingConventions().Count(), 1);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadUnauthorisedKeywords"));
}

TEST_F(RulebaseBadInputTest, ARuleUnderANumberInUseIsLeftOutAndTheNextGoesOn) {
    RulebaseText text;
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") + KeywordElement("5000") +
                    KeywordElement("5001") + "</UnauthorisedKeywords>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Count(), 2);
    EXPECT_TRUE(m_log.Contains("RuleLists::AddConvention"));
}

TEST_F(RulebaseBadInputTest, ARuleWithoutAViolationDefinitionIsNotLoadableAndTheNextGoesOn) {
    RulebaseText text;
    text.Keywords =
        R"(<UnauthorisedKeywords><UnauthorisedKeyword RuleID="5000" RuleActive="True" Title="" Description="" Condition="" ParserEventID=""/>)" +
        KeywordElement("5001") + "</UnauthorisedKeywords>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Count(), 1);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::IsLoadableRule"));
}

TEST_F(RulebaseBadInputTest, ASixthDefaultViolationFailsAndTheFiveAreRead) {
    RulebaseText text;
    std::string items;
    for (int item = 1; item <= 6; ++item) {
        items += R"(<ViolationItem Advice="a)" + std::to_string(item) +
                 R"(" CategoryID="2" Description="d" Impact="1" SeverityLevel="4"/>)";
    }
    text.DefaultViolations = "<DefaultViolations>" + items + "</DefaultViolations>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->DefaultViolations().Item(5).Advice(), "a5");
    EXPECT_EQ(rulebase->DefaultViolations().Item(5).Title(), "Unknown Control") << "as built";
    EXPECT_EQ(rulebase->DefaultViolations().Item(1).Severity(), 4);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadDefaultViolations"));
}

/// An attribute of a file: where its text begins, and of which element in which line it is.
struct AttributePlace {
    std::size_t Start;
    std::string Text;
    std::string Name;
    std::string Value;
    std::string Element;
    std::size_t Line;
};

std::vector<AttributePlace> AttributesOf(const std::string& text) {
    static const std::regex kElement("<([A-Za-z_]+)([^<>]*)>");
    static const std::regex kAttribute(" ([A-Za-z]+)=\"([^\"]*)\"");
    std::vector<AttributePlace> places;
    for (std::sregex_iterator element(text.begin(), text.end(), kElement), end; element != end;
         ++element) {
        const std::string inside = (*element)[2];
        const auto offset = static_cast<std::size_t>(element->position(2));
        for (std::sregex_iterator at(inside.begin(), inside.end(), kAttribute); at != end; ++at) {
            const std::size_t start = offset + static_cast<std::size_t>(at->position());
            const auto line =
                std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(start), '\n');
            places.push_back(
                {start,
                 at->str(),
                 (*at)[1],
                 (*at)[2],
                 (*element)[1],
                 static_cast<std::size_t>(line) + 1});
        }
    }
    return places;
}

TEST_F(RulebaseBadInputTest, AFullFileLoadsWithoutALogLine) {
    ASSERT_NE(LoadForEdit(FullRulebaseText().Text()), nullptr);
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseBadInputTest, EachMissingAttributeIsToldOnceWithElementLineAndFile) {
    const std::string full = FullRulebaseText().Text();
    const std::vector<AttributePlace> places = AttributesOf(full);
    EXPECT_GT(places.size(), 90U);
    for (const AttributePlace& place : places) {
        m_log.Clear();
        std::string text = full;
        const auto rulebase = LoadForEdit(text.erase(place.Start, place.Text.size()));
        const bool isNeeded = place.Name == "SchemaVersion" || place.Name == "LastRuleID";
        EXPECT_EQ(rulebase == nullptr, isNeeded) << place.Element << place.Text;
        const std::vector<std::string> entries = m_log.Entries();
        ASSERT_EQ(entries.size(), 1U) << place.Element << place.Text;
        const std::string expected =
            "Object variable or With block variable not set: the element " + place.Element +
            " (line " + std::to_string(place.Line) + " of " + m_folder.Path("team.dvk") +
            ") has no attribute " + place.Name + "#RulebaseManager::";
        EXPECT_NE(entries[0].find(expected), std::string::npos) << entries[0] << "\n" << expected;
    }
}

TEST_F(RulebaseBadInputTest, EachNumberOrFlagThatIsNoneIsToldOnceWithAttributeElementLineAndFile) {
    static const std::regex kNumberOrFlag("-?[0-9]+|True|False|28.30");
    const std::string full = FullRulebaseText().Text();
    int tried = 0;
    for (const AttributePlace& place : AttributesOf(full)) {
        if (!std::regex_match(place.Value, kNumberOrFlag)) {
            continue;
        }
        ++tried;
        for (const std::string wrong : {"12x", "", "1.5.", "0x10"}) {
            if (wrong.empty() && place.Name == "ParserEventID") {
                continue;  // a rule without events
            }
            m_log.Clear();
            std::string text = full;
            const auto rulebase = LoadForEdit(text.replace(
                place.Start, place.Text.size(), " " + place.Name + "=\"" + wrong + "\""));
            EXPECT_EQ(rulebase == nullptr, place.Name == "LastRuleID") << place.Name;
            const std::vector<std::string> entries = m_log.Entries();
            ASSERT_EQ(entries.size(), 1U) << place.Element << place.Text << wrong;
            const std::string expected =
                "Type mismatch: the attribute " + place.Name + " of the element " + place.Element +
                " (line " + std::to_string(place.Line) + " of " + m_folder.Path("team.dvk") +
                ") is '" + wrong + "'#RulebaseManager::";
            EXPECT_NE(entries[0].find(expected), std::string::npos) << entries[0] << "\n"
                                                                    << expected;
        }
    }
    EXPECT_EQ(tried, 45);
}

TEST_F(RulebaseBadInputTest, ANumberThatIsTooLargeForItsFieldIsAFailure) {
    const struct {
        const char* From;
        const char* To;
        const char* Error;
    } rows[] = {
        {R"(Impact="500")", R"(Impact="32768")", "Overflow: the attribute Impact"},
        {R"(BodyMaxLength="30")", R"(BodyMaxLength="-32769")", "Overflow: the attribute BodyMax"},
        {R"(RuleID="5001")", R"(RuleID="2147483648")", "Type mismatch: the attribute RuleID"},
    };
    for (const auto& row : rows) {
        m_log.Clear();
        EXPECT_NE(LoadForEdit(Changed(FullRulebaseText().Text(), row.From, row.To)), nullptr);
        EXPECT_EQ(m_log.Entries().size(), 1U);
        EXPECT_TRUE(m_log.Contains(row.Error)) << row.Error;
    }
}

TEST_F(RulebaseBadInputTest, ALongUnreadableValueIsToldWithItsBeginningOnOneLine) {
    const std::string value = "a&#10;b" + std::string(100000, 'x');
    const std::string text =
        Changed(FullRulebaseText().Text(), R"(RuleID="5001")", "RuleID=\"" + value + "\"");
    EXPECT_NE(LoadForEdit(text), nullptr);
    EXPECT_TRUE(m_log.Contains("is 'a b" + std::string(37, 'x') + "...'#RulebaseManager::"));
}

TEST_F(RulebaseBadInputTest, EachMissingSectionIsToldAndOnlyACountedOneEndsTheLoad) {
    const struct {
        std::string RulebaseText::*Section;
        const char* Element;
        const char* Procedure;
        bool EndsTheLoad;
    } rows[] = {
        {&RulebaseText::Properties, "RulebaseProperties", "LoadProperties", false},
        {&RulebaseText::ControlTags, "ControlTags", "LoadControlTags", false},
        {&RulebaseText::DataTypeTags, "DataTypeTags", "LoadDataTypeTags", false},
        {&RulebaseText::ScopeTags, "ScopeTags", "LoadScopeTags", false},
        {&RulebaseText::DefaultViolations, "DefaultViolations", "LoadDefaultViolations", false},
        {&RulebaseText::Categories, "CategoryList", "LoadCategoryList", false},
        {&RulebaseText::Severities, "SeverityList", "LoadSeverityList", false},
        {&RulebaseText::Components, "AuthorisedComponents", "LoadRulebase", true},
        {&RulebaseText::References, "AuthorisedReferences", "LoadRulebase", true},
        {&RulebaseText::Keywords, "UnauthorisedKeywords", "LoadRulebase", true},
        {&RulebaseText::Coding, "CodingConventions", "LoadRulebase", true},
        {&RulebaseText::Naming, "NamingConventions", "LoadRulebase", true},
        {&RulebaseText::Report, "Report", "LoadReport", false},
    };
    for (const auto& row : rows) {
        m_log.Clear();
        RulebaseText text = FullRulebaseText();
        (text.*row.Section).clear();
        const auto rulebase = LoadForEdit(text.Text());
        EXPECT_EQ(rulebase == nullptr, row.EndsTheLoad) << row.Element;
        EXPECT_EQ(m_log.Entries().size(), 1U) << row.Element;
        EXPECT_TRUE(m_log.Contains(m_folder.Path("team.dvk"))) << row.Element;
        EXPECT_TRUE(m_log.Contains(
            std::string("has no element ") + row.Element + "#RulebaseManager::" + row.Procedure))
            << row.Element;
    }
    EXPECT_TRUE(m_box.Messages.empty()) << "nothing but the log tells it";
}

TEST_F(RulebaseBadInputTest, WithoutTheRulesSectionNothingIsLoaded) {
    std::string text = FullRulebaseText().Text();
    const std::size_t start = text.find("<Rules ");
    const std::string end = "</Rules>";
    text.erase(start, text.find(end) + end.size() - start);
    EXPECT_EQ(LoadForEdit(text), nullptr);
    EXPECT_TRUE(m_log.Contains("has no element Rules#RulebaseManager::LoadRulebase"));
}

TEST_F(RulebaseBadInputTest, CommentsAndProcessingInstructionsBetweenElementsChangeNothing) {
    const std::string full = FullRulebaseText().Text();
    const std::string text = "<!-- a --><?b c?>\n" +
                             std::regex_replace(full, std::regex(">"), "> <!-- d <e/> --> <?f g?>");
    const auto rulebase = LoadForEdit(text + "<!-- h -->");
    ASSERT_NE(rulebase, nullptr);
    EXPECT_TRUE(m_log.Entries().empty());
    EXPECT_EQ(rulebase->RuleLists().AllConventions().Count(), 3);
    EXPECT_EQ(rulebase->Report().Sections().Count(), 2);
    EXPECT_EQ(m_criteria.NumNamingConventions, 1) << "positions count elements only";
    ASSERT_TRUE(m_manager.Save(*rulebase, m_folder.Path("b.dvk")));
    const auto plain = LoadForEdit(full);
    ASSERT_TRUE(m_manager.Save(*plain, m_folder.Path("a.dvk")));
    EXPECT_EQ(m_folder.Read("a.dvk"), m_folder.Read("b.dvk"));
}

TEST_F(RulebaseBadInputTest, TextBetweenTheElementsEndsTheSection) {
    const std::string text =
        Changed(FullRulebaseText().Text(), "<CodingConventions>", "<CodingConventions>oops");
    const auto rulebase = LoadForEdit(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().CodingConventions().Count(), 0);
    EXPECT_EQ(rulebase->RuleLists().NamingConventions().Count(), 1);
    EXPECT_TRUE(m_log.Contains("a piece of text (line "));
    EXPECT_TRUE(m_log.Contains("#RulebaseManager::LoadCodingConventions"));
}

TEST_F(RulebaseBadInputTest, OfTwoCategoriesWithOneIdTheFirstStaysAndTheSectionEnds) {
    RulebaseText text = FullRulebaseText();
    text.Categories =
        R"(<CategoryList LastID="1"><CategoryItem ID="1" Title="Zeta" Description="" Hidden="False"/><CategoryItem ID="1" Title="Alpha" Description="" Hidden="False"/><CategoryItem ID="2" Title="Beta" Description="" Hidden="False"/></CategoryList>)";
    const auto rulebase = LoadForEdit(text.Text());
    ASSERT_NE(rulebase, nullptr);
    ASSERT_EQ(rulebase->CategoryList().Count(), 1);
    EXPECT_EQ(rulebase->CategoryList().Item(1)->Title(), "Zeta");
    EXPECT_EQ(m_log.Entries().size(), 1U);
    EXPECT_TRUE(m_log.Contains("the key '1K' is already in use"));
    EXPECT_TRUE(m_log.Contains("#RulebaseManager::LoadCategoryList"));
}

TEST_F(RulebaseBadInputTest, OfTwoAuthorisedItemsWithOneLibIdTheFirstStays) {
    RulebaseText text = FullRulebaseText();
    const std::string items =
        R"(<AuthorisedComponents><AuthorisedComponent Advice="" Filename="first.ocx" LibID="{a}" VersionList=""/><AuthorisedComponent Advice="" Filename="second.ocx" LibID="{A}" VersionList=""/></AuthorisedComponents>)";
    text.Components = items;
    const auto rulebase = LoadForEdit(text.Text());
    ASSERT_NE(rulebase, nullptr);
    ASSERT_EQ(rulebase->AuthorisedComponents().Count(), 1);
    EXPECT_EQ(rulebase->AuthorisedComponents().Item(1)->Filename(), "first.ocx");
    EXPECT_EQ(m_criteria.NumAuthComps, 2);
}

TEST_F(RulebaseBadInputTest, OfTwoSeveritiesOrTagsWithOneNameTheLastCounts) {
    RulebaseText text = FullRulebaseText();
    const std::string severity =
        R"(<SeverityItem Colour="1" Description="" Impact="1" SeverityLevel="6" SeverityLevelText="" Title=")";
    text.Severities =
        "<SeverityList>" + severity + "First\"/>" + severity + "Last\"/></SeverityList>";
    const std::string tag = R"(<ScopeTag TagName="New" TagExample="" TagValue=")";
    text.ScopeTags = "<ScopeTags>" + tag + "first\"/>" + tag + "last\"/></ScopeTags>";
    const auto rulebase = LoadForEdit(text.Text());
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->SeverityList().Count(), 6);
    EXPECT_EQ(rulebase->SeverityList().Item("6Key")->Title(), "Last");
    EXPECT_EQ(rulebase->ScopeTags().Count(), 8);
    EXPECT_EQ(rulebase->ScopeTags().Item("New")->TagValue(), "last");
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseBadInputTest, ANumberInUseByAnotherKindOfRuleIsInUse) {
    RulebaseText text = FullRulebaseText();
    text.Coding = "<CodingConventions>" + CodingElement("5000") + CodingElement("5001") +
                  "</CodingConventions>";
    const auto rulebase = LoadForEdit(text.Text());
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().CodingConventions().Count(), 1);
    EXPECT_TRUE(m_log.Contains("the key '5000Key' is already in use"));
}

TEST_F(RulebaseBadInputTest, ARuleWithVeryManyEventsLoads) {
    std::string events = "1";
    for (int event = 2; event <= 200000; ++event) {
        events += "|" + std::to_string(event);
    }
    const auto rulebase = LoadForEdit(Changed(
        FullRulebaseText().Text(), R"(ParserEventID="28|30")", "ParserEventID=\"" + events + "\""));
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().CodingConventions().Item(1)->EventCount(), 200000);
}

}  // namespace
}  // namespace dorvik
