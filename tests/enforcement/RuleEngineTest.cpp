#include "enforcement/RuleEngine.h"

#include "basic/engine/ScriptEngine.h"
#include "platform/host/modFiles.h"
#include "rulebase/model/CodingConvention.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/UnauthorisedKeyword.h"
#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace dorvik {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RuleEngineTest : public testing::Test {
protected:
    /// Loads the module of a rulebase with coding conventions of these scripts; their numbers begin
    /// with 5000.
    bool Load(RuleEngine& engine, const std::vector<std::string>& scripts) {
        Rulebase rulebase;
        for (const std::string& script : scripts) {
            const auto rule = std::make_shared<CodingConvention>();
            rule->SetTitle("No GoTo");
            rule->SetCondition(script);
            rulebase.RuleLists().AddConvention(rule, true);
        }
        std::vector<basic::ScriptOrigin> origins;
        m_module = rulebase.RuleLists().CreateScriptFile(&origins);
        return engine.LoadScript(m_module, std::move(origins));
    }

    test::CapturedLog m_log;
    std::string m_module;
};

const std::string kRaise = "Sub Main\r\nDorvik.RaiseViolation\r\nEnd Sub\r\n";

TEST_F(RuleEngineTest, AMissingHandlerIsLoggedForEachRuleAndTheResultIsNothing) {
    RuleEngine engine;
    EXPECT_EQ(engine.ExecuteRuleCondition(5000), ScriptResult::Nothing);
    EXPECT_EQ(engine.ExecuteRuleCondition(5001), ScriptResult::Nothing);
    const std::string line =
        "Event #Script handler object is not defined.#C_RuleEngine::ExecuteRuleCondition";
    EXPECT_THAT(m_log.Entries(), ElementsAre(line, line));
    EXPECT_EQ(engine.RuleExecutionCount(), 2);
}

TEST_F(RuleEngineTest, AModuleThatDoesNotLoadIsLoggedWithItsFileAndItsError) {
    RuleEngine engine;
    EXPECT_FALSE(Load(engine, {"Sub Main\r\nIf True\r\nEnd Sub\r\n"}));
    ASSERT_EQ(m_log.Entries().size(), 1U);
    EXPECT_EQ(
        m_log.Entries()[0],
        "Event #Failed to load the script file '" + m_module +
            "' because of the following error: '" + engine.LoadError() +
            "'#C_RuleEngine::LoadScript");
    EXPECT_THAT(engine.LoadError(), HasSubstr("[rule 5000 (No GoTo), line 2]"));
}

TEST_F(RuleEngineTest, AScriptWithoutSubMainIsReportedWithItsRule) {
    RuleEngine engine;
    EXPECT_FALSE(Load(engine, {kRaise, "Sub Other\r\nEnd Sub\r\n"}));
    EXPECT_THAT(engine.LoadError(), HasSubstr("'Method_5001'"));
    EXPECT_THAT(engine.LoadError(), HasSubstr("[rule 5001 (No GoTo) has no Sub Main]"));
}

TEST_F(RuleEngineTest, AnExtensionThatCannotBeAddedIsLogged) {
    RuleEngine ruleEngine;
    class NoEvents final : public IDVKSaxEvents {
        void ApplyConvention() override {}
        void CancelPendingViolation() override {}
        void RaiseViolation() override {}
        void DebugPrint(std::string_view) override {}
        void DumpObject(std::string_view) override {}
        bool GetObjectProperty(std::string_view, std::string_view, basic::Value&) override {
            return false;
        }
        basic::Value GetParserEvent() override { return {}; }
        void GetObjectWorkField(std::string_view, std::string_view, basic::Value&) override {}
        bool IsClassName(std::string_view) override { return false; }
        bool IsFormName(std::string_view) override { return false; }
        bool ObjectHasProperty(std::string_view, std::string_view) override { return false; }
        bool ObjectHasWorkfield(std::string_view, std::string_view) override { return false; }
        void SetObjectWorkField(std::string_view, std::string_view, const basic::Value&) override {}
    };
    NoEvents noEvents;
    DVKSaxInterface dorvik(noEvents);
    basic::IScriptHost host;
    basic::ScriptEngine engine(host);
    RuleEngine::AddExtension(engine, dorvik);
    EXPECT_THAT(m_log.Entries(), IsEmpty());
    RuleEngine::AddExtension(engine, dorvik);  // the prefix is taken
    EXPECT_THAT(
        m_log.Entries(),
        ElementsAre("Event #Failed to add an instance of the DVKSaxInterface class as an extension "
                    "to Sax Basic.#C_RuleEngine::Class_Initialize"));
}

TEST_F(RuleEngineTest, TheResultOfARuleWithoutAScriptIsNothing) {
    RuleEngine engine;
    ASSERT_TRUE(Load(engine, {kRaise}));
    EXPECT_EQ(engine.ExecuteRuleCondition(5000), ScriptResult::RaiseViolation);
    EXPECT_EQ(engine.ExecuteRuleCondition(4999), ScriptResult::Nothing);
    EXPECT_EQ(engine.RuleExecutionCount(), 2);
}

TEST_F(RuleEngineTest, TheModuleIsDeletedWithTheEngine) {
    {
        RuleEngine engine;
        ASSERT_TRUE(Load(engine, {kRaise}));
        EXPECT_TRUE(modFiles::FileExists(m_module));
    }
    EXPECT_FALSE(modFiles::FileExists(m_module));
    EXPECT_FALSE(modFiles::FolderExists(m_module.substr(0, m_module.rfind('\\'))));
}

TEST_F(RuleEngineTest, ASecondModuleReplacesTheFirstAlsoOnDisk) {
    RuleEngine engine;
    ASSERT_TRUE(Load(engine, {kRaise}));
    const std::string first = m_module;
    EXPECT_FALSE(Load(engine, {"Sub Main\r\n"}));
    EXPECT_NE(engine.LoadError(), "");
    ASSERT_TRUE(Load(engine, {"", kRaise}));
    EXPECT_EQ(engine.LoadError(), "");
    EXPECT_FALSE(modFiles::FileExists(first));
    EXPECT_EQ(engine.ExecuteRuleCondition(5000), ScriptResult::Nothing);
    EXPECT_EQ(engine.ExecuteRuleCondition(5001), ScriptResult::RaiseViolation);
}

TEST_F(RuleEngineTest, WithoutAModuleTheTemporaryFolderIsNamed) {
    RuleEngine engine;
    EXPECT_FALSE(engine.LoadScript(""));
    EXPECT_THAT(
        engine.LoadError(), HasSubstr("their module cannot be written to the temporary folder '"));
}

TEST_F(RuleEngineTest, APatternThatIsStoppedThreeTimesDisablesItsRule) {
    RuleEngine engine;
    UnauthorisedKeyword keyword;
    keyword.SetRuleID(5007);
    keyword.SetTitle("Odd");
    for (int stop = 1; stop <= RuleFailures::kStopsUntilDisabled; ++stop) {
        EXPECT_FALSE(engine.Failures().IsDisabled(5007));
        engine.CountPatternStop(keyword);
    }
    EXPECT_TRUE(engine.Failures().IsDisabled(5007));
    EXPECT_FALSE(engine.Failures().IsDisabled(5008));
    ASSERT_EQ(engine.Failures().DisabledRules().size(), 1U);
    EXPECT_EQ(engine.Failures().DisabledRules()[0].RuleName, "rule 5007 (Odd)");
    EXPECT_EQ(engine.Failures().DisabledRules()[0].What, "pattern");
}

TEST_F(RuleEngineTest, AnErrorThatMentionsALimitDoesNotDisableItsRule) {
    RuleEngine engine;
    ASSERT_TRUE(Load(engine, {"Sub Main\r\nErr.Raise 7, , \"no limit set\"\r\nEnd Sub\r\n"}));
    for (int run = 0; run <= RuleFailures::kStopsUntilDisabled; ++run) {
        engine.ExecuteRuleCondition(5000);
    }
    EXPECT_FALSE(engine.Failures().IsDisabled(5000));
    EXPECT_THAT(engine.Failures().DisabledRules(), IsEmpty());
}

}  // namespace

}  // namespace dorvik
