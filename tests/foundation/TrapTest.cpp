#include "foundation/Trap.h"

#include "base/BasicError.h"
#include "foundation/LogFile.h"
#include "foundation/modLog.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace dorvik {
namespace {

TEST(Trap, FailureIsLoggedWithItsPlaceAndGoesNoFurther) {
    const test::CapturedLog log;
    bool result = false;
    const bool ended = Trap({"Reader", "Load"}, [&] {
        result = true;
        throw BasicError(53, "File not found");
    });
    EXPECT_FALSE(ended);
    EXPECT_TRUE(result);  // what was assigned before the failure stays
    EXPECT_EQ(log.Entries(), std::vector<std::string>{"Error #53 - File not found#Reader::Load"});
}

TEST(Trap, FailureOfTheLibraryIsLoggedToo) {
    const test::CapturedLog log;
    EXPECT_FALSE(Trap({"Reader", "Load"}, [] { throw std::runtime_error("odd"); }));
    EXPECT_TRUE(log.Contains("51 - odd#Reader::Load"));
}

TEST(Trap, BodyThatEndsLogsNothing) {
    const test::CapturedLog log;
    int calls = 0;
    EXPECT_TRUE(Trap({"Reader", "Load"}, [&] { ++calls; }));
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(log.Lines().empty());
}

TEST(Trap, LogThatCannotBeOpenedFailsInTheTrapAround) {
    test::CapturedLog log;
    const std::string path = log.Path();
    const bool ended = Trap({"Outer", "Do"}, [&] {
        log.Log().SetLogFilePath("\\no\\such\\folder\\Error.log");
        try {
            Trap({"Inner", "Do"}, [] { throw BasicError(5, "first"); });
        } catch (const BasicError&) {
            log.Log().SetLogFilePath(path);
            throw;
        }
    });
    EXPECT_FALSE(ended);
    EXPECT_TRUE(log.Contains("Outer::Do"));
    EXPECT_FALSE(log.Contains("Inner::Do"));
}

TEST(modLog, QuietLogWithoutAFileStandsInUntilOneIsInstalled) {
    LogFile* const before = modLog::Install(nullptr);
    EXPECT_TRUE(modLog::Log().Quiet());
    EXPECT_EQ(modLog::Log().LogFilePath(), "");
    LogFile own;
    EXPECT_EQ(modLog::Install(&own), nullptr);
    EXPECT_EQ(&modLog::Log(), &own);
    EXPECT_EQ(modLog::Install(before), &own);
}

TEST(Explain, AFailureGoesOnWithMoreToSay) {
    try {
        Explain(
            [] { throw BasicError(13, "Type mismatch", "Here::There"); },
            [] { return std::string(": of the first kind"); });
        FAIL() << "nothing was raised";
    } catch (const BasicError& failure) {
        EXPECT_EQ(failure.Number(), 13);
        EXPECT_STREQ(failure.what(), "Type mismatch: of the first kind");
        EXPECT_EQ(failure.Source(), "Here::There");
    }
}

TEST(Explain, WithoutAFailureNothingIsSaid) {
    int runs = 0;
    Explain([&] { ++runs; }, [&] { return std::to_string(++runs); });
    EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace dorvik
