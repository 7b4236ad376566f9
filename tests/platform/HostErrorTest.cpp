#include "platform/host/HostError.h"

#include "platform/host/linux/SystemFailure.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace dorvik {
namespace {

struct FailureRow {
    HostFailure Failure;
    std::int32_t Number;  // of the run-time error
    std::uint32_t Code;   // of the XML layer
};

TEST(HostError, EachKindOfFailureHasItsNumberAndItsCode) {
    const FailureRow rows[] = {
        {HostFailure::NoFile, runtimeerror::kFileNotFound, 0x80070002},
        {HostFailure::NoFolder, runtimeerror::kPathNotFound, 0x80070003},
        {HostFailure::Denied, runtimeerror::kPermissionDenied, 0x80070005},
        {HostFailure::WriteProtected, runtimeerror::kPathFileAccess, 0x80070013},
        {HostFailure::InUse, runtimeerror::kPathFileAccess, 0x80070005},
        {HostFailure::NotReady, runtimeerror::kPathFileAccess, 0x80070015},
        {HostFailure::DiskFull, runtimeerror::kDiskFull, 0x80070070},
        {HostFailure::TooLong, runtimeerror::kPathFileAccess, 0x80070070},
        {HostFailure::NoOrdinaryFile, runtimeerror::kPathFileAccess, 0x80070005},
        {HostFailure::AlreadyThere, runtimeerror::kPathFileAccess, 0x80070005},
        {HostFailure::NotEmpty, runtimeerror::kPathFileAccess, 0x80070005},
        {HostFailure::Other, runtimeerror::kPathFileAccess, 0x80070005},
    };
    for (const FailureRow& row : rows) {
        const HostError error(row.Failure, "\\x");
        EXPECT_EQ(error.Number(), row.Number) << static_cast<int>(row.Failure);
        EXPECT_EQ(error.SystemCode(), static_cast<std::int32_t>(row.Code))
            << static_cast<int>(row.Failure);
    }
}

TEST(HostError, IsRaisedWithTheRunTimeErrorsTextAndThePath) {
    try {
        RaiseHostError(HostFailure::WriteProtected, "\\x");
        FAIL() << "nothing was raised";
    } catch (const BasicError& failure) {
        EXPECT_EQ(failure.Number(), runtimeerror::kPathFileAccess);
        EXPECT_STREQ(failure.what(), "Path/File access error: '\\x'");
    }
}

TEST(HostFailure, EachNumberOfTheSystemIsAKind) {
    const struct {
        int Number;
        HostFailure Failure;
    } rows[] = {
        {ENOENT, HostFailure::NoFile},         {ENOTDIR, HostFailure::NoFolder},
        {ENAMETOOLONG, HostFailure::NoFolder}, {EACCES, HostFailure::Denied},
        {EPERM, HostFailure::Denied},          {EROFS, HostFailure::WriteProtected},
        {EBUSY, HostFailure::InUse},           {ETXTBSY, HostFailure::InUse},
        {ENXIO, HostFailure::NotReady},        {ENODEV, HostFailure::NotReady},
        {ENOMEDIUM, HostFailure::NotReady},    {EIO, HostFailure::NotReady},
        {ESTALE, HostFailure::NotReady},       {ENOSPC, HostFailure::DiskFull},
        {EDQUOT, HostFailure::DiskFull},       {EFBIG, HostFailure::TooLong},
        {EISDIR, HostFailure::NoOrdinaryFile}, {EEXIST, HostFailure::AlreadyThere},
        {ENOTEMPTY, HostFailure::NotEmpty},    {ELOOP, HostFailure::Other},
        {ENOMEM, HostFailure::Other},          {0, HostFailure::Other},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(modHostFailure::OfSystemNumber(row.Number), row.Failure) << row.Number;
    }
}

TEST(HostFailure, OfAMissingFileAsksWhetherItsFolderIsThere) {
    const auto missing = [](const char* path) {
        return modSystemFailure::OfFile(ENOENT, HostPath::FromBytes(path));
    };
    EXPECT_EQ(missing("/x"), HostFailure::NoFile);
    EXPECT_EQ(missing("x"), HostFailure::NoFile) << "in the working folder";
    EXPECT_EQ(missing("/no/such/folder/x"), HostFailure::NoFolder);
    EXPECT_EQ(missing("/dev/null/x"), HostFailure::NoFolder);
    EXPECT_EQ(missing(""), HostFailure::NoFolder) << "a place that cannot exist here";
    EXPECT_EQ(
        modSystemFailure::OfFile(EACCES, HostPath::FromBytes("/no/such/folder/x")),
        HostFailure::Denied);
}

TEST(HostFailure, OfAMissingFolderIsAlwaysThat) {
    EXPECT_EQ(modSystemFailure::OfFolder(ENOENT), HostFailure::NoFolder);
    EXPECT_EQ(modSystemFailure::OfFolder(ENOTEMPTY), HostFailure::NotEmpty);
}

}  // namespace
}  // namespace dorvik
