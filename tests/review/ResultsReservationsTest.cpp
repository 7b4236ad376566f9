#include "review/ResultsReservations.h"

#include "platform/host/FileInUse.h"
#include "platform/host/FileInUseMark.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

TEST(ResultsReservations, AreKeptUntilTheyAreGone) {
    const test::TemporaryFolder folder;
    const auto file = test::ToHostPath(folder.HostPath() / "lock");
    {
        ResultsReservations kept;
        kept.Keep(FileInUseMark::SetAlone(file, ""));
        EXPECT_THROW(FileInUseMark::SetAlone(file, ""), FileInUse);
    }
    EXPECT_NO_THROW(FileInUseMark::SetAlone(file, ""));
}

TEST(ResultsReservations, BeyondTheLimitTheOldestAreReleased) {
    const test::TemporaryFolder folder;
    const auto file = [&folder](std::size_t number) {
        return test::ToHostPath(folder.HostPath() / std::to_string(number));
    };
    ResultsReservations kept;
    for (std::size_t number = 0; number <= ResultsReservations::kMost; ++number) {
        kept.Keep(FileInUseMark::SetAlone(file(number), ""));
    }
    EXPECT_NO_THROW(FileInUseMark::SetAlone(file(0), ""));
    EXPECT_THROW(FileInUseMark::SetAlone(file(1), ""), FileInUse);
}

}  // namespace
}  // namespace dorvik
