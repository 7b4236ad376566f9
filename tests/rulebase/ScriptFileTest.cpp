#include "rulebase/script/ScriptFile.h"

#include "platform/host/ScopedInstall.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHost.h"
#include "rulebase/model/CodingConvention.h"
#include "rulebase/model/NamingConvention.h"
#include "rulebase/model/RuleLists.h"
#include "rulebase/model/UnauthorisedKeyword.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The temporary folder of the machine is one of the test's own.
class ScriptFileFixture : public ::testing::Test {
protected:
    ScriptFileFixture() : m_facts{{}, {}, {}, m_folder.Path()}, m_installed(m_facts) {}

    const std::string& Temporary() const { return m_folder.Path(); }

private:
    TemporaryFolder m_folder;
    HostFacts m_facts;
    ScopedInstall<const HostFacts> m_installed;
};

using ScriptFileTest = ScriptFileFixture;

template <class Rule>
std::shared_ptr<Rule> RuleWithScript(std::int32_t ruleID, std::string script) {
    auto rule = std::make_shared<Rule>();
    rule->SetRuleID(ruleID);
    rule->SetTitle("Rule " + std::to_string(ruleID));
    rule->SetCondition(std::move(script));
    return rule;
}

}  // namespace

TEST_F(ScriptFileTest, ARulebaseWithoutScriptsGivesAnEntryMethodWithoutASelectCase) {
    EXPECT_EQ(
        ScriptFile().ModuleText(),
        "Attribute VB_Name = \"DorvikScripts\"\r\n\r\n"
        "Public Sub RunScript(ByVal v_lRuleID As Long)\r\n\r\n"
        "End Sub\r\n"
        "\r\n\r\n");
}

TEST_F(ScriptFileTest, EachScriptIsCalledByTheNumberOfItsRule) {
    ScriptFile file;
    file.AddScript(5001, "Sub Main\r\nEnd Sub");
    file.AddScript(12, "' keep\r\nPublic Sub Main()\r\nx = 1\r\nEnd Sub\r\n");
    EXPECT_EQ(
        file.ModuleText(),
        "Attribute VB_Name = \"DorvikScripts\"\r\n\r\n"
        "Public Sub RunScript(ByVal v_lRuleID As Long)\r\n\r\n"
        "    Select Case v_lRuleID\r\n"
        "        Case 5001\r\n"
        "            Call Method_5001\r\n"
        "        Case 12\r\n"
        "            Call Method_12\r\n"
        "    End Select\r\n\r\n"
        "End Sub\r\n"
        "\r\n\r\nSub Method_5001\r\nEnd Sub"
        "\r\n\r\n' keep\r\nPublic Sub Method_12()\r\nx = 1\r\nEnd Sub\r\n"
        "\r\n\r\n");
}

TEST_F(ScriptFileTest, OnlyTheFirstSubMainIsReplacedInAnyCase) {
    ScriptFile file;
    file.AddScript(7, "SUB MAIN\r\nEnd Sub\r\n' Sub Main");
    EXPECT_THAT(file.ModuleText(), HasSubstr("\r\n\r\nSub Method_7\r\nEnd Sub\r\n' Sub Main\r\n"));
}

TEST_F(ScriptFileTest, AScriptWithoutSubMainIsTakenAsItIs) {
    ScriptFile file;
    file.AddScript(7, "Sub Other\r\nEnd Sub");
    EXPECT_THAT(file.ModuleText(), HasSubstr("\r\n\r\nSub Other\r\nEnd Sub\r\n"));
}

TEST_F(ScriptFileTest, AnEmptyScriptAndASecondOneOfARuleArePassedOver) {
    ScriptFile file;
    file.AddScript(1, "");
    file.AddScript(2, "Sub Main\r\nEnd Sub");
    file.AddScript(2, "Sub Main\r\nOther\r\nEnd Sub");
    EXPECT_EQ(file.Lines().size(), 1U);
    EXPECT_THAT(file.ModuleText(), ::testing::Not(HasSubstr("Other")));
}

TEST_F(ScriptFileTest, LinesTellWhereEachScriptStands) {
    ScriptFile file;
    file.AddScript(5, "Sub Main\nx\rEnd Sub");  // three lines, however they end
    file.AddScript(6, "Sub Main\r\nEnd Sub\r\n");
    const std::string text = file.ModuleText();
    const auto lines = file.Lines();
    ASSERT_EQ(lines.size(), 2U);
    // Header 2, entry method 11, two line ends in front of each script.
    EXPECT_EQ(lines[0].RuleID, 5);
    EXPECT_EQ(lines[0].First, 15);
    EXPECT_EQ(lines[0].Last, 17);
    EXPECT_EQ(lines[1].First, 19);
    EXPECT_EQ(lines[1].Last, 21);
}

TEST_F(ScriptFileTest, TheModuleIsWrittenIntoAFolderOfItsOwnAndRemovedWithIt) {
    ScriptFile file;
    ScriptFile other;
    EXPECT_NE(file.FullFilename(), other.FullFilename());
    EXPECT_THAT(file.FullFilename(), StartsWith(Temporary() + "Dorvik"));
    EXPECT_TRUE(file.FullFilename().ends_with("\\DorvikScripts.dvs"));
    file.AddScript(1, "Sub Main\r\nEnd Sub");
    file.CreateScriptFile();
    file.CreateScriptFile();  // an old file goes first
    EXPECT_EQ(modFiles::ReadBytes(file.FullFilename()), file.ModuleText());
    ScriptFile::RemoveScriptFile(file.FullFilename());
    ScriptFile::RemoveScriptFile(file.FullFilename());  // gone already
    EXPECT_EQ(modFiles::FolderEntries(Temporary()).size(), 1U);
}

TEST_F(ScriptFileTest, AModuleThatIsNotAsciiBearsTheMarkOfItsEncoding) {
    ScriptFile file;
    file.AddScript(1, "' f\xC3\xBCr\r\nSub Main\r\nEnd Sub");
    file.CreateScriptFile();
    EXPECT_THAT(
        modFiles::ReadBytes(file.FullFilename()),
        StartsWith("\xEF\xBB\xBF"
                   "Attribute"));
}

TEST_F(ScriptFileTest, RuleListsWriteCodingConventionsFirstAndNoKeywords) {
    RuleLists lists;
    lists.AddConvention(RuleWithScript<NamingConvention>(20, "Sub Main\r\nEnd Sub"), false);
    lists.AddConvention(RuleWithScript<UnauthorisedKeyword>(21, "GoTo"), false);
    lists.AddConvention(RuleWithScript<CodingConvention>(22, "Sub Main\r\nEnd Sub"), false);
    lists.AddConvention(RuleWithScript<CodingConvention>(23, ""), false);
    std::vector<basic::ScriptOrigin> origins;
    const std::string filename = lists.CreateScriptFile(&origins);
    const std::string text = modFiles::ReadBytes(filename);
    EXPECT_THAT(
        text,
        HasSubstr("        Case 22\r\n            Call Method_22\r\n"
                  "        Case 20\r\n            Call Method_20\r\n    End Select"));
    EXPECT_THAT(text, ::testing::Not(HasSubstr("GoTo")));
    ASSERT_EQ(origins.size(), 2U);
    EXPECT_EQ(origins[0].Rule, 22);
    EXPECT_EQ(origins[0].Name, "rule 22 (Rule 22)");
    EXPECT_EQ(origins[1].Rule, 20);
    ScriptFile::RemoveScriptFile(filename);
}

TEST_F(ScriptFileTest, ACodingConventionWinsOverANamingConventionOfTheSameNumber) {
    ScriptFile file;
    file.AddScript(9, "Sub Main\r\n' coding\r\nEnd Sub");
    file.AddScript(9, "Sub Main\r\n' naming\r\nEnd Sub");
    EXPECT_THAT(file.ModuleText(), HasSubstr("' coding"));
    EXPECT_THAT(file.ModuleText(), ::testing::Not(HasSubstr("' naming")));
}

}  // namespace dorvik::test
