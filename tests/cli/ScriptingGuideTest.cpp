#include "cli/CommandLineFixture.h"
#include "enforcement/DVKSaxInterface.h"
#include "support/MarkdownBlocks.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace dorvik::test {

namespace {

class ScriptingGuideTranscripts : public CommandLineFixture {
protected:
    static std::string Guide() {
        std::ifstream stream(
            std::filesystem::path(DORVIK_DOCS_FOLDER) / "scripting.md", std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static std::vector<std::string> WordsOf(const std::string& line) {
        std::istringstream stream(line);
        return {std::istream_iterator<std::string>(stream), {}};
    }
};

}  // namespace

TEST_F(ScriptingGuideTranscripts, EachCommandPrintsWhatTheGuideSays) {
    constexpr std::string_view kPrompt = "$ dorvik ";
    int commands = 0;
    for (const MarkdownBlock& block : BlocksOf(Guide())) {
        // A block that has a file name behind its language is that file.
        if (const std::size_t blank = block.Language.find(' '); blank != std::string::npos) {
            WriteBytes(block.Language.substr(blank + 1), block.Text);
        }
        if (block.Language != "console") {
            continue;
        }
        std::string printed;
        for (const std::string& line : LinesOf(block.Text)) {
            if (line.starts_with(kPrompt)) {
                const ProgramResult result = Run(WordsOf(line.substr(kPrompt.size())));
                printed += line + "\n" + result.Output + result.Error;
                ++commands;
            }
        }
        EXPECT_EQ(printed, block.Text);
    }
    EXPECT_GE(commands, 6);
}

TEST_F(ScriptingGuideTranscripts, EachCallbackStandsThereWithAsManyArgumentsAsItTakes) {
    const std::string guide = Guide();
    for (const basic::ExtensionMember& member : DVKSaxInterface::MemberTable()) {
        const std::string sought = "\n| `Dorvik." + std::string(member.Name);
        const std::size_t at = guide.find(sought);
        ASSERT_NE(at, std::string::npos) << member.Name;
        const std::size_t from = at + sought.size();
        const std::string arguments = guide.substr(from, guide.find('`', from) - from);
        const auto commas = std::count(arguments.begin(), arguments.end(), ',');
        EXPECT_EQ(arguments.empty() ? 0 : commas + 1, member.Parameters) << member.Name;
    }
}

}  // namespace dorvik::test
