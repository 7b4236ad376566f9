#include "foundation/log/Handled.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

namespace dorvik {
namespace {

TEST(Handled, ABodyThatEndsAsksNobody) {
    bool isAsked = false;
    EXPECT_TRUE(Handled([] {}, [&](const BasicError&) { return isAsked = true; }));
    EXPECT_FALSE(isAsked);
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

}  // namespace
}  // namespace dorvik
