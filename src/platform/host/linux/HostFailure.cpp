#include "platform/host/HostFailure.h"

#include "SystemFailure.h"
#include "platform/host/modHostFolder.h"

#include <cerrno>
#include <system_error>

namespace dorvik {

namespace {

struct FailureRow {
    int Number;
    HostFailure Failure;
};

// Every other number is a HostFailure::Other.
constexpr FailureRow kFailures[] = {
    {ENOENT, HostFailure::NoFile},         {ENOTDIR, HostFailure::NoFolder},
    {ENAMETOOLONG, HostFailure::NoFolder},  // nothing can have such a name
    {EACCES, HostFailure::Denied},         {EPERM, HostFailure::Denied},
    {EROFS, HostFailure::WriteProtected},  {EBUSY, HostFailure::InUse},
    {ETXTBSY, HostFailure::InUse},         {ENXIO, HostFailure::NotReady},
    {ENODEV, HostFailure::NotReady},       {ENOMEDIUM, HostFailure::NotReady},
    {EIO, HostFailure::NotReady},          {ESTALE, HostFailure::NotReady},
    {ENOSPC, HostFailure::DiskFull},       {EDQUOT, HostFailure::DiskFull},
    {EFBIG, HostFailure::TooLong},         {EISDIR, HostFailure::NoOrdinaryFile},
    {EEXIST, HostFailure::AlreadyThere},   {ENOTEMPTY, HostFailure::NotEmpty},
};

}  // namespace

HostFailure modHostFailure::OfSystemNumber(int number) {
    for (const FailureRow& row : kFailures) {
        if (row.Number == number) {
            return row.Failure;
        }
    }
    return HostFailure::Other;
}

namespace modSystemFailure {

HostFailure OfFile(int number, const HostPath& path) {
    const HostFailure failure = modHostFailure::OfSystemNumber(number);
    const bool isMissing = failure == HostFailure::NoFile;
    return isMissing && modHostFolder::KindOf(path.Folder()) != FileKind::Folder
               ? HostFailure::NoFolder
               : failure;
}

HostFailure OfFolder(int number) {
    const HostFailure failure = modHostFailure::OfSystemNumber(number);
    return failure == HostFailure::NoFile ? HostFailure::NoFolder : failure;
}

std::string Words(int number) {
    return std::generic_category().message(number);
}

}  // namespace modSystemFailure

}  // namespace dorvik
