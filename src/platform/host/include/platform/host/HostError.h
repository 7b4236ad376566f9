#pragma once

#include "base/BasicError.h"
#include "platform/host/HostFailure.h"

#include <cstdint>
#include <string_view>

namespace dorvik {

/// A failure of the host's files that keeps what kind of failure it was. Its number is that of the run-time error:
/// 53, 76, 75, 70 or 61.
class HostError : public BasicError {
public:
    /// `path` is what the description names.
    HostError(HostFailure failure, std::string_view path);

    /// The code under which the XML layer reports the failure: 0x80070002 no such file, 0x80070003 no
    /// such folder, 0x80070005 access denied, 0x80070013 write-protected, 0x80070015 device not
    /// ready, 0x80070070 disk full (or a file longer than it may be).
    std::int32_t SystemCode() const;

private:
    HostFailure m_failure;
};

[[noreturn]] void RaiseHostError(HostFailure failure, std::string_view path);

}  // namespace dorvik
