#include "results/modResultsFilename.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

struct Row {
    std::string_view ProjectFile;
    std::string_view Folder;
    std::string_view Database;
    std::string_view Log;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.ProjectFile << " in " << row.Folder;
}

class ResultsFilenames : public testing::TestWithParam<Row> {};

TEST_P(ResultsFilenames, FollowTheProjectFile) {
    const Row& row = GetParam();
    EXPECT_EQ(modDorvikUtils::CreateResultsFilename(row.ProjectFile, row.Folder), row.Database);
    EXPECT_EQ(modDorvikUtils::CreateProjectLogFilename(row.ProjectFile, row.Folder), row.Log);
}

INSTANTIATE_TEST_SUITE_P(
    modDorvikUtils,
    ResultsFilenames,
    testing::Values(
        Row{"C:\\Src\\Billing.vbp",
            "",
            "C:\\Src\\Dorvik\\Billing_DORVIK.mdb",
            "C:\\Src\\Dorvik\\Billing_DORVIK.txt"},
        Row{"C:\\Src\\Billing.vbp",
            "D:\\Out",
            "D:\\Out\\Billing_DORVIK.mdb",
            "D:\\Out\\Billing_DORVIK.txt"},
        Row{"C:\\Src\\Billing.vbp",
            "D:\\Out\\",
            "D:\\Out\\Billing_DORVIK.mdb",
            "D:\\Out\\Billing_DORVIK.txt"},
        Row{"Billing.prj", "", "Dorvik\\Billing_DORVIK.mdb", "Dorvik\\Billing_DORVIK.txt"},
        Row{"\\src\\B\xC3\xA4.vbp",
            "",
            "\\src\\Dorvik\\B\xC3\xA4_DORVIK.mdb",
            "\\src\\Dorvik\\B\xC3\xA4_DORVIK.txt"}));

TEST(modDorvikUtils, AProjectWithoutADotInItsPathHasNoResultsFile) {
    EXPECT_EQ(modDorvikUtils::CreateResultsFilename("C:\\Src\\Billing", ""), "");
    EXPECT_EQ(modDorvikUtils::CreateResultsFilename("C:\\Src\\Billing", "D:\\Out"), "");
}

TEST(modDorvikUtils, ExactlyFourCharactersAreCutWhateverTheyAre) {
    EXPECT_EQ(modDorvikUtils::CreateResultsFilename("Billing.prj", "D:"), "D:\\Billing_DORVIK.mdb");
    EXPECT_EQ(modDorvikUtils::CreateResultsFilename("Billing.vb", "D:"), "D:\\Billin_DORVIK.mdb");
}

TEST(modDorvikUtils, TheCutCountsCharacters) {
    EXPECT_EQ(modDorvikUtils::CreateResultsFilename("Ab.v\xC3\xA4p", "D:"), "D:\\Ab_DORVIK.mdb");
}

TEST(modDorvikUtils, ALogNameIsMadeEvenWithoutADot) {
    // A name without "." counts as no file name, so four characters of the folder go.
    EXPECT_EQ(
        modDorvikUtils::CreateProjectLogFilename("C:\\Src\\Billing", ""),
        "C:\\Src\\Dor_DORVIK.txt");
}

}  // namespace
}  // namespace dorvik
