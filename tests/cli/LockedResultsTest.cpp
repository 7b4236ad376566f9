#include "cli/CommandLineFixture.h"
#include "platform/database/Database.h"
#include "support/FilesystemPaths.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// A project that was reviewed once, and whose results somebody else has open.
class LockedResults : public CommandLineFixture {
protected:
    LockedResults() {
        WriteModuleProject("Held", "    x = 1");
        Run({"review", "Held.vbp"});
        m_other.Open(test::ProgramPath(Work("Dorvik/Held_DORVIK.mdb")));
    }

private:
    Database m_other;
};

TEST_F(LockedResults, ResultsOfAnOlderReviewAreNotToldAsThoseOfThisOne) {
    const ProgramResult result = Run({"review", "Held.vbp"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Output, IsEmpty());
    EXPECT_THAT(result.Error, HasSubstr("locked by another process"));
    EXPECT_THAT(result.Error, HasSubstr("Held.vbp' was not reviewed"));
    ExpectClearSentences(result);
}

TEST_F(LockedResults, TheOtherProjectsAreReviewed) {
    WriteModuleProject("Free", "    x = 1");
    const ProgramResult result = Run({"review", "Held.vbp", "Free.vbp"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(result.Output, HasSubstr("Free.vbp"));
    EXPECT_THAT(result.Output, Not(HasSubstr("Held.vbp")));
}

}  // namespace

}  // namespace dorvik::test
