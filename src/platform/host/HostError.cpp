#include "platform/host/HostError.h"

#include <cstddef>
#include <iterator>
#include <string>

namespace dorvik {

namespace {

struct FailureRow {
    HostFailure Failure;
    std::int32_t Number;  // of the run-time error
    std::uint32_t Code;   // of the XML layer
};

// In the order of the kinds.
constexpr FailureRow kFailures[] = {
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

constexpr bool HasEachKindInOrder() {
    std::size_t index = 0;
    for (const FailureRow& row : kFailures) {
        if (static_cast<std::size_t>(row.Failure) != index++) {
            return false;
        }
    }
    return index == static_cast<std::size_t>(HostFailure::Other) + 1;
}
static_assert(HasEachKindInOrder());

constexpr const FailureRow& RowOf(HostFailure failure) {
    return kFailures[static_cast<std::size_t>(failure)];
}

std::string Description(std::int32_t number, std::string_view path) {
    return RuntimeErrorText(number) + ": '" + std::string(path) + "'";
}

}  // namespace

HostError::HostError(HostFailure failure, std::string_view path)
    : BasicError(RowOf(failure).Number, Description(RowOf(failure).Number, path)),
      m_failure(failure) {}

std::int32_t HostError::SystemCode() const {
    return static_cast<std::int32_t>(RowOf(m_failure).Code);
}

void RaiseHostError(HostFailure failure, std::string_view path) {
    throw HostError(failure, path);
}

}  // namespace dorvik
