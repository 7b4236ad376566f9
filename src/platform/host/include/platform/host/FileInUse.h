#pragma once

#include "base/BasicError.h"
#include "platform/host/modHostPath.h"

#include <string>

namespace dorvik {

/// A file that is to be used exclusively is in use. Number 70.
class FileInUse final : public BasicError {
public:
    /// Another process has the file open.
    explicit FileInUse(const HostPath& file)
        : BasicError(
              runtimeerror::kPermissionDenied,
              RuntimeErrorText(runtimeerror::kPermissionDenied) + ": '" + modHostPath::Shown(file) +
                  "'") {}
    /// Another user has reserved it; `holder` says who, in words for a person.
    FileInUse(const HostPath& file, const std::string& holder) : FileInUse(file) {
        m_holder = holder.empty() ? "a process that did not say its number" : holder;
    }

    /// Empty where the file is open and no more.
    const std::string& Holder() const { return m_holder; }

private:
    std::string m_holder;
};

}  // namespace dorvik
