// What is read back from a review; the texts themselves are in ResultsSqlTest.cpp.

#include "results/ResultsDBFixture.h"

namespace dorvik {
namespace {

class ResultsDBQueries : public test::ResultsDBFixture {};

TEST_F(ResultsDBQueries, OpenReviewKeepsBothKeys) {
    Start();
    SetUpProject();
    m_results.EndReview(1);
    m_results.CloseReview();
    ResultsDB reader;
    EXPECT_TRUE(reader.OpenReview(m_path));
    EXPECT_TRUE(reader.ReviewOpen());
    EXPECT_EQ(reader.ReviewID(), 1);
    EXPECT_EQ(reader.ProjectID(), 1);
    reader.CloseReview();
    EXPECT_FALSE(reader.ReviewOpen());
}

TEST_F(ResultsDBQueries, ADatabaseWithoutAReviewDoesNotOpen) {
    EXPECT_FALSE(m_results.OpenReview(m_path));
    EXPECT_FALSE(m_results.ReviewOpen());
    Database::DeleteFile(m_path);  // it was closed again
}

TEST_F(ResultsDBQueries, ADatabaseOfAnotherVersionDoesNotOpen) {
    Start();
    m_results.CloseReview();
    Database database;
    database.Open(m_path);
    database.Execute("UPDATE SystemInfo SET Version = '6.02.0001'");
    database.Close();
    EXPECT_FALSE(m_results.OpenReview(m_path));
}

TEST_F(ResultsDBQueries, TheWorstFindingsComeFirstWithTheirFile) {
    Start();
    SetUpProject();
    SetUpFile("Billing", "VBP");
    SetUpFile("modA");
    const auto procedure = SetUpProcedure("Total", "Sub");
    m_results.LogViolation(1, 1, Breach(3, 500));
    m_results.LogViolation(1, 2, Breach(1, 100));
    m_results.LogViolation(procedure->ObjectID(), 3, Breach(1, 900));
    m_results.LogViolation(procedure->ObjectID(), 3, Breach(5, 0));
    const auto findings = m_results.GetWorstFindings(3);
    ASSERT_EQ(findings.size(), 3U);
    EXPECT_EQ(findings[0].Filename, "modA.bas");
    EXPECT_EQ(findings[0].LineNumber, 12);
    EXPECT_EQ(findings[0].Title, "Title 1");
    EXPECT_EQ(findings[0].LocationMember, "Member");
    EXPECT_EQ(findings[1].Filename, "Billing.bas");
    EXPECT_EQ(findings[2].Filename, "Billing.vbp");
    EXPECT_EQ(findings[2].Severity, 3);
    EXPECT_EQ(m_results.GetSourceFileCount(""), 2);
    EXPECT_EQ(m_results.GetSourceFileCount("Module"), 2);
    EXPECT_EQ(m_results.GetSourceFileCount("Form"), 0);
}

}  // namespace
}  // namespace dorvik
