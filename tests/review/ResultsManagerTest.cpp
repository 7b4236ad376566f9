#include "enforcement/ResultsManager.h"

#include "ReviewRun.h"
#include "platform/database/Database.h"
#include "platform/host/IMessageBox.h"
#include "rulebase/check/modTextTags.h"
#include "rulebase/model/ViolationDefinition.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"
#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace dorvik {

namespace {

using test::CapturedLog;
using test::ModuleWith;
using test::ReviewRun;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A results manager with a procedure in scope, and a log that can be read.
class TagTest : public testing::Test {
protected:
    TagTest() {
        const auto procedure = std::make_shared<VirtualObject>();
        procedure->Properties().Add("Name", "Work", false);
        procedure->Properties().Add("Odd.Key", "dotted", false);
        procedure->Properties().Add("Share", "50%", false);
        m_manager.ParserState().Attach(procedure, "Procedure");
    }

    std::string Expand(std::string_view text) {
        return m_manager.Violations().ChangeTagsToValues(text);
    }

    CapturedLog m_log;
    ResultsManager m_manager;
};

TEST_F(TagTest, TextWithoutTagsIsUnchanged) {
    EXPECT_EQ(Expand("nothing here"), "nothing here");
    EXPECT_EQ(Expand(""), "");
}

TEST_F(TagTest, OneLonePercentSignLeavesTheTextUnchanged) {
    EXPECT_EQ(Expand("100% sure"), "100% sure");
}

TEST_F(TagTest, TagThatAppearsTwiceIsReplacedAtBothPositions) {
    EXPECT_EQ(Expand("%Procedure.Name% calls %Procedure.Name%"), "Work calls Work");
}

TEST_F(TagTest, TheFirstDotSeparatesObjectAndProperty) {
    EXPECT_EQ(Expand("%Procedure.Odd.Key%"), "dotted");
}

TEST_F(TagTest, TagInOtherCaseWorks) {
    EXPECT_EQ(Expand("%procedure.NAME% and %Procedure.Name%"), "Work and Work");
}

TEST_F(TagTest, MalformedTagEndsTheExpansion) {
    EXPECT_EQ(Expand("100% of %Procedure.Name%"), "100% of %Procedure.Name%");
    EXPECT_EQ(Expand("%Procedure.Name% %NoDot% %Procedure.Name%"), "Work %NoDot% Work");
    EXPECT_EQ(Expand("%.Name% %Procedure.Name%"), "%.Name% %Procedure.Name%");
}

TEST_F(TagTest, PercentSignInsideAValueIsNoTag) {
    EXPECT_EQ(Expand("%Procedure.Share% of %Procedure.Name%"), "50% of Work");
}

TEST_F(TagTest, UnknownPropertyCostsALineInTheLogAndIsReplacedByNothing) {
    EXPECT_EQ(Expand("[%Procedure.Nothing%][%Nobody.Name%]"), "[][]");
    EXPECT_TRUE(m_log.Contains("Virtual object property 'Procedure.Nothing' not found."));
    EXPECT_TRUE(m_log.Contains("Unknown virtual object 'Nobody' or object not in scope."));
}

TEST_F(TagTest, TagThatAppearsTwiceIsLookedUpOnce) {
    EXPECT_EQ(Expand("%Nobody.Name%, %NOBODY.name%"), ", ");
    EXPECT_EQ(m_log.Lines().size(), 1U);
}

// Each tag that is looked up costs a line of the log here, so the lines count the work.
TEST_F(TagTest, TagsBeyondTheLimitAreLeftUnchangedAndLogged) {
    const auto text = [](std::size_t tags) {
        std::string result;
        for (std::size_t tag = 0; tag < tags; ++tag) {
            result += "%Nobody.N" + std::to_string(tag) + "%";
        }
        return result;
    };
    EXPECT_EQ(Expand(text(modTextTags::kMostTags)), "");
    EXPECT_EQ(m_log.Lines().size(), modTextTags::kMostTags);
    for (const std::size_t tags : {200U, 2000U, 20000U}) {
        m_log.Clear();
        EXPECT_EQ(Expand(text(tags)), text(tags).substr(text(modTextTags::kMostTags).size()));
        EXPECT_EQ(m_log.Lines().size(), modTextTags::kMostTags + 1);
        EXPECT_TRUE(m_log.Contains("More than 100 different tags; %Nobody.N100% and any after it"));
    }
}

TEST_F(TagTest, ATagThatMakesTheTextTooLargeStaysAndTheOthersAreFilledIn) {
    const std::string large(modTextTags::kLargestText / 2, 'x');
    m_manager.ParserState().GetVirtualObject("Procedure")->Properties().Add("Large", large, false);
    EXPECT_EQ(Expand("%Procedure.Large%%Procedure.Name%"), large + "Work");
    EXPECT_THAT(m_log.Lines(), testing::IsEmpty());
    EXPECT_EQ(
        Expand("%Procedure.Large%, %Procedure.Large%, %Procedure.Name%"),
        "%Procedure.Large%, %Procedure.Large%, Work");
    EXPECT_TRUE(m_log.Contains("The text gets too large; %Procedure.Large% is left unchanged."));
}

TEST_F(TagTest, DebugPrintWithPrefixNamesEventAndRule) {
    m_manager.ParserState().SetParserEvent(ParserEvent::ProcedureBody);
    m_manager.DumpDebugPrint("one", true);
    m_manager.ParserState().SetCurrentRuleID("5000");
    m_manager.DumpDebugPrint("two", true);
    m_manager.DumpDebugPrint("three", false);
    EXPECT_THAT(
        m_log.Lines(),
        ElementsAre(
            "[Event:Procedure <body>]one", "[Event:Procedure <body>][Rule:5000] two", "three"));
}

TEST_F(TagTest, DumpVirtualObjectWritesPropertiesAndWorkfields) {
    const auto type = std::make_shared<VirtualObject>();
    type->Properties().Add("Name", "T", false);
    type->Properties().Add("ElementCount", 3, false);
    type->Workfields().Add("seen", true, false);
    m_manager.ParserState().Attach(type, "Type");
    m_manager.ParserState().SetParserEvent(ParserEvent::EndType);
    m_manager.ParserState().SetCurrentRuleID("5001");
    m_manager.DumpVirtualObject("Type");
    EXPECT_THAT(
        m_log.Lines(),
        ElementsAre(
            "[Event:end Type][Rule:5001][Object:Type]",
            "=== Type Properties ===",
            "   Name=T",
            "   ElementCount=3",
            "=== Type Workfields ===",
            "   seen=True",
            "==="));
}

TEST_F(TagTest, DumpOfANameThatIsNotInScopeWritesTwoLinesAndIsLogged) {
    m_manager.DumpVirtualObject("Nobody");
    EXPECT_EQ(m_log.Lines().size(), 3U);
    EXPECT_TRUE(m_log.Contains("C_ResultsManager::DumpVirtualObject"));
}

TEST_F(TagTest, RuleZeroNeverMarksTheCurrentRule) {
    m_manager.ParserState().SetCurrentRuleID("before");
    const ViolationDefinition definition;
    m_manager.RaiseViolation(definition, {Location::Procedure, 0, ruleTypeComponent, ""}, "");
    EXPECT_EQ(m_manager.ParserState().CurrentRuleID(), "before");
    m_manager.RaiseViolation(definition, {Location::Procedure, 7, ruleTypeKeyword, ""}, "");
    EXPECT_EQ(m_manager.ParserState().CurrentRuleID(), "7");
}

TEST_F(TagTest, FailedTagInATextIsLoggedWithTheMarkOfThatText) {
    ViolationDefinition definition;
    definition.SetDescription("%Procedure.No%");
    definition.SetAdvice("%Procedure.Nor%");
    m_manager.RaiseViolation(definition, {Location::Procedure, 7, ruleTypeKeyword, ""}, "");
    EXPECT_TRUE(
        m_log.Contains("[Rule:7 - Violation] Virtual object property 'Procedure.No' not found."));
    EXPECT_TRUE(
        m_log.Contains("[Rule:7 - Advice] Virtual object property 'Procedure.Nor' not found."));
}

TEST_F(TagTest, LocationWithoutOwnerIsLoggedAndLost) {
    m_manager.RaiseViolation(ViolationDefinition(), {Location::None, 7, ruleTypeKeyword, ""}, "");
    EXPECT_TRUE(m_log.Contains("C_ResultsManager::LogViolation"));
}

class RecordingMessageBox final : public IMessageBox {
public:
    MessageAnswer Show(const MessageText& message) override {
        Texts.push_back(message.Text);
        return MessageAnswer::Ok;
    }
    std::vector<std::string> Texts;
};

void AddOneModule(ReviewRun& run) {
    run.AddProject("P.vbp", "Module=modA; modA.bas\nType=Exe\nName=\"P\"\n");
    run.AddFile("modA.bas", ModuleWith("modA", "Stop\n"));
    run.SetRules({{"No Stop", "Stop"}});
}

TEST(ResultsManager, SecondReviewReplacesTheWholeFile) {
    ReviewRun run;
    AddOneModule(run);
    run.Run();
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    run.Run();
    EXPECT_TRUE(run.Query("P", "SELECT Title FROM Violations").empty());
    EXPECT_EQ(run.Query("P", "SELECT ReviewID FROM Review").size(), 1U);
}

TEST(ResultsManager, ReadOnlyOldDatabaseIsReplaced) {
    ReviewRun run;
    AddOneModule(run);
    run.Run();
    std::filesystem::permissions(
        run.Folder().HostPath() / "Dorvik" / "P_DORVIK.mdb", std::filesystem::perms::owner_read);
    EXPECT_EQ(run.Run(), SliceResult::Complete);
    EXPECT_EQ(run.Query("P", "SELECT Title FROM Violations").size(), 1U);
}

TEST(ResultsManager, LockedOldDatabaseIsReportedAndTheProjectIsNotReviewed) {
    ReviewRun run;
    AddOneModule(run);
    run.Run();
    Database other;
    other.Open(run.Folder().Path("Dorvik\\P_DORVIK.mdb"));
    RecordingMessageBox box;
    const ScopedInstall<IMessageBox> installed(box);
    run.Run();
    EXPECT_THAT(
        box.Texts,
        ElementsAre(
            "Unable to replace the existing results database '" +
            (run.Folder().HostPath() / "Dorvik" / "P_DORVIK.mdb").string() +
            "', because it is locked by another process."));
    EXPECT_EQ(run.Criteria().ProjectList().Item(1)->Outcome().ReviewStatus, 1);
    other.Close();
    EXPECT_EQ(
        run.Query("P", "SELECT Title FROM Violations").size(), 1U);  // the old results are whole
}

TEST(ResultsManager, LockedOldDatabaseIsReportedInTheLogOfABackgroundReview) {
    ReviewRun run;
    AddOneModule(run);
    run.Run();
    Database other;
    other.Open(run.Folder().Path("Dorvik\\P_DORVIK.mdb"));
    RecordingMessageBox box;
    const ScopedInstall<IMessageBox> installed(box);
    run.Criteria().SetBackgroundReview(true);
    run.Run();
    EXPECT_THAT(box.Texts, IsEmpty());
    EXPECT_EQ(run.Criteria().ProjectList().Item(1)->Outcome().ReviewStatus, 1);
    EXPECT_THAT(
        run.Log("P"), Contains(HasSubstr("Unable to replace the existing results database '")));
}

TEST(ResultsManager, MissingTemplateIsASetupErrorAndFailsTheProject) {
    ReviewRun run;
    AddOneModule(run);
    modGlobal::Data().SetProjectResultsDB(run.Folder().Path("Nowhere.mdb"));
    run.Run();
    EXPECT_EQ(run.Criteria().ProjectList().Item(1)->Outcome().ReviewStatus, 1);
    EXPECT_THAT(
        run.Log("P"),
        Contains(HasSubstr(
            "#Setup #Template results database file '" + run.Folder().Path("Nowhere.mdb") +
            "' not found.#C_ResultsManager::BeginReview")));
}

TEST(ResultsManager, ResultsAndLogGoToTheFixedFolder) {
    ReviewRun run;
    AddOneModule(run);
    run.Criteria().SetUseProjectFolderResults(false);
    run.Criteria().SetFixedFolderResults(run.Folder().Path("out\\deep"));
    run.Run();
    EXPECT_NE(run.Folder().Read("out\\deep\\P_DORVIK.mdb"), "");
    EXPECT_NE(run.Folder().Read("out\\deep\\P_DORVIK.txt"), "");
}

TEST(ResultsManager, ReviewLogGrowsUnlessItIsToBeCleared) {
    ReviewRun run;
    AddOneModule(run);
    run.Run();
    const std::size_t lines = run.Log("P").size();
    run.Run();
    EXPECT_EQ(run.Log("P").size(), 2 * lines);
    run.Criteria().SetClearLogBeforeReview(true);
    run.Run();
    EXPECT_EQ(run.Log("P").size(), lines);
}

/// A module whose line 3 breaks so many rules.
std::vector<std::string>
TextsOfViolations(const std::string& line, int rules, const std::string& column = "SourceLine") {
    ReviewRun run;
    std::vector<test::KeywordRule> keywords;
    for (int rule = 0; rule < rules; ++rule) {
        keywords.push_back({"Rule " + std::to_string(rule), "forbidden", {30}});
        keywords.back().Description = "In %Source.PhysicalLine%";
    }
    run.SetRules(keywords);
    run.AddProject("P.vbp", "Module=modA; modA.bas\nModule=modB; modB.bas\nType=Exe\nName=\"P\"\n");
    run.AddFile("modA.bas", ModuleWith("modA", line + "\n"));
    run.AddFile("modB.bas", ModuleWith("modB", line + "\n"));
    run.Run();
    return run.Query("P", "SELECT " + column + " FROM Violations ORDER BY ViolationID");
}

TEST(ViolationsOfOneLine, FromThe64thOnTheirLineIsCutAndMarkedInEachFile) {
    const std::string line = "    forbidden '" + std::string(2000, 'x');
    const std::vector<std::string> lines = TextsOfViolations(line, 70);
    const std::vector<std::string> texts = TextsOfViolations(line, 70, "Description");
    ASSERT_EQ(lines.size(), 140U);
    ASSERT_EQ(texts.size(), 140U);
    const std::string text = "In " + line;
    for (std::size_t violation = 0; violation < lines.size(); ++violation) {
        const bool isWhole = violation % 70 < 63;
        EXPECT_EQ(lines[violation], isWhole ? line : line.substr(0, 1000) + " ...") << violation;
        EXPECT_EQ(texts[violation], isWhole ? text : text.substr(0, 1000) + " ...") << violation;
    }
}

TEST(ViolationsOfOneLine, ALineIsCutAtItsCharactersAndAShortOneNotAtAll) {
    EXPECT_EQ(TextsOfViolations("    forbidden", 64).at(63), "    forbidden");
    const std::string whole =
        "    forbidden '" + std::string(ViolationLog::kLongestSourceLine - 15, 'x');
    EXPECT_EQ(TextsOfViolations(whole, 1).at(0), whole);
    EXPECT_EQ(TextsOfViolations(whole + "x", 1).at(0), whole.substr(0, 1000) + " ...");
}

// The square of the length was stored for a line of many violations.
TEST(ViolationsOfOneLine, TheStoredTextGrowsWithTheNumberOfViolationsAndNotWithTheirLineToo) {
    const auto stored = [](int rules) {
        std::size_t bytes = 0;
        const std::string line =
            "    forbidden '" + std::string(static_cast<std::size_t>(rules) * 100, 'x');
        for (const std::string& text : TextsOfViolations(line, rules)) {
            bytes += text.size();
        }
        return bytes;
    };
    // The first 63 of each file store it whole, the others a text of 1,004 characters.
    EXPECT_EQ(stored(150), 2 * (63 * (15'000U + 15) + 87 * 1004));
    EXPECT_EQ(stored(300), 2 * (63 * (30'000U + 15) + 237 * 1004));
}

}  // namespace

}  // namespace dorvik
