#include "platform/host/HostError.h"

#include "platform/host/HostFile.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace dorvik {
namespace {

std::int32_t CodeOf(int errorOfHost, const std::filesystem::path& host) {
    try {
        RaiseHostError(errorOfHost, host, "\\x");
    } catch (const HostError& failure) {
        return failure.SystemCode();
    }
    return 0;
}

TEST(HostError, EachFailureOfTheHostHasItsCode) {
    const struct {
        int ErrorOfHost;
        std::uint32_t Code;
    } rows[] = {
        {ENOENT, 0x80070003},
        {ENOTDIR, 0x80070003},
        {ENAMETOOLONG, 0x80070003},
        {EACCES, 0x80070005},
        {EPERM, 0x80070005},
        {EISDIR, 0x80070005},
        {EEXIST, 0x80070005},
        {EBUSY, 0x80070005},
        {EROFS, 0x80070013},
        {ENXIO, 0x80070015},
        {ENODEV, 0x80070015},
        {ENOMEDIUM, 0x80070015},
        {EIO, 0x80070015},
        {ENOSPC, 0x80070070},
        {EDQUOT, 0x80070070},
        {EFBIG, 0x80070070},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CodeOf(row.ErrorOfHost, "/no/such/folder/x"), static_cast<std::int32_t>(row.Code))
            << row.ErrorOfHost;
    }
    EXPECT_EQ(CodeOf(ENOENT, "/x"), static_cast<std::int32_t>(0x80070002));
}

TEST(HostError, IsTheRunTimeErrorThatItWasToo) {
    try {
        RaiseHostError(EROFS, "/x", "\\x");
        FAIL() << "nothing was raised";
    } catch (const BasicError& failure) {
        EXPECT_EQ(failure.Number(), runtimeerror::kPathFileAccess);
        EXPECT_STREQ(failure.what(), "Path/File access error: '\\x'");
    }
}

}  // namespace
}  // namespace dorvik
