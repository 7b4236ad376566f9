// The sessions below cases/: a script NAME.session and what it puts out, NAME.expected, a line of JSON each. With
// DORVIK_SESSIONS_NOW=folder what they put out now is written there, to be read and copied.
//
// Each is played twice, over files and over an environment in memory, and has to put out the same. A script whose first
// line begins with kFilesOnly, and says why, is played over files alone.
#include "ScriptedSessionHost.h"
#include "SessionFixture.h"
#include "support/LineText.h"
#include "support/NamedTests.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace dorvik::test {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFilesOnly = "# Over files only: ";
constexpr std::size_t kLeastOnBothHosts = 30;

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void WriteNow(const fs::path& script, const std::vector<std::string>& output) {
    if (const char* const folder = std::getenv("DORVIK_SESSIONS_NOW")) {
        std::ofstream stream(
            fs::path(folder) / script.filename().replace_extension(".expected"), std::ios::binary);
        for (const std::string& line : output) {
            stream << line << "\n";
        }
    }
}

void ExpectLines(
    const std::vector<std::string>& output,
    const std::vector<std::string>& expected,
    const fs::path& where) {
    EXPECT_EQ(output.size(), expected.size());
    for (std::size_t line = 0; line < std::min(expected.size(), output.size()); ++line) {
        ASSERT_EQ(output[line], expected[line]) << where << ", line " << line + 1;
    }
}

void ExpectPlayed(const PlayedSession& played) {
    EXPECT_EQ(played.Outcome.WrongLine, 0) << played.Outcome.Fault;
    EXPECT_TRUE(played.Outcome.ExpectationsMet);
}

void PlayOverFiles(const fs::path& script) {
    ASSERT_TRUE(fs::exists(script)) << script;
    const fs::path expected = fs::path(script).replace_extension(".expected");
    const SessionFolder folder;
    const PlayedSession played = PlaySession(folder, BytesOf(script));
    WriteNow(script, played.Output);
    ExpectPlayed(played);
    ExpectLines(played.Output, LinesOf(BytesOf(expected)), expected);
}

PlayedSession PlayedInMemory(const fs::path& script) {
    const SessionFolder folder;
    ScriptedSessionHost host;
    return PlaySession(folder, BytesOf(script), host);
}

PlayedSession PlayedOverFiles(const fs::path& script) {
    const SessionFolder folder;
    return PlaySession(folder, BytesOf(script));
}

void PlayOnBothHosts(const fs::path& script) {
    ASSERT_TRUE(fs::exists(script)) << script;
    const PlayedSession inMemory = PlayedInMemory(script);
    ExpectPlayed(inMemory);
    ExpectLines(inMemory.Output, PlayedOverFiles(script).Output, script);
}

std::vector<fs::path> Scripts() {
    const fs::path cases = fs::path(DORVIK_SESSIONS_FOLDER) / "cases";
    std::vector<fs::path> scripts;
    for (const fs::directory_entry& entry : fs::directory_iterator(cases)) {
        if (entry.path().extension() == ".session") {
            scripts.push_back(entry.path());
        }
    }
    std::sort(scripts.begin(), scripts.end());
    return scripts;
}

bool IsOverFilesOnly(const fs::path& script) {
    return BytesOf(script).starts_with(kFilesOnly);
}

const bool kRegistered = [] {
    for (const fs::path& script : Scripts()) {
        const std::string name = TestName(script.stem().string());
        RegisterNamedTest({"SessionCases", name, script, 1, [script] {
                               PlayOverFiles(script);
                           }});
        if (!IsOverFilesOnly(script)) {
            RegisterNamedTest({"SessionCasesOnBothHosts", name, script, 1, [script] {
                                   PlayOnBothHosts(script);
                               }});
        }
    }
    return true;
}();

TEST(SessionCasesOnBothHosts, MostCasesArePlayedOnBoth) {
    const std::vector<fs::path> scripts = Scripts();
    EXPECT_GE(
        static_cast<std::size_t>(std::ranges::count_if(
            scripts, [](const fs::path& script) { return !IsOverFilesOnly(script); })),
        kLeastOnBothHosts);
}

}  // namespace
}  // namespace dorvik::test
