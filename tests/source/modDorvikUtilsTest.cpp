#include "source/modDorvikUtils.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

TEST(modDorvikUtils, AProjectFileEndsInVbpInAnyCase) {
    EXPECT_TRUE(modDorvikUtils::IsVBPFile("\\work\\Billing.vbp"));
    EXPECT_TRUE(modDorvikUtils::IsVBPFile("BILLING.VBP"));
    EXPECT_FALSE(modDorvikUtils::IsVBPFile("Billing.vbg"));
    EXPECT_FALSE(modDorvikUtils::IsVBPFile("Billing.vbp "));
    EXPECT_FALSE(modDorvikUtils::IsVBPFile("bp"));
    EXPECT_FALSE(modDorvikUtils::IsVBPFile(""));
}

TEST(modDorvikUtils, NothingLooksForTheDotOfAProjectFile) {
    EXPECT_TRUE(modDorvikUtils::IsVBPFile("Billingvbp"));
    EXPECT_TRUE(modDorvikUtils::IsVBPFile("vbp"));
}

}  // namespace
}  // namespace dorvik
