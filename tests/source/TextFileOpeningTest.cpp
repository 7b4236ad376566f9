#include "source/TextFileOpening.h"

#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

using test::CapturedLog;
using test::TemporaryFolder;

TEST(TextFileOpening, AFileThatIsThereGivesAReaderAndNoError) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "one");
    const TextFileOpening opening = OpenTextFile(folder.Path() + "a.txt", 1252);
    ASSERT_NE(opening.Reader, nullptr);
    EXPECT_EQ(opening.Reader->ReadLine(), "one");
    EXPECT_EQ(opening.ErrorNumber, 0);
    EXPECT_FALSE(opening.IsMissing());
}

TEST(TextFileOpening, AFailureIsItsNumberAndIsNotLogged) {
    CapturedLog log;
    const TemporaryFolder folder;
    const std::pair<std::string, bool> rows[] = {
        {folder.Path() + "none.txt", true},
        {folder.Path() + "none\\a.txt", true},
        {"Q:\\x\\a.txt", true},
        {folder.Path(), false},  // a folder where a file is expected
    };
    for (const auto& [path, isMissing] : rows) {
        const TextFileOpening opening = OpenTextFile(path, 1252);
        EXPECT_EQ(opening.Reader, nullptr) << path;
        EXPECT_NE(opening.ErrorNumber, 0) << path;
        EXPECT_EQ(opening.IsMissing(), isMissing) << path;
    }
    EXPECT_TRUE(log.Lines().empty());
}

}  // namespace
}  // namespace dorvik
