#include "source/FileType.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

TEST(FileType, EveryKeyOfTheProjectFileHasItsNumber) {
    const std::pair<const char*, int> rows[] = {
        {"Class", 1},
        {"Form", 2},
        {"Designer", 3},
        {"Module", 4},
        {"PropertyPage", 5},
        {"UserDocument", 6},
        {"UserControl", 7},
        {"MDIForm", 8},
    };
    for (const auto& [key, number] : rows) {
        EXPECT_EQ(static_cast<int>(FileTypeFromKey(key)), number) << key;
        EXPECT_EQ(FileTypeKey(static_cast<FileType>(number)), key);
    }
}

TEST(FileType, KeysMatchInAnyCaseAndOnlyWhole) {
    EXPECT_EQ(FileTypeFromKey("mdiFORM"), FileType::MDIForm);
    EXPECT_EQ(FileTypeFromKey("Form "), FileType::None);
    EXPECT_EQ(FileTypeFromKey("Forms"), FileType::None);
    EXPECT_EQ(FileTypeFromKey(""), FileType::None);
    EXPECT_EQ(FileTypeKey(FileType::None), "");
}

}  // namespace
}  // namespace dorvik
