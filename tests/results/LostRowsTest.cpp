// What a results database tells of rows that it could not write.

#include "results/ResultsDB.h"
#include "results/ResultsDBFixture.h"
#include "support/FilesystemPaths.h"

#include <sqlite3.h>

#include <chrono>
#include <utility>

namespace dorvik {
namespace {

using testing::ElementsAre;

class LostRows : public test::ResultsDBFixture {
protected:
    ~LostRows() override { Unlock(); }

    /// Another user of the file holds the lock for writing. Nobody waits for it.
    void Lock() {
        m_results.SetPatience(std::chrono::milliseconds(0));
        ASSERT_EQ(sqlite3_open(test::FilesystemPath(m_path).c_str(), &m_other), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(m_other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    }
    void Unlock() { sqlite3_close(std::exchange(m_other, nullptr)); }

private:
    sqlite3* m_other = nullptr;
};

TEST_F(LostRows, NothingIsLostInAReviewWithoutTrouble) {
    Start();
    SetUpProject();
    m_results.Writer().EndReview(1);
    EXPECT_EQ(m_results.Failures().Count(), 0);
    EXPECT_EQ(m_results.Failures().Reason(), "");
}

TEST_F(LostRows, ALostRowIsCountedAndTheReviewHasNoEnd) {
    Start();
    SetUpProject();
    VirtualObject withoutProperties;
    m_results.Writer().SetupVObjectResults("File", withoutProperties);
    m_results.Writer().SetupVObjectResults("Procedure", withoutProperties);
    m_results.Writer().LogViolation(1, ItemType::Project, Breach(1, 900));
    EXPECT_EQ(m_results.Failures().Count(), 2);
    EXPECT_NE(m_results.Failures().Reason(), "");
    m_results.Writer().EndReview(1);
    EXPECT_THAT(Rows("SELECT [End] FROM Review"), ElementsAre(""));
}

TEST_F(LostRows, ALossThatNeverCameToTheDatabaseCountsToo) {
    Start();
    m_results.NoteLoss("a measure is missing");
    m_results.NoteLoss("another reason");
    EXPECT_EQ(m_results.Failures().Count(), 2);
    EXPECT_EQ(m_results.Failures().Reason(), "a measure is missing");
    m_results.Writer().EndReview(1);
    EXPECT_THAT(Rows("SELECT [End] FROM Review"), ElementsAre(""));
}

TEST_F(LostRows, AnEndThatCannotBeWrittenIsALossWithItsReason) {
    Start();
    Lock();
    m_results.Writer().EndReview(1);
    EXPECT_EQ(m_results.Failures().Count(), 1);
    EXPECT_EQ(m_results.Failures().Reason(), "another program has it locked");
    Unlock();
    EXPECT_THAT(Rows("SELECT [End] FROM Review"), ElementsAre(""));
}

TEST_F(LostRows, RowsThatALockCostsAreCountedAndThoseBehindItAreStored) {
    Start();
    Lock();
    m_results.Writer().LogViolation(1, ItemType::Project, Breach(1, 5));
    m_results.Writer().LogViolation(1, ItemType::Project, Breach(1, 6));
    EXPECT_EQ(m_results.Failures().Count(), 2);
    EXPECT_EQ(m_results.Failures().Reason(), "another program has it locked");
    Unlock();
    m_results.Writer().LogViolation(1, ItemType::Project, Breach(1, 7));
    EXPECT_THAT(Rows("SELECT Impact FROM Violations"), ElementsAre("7"));
    m_results.Writer().EndReview(1);
    EXPECT_THAT(Rows("SELECT [End] FROM Review"), ElementsAre(""));
}

}  // namespace
}  // namespace dorvik
