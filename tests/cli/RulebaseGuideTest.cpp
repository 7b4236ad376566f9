#include "cli/CommandLineFixture.h"
#include "support/MarkdownBlocks.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace dorvik::test {

namespace {

class RulebaseGuideTranscripts : public CommandLineFixture {
protected:
    static std::string Guide() {
        std::ifstream stream(
            std::filesystem::path(DORVIK_DOCS_FOLDER) / "rulebase.md", std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static std::string
    With(std::string text, const std::string& sought, const std::string& replacement) {
        const std::size_t at = text.find(sought);
        EXPECT_NE(at, std::string::npos) << sought;
        return text.replace(at, sought.size(), replacement);
    }

    /// "team.dvk" as the guide has it, and "flawed.dvk" with the three slips that it tells of.
    void WriteRulebases() const {
        const std::string team = ExampleRulebases(Guide()).front();
        WriteBytes("team.dvk", team);
        std::string flawed = With(team, "ParserEventID=\"30\"", "ParserEventID=\"30|34\"");
        flawed = With(flawed, "CategoryID=\"1\"", "CategoryID=\"9\"");
        WriteBytes("flawed.dvk", With(flawed, "%Procedure.Name%", "%Procedure.Nmae%"));
    }

    /// The words of a command line; double quotes hold words together.
    static std::vector<std::string> WordsOf(const std::string& line) {
        std::vector<std::string> words(1);
        bool quoted = false;
        for (const char character : line) {
            if (character == '"') {
                quoted = !quoted;
            } else if (character == ' ' && !quoted) {
                words.emplace_back();
            } else {
                words.back() += character;
            }
        }
        return words;
    }
};

}  // namespace

TEST_F(RulebaseGuideTranscripts, EachCommandPrintsWhatTheGuideSays) {
    constexpr std::string_view kPrompt = "$ dorvik ";
    WriteRulebases();
    int commands = 0;
    for (const MarkdownBlock& block : BlocksOf(Guide())) {
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
    EXPECT_GE(commands, 7);
}

}  // namespace dorvik::test
