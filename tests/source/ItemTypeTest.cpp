#include "source/ItemType.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

TEST(ItemType, ANumberThatIsNoneIsNoItem) {
    EXPECT_EQ(ItemTypeOf(1), ItemType::Project);
    EXPECT_EQ(ItemTypeOf(2), ItemType::File);
    EXPECT_EQ(ItemTypeOf(3), ItemType::Procedure);
    for (const std::int32_t number : {-1, 0, 4, 2000000000}) {
        EXPECT_EQ(ItemTypeOf(number), ItemType::None) << number;
    }
}

}  // namespace
}  // namespace dorvik
