#include "workstation/session/SessionPlayer.h"

#include "SessionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SessionPlayerTest : public testing::Test {
protected:
    PlayedSession Play(std::string_view script) { return PlaySession(m_folder, script); }

    SessionFolder m_folder;
};

TEST_F(SessionPlayerTest, AnEmptyScriptPutsOutNothing) {
    const PlayedSession played = Play("\n# nothing\r\n\r\n");
    EXPECT_THAT(played.Output, IsEmpty());
    EXPECT_TRUE(played.Outcome.ExpectationsMet);
    EXPECT_EQ(played.Outcome.WrongLine, 0);
}

TEST_F(SessionPlayerTest, ALineThatIsNotUnderstoodEndsTheSession) {
    for (const std::string_view line :
         {"fly",
          "start x",
          "start 1 2",
          "row",
          "row one",
          "complete 1",
          "complete 1 yes",
          "answer maybe",
          "view tree",
          "sort Title up",
          "tick often",
          "dump",
          "dump everything",
          "dump code",
          "dump state now",
          "dialog",
          "dialog colour red",
          "dialog project Shop",
          "dialog background maybe",
          "summary",
          "summary often",
          "expect state project",
          "expect nothing project Shop",
          "expect code lines.1 x",
          "edit modMain x y",
          "dirty Shop",
          "file \"a"}) {
        const PlayedSession played = Play("dump settings\n" + std::string(line) + "\ndump host\n");
        EXPECT_EQ(played.Outcome.WrongLine, 2) << line;
        EXPECT_FALSE(played.Outcome.Fault.empty()) << line;
        EXPECT_THAT(played.Output, ElementsAre(R"({"dump":"settings","values":{}})")) << line;
    }
}

TEST_F(SessionPlayerTest, ARefusalNamesItsLineAndTheScriptContinues) {
    const PlayedSession played = Play("row 1\ndump settings\n");
    EXPECT_THAT(
        played.Output,
        ElementsAre(
            R"({"refused":"the add-in is not started","line":1})",
            R"({"dump":"settings","values":{}})"));
    EXPECT_TRUE(played.Outcome.ExpectationsMet);
}

TEST_F(SessionPlayerTest, AnExpectationThatIsNotMetShowsTheValueAndTheScriptContinues) {
    const PlayedSession played = Play("setting ClearLog 0\n"
                                      "expect settings values.ClearLog 0\n"
                                      "expect settings values.ClearLog 1\n"
                                      "expect settings values.Gone 1\n"
                                      "expect messages boxes.1.text x\n"
                                      "expect messages boxes []\n"
                                      "dump settings\n");
    EXPECT_FALSE(played.Outcome.ExpectationsMet);
    EXPECT_THAT(
        played.Output,
        ElementsAre(
            R"({"failed":"settings","path":"values.ClearLog","is":"0","line":3})",
            R"({"failed":"settings","path":"values.Gone","is":null,"line":4})",
            R"({"failed":"messages","path":"boxes.1.text","is":null,"line":5})",
            R"({"dump":"settings","values":{"ClearLog":"0"}})"));
}

TEST_F(SessionPlayerTest, ExpectationsCompareNumbersAndBooleans) {
    const PlayedSession played = Play("start\n"
                                      "expect state view 1\n"
                                      "expect state available false\n"
                                      "expect state view 2\n"
                                      "expect state available true\n");
    EXPECT_THAT(
        played.Output,
        ElementsAre(
            R"({"failed":"state","path":"view","is":1,"line":4})",
            R"({"failed":"state","path":"available","is":false,"line":5})"));
}

TEST_F(SessionPlayerTest, WhatTheBenchCannotShowMeetsNoExpectation) {
    const PlayedSession played = Play("expect summary tab 1\nexpect state view 1\n");
    EXPECT_FALSE(played.Outcome.ExpectationsMet);
    EXPECT_THAT(
        played.Output,
        ElementsAre(
            R"({"failed":"summary","path":"tab","is":null,"line":1})",
            R"({"failed":"state","path":"view","is":null,"line":2})"));
}

TEST_F(SessionPlayerTest, CodeIsExpectedByItsFile) {
    const PlayedSession played =
        Play("open Shop/Shop.vbp\nexpect code modMain lines.1 \"Option Explicit\"\n");
    EXPECT_THAT(played.Output, IsEmpty());
    EXPECT_TRUE(played.Outcome.ExpectationsMet);
}

TEST_F(SessionPlayerTest, BoxesAreAnsweredInOrderAndPrintedOnce) {
    const PlayedSession played = Play("open Shop/Shop.vbp\nstart\ndirty Shop on\n"
                                      "answer no\nanswer cancel\nmenu DORVIK.REVIEW\n"
                                      "expect messages boxes.1.answer no\n"
                                      "expect messages boxes.2.answer cancel\n"
                                      "dump messages\ndump messages\n");
    ASSERT_EQ(played.Output.size(), 2U);
    EXPECT_THAT(played.Output[0], HasSubstr("has changed."));
    EXPECT_EQ(played.Output[1], R"({"dump":"messages","boxes":[]})");
}

TEST_F(SessionPlayerTest, ABoxWithoutAnAnswerGetsItsFirstButton) {
    const PlayedSession played =
        Play("open Shop/Shop.vbp\nstart\ndirty Shop on\nmenu DORVIK.REVIEW\n"
             "expect messages boxes.1.answer yes\n");
    EXPECT_THAT(played.Output, IsEmpty());
}

TEST_F(SessionPlayerTest, ARefusedFieldIsReportedWithItsOwnLine) {
    const PlayedSession played =
        Play("open Shop/Shop.vbp\nstart\ndialog project Other on\nmenu DORVIK.REVIEW\n");
    ASSERT_EQ(played.Output.size(), 1U);
    EXPECT_THAT(played.Output[0], HasSubstr(R"("line":3)"));
}

TEST_F(SessionPlayerTest, SettingsOfTheUserAreNeitherReadNorWritten) {
    SettingsSections users;
    const ScopedSettingsStore installed(RegistryRoot::CurrentUser, users);
    users.Set("Software\\Lumbrook\\Dorvik\\6.2\\DVKWork", {{"ClearLog", "0"}});
    const PlayedSession played = Play("dump settings\nstart\nstop\n");
    EXPECT_THAT(played.Output, ElementsAre(R"({"dump":"settings","values":{}})"));
    EXPECT_EQ(users.List("Software\\Lumbrook\\Dorvik\\6.2\\DVKWork").size(), 1U);
}

TEST_F(SessionPlayerTest, ASettingHoldsAfterTheStartAndLeavesTheOthersAlone) {
    const PlayedSession played =
        Play("setting BackgroundTickCount 7\nstart\nmenu DORVIK.LPSHOWGROUPBY\n"
             "setting GroupByRule 1\n"
             "expect menus popup.4.checked false\n"
             "expect menus menu.7.items.2.checked true\n"
             "stop\n"
             "expect settings values.BackgroundTickCount 7\n"
             "expect settings values.GroupByRule 1\n");
    ASSERT_EQ(played.Output.size(), 1U);  // the popup's item is disabled without results
    EXPECT_TRUE(played.Outcome.ExpectationsMet);
}

}  // namespace
}  // namespace dorvik::test
