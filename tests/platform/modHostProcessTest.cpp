#include "platform/host/modHostProcess.h"

#include <gtest/gtest.h>

#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

namespace dorvik {
namespace {

TEST(modHostProcess, KnowsTheRunningProgram) {
    EXPECT_EQ(modHostProcess::ProgramPath().Name(), "dorvik_platform_tests");
    EXPECT_EQ(modHostProcess::OwnNumber(), ::getpid());
}

TEST(modHostProcess, AProcessIsGoneOnceItHasEnded) {
    EXPECT_FALSE(modHostProcess::IsGone(modHostProcess::OwnNumber()));
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(0);
    }
    ASSERT_GT(child, 0);
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(modHostProcess::IsGone(child));
}

TEST(modHostProcess, AnAbsentVariableIsEmpty) {
    ::setenv("DORVIK_TEST_VARIABLE", "some text", 1);
    EXPECT_EQ(modHostProcess::Environment("DORVIK_TEST_VARIABLE"), "some text");
    ::unsetenv("DORVIK_TEST_VARIABLE");
    EXPECT_EQ(modHostProcess::Environment("DORVIK_TEST_VARIABLE"), "");
}

}  // namespace
}  // namespace dorvik
