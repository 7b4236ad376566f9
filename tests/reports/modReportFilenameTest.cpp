#include "reports/format/modReportFilename.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

struct NameCase {
    const char* ProjectFile;
    ReportKind Kind;
    const char* Folder;
    const char* SourceFile;
    const char* Name;
    const char* Expected;
};

class CreateReportFilename : public testing::TestWithParam<NameCase> {};

TEST_P(CreateReportFilename, GivesTheNameOfTheReport) {
    const NameCase& row = GetParam();
    EXPECT_EQ(
        modDorvikUtils::CreateReportFilename(
            row.ProjectFile, row.Kind, row.Folder, row.SourceFile, row.Name),
        row.Expected);
}

constexpr auto kBatch = ReportKind::BatchSummary;
constexpr auto kProject = ReportKind::Project;
constexpr auto kSource = ReportKind::SourceFile;
constexpr auto kVbp = "C:\\Src\\Billing.vbp";

INSTANTIATE_TEST_SUITE_P(
    All,
    CreateReportFilename,
    testing::Values(
        NameCase{kVbp, kProject, "", "", "", "C:\\Src\\Dorvik\\Billing_Dorvik.html"},
        NameCase{kVbp, kProject, "D:\\Out", "", "", "D:\\Out\\Billing_Dorvik.html"},
        NameCase{kVbp, kProject, "D:\\Out\\", "", "", "D:\\Out\\Billing_Dorvik.html"},
        // Only the last point is looked at.
        NameCase{"C:\\My.Project.vbp", kProject, "", "", "", "C:\\Dorvik\\My.Project_Dorvik.html"},
        NameCase{
            "C:\\Jobs\\Night.batch",
            kBatch,
            "D:\\Out",
            "",
            "",
            "D:\\Out\\Night_batch_BatchSummary.html"},
        NameCase{"Night.batch", kBatch, "", "", "", "Dorvik\\Night_batch_BatchSummary.html"},
        NameCase{
            kVbp,
            kSource,
            "",
            "C:\\Src\\Main.frm",
            "frmMain",
            "C:\\Src\\Dorvik\\Main_frmMain_Detail.html"},
        NameCase{
            kVbp,
            kSource,
            "D:\\Out",
            "C:\\Src\\Main.Part.frm",
            "frmMain",
            "D:\\Out\\Main_Part_frmMain_Detail.html"},
        // A source file named without a point gives no first part.
        NameCase{
            kVbp, kSource, "D:\\Out", "C:\\Src\\Main", "frmMain", "D:\\Out\\frmMain_Detail.html"},
        NameCase{kVbp, kSource, "D:\\Out", "", "frmMain", "D:\\Out\\frmMain_Detail.html"},
        // A point in the folder is none of the name.
        NameCase{
            kVbp,
            kSource,
            "D:\\Out.1",
            "C:\\Main.frm",
            "frmMain",
            "D:\\Out.1\\Main_frmMain_Detail.html"},
        NameCase{"C:\\Src.1\\Billing", kProject, "", "", "", "C:\\Src.1\\Dorvik\\_Dorvik.html"},
        // Any other kind has neither suffix nor base.
        NameCase{
            kVbp,
            static_cast<ReportKind>(9),
            "D:\\Out",
            "C:\\Main.frm",
            "x",
            "D:\\Out\\Main__.html"}));

}  // namespace
}  // namespace dorvik
