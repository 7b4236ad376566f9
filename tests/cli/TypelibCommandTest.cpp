#include "cli/CommandLineFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <rapidjson/document.h>

namespace dorvik::test {

namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kKinds = "{6F5B1C10-8A4E-4D3A-9B61-0C2F5E7A1D01}";
constexpr const char* kStdole = "{00020430-0000-0000-C000-000000000046}";

class TypelibCommand : public CommandLineFixture {
protected:
    static std::string LibraryBytes(const std::string& name) {
        std::ifstream stream(std::filesystem::path(DORVIK_TYPE_LIBRARIES) / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    void CopyLibrary(const std::string& from, const std::string& to) const {
        WriteBytes(to, LibraryBytes(from));
    }

    rapidjson::Document Json(std::vector<std::string> arguments) const {
        arguments.emplace_back("--json");
        const ProgramResult result = Run(std::move(arguments));
        EXPECT_EQ(result.ExitCode, 0) << result.Error;
        rapidjson::Document json;
        json.Parse(result.Output.c_str());
        EXPECT_FALSE(json.HasParseError()) << result.Output;
        return json;
    }

    static void ExpectFits(const ProgramResult& result) {
        for (const std::string& line : LinesOf(result.Output)) {
            EXPECT_LE(line.size(), 80U) << line;
        }
    }
};

}  // namespace

TEST_F(TypelibCommand, ListPrintsWhatAFileHolds) {
    CopyLibrary("kinds.tlb", "kinds.tlb");
    const ProgramResult result = Run({"typelib", "list", "kinds.tlb"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(result.Error, "");
    EXPECT_THAT(
        result.Output,
        AllOf(
            HasSubstr("KindsLibrary 3.7\n"),
            HasSubstr("Description  Kinds of Types\n"),
            HasSubstr(kKinds),
            HasSubstr("1 record"),
            HasSubstr("2 enums"),
            HasSubstr("  enum       ColourConstants\n"),
            HasSubstr("  class      Shape\n")));
}

TEST_F(TypelibCommand, ListTakesTheNumberBehindTheName) {
    CopyLibrary("kinds.tlb", "kinds.tlb");
    EXPECT_EQ(Run({"typelib", "list", "kinds.tlb\\1"}).ExitCode, 0);
    const ProgramResult absent = Run({"typelib", "list", "kinds.tlb\\3"});
    EXPECT_EQ(absent.ExitCode, 2);
    EXPECT_EQ(absent.Output, "");
    ExpectClearSentences(absent);
    EXPECT_EQ(absent.Errors().size(), 1U);
}

TEST_F(TypelibCommand, ListAsJsonHasEverything) {
    CopyLibrary("kinds.tlb", "kinds.tlb");
    const rapidjson::Document json = Json({"typelib", "list", "kinds.tlb"});
    ASSERT_EQ(json["libraries"].Size(), 1U);
    const auto& library = json["libraries"][0];
    EXPECT_STREQ(library["name"].GetString(), "KindsLibrary");
    EXPECT_STREQ(library["guid"].GetString(), kKinds);
    EXPECT_STREQ(library["version"].GetString(), "3.7");
    EXPECT_EQ(library["language"].GetInt(), 0);
    EXPECT_EQ(library["number"].GetInt(), 1);
    EXPECT_EQ(library["counts"]["enum"].GetInt(), 2);
    EXPECT_EQ(library["counts"]["class"].GetInt(), 1);
    EXPECT_STREQ(library["types"][0]["name"].GetString(), "ColourConstants");
    EXPECT_STREQ(library["types"][0]["kind"].GetString(), "enum");
}

TEST_F(TypelibCommand, ListLooksAGuidUpInTheCatalogue) {
    for (const char* const guid : {kStdole, "00020430-0000-0000-c000-000000000046"}) {
        const ProgramResult result = Run({"typelib", "list", guid});
        EXPECT_EQ(result.ExitCode, 0) << result.Error;
        EXPECT_THAT(
            result.Output,
            AllOf(
                HasSubstr("stdole 2.0\n"),
                HasSubstr("Found in     the program's type catalogue, stdole.txt\n"),
                HasSubstr("Source"),
                HasSubstr("  class      StdFont\n")));
        ExpectFits(result);
    }
}

TEST_F(TypelibCommand, ListLooksAGuidUpInTheFoldersFirst) {
    CopyLibrary("kinds.tlb", "libs/below/kinds.tlb");
    const ProgramResult unknown = Run({"typelib", "list", kKinds});
    EXPECT_EQ(unknown.ExitCode, 2);
    EXPECT_EQ(
        unknown.Error,
        "dorvik: no type library with the GUID '" + std::string(kKinds) +
            "' is known; name a folder that holds it with '--type-libraries'\n");
    const ProgramResult found = Run({"typelib", "list", kKinds, "--type-libraries", "libs"});
    EXPECT_EQ(found.ExitCode, 0) << found.Error;
    EXPECT_THAT(found.Output, HasSubstr("KindsLibrary 3.7\n"));
}

TEST_F(TypelibCommand, ListSaysWhatIsWrongWithAFile) {
    WriteBytes("text.tlb", "no library");
    const std::string bytes = LibraryBytes("kinds.tlb");
    WriteBytes("broken.tlb", bytes.substr(0, bytes.size() / 3));
    std::filesystem::create_directories(Work("folder"));
    const std::vector<std::pair<std::string, std::string>> rows{
        {"text.tlb", "text.tlb"},
        {"broken.tlb", "broken.tlb"},
        {"absent.tlb", "the file 'absent.tlb' does not exist"},
        {"folder", "the file 'folder' is a folder (see 'dorvik typelib index')"},
    };
    for (const auto& [file, sentence] : rows) {
        const ProgramResult result = Run({"typelib", "list", file});
        EXPECT_EQ(result.ExitCode, 2) << file;
        EXPECT_EQ(result.Output, "") << file;
        EXPECT_THAT(result.Error, HasSubstr(sentence));
        ExpectClearSentences(result);
    }
}

TEST_F(TypelibCommand, ListReadsAFileOfTheCatalogueAndTellsItsFaults) {
    WriteLines(
        "Stock.txt",
        {"library Stock",
         "guid {0A6C2F10-1234-4ABC-9DEF-001122334455}",
         "version 1.0",
         "clas Box",
         "class Shelf"});
    const ProgramResult result = Run({"typelib", "list", "Stock.txt"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(result.Output, AllOf(HasSubstr("Stock 1.0\n"), HasSubstr("  class  Shelf\n")));
    EXPECT_EQ(
        result.Error,
        "dorvik: line 4 of the type catalogue 'Stock.txt' is skipped: unknown keyword 'clas'\n");
    WriteLines("empty.txt", {"# nothing"});
    const ProgramResult empty = Run({"typelib", "list", "empty.txt"});
    EXPECT_EQ(empty.ExitCode, 2);
    EXPECT_EQ(empty.Error, "dorvik: the file 'empty.txt' describes no type library\n");
}

TEST_F(TypelibCommand, IndexPrintsTheLibrariesInAFolder) {
    CopyLibrary("kinds.tlb", "libs/kinds.tlb");
    CopyLibrary("german.tlb", "libs/below/german.olb");
    const ProgramResult result = Run({"typelib", "index", "libs"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(
        LinesOf(result.Output),
        ElementsAre(
            "Library        Version  File              Description",
            "KindsLibrary   3.7      kinds.tlb         Kinds of Types",
            "GermanLibrary  1.0      below/german.olb  German Library"));
}

TEST_F(TypelibCommand, IndexAsJsonHasGuidAndLanguage) {
    CopyLibrary("german.tlb", "libs/german.tlb");
    const rapidjson::Document json = Json({"typelib", "index", "libs"});
    EXPECT_EQ(json["filesLookedAt"].GetInt(), 1);
    EXPECT_FALSE(json["cut"].GetBool());
    ASSERT_EQ(json["libraries"].Size(), 1U);
    EXPECT_EQ(json["libraries"][0]["language"].GetInt(), 1031);
    EXPECT_STREQ(
        json["libraries"][0]["guid"].GetString(), "{6F5B1C10-8A4E-4D3A-9B61-0C2F5E7A1D11}");
}

TEST_F(TypelibCommand, IndexTellsDamagedLibrariesInEveryRun) {
    const std::string bytes = LibraryBytes("kinds.tlb");
    WriteBytes("libs/broken.tlb", bytes.substr(0, bytes.size() / 3));
    CopyLibrary("german.tlb", "libs/german.tlb");
    for (int run = 0; run < 2; ++run) {
        const ProgramResult result = Run({"typelib", "index", "libs"});
        EXPECT_EQ(result.ExitCode, 3);
        EXPECT_THAT(result.Output, HasSubstr("GermanLibrary"));
        EXPECT_THAT(result.Error, HasSubstr("broken.tlb"));
        ExpectClearSentences(result);
    }
}

TEST_F(TypelibCommand, IndexOfAFolderWithoutLibrariesSaysSo) {
    WriteBytes("libs/readme.txt", "nothing");
    WriteBytes("libs/tool.exe", "no program");
    const ProgramResult result = Run({"typelib", "index", "libs"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_EQ(result.Output, "No type libraries.\n");
    EXPECT_EQ(result.Error, "");
}

TEST_F(TypelibCommand, IndexRefusesWhatIsNoFolder) {
    WriteBytes("file.tlb", "x");
    const ProgramResult file = Run({"typelib", "index", "file.tlb"});
    EXPECT_EQ(file.ExitCode, 2);
    EXPECT_EQ(file.Error, "dorvik: the folder 'file.tlb' is a file (see 'dorvik typelib list')\n");
    const ProgramResult absent = Run({"typelib", "index", "absent"});
    EXPECT_EQ(absent.ExitCode, 2);
    EXPECT_EQ(absent.Error, "dorvik: the folder 'absent' does not exist\n");
}

TEST_F(TypelibCommand, WrongUseIsOneSentence) {
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"typelib"}, {"typelib", "lst"}, {"typelib", "list"}, {"typelib", "index"}}) {
        const ProgramResult result = Run(arguments);
        EXPECT_EQ(result.ExitCode, 2);
        EXPECT_EQ(result.Output, "");
        EXPECT_EQ(result.Errors().size(), 1U) << result.Error;
        ExpectClearSentences(result);
    }
}

TEST_F(TypelibCommand, HelpFitsATerminal) {
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"typelib", "--help"},
             {"typelib", "list", "--help"},
             {"typelib", "index", "--help"},
             {"review", "--help"}}) {
        const ProgramResult result = Run(arguments);
        EXPECT_EQ(result.ExitCode, 0);
        ExpectFits(result);
    }
}

}  // namespace dorvik::test
