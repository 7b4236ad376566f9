// The sessions below tests/workstation/session/cases, played by hand on the widgets: they have to put out what they put
// out without them.
#include "WidgetHands.h"
#include "support/LineText.h"
#include "support/NamedTests.h"
#include "workstation/session/FileSessionHost.h"
#include "workstation/session/SessionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace dorvik::test {
namespace {

namespace fs = std::filesystem;

/// What is left to the models and why no widget is meant. But for messages it has to be refused.
const std::map<std::string, std::string> kAllowed{
    {"bench that is not started", "nothing is shown"},
    {"box that is disabled", "a user cannot open it"},
    {"column that is not there", "there is no heading to click"},
    {"control that is disabled", "a user cannot click or type there"},
    {"field that a form does not have", "there is no widget"},
    {"item that a box does not have", "there is nothing to choose"},
    {"item that a list does not have", "there is nothing to mark"},
    {"menu item that is not there", "there is nothing to click"},
    {"message while a review runs in the background",
     "the window of the progress keeps the time of the review, which is the script's to keep"},
    {"page that is not there", "there is no tab to click"},
    {"review that does not run", "there is no window with a button to cancel it"},
    {"row that is not there", "there is nothing to click"},
    {"summary that is not open", "there is no window"},
};

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// The commands of a user: each is done by hand or was left to the models.
constexpr std::string_view kOfUsers[] = {
    "menu ",
    "dialog ",
    "file ",
    "procedure ",
    "view ",
    "row ",
    "complete ",
    "sort ",
    "group ",
    "ungroup ",
    "header ",
    "item ",
    "goto",
    "summary "};

void ExpectDone(
    const std::vector<std::string>& script,
    const std::map<std::string, int>& byHand,
    const Fallbacks& fallbacks) {
    int done = 0;
    for (const auto& [command, count] : byHand) {
        testing::Test::RecordProperty("ByHand." + command, count);
        done += count;
    }
    for (const auto& [what, count] : fallbacks.Counts()) {
        EXPECT_TRUE(kAllowed.contains(what)) << what << ", " << count << " times";
        done += count;
    }
    EXPECT_GE(done, std::ranges::count_if(script, [](const std::string& line) {
                  return std::ranges::any_of(kOfUsers, [&](std::string_view command) {
                      return line.starts_with(command);
                  });
              }));
}

void PlayByHand(const fs::path& script) {
    ASSERT_TRUE(fs::exists(script)) << script;
    const fs::path expected = fs::path(script).replace_extension(".expected");
    const SessionFolder folder;
    std::vector<std::string> output;
    Fallbacks fallbacks;
    FileSessionHost host;
    Session session(host);
    SessionPlayer player(
        session, [&](const std::string& json) { output.push_back(folder.WithoutPlaces(json)); });
    {
        WidgetHands hands(session, fallbacks);
        player.SetHands(&hands);
        const SessionPlayer::Outcome outcome = player.Play(BytesOf(script));
        player.SetHands(nullptr);
        EXPECT_EQ(outcome.WrongLine, 0) << outcome.Fault;
        EXPECT_TRUE(outcome.ExpectationsMet);
        ExpectDone(LinesOf(BytesOf(script)), hands.ByHand(), fallbacks);
    }
    const std::vector<std::string> wanted = LinesOf(BytesOf(expected));
    EXPECT_EQ(output.size(), wanted.size());
    for (std::size_t line = 0; line < std::min(wanted.size(), output.size()); ++line) {
        EXPECT_EQ(output[line], wanted[line]) << expected << ", line " << line + 1;
    }
}

const bool kRegistered = [] {
    const fs::path cases = fs::path(DORVIK_SESSIONS_FOLDER) / "cases";
    std::vector<fs::path> scripts;
    for (const fs::directory_entry& entry : fs::directory_iterator(cases)) {
        if (entry.path().extension() == ".session") {
            scripts.push_back(entry.path());
        }
    }
    std::sort(scripts.begin(), scripts.end());
    for (const fs::path& script : scripts) {
        RegisterNamedTest(
            {"SessionsOnWidgets", TestName(script.stem().string()), script, 1, [script] {
                 PlayByHand(script);
             }});
    }
    return true;
}();

}  // namespace
}  // namespace dorvik::test
