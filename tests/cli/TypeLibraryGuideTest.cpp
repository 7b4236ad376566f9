#include "cli/CommandLineFixture.h"
#include "support/MarkdownBlocks.h"
#include "typelib/TypeCatalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;

std::string FileBytes(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class TypeLibraryGuide : public CommandLineFixture {
protected:
    static std::vector<MarkdownBlock> Blocks(const std::string& language) {
        std::vector<MarkdownBlock> blocks =
            BlocksOf(FileBytes(fs::path(DORVIK_DOCS_FOLDER) / "type-libraries.md"));
        std::erase_if(
            blocks, [&](const MarkdownBlock& block) { return block.Language != language; });
        return blocks;
    }

    static std::vector<std::string> WordsOf(const std::string& line) {
        std::istringstream stream(line);
        return {std::istream_iterator<std::string>(stream), {}};
    }

    void WriteFiles() const {
        const fs::path libraries = DORVIK_TYPE_LIBRARIES;
        WriteBytes("libs/kinds.tlb", FileBytes(libraries / "kinds.tlb"));
        WriteBytes("libs/german.tlb", FileBytes(libraries / "german.tlb"));
        WriteBytes("Stock.txt", Blocks("catalogue").front().Text);
    }
};

}  // namespace

TEST_F(TypeLibraryGuide, ExampleOfTheCatalogueIsReadWithoutAFault) {
    ASSERT_EQ(Blocks("catalogue").size(), 1U);
    TypeCatalogue catalogue;
    catalogue.ReadText(Blocks("catalogue").front().Text, "Stock.txt");
    EXPECT_TRUE(catalogue.Faults().empty());
    const CatalogueLibrary* const library =
        catalogue.Find({"{0A6C2F10-1234-4ABC-9DEF-001122334455}", 2, 1, 0});
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(library->Facts.Contents.Name, "StockControls");
    EXPECT_EQ(library->Facts.Contents.Types.size(), 7U);
}

TEST_F(TypeLibraryGuide, EachCommandPrintsWhatTheGuideSays) {
    constexpr std::string_view kPrompt = "$ dorvik ";
    WriteFiles();
    const std::vector<MarkdownBlock> blocks = Blocks("console");
    EXPECT_EQ(blocks.size(), 4U);
    for (const MarkdownBlock& block : blocks) {
        const std::string line = block.Text.substr(0, block.Text.find('\n'));
        ASSERT_TRUE(line.starts_with(kPrompt)) << line;
        const ProgramResult result = Run(WordsOf(line.substr(kPrompt.size())));
        EXPECT_EQ(result.ExitCode, 0) << result.Error;
        EXPECT_EQ(line + "\n" + result.Output + result.Error, block.Text);
    }
}

}  // namespace dorvik::test
