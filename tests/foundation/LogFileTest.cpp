#include "foundation/log/LogFile.h"

#include "base/BasicError.h"
#include "platform/host/OutputRefusal.h"
#include "platform/host/ScopedInstall.h"
#include "support/LineText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace dorvik {
namespace {

class StandingClock final : public IClock {
public:
    DateTime Now() override { return {2026, 11, 21, 14, 5, 9}; }
};

class MessageRecord final : public IMessageBox {
public:
    MessageAnswer Show(const MessageText& message) override {
        Shown.push_back(message);
        return MessageAnswer::Ok;
    }
    std::vector<MessageText> Shown;
};

class LogFileTest : public testing::Test {
protected:
    LogFileTest() {
        m_log.SetLogFilePath(m_folder.Path("Error.log"));
        m_log.SetComponentVersion("6.02.0001");
    }

    std::vector<std::string> Lines(const std::string& name = "Error.log") const {
        return test::LinesOf(m_folder.Read(name));
    }

    void WriteOneOfEachKind() {
        m_log.LogBasicError(5, "e", "P", "M");
        m_log.LogSetupError("s", "P", "M");
        m_log.LogDebugTrace("d", "P", "M");
        m_log.LogAssert(false, "a", "P", "M");
        m_log.LogEvent("v", "P", "M");
    }

    static std::vector<std::string> OneOfEachKind() {
        const std::string head = "21/11/26 14:05:09#DVKWork      (6.02.0001)#";
        return {
            head + "Error #5 - e#M::P",
            head + "Setup #s#M::P",
            head + "Debug #d#M::P",
            head + "Assert#a#M::P",
            head + "Event #v#M::P"};
    }

    test::TemporaryFolder m_folder;
    StandingClock m_clock;
    MessageRecord m_messages;
    ScopedInstall<IClock> m_clockInstalled{m_clock};
    ScopedInstall<IMessageBox> m_messagesInstalled{m_messages};
    LogFile m_log;
};

TEST_F(LogFileTest, LineHoldsTimeComponentCategoryMessageAndPlace) {
    WriteOneOfEachKind();
    EXPECT_EQ(Lines(), OneOfEachKind());
}

TEST_F(LogFileTest, LineEndsWithCarriageReturnAndLineFeed) {
    m_log.LogMessage("as it stands");
    EXPECT_EQ(m_folder.Read("Error.log"), "as it stands\r\n");
}

TEST_F(LogFileTest, ComponentIsCutToTwelveCharacters) {
    m_log.SetComponent("\xC3\x84LongComponentName");
    m_log.LogEvent("v", "P", "M");
    EXPECT_EQ(Lines().at(0), "21/11/26 14:05:09#\xC3\x84LongCompone (6.02.0001)#Event #v#M::P");
}

TEST_F(LogFileTest, BasicErrorShowsACriticalBox) {
    m_log.LogBasicError(53, "File not found", "Load", "Reader");
    ASSERT_EQ(m_messages.Shown.size(), 1U);
    EXPECT_EQ(
        m_messages.Shown[0],
        (MessageText{
            MessageIcon::Critical,
            "Dorvik Unexpected Error",
            "Error 53 - File not found in function Load module Reader"}));
}

TEST_F(LogFileTest, SetupErrorShowsAWarningBox) {
    m_log.LogSetupError("No template", "Load", "Reader");
    ASSERT_EQ(m_messages.Shown.size(), 1U);
    EXPECT_EQ(
        m_messages.Shown[0],
        (MessageText{MessageIcon::Exclamation, "Dorvik Setup Error", "No template"}));
}

TEST_F(LogFileTest, DebugAssertAndEventShowNothing) {
    m_log.LogDebugTrace("d", "P", "M");
    m_log.LogAssert(false, "a", "P", "M");
    m_log.LogEvent("v", "P", "M");
    EXPECT_TRUE(m_messages.Shown.empty());
}

TEST_F(LogFileTest, QuietBasicErrorShowsNothingAndStillWritesTheLine) {
    m_log.SetQuiet(true);
    WriteOneOfEachKind();
    EXPECT_TRUE(m_messages.Shown.empty());
    EXPECT_EQ(Lines(), OneOfEachKind());
}

TEST_F(LogFileTest, BoxIsShownBeforeTheLineIsWritten) {
    class Witness final : public IMessageBox {
    public:
        explicit Witness(const test::TemporaryFolder& folder) : m_folder(folder) {}
        MessageAnswer Show(const MessageText& message) override {
            Seen = message.Title + ":" + m_folder.Read("Error.log");
            return MessageAnswer::Ok;
        }
        std::string Seen;

    private:
        const test::TemporaryFolder& m_folder;
    };
    Witness witness(m_folder);
    const ScopedInstall<IMessageBox> installed(witness);
    m_log.LogBasicError(5, "e", "P", "M");
    EXPECT_EQ(witness.Seen, "Dorvik Unexpected Error:");
}

TEST_F(LogFileTest, AssertOfATrueConditionWritesNothing) {
    m_log.LogAssert(true, "a", "P", "M");
    EXPECT_TRUE(Lines().empty());
}

TEST_F(LogFileTest, AllKindsGoToTheReviewLogWhileItIsActive) {
    m_folder.Write("Review.txt", "old line\r\n");
    m_log.SetReviewLog(m_folder.Path("Review.txt"), /*clearLog=*/true);
    EXPECT_TRUE(m_log.ReviewLogActive());
    WriteOneOfEachKind();
    EXPECT_EQ(Lines("Review.txt"), OneOfEachKind());
    EXPECT_TRUE(Lines().empty());
    m_log.CloseReview();
    EXPECT_FALSE(m_log.ReviewLogActive());
    EXPECT_EQ(m_log.ReviewLogPath(), "");
    WriteOneOfEachKind();
    EXPECT_EQ(Lines("Review.txt"), OneOfEachKind());
    EXPECT_EQ(Lines(), OneOfEachKind());
}

TEST_F(LogFileTest, ReviewLogThatIsNotClearedGrows) {
    m_folder.Write("Review.txt", "old line\r\n");
    m_log.SetReviewLog(m_folder.Path("Review.txt"), /*clearLog=*/false);
    m_log.LogMessage("new line");
    EXPECT_EQ(Lines("Review.txt"), (std::vector<std::string>{"old line", "new line"}));
}

TEST_F(LogFileTest, AFullReviewLogGetsOneLastLineThatSaysSo) {
    m_folder.Write("Review.txt", "old line\r\n");
    const auto file = m_folder.HostPath() / "Review.txt";
    std::filesystem::resize_file(file, LogFile::kMostBytesOfReviewLog - 10);
    m_log.SetReviewLog(m_folder.Path("Review.txt"), /*clearLog=*/false);
    m_log.LogMessage("12345678");
    EXPECT_EQ(std::filesystem::file_size(file), LogFile::kMostBytesOfReviewLog) << "just fits";
    for (int count = 0; count < 3; ++count) {
        m_log.LogMessage("one too many");
    }
    const std::string bytes = m_folder.Read("Review.txt");
    const std::string end = bytes.substr(bytes.find("12345678"));
    EXPECT_EQ(
        end,
        "12345678\r\nThe review log has reached its limit of 64 MB; what follows in this review is "
        "not logged. Empty the log before the next one.\r\n");
    m_log.CloseReview();
    m_log.LogMessage("elsewhere");
    EXPECT_EQ(Lines(), std::vector<std::string>{"elsewhere"});
}

TEST_F(LogFileTest, AnErrorLogThatIsFullIsTurnedOver) {
    m_folder.Write("Error.log.1", "the one before");
    m_folder.Write("Error.log", "old line\r\n");
    std::filesystem::resize_file(
        m_folder.HostPath() / "Error.log", LogFile::kMostBytesOfErrorLog - 5);
    m_log.LogMessage("123");
    EXPECT_EQ(
        std::filesystem::file_size(m_folder.HostPath() / "Error.log"),
        LogFile::kMostBytesOfErrorLog);
    m_log.LogMessage("new line");
    EXPECT_EQ(Lines(), std::vector<std::string>{"new line"});
    const std::string older = m_folder.Read("Error.log.1");
    EXPECT_EQ(older.substr(0, 10), "old line\r\n");
    EXPECT_EQ(older.substr(older.size() - 5), "123\r\n");
}

TEST_F(LogFileTest, ALineThatWouldFillTheErrorLogByItselfIsCut) {
    m_log.LogMessage("first");
    m_log.LogMessage(std::string(2 * LogFile::kMostBytesOfErrorLog, 'x'));
    m_log.LogMessage("last");
    const std::vector<std::string> lines = Lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1], std::string(10'000, 'x'));
    EXPECT_EQ(m_folder.Read("Error.log.1"), "") << "nothing of worth was pushed out";
}

TEST_F(LogFileTest, NoLineGoesThroughALink) {
    m_folder.Write("victim.txt", "kept");
    for (const char* name : {"Error.log", "Review.txt"}) {
        std::filesystem::create_symlink("victim.txt", m_folder.HostPath() / name);
    }
    EXPECT_THROW(m_log.LogMessage("x"), OutputRefusal);
    EXPECT_THROW(m_log.SetReviewLog(m_folder.Path("Review.txt"), true), OutputRefusal);
    EXPECT_THROW(m_log.LogMessage("x"), OutputRefusal);
    EXPECT_EQ(m_folder.Read("victim.txt"), "kept");
}

TEST_F(LogFileTest, CaughtFailureHasItsNumberAndDescription) {
    m_log.LogBasicError(BasicError(76, "Path not found: 'x'"), "P", "M");
    m_log.LogBasicError(std::bad_alloc(), "P", "M");
    m_log.LogBasicError(std::runtime_error("odd"), "P", "M");
    const std::vector<std::string> lines = Lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_NE(lines[0].find("#76 - Path not found: 'x'#"), std::string::npos);
    EXPECT_NE(lines[1].find("#7 - "), std::string::npos);
    EXPECT_NE(lines[2].find("#51 - odd#"), std::string::npos);
}

TEST_F(LogFileTest, NumberedErrorIsWrittenAsASignedNumber) {
    m_log.LogBasicError(static_cast<std::int32_t>(0x80040202), "No such item.", "P", "M");
    EXPECT_NE(Lines().at(0).find("#-2147220990 - No such item.#"), std::string::npos);
}

TEST_F(LogFileTest, LogThatCannotBeOpenedRaisesToTheCaller) {
    m_log.SetLogFilePath(m_folder.Path("missing\\Error.log"));
    EXPECT_THROW(m_log.LogEvent("v", "P", "M"), BasicError);
}

TEST(LogFile, WithoutAPathWritesNowhere) {
    LogFile log;
    EXPECT_EQ(log.Component(), "DVKWork");
    EXPECT_EQ(log.ComponentVersion(), "");
    EXPECT_FALSE(log.Quiet());
    EXPECT_NO_THROW(log.LogEvent("v", "P", "M"));
}

}  // namespace
}  // namespace dorvik
