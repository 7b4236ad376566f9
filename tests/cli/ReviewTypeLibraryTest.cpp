#include "cli/CommandLineFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace dorvik::test {

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* kKindsReference =
    "Reference=*\\G{6F5B1C10-8A4E-4D3A-9B61-0C2F5E7A1D01}#3.7#0#kinds.tlb#Kinds of Types";
constexpr const char* kStdoleReference =
    "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#stdole2.tlb#OLE Automation";

/// Reviews with naming conventions, which alone ask for type libraries.
class ReviewTypeLibraries : public CommandLineFixture {
protected:
    void WriteProject(
        const std::string& name, std::initializer_list<std::string_view> references) const {
        std::string bytes = "Type=Exe\r\n";
        for (const std::string_view reference : references) {
            bytes.append(reference).append("\r\n");
        }
        bytes += "Module=modMain; modMain.bas\r\nName=\"Stock\"\r\n";
        WriteBytes(name + ".vbp", bytes);
        WriteLines(
            (std::filesystem::path(name).parent_path() / "modMain.bas").string(),
            {"Attribute VB_Name = \"modMain\"", "Option Explicit"});
    }

    void CopyKinds(const std::string& to) const {
        std::ifstream stream(
            std::filesystem::path(DORVIK_TYPE_LIBRARIES) / "kinds.tlb", std::ios::binary);
        WriteBytes(to, std::string(std::istreambuf_iterator<char>(stream), {}));
    }

    /// The log of a review of "Stock.vbp".
    std::string Log(std::vector<std::string> more = {}) const {
        std::vector<std::string> arguments{
            "review", "Stock.vbp", "--rulebase", DORVIK_RULEBASE, "--clear-log"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const ProgramResult result = Run(arguments);
        m_error = result.Error;
        return Bytes("Dorvik/Stock_DORVIK.txt");
    }

    mutable std::string m_error;
};

}  // namespace

TEST_F(ReviewTypeLibraries, LibrariesThatEveryProjectRefersToAreFoundWithoutAnyFile) {
    WriteProject("Stock", {kStdoleReference});
    const std::string log = Log();
    EXPECT_THAT(
        log,
        AllOf(
            HasSubstr("Successfully loaded reference 'Visual Basic For Applications'"),
            HasSubstr(
                "Successfully loaded reference 'Visual Basic runtime objects and procedures'"),
            HasSubstr("Successfully loaded reference 'Visual Basic objects and procedures'"),
            HasSubstr("Successfully loaded reference 'OLE Automation'"),
            HasSubstr("Project reviewed successfully."),
            Not(HasSubstr("Failed to load"))));
}

TEST_F(ReviewTypeLibraries, LibraryBesideTheProjectIsFound) {
    WriteProject("Stock", {kKindsReference});
    EXPECT_THAT(Log(), HasSubstr("Failed to load reference 'Kinds of Types'"));
    CopyKinds("bin/kinds.tlb");
    EXPECT_THAT(Log(), HasSubstr("Successfully loaded reference 'Kinds of Types'"));
}

TEST_F(ReviewTypeLibraries, LibraryInAFolderOfTheCommandLineIsFound) {
    WriteProject("Stock", {kKindsReference});
    CopyKinds("../libs/kinds.tlb");
    EXPECT_THAT(
        Log({"--type-libraries", "../other", "--type-libraries", "../libs"}),
        HasSubstr("Successfully loaded reference 'Kinds of Types'"));
    EXPECT_EQ(
        m_error,
        "dorvik: the folder '../other' for type libraries does not exist and is skipped\n");
}

TEST_F(ReviewTypeLibraries, DesignTimeReferenceGivesNoLibraryAndIsCounted) {
    WriteProject("Stock", {"Reference=*\\AOther.vbp"});
    EXPECT_THAT(
        Log(),
        AllOf(HasSubstr("Failed to load reference"), HasSubstr("1 error(s) loading references.")));
}

TEST_F(ReviewTypeLibraries, UnknownComponentIsLoggedAndCounted) {
    WriteProject("Stock", {"Object={0A6C2F10-1234-4ABC-9DEF-001122334455}#1.0#0; Unknown.ocx"});
    EXPECT_THAT(
        Log(),
        AllOf(HasSubstr("Failed to load component"), HasSubstr("1 error(s) loading components.")));
}

TEST_F(ReviewTypeLibraries, FaultOfTheUsersCatalogueIsToldAndItsLibrariesAreKnown) {
    WriteProject("Stock", {kKindsReference});
    WriteBytes(
        "../state/dorvik/type-catalogue/own.txt",
        "library Kinds\nguid {6F5B1C10-8A4E-4D3A-9B61-0C2F5E7A1D01}\nversion 3.7\nklass A\nclass "
        "B\n");
    EXPECT_THAT(Log(), HasSubstr("Successfully loaded reference 'Kinds of Types'"));
    EXPECT_THAT(m_error, HasSubstr("own.txt' is skipped: unknown keyword 'klass'"));
}

}  // namespace dorvik::test
