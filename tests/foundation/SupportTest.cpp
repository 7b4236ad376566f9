#include "foundation/log/modLog.h"
#include "support/CapturedLog.h"
#include "support/LineText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace dorvik {
namespace {

TEST(TemporaryFolder, IsGoneWithEverythingInItAtTheEnd) {
    std::filesystem::path host;
    {
        const test::TemporaryFolder folder;
        host = folder.HostPath();
        folder.Write("a\\b\\c.txt", "text");
        EXPECT_EQ(folder.Read("a\\b\\c.txt"), "text");
        EXPECT_EQ(folder.Read("missing"), "");
        EXPECT_TRUE(folder.Path().ends_with('\\'));
        EXPECT_TRUE(std::filesystem::exists(host / "a" / "b" / "c.txt"));
    }
    EXPECT_FALSE(std::filesystem::exists(host));
}

TEST(CapturedLog, InstallsALogAndBringsTheOldOneBack) {
    LogFile* const before = &modLog::Log();
    {
        test::CapturedLog log;
        EXPECT_EQ(&modLog::Log(), &log.Log());
        EXPECT_TRUE(log.Log().Quiet());
        modLog::Log().LogEvent("seen", "P", "M");
        EXPECT_EQ(log.Lines().size(), 1U);
        EXPECT_EQ(log.Entries().at(0), "Event #seen#M::P");
        EXPECT_TRUE(log.Contains("seen"));
        log.Clear();
        EXPECT_TRUE(log.Lines().empty());
    }
    EXPECT_EQ(&modLog::Log(), before);
}

TEST(LineText, CutsAtEitherLineEnd) {
    EXPECT_EQ(test::LinesOf("a\r\nb\n\nc"), (std::vector<std::string>{"a", "b", "", "c"}));
    EXPECT_TRUE(test::LinesOf("").empty());
}

}  // namespace
}  // namespace dorvik
