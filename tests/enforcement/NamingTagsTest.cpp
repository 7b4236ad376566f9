#include "enforcement/NamingConventionHelper.h"
#include "enforcement/ResultsManager.h"
#include "parser/ScopeName.h"
#include "rulebase/model/Rulebase.h"
#include "source/VirtualObject.h"
#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace dorvik {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

void AddItem(
    ObjectArrayList<PrefixSuffixItem>& items, PrefixSuffixType type, const std::string& value) {
    items.Add(std::make_shared<PrefixSuffixItem>(
        PrefixSuffixItem{static_cast<std::int32_t>(type), value}));
}

/// A helper with the rulebase that a new one is, and one object in scope.
class NamingTagsTest : public testing::Test {
protected:
    NamingTagsTest() {
        m_helper.SetScope(&m_results.ParserState(), &m_results.Log());
        m_helper.SetRulebase(&m_rulebase);
    }

    void
    PutInScope(std::string_view name, const std::vector<std::pair<std::string, Variant>>& values) {
        VB6ParserState& state = m_results.ParserState();
        if (state.FindVirtualObject(name) != nullptr) {
            state.Detach(name);
        }
        const auto object = std::make_shared<VirtualObject>();
        for (const auto& [key, value] : values) {
            object->Properties().Add(key, value, false);
        }
        state.Attach(object, name);
    }

    void SetScopeTag(const std::string& row, const std::string& value) {
        m_rulebase.ScopeTags().Item(row)->SetTagValue(value);
    }

    /// The tag at an event of an object of that scope.
    std::string ScopeTagOf(ParserEvent event, const std::string& property, const Variant& value) {
        PutInScope("Thing", {{property, value}});
        std::string tag = "unset";
        EXPECT_EQ(m_helper.GetAppropriateScopeTag(event, "Thing", tag), NamingResult::Success);
        return tag;
    }

    std::string Readable(const char* property) {
        bool found = false;
        std::string error;
        return m_results.ParserState()
            .GetObjectProperty("NamingConvention", property, found, error)
            .AsText();
    }

    test::CapturedLog m_log;
    ResultsManager m_results;
    Rulebase m_rulebase;
    NamingConventionHelper m_helper;
};

TEST_F(NamingTagsTest, ScopeTag_EachEventAndScopeHasItsRow) {
    for (const char* row :
         {"Public (Global)",
          "Friend",
          "Private (Module level)",
          "Local",
          "Local (Static)",
          "ByVal Argument",
          "ByRef Argument"}) {
        SetScopeTag(row, row);
    }
    struct Row {
        ParserEvent Event;
        const char* Property;
        Variant Value;
        const char* Tag;
    };
    const Row rows[] = {
        {ParserEvent::DeclareArgument, "PassBy", "ByVal", "ByVal Argument"},
        {ParserEvent::EventArgument, "PassBy", "byval", "ByVal Argument"},
        {ParserEvent::ProcedureArgument, "PassBy", "ByRef", "ByRef Argument"},
        {ParserEvent::ProcedureArgument, "PassBy", "", "ByRef Argument"},
        {ParserEvent::LocalConst, "Scope", "Public", "Local"},
        {ParserEvent::LocalVariable, "IsStatic", true, "Local (Static)"},
        {ParserEvent::LocalVariable, "IsStatic", false, "Local"},
        {ParserEvent::Variable, "Scope", "Public", "Public (Global)"},
        {ParserEvent::Const, "Scope", "global", "Public (Global)"},
        {ParserEvent::EndProcedure, "Scope", "Friend", "Friend"},
        {ParserEvent::EndProcedure, "Scope", "Private", "Private (Module level)"},
        {ParserEvent::Variable, "Scope", "", "Private (Module level)"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ScopeTagOf(row.Event, row.Property, row.Value), row.Tag)
            << static_cast<int>(row.Event);
    }
    EXPECT_THAT(m_log.Lines(), IsEmpty());
}

TEST_F(NamingTagsTest, ScopeTag_AMissingPropertyIsLoggedAndCountsAsEmpty) {
    SetScopeTag("Private (Module level)", "m");
    EXPECT_EQ(ScopeTagOf(ParserEvent::Variable, "Colour", "x"), "m");
    EXPECT_THAT(
        m_log.Lines(), ElementsAre(HasSubstr("Virtual object property 'Thing.Scope' not found.")));
}

TEST_F(NamingTagsTest, ScopeTag_ARowThatIsMissingIsResultFourAndEmptiesTheTag) {
    SetScopeTag("Local", "l");
    std::string tag;
    PutInScope("Thing", {{"Scope", "Public"}});
    ASSERT_EQ(
        m_helper.GetAppropriateScopeTag(ParserEvent::LocalConst, "Thing", tag),
        NamingResult::Success);
    EXPECT_EQ(Readable("ScopeTag"), "l");
    m_rulebase.ScopeTags().Remove("Public (Global)");
    EXPECT_EQ(
        m_helper.GetAppropriateScopeTag(ParserEvent::Variable, "Thing", tag),
        NamingResult::UnknownScope);
    EXPECT_EQ(Readable("ScopeTag"), "");
    // The computation stops there, and the pattern is left alone.
    ObjectArrayList<PrefixSuffixItem> items;
    AddItem(items, psText, "x");
    AddItem(items, psScopeTag, "");
    std::string pattern = "as it was";
    EXPECT_EQ(
        m_helper.ComputePrefixSuffixPattern(items, ParserEvent::Variable, "Thing", pattern),
        NamingResult::UnknownScope);
    EXPECT_EQ(pattern, "as it was");
}

TEST_F(NamingTagsTest, ControlTag_WithoutTheRowOfUnknownControlsTheFailureIsLogged) {
    PutInScope("Control", {{"ProgId", "Gadget.Dial"}});
    std::string tag;
    ASSERT_EQ(m_helper.GetAppropriateControlTag("Control", tag), NamingResult::Success);
    EXPECT_EQ(tag, "ctl");
    m_rulebase.ControlTags().Remove("(Unknown ProgID)");
    EXPECT_EQ(m_helper.GetAppropriateControlTag("Control", tag), NamingResult::TestFailed);
    EXPECT_TRUE(m_log.Contains("No such item.#C_NCHelper::GetAppropriateControlTag"));
    EXPECT_EQ(Readable("ControlTag"), "");
}

TEST_F(NamingTagsTest, ControlTag_OfAControlWithoutTagIsResultTwoIfTheRulebaseSaysSo) {
    m_rulebase.SetUnknownControlViolation(true);
    PutInScope("Control", {{"ProgId", "Gadget.Dial"}});
    std::string tag = "as it was";
    EXPECT_EQ(m_helper.GetAppropriateControlTag("Control", tag), NamingResult::UnknownControl);
    EXPECT_EQ(tag, "as it was");
}

TEST_F(NamingTagsTest, DataTypeTag_OfNoTypeIsThatOfVariantAndFixedLengthIsPassedOver) {
    m_rulebase.DataTypeTags().Item("Variant")->SetTagValue("v");
    m_rulebase.DataTypeTags().Item("String")->SetTagValue("s");
    PutInScope("File", {{"Name", "modA"}});
    std::string tag;
    PutInScope("A", {{"DataType", ""}});
    EXPECT_EQ(m_helper.GetAppropriateDataTypeTag("A", tag), NamingResult::Success);
    EXPECT_EQ(tag, "v");
    PutInScope("B", {{"DataType", "String * 10"}});
    EXPECT_EQ(m_helper.GetAppropriateDataTypeTag("B", tag), NamingResult::Success);
    EXPECT_EQ(tag, "s");
    EXPECT_EQ(Readable("DataTypeTag"), "s");
}

TEST_F(NamingTagsTest, DataTypeTag_OfAnUnknownTypeIsResultFiveAndLogged) {
    PutInScope("File", {{"Name", "modA"}});
    PutInScope("Variable", {{"DataType", "Gadget"}});
    std::string tag;
    EXPECT_EQ(m_helper.GetAppropriateDataTypeTag("Variable", tag), NamingResult::UnknownDataType);
    EXPECT_TRUE(m_log.Lines().at(0).ends_with("Data type 'Gadget' undefined."));
}

TEST_F(NamingTagsTest, ArrayTag_IsThatOfTheRulebaseForAnArrayOnly) {
    m_rulebase.SetArrayTag("a");
    std::string tag;
    PutInScope("A", {{"IsArray", true}});
    PutInScope("B", {{"IsArray", false}});
    PutInScope("C", {});
    EXPECT_EQ(m_helper.GetAppropriateArrayTag("A", tag), NamingResult::Success);
    EXPECT_EQ(tag, "a");
    EXPECT_EQ(m_helper.GetAppropriateArrayTag("B", tag), NamingResult::Success);
    EXPECT_EQ(tag, "");
    EXPECT_THAT(m_log.Lines(), IsEmpty());
    EXPECT_EQ(m_helper.GetAppropriateArrayTag("C", tag), NamingResult::Success);
    EXPECT_EQ(tag, "");
    EXPECT_EQ(m_log.Lines().size(), 1U);
}

TEST_F(NamingTagsTest, APropertyItemWithoutAPointReadsAnObjectOfThatNameAndStaysEmpty) {
    ObjectArrayList<PrefixSuffixItem> items;
    AddItem(items, psProperty, "NoDot");
    std::string pattern = "as it was";
    EXPECT_EQ(
        m_helper.ComputePrefixSuffixPattern(items, ParserEvent::Variable, "Thing", pattern),
        NamingResult::Success);
    EXPECT_EQ(pattern, "");
    EXPECT_THAT(
        m_log.Lines(),
        ElementsAre(HasSubstr("Unknown virtual object 'NoDot' or object not in scope.")));
}

TEST_F(NamingTagsTest, TestPattern_DistinguishesAMalformedPatternFromOneThatTakesTooLong) {
    m_results.ParserState().SetCurrentRuleID("5003");
    EXPECT_EQ(m_helper.TestPattern("x", "(", true, nullptr), NamingResult::TestFailed);
    EXPECT_FALSE(m_helper.WasStopped());
    const std::string words = "abcdefghijklmnopqrstuvwxyz abcdefghijklmnopqrstuvwxyz";
    EXPECT_EQ(
        m_helper.TestPattern(words, "^(\\w+\\s?)+[!?]$", true, nullptr), NamingResult::TestFailed);
    EXPECT_TRUE(m_helper.WasStopped());
    EXPECT_EQ(m_helper.TestPattern("x", "x", true, nullptr), NamingResult::Success);
    EXPECT_FALSE(m_helper.WasStopped());
    ASSERT_EQ(m_log.Entries().size(), 2U);
    EXPECT_THAT(m_log.Entries()[0], HasSubstr("5020 - Expected ')'"));
    EXPECT_THAT(m_log.Entries()[0], HasSubstr(" in rule 5003#C_NCHelper::TestPattern"));
    EXPECT_THAT(m_log.Entries()[1], HasSubstr("16 - Expression too complex"));
}

}  // namespace

}  // namespace dorvik
