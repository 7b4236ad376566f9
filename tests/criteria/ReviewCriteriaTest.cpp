#include "criteria/ReviewCriteria.h"

#include "base/BasicError.h"
#include "settings/DVKWorkData.h"

#include <gtest/gtest.h>

#include <memory>

namespace dorvik {
namespace {

TEST(ReviewCriteria, ANewOneIsABatchReviewOfNothingAndClean) {
    const ReviewCriteria criteria{DVKWorkData()};
    EXPECT_EQ(criteria.ReviewType(), ReviewType_Batch);
    EXPECT_EQ(static_cast<std::int32_t>(criteria.ReviewType()), 2);
    EXPECT_EQ(criteria.ProjectList().Count(), 0);
    EXPECT_FALSE(criteria.BackgroundReview());
    EXPECT_FALSE(criteria.ClearLogBeforeReview());
    EXPECT_TRUE(criteria.ReviewStarted().IsZero());
    EXPECT_EQ(criteria.PreviouslySelectedFiles().Count(), 0);
    EXPECT_FALSE(criteria.Dirty());
}

TEST(ReviewCriteria, TolerancesAreNotSetAtFirst) {
    const ReviewCriteria criteria{DVKWorkData()};
    for (std::int32_t place = 1; place <= 6; ++place) {
        EXPECT_EQ(criteria.Tolerances().Count.Item(place), -1);
        EXPECT_EQ(criteria.Tolerances().Impact.Item(place), -1);
    }
    EXPECT_FALSE(criteria.Tolerances().Count.Dirty());
    EXPECT_FALSE(criteria.Tolerances().Impact.Dirty());
    EXPECT_EQ(criteria.Tolerances().PercentageComments, -1);
    EXPECT_EQ(criteria.Tolerances().CyclomaticComplexity, -1);
}

TEST(ReviewCriteria, SomeDefaultsComeFromTheWorkstationSettings) {
    DVKWorkData settings;
    settings.UseProjectFolderResults = false;
    settings.LastResultsPath = "C:\\results\\";
    settings.LastReportOption = 2;
    settings.UseProjectFolderReports = false;
    settings.LastReportsPath = "C:\\reports\\";
    const ReviewCriteria criteria(settings);
    EXPECT_FALSE(criteria.UseProjectFolderResults());
    EXPECT_EQ(criteria.FixedFolderResults(), "C:\\results\\");
    EXPECT_EQ(criteria.ReportOption(), 2);
    EXPECT_FALSE(criteria.UseProjectFolderReports());
    EXPECT_EQ(criteria.FixedFolderReports(), "C:\\reports\\");
    EXPECT_FALSE(criteria.Dirty());
}

TEST(ReviewCriteria, KnownFaultsAreKeptOnlyWhereAsked) {
    DVKWorkData settings;
    ReviewCriteria criteria(settings);
    EXPECT_FALSE(criteria.KeepsKnownFaults());
    criteria.SetKeepsKnownFaults(true);
    EXPECT_TRUE(criteria.KeepsKnownFaults());
    EXPECT_TRUE(criteria.Dirty());
}

TEST(ReviewCriteria, DirtyIsReadFromThreePlacesAndWrittenToThem) {
    ReviewCriteria criteria{DVKWorkData()};
    criteria.LoadCriteria().SetUnauthorisedKeywords(true);
    EXPECT_TRUE(criteria.Dirty());
    criteria.SetDirty(false);
    EXPECT_FALSE(criteria.LoadCriteria().Dirty());
    criteria.ProjectList().Add("Billing", std::make_shared<VirtualProject>(), true, true);
    EXPECT_TRUE(criteria.Dirty());
    criteria.SetDirty(false);
    EXPECT_FALSE(criteria.ProjectList().Dirty());
    criteria.SetBatchTitle("Estate");
    EXPECT_TRUE(criteria.Dirty());
    criteria.SetDirty(true);
    EXPECT_TRUE(criteria.LoadCriteria().Dirty());
    EXPECT_TRUE(criteria.ProjectList().Dirty());
}

TEST(ReviewCriteria, ProjectsAreKeyedByNameWithASelectedFlag) {
    ReviewCriteria criteria{DVKWorkData()};
    const auto project = std::make_shared<VirtualProject>();
    criteria.ProjectList().Add("Billing", project, true, true);
    criteria.ProjectList().Add("Stock", std::make_shared<VirtualProject>(), false, true);
    EXPECT_EQ(criteria.ProjectList().SelectedCount(), 1);
    EXPECT_EQ(criteria.ProjectList().Item("billing"), project);
}

TEST(ReviewCriteria, RemembersTheSelectedFilesOfAProject) {
    ReviewCriteria criteria{DVKWorkData()};
    const auto files = std::make_shared<StringKeyedArrayList>();
    files->Add("frmMain", "frmMain", true);
    criteria.PreviouslySelectedFiles().Add("Billing", files, false, true);
    EXPECT_TRUE(criteria.PreviouslySelectedFiles().Item("BILLING")->Contains("FRMMAIN"));
}

TEST(ReviewCriteria, ATolerancePlaceCanBeWritten) {
    ReviewCriteria criteria{DVKWorkData()};
    criteria.SetToleranceCount(6, 40);
    criteria.SetToleranceImpact(1, 0);
    EXPECT_EQ(criteria.Tolerances().Count.Item(6), 40);
    EXPECT_EQ(criteria.Tolerances().Impact.Item(1), 0);
    EXPECT_EQ(criteria.Tolerances().Count.Item(6), 40);
}

TEST(ReviewCriteria, WithoutSettingsGivenTheProcessWideOnesAreNeeded) {
    EXPECT_THROW(ReviewCriteria(), BasicError);
}

TEST(ReviewCriteria, ABatchHasAPageUnlessThatIsNotWanted) {
    ReviewCriteria criteria{DVKWorkData()};
    criteria.SetDirty(false);
    EXPECT_TRUE(criteria.WritesBatchReport());
    criteria.SetWritesBatchReport(false);
    EXPECT_FALSE(criteria.WritesBatchReport());
    EXPECT_TRUE(criteria.Dirty());
}

TEST(ReviewCriteria, ABatchWithoutAFileNameIsCalledReviewBesideTheFirstSelectedProject) {
    ReviewCriteria criteria{DVKWorkData()};
    EXPECT_EQ(criteria.BatchFilenameOrDefault(), "Review.batch");
    for (const std::string folder : {"\\a\\", "\\b\\", "\\c\\"}) {
        const auto project = std::make_shared<VirtualProject>();
        project->SetFilename(folder + "P.vbp");
        criteria.ProjectList().Add(folder, project, folder != "\\a\\", true);
    }
    EXPECT_EQ(criteria.BatchFilenameOrDefault(), "\\b\\Review.batch");
    criteria.SetBatchFilename("\\d\\Night.batch");
    EXPECT_EQ(criteria.BatchFilenameOrDefault(), "\\d\\Night.batch");
}

}  // namespace
}  // namespace dorvik
