#include "foundation/log/Trap.h"

#include "base/BasicError.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <cstdint>
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

TEST(Trapped, GivesTheValueOfItsBodyAndLogsNothing) {
    const test::CapturedLog log;
    EXPECT_EQ(Trapped({"Reader", "Size"}, -1, [] { return 7; }), 7);
    EXPECT_TRUE(log.Lines().empty());
}

TEST(Trapped, AfterAFailureGivesTheOtherValueAndLogsTheFailure) {
    const test::CapturedLog log;
    const int size =
        Trapped({"Reader", "Size"}, -1, []() -> int { throw BasicError(53, "File not found"); });
    EXPECT_EQ(size, -1);
    EXPECT_EQ(log.Entries(), std::vector<std::string>{"Error #53 - File not found#Reader::Size"});
}

TEST(Trapped, SmallRecordThatComesBackInRegistersKeepsItsOtherValue) {
    struct Tally {
        std::int64_t Count;
        std::int64_t Impact;
    };
    const test::CapturedLog log;
    const Tally tally =
        Trapped({"Reader", "Tally"}, {3, 4}, []() -> Tally { throw std::runtime_error("odd"); });
    EXPECT_EQ(tally.Count, 3);
    EXPECT_EQ(tally.Impact, 4);
}

TEST(Trap, LogThatCannotBeOpenedIsRememberedAndDoesNoMoreHarm) {
    test::CapturedLog log;
    const std::string path = log.Path();
    EXPECT_EQ(modLog::FirstUnwritten(), "");
    bool wentOn = false;
    const bool ended = Trap({"Outer", "Do"}, [&] {
        log.Log().SetLogFilePath("\\no\\such\\folder\\Error.log");
        EXPECT_FALSE(Trap({"Inner", "Do"}, [] { throw BasicError(5, "first"); }));
        wentOn = true;
        log.Log().SetLogFilePath(path);
    });
    EXPECT_TRUE(ended);
    EXPECT_TRUE(wentOn);
    EXPECT_TRUE(log.Lines().empty());
    EXPECT_NE(modLog::FirstUnwritten(), "");
}

TEST(Trap, LineThatItsBodyCannotWriteIsAFailureOfTheBody) {
    test::CapturedLog log;
    log.Log().SetLogFilePath("\\no\\such\\folder\\Error.log");
    EXPECT_FALSE(Trap({"Outer", "Do"}, [&] { log.Log().LogMessage("a line"); }));
    EXPECT_NE(modLog::FirstUnwritten(), "");
}

TEST(modLog, AnotherLogHasNothingUnwritten) {
    LogFile broken;
    broken.SetQuiet(true);
    broken.SetLogFilePath("\\no\\such\\folder\\Error.log");
    LogFile* const before = modLog::Install(&broken);
    modLog::LogFailure(BasicError(5, "first"), "Do", "Reader");
    EXPECT_NE(modLog::FirstUnwritten(), "");
    modLog::Install(before);
    EXPECT_EQ(modLog::FirstUnwritten(), "");
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

TEST(Handled, ABodyThatEndsOffersNothing) {
    bool isOffered = false;
    EXPECT_TRUE(Handled([] {}, [&](const BasicError&) { return isOffered = true; }));
    EXPECT_FALSE(isOffered);
}

TEST(Handled, AFailureThatIsTakenGoesNoFurther) {
    std::int32_t number = 0;
    const auto take = [&](const BasicError& failure) {
        number = failure.Number();
        return true;
    };
    EXPECT_FALSE(Handled([] { throw BasicError(53, "File not found"); }, take));
    EXPECT_EQ(number, 53);
}

TEST(Handled, AFailureThatIsNotTakenContinuesAsItWas) {
    const auto leave = [](const BasicError&) {
        return false;
    };
    try {
        Handled([] { throw BasicError(53, "File not found"); }, leave);
        FAIL() << "nothing was raised";
    } catch (const BasicError& failure) {
        EXPECT_EQ(failure.Number(), 53);
        EXPECT_STREQ(failure.what(), "File not found");
    }
}

TEST(Handled, AFailureOfTheLibraryIsNotOffered) {
    const auto take = [](const BasicError&) {
        return true;
    };
    EXPECT_THROW(Handled([] { throw std::runtime_error("odd"); }, take), std::runtime_error);
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
