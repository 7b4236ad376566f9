#include "results/UnfinishedFiles.h"

#include "results/ResultsDBFixture.h"

namespace dorvik {
namespace {

using testing::ElementsAre;

/// The project file, a file that was reviewed, one that was not read and one that was reviewed in part.
class UnfinishedFilesTest : public test::ResultsDBFixture {
protected:
    void Review() {
        Start();
        const auto project = SetUpProject();
        const auto projectFile = Named("Billing");
        projectFile->Properties().Add("Path", "C:\\Src\\");
        projectFile->Properties().Add("Filename", "Billing.vbp");
        projectFile->Properties().Add("Type", "Project");
        m_results.Writer().SetupVObjectResults("VBP", *projectFile);
        const auto whole = SetUpFile("modWhole");
        SetUpSection();
        whole->Properties().Add("AverageCyclomatic", 1);
        m_results.Writer().LogVirtualObjectProperties(*whole);
        const auto unread = SetUpFile("modUnread");
        m_results.Writer().LogVirtualObjectProperties(*unread);
        const auto part = SetUpFile("modPart");
        SetUpSection();
        m_results.Writer().LogVirtualObjectProperties(*part);
        m_whole = whole->ObjectID();
        m_unread = unread->ObjectID();
        m_part = part->ObjectID();
        m_results.Writer().EndReview(0);
        ASSERT_TRUE(m_results.OpenReview(m_path));
    }
    void SetUpSection() {
        VirtualObject section;
        m_results.Writer().SetupVObjectResults("Declarations", section);
    }

    std::int32_t m_whole = 0;
    std::int32_t m_unread = 0;
    std::int32_t m_part = 0;
};

TEST_F(UnfinishedFilesTest, AreToldByTheComplexityThatTheyLackAndBySectionsWhetherTheyWereBegun) {
    Review();
    const UnfinishedFiles unfinished = UnfinishedFiles::ReadFrom(m_results);
    EXPECT_THAT(unfinished.Unread, ElementsAre(m_unread));
    EXPECT_THAT(unfinished.InPart, ElementsAre(m_part));
    EXPECT_EQ(unfinished.Count(), 2U);
    EXPECT_TRUE(unfinished.Contains(m_part));
    EXPECT_FALSE(unfinished.Contains(m_whole));
}

TEST_F(UnfinishedFilesTest, AreToldOneByOneToo) {
    Review();
    EXPECT_TRUE(UnfinishedFiles::Include(m_unread, m_results));
    EXPECT_TRUE(UnfinishedFiles::Include(m_part, m_results));
    EXPECT_FALSE(UnfinishedFiles::Include(m_whole, m_results));
    EXPECT_FALSE(UnfinishedFiles::Include(1, m_results)) << "the project file";
    EXPECT_FALSE(UnfinishedFiles::Include(4711, m_results));
}

}  // namespace
}  // namespace dorvik
