// The sessions below cases/: a script NAME.session and what it puts out, NAME.expected, a line of JSON each. With
// DORVIK_SESSIONS_NOW=folder what they put out now is written there, to be read and copied.
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

void PlayCase(const fs::path& script) {
    ASSERT_TRUE(fs::exists(script)) << script;
    const fs::path expected = fs::path(script).replace_extension(".expected");
    const SessionFolder folder;
    const PlayedSession played = PlaySession(folder, BytesOf(script));
    WriteNow(script, played.Output);
    EXPECT_EQ(played.Outcome.WrongLine, 0) << played.Outcome.Fault;
    EXPECT_TRUE(played.Outcome.ExpectationsMet);
    const std::vector<std::string> lines = LinesOf(BytesOf(expected));
    EXPECT_EQ(played.Output.size(), lines.size());
    for (std::size_t line = 0; line < std::min(lines.size(), played.Output.size()); ++line) {
        ASSERT_EQ(played.Output[line], lines[line]) << expected << ", line " << line + 1;
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
        RegisterNamedTest({"SessionCases", TestName(script.stem().string()), script, 1, [script] {
                               PlayCase(script);
                           }});
    }
    return true;
}();

}  // namespace
}  // namespace dorvik::test
