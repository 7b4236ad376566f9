#pragma once

#include "base/BasicError.h"

#include <cstdint>
#include <string>

namespace dorvik {

/// A failure of the host's files that still knows what the host said.
class HostError : public BasicError {
public:
    /// `errorOfHost` is an `errno`, `number` the run-time error that stands for it.
    HostError(int errorOfHost, std::int32_t number, const std::string& description)
        : BasicError(number, description), m_errorOfHost(errorOfHost) {}

    /// The code under which the XML layer reports the failure: 0x80070002 no such file, 0x80070003 no
    /// such folder, 0x80070005 access denied, 0x80070013 write-protected, 0x80070015 device not
    /// ready, 0x80070070 disk full (or a file longer than it may be).
    std::int32_t SystemCode() const;

private:
    int m_errorOfHost;
};

}  // namespace dorvik
