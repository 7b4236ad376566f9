#pragma once

#include "base/BasicError.h"

#include <filesystem>
#include <string>

namespace dorvik {

/// A file that is to be used exclusively is in use. Number 70.
class FileInUse final : public BasicError {
public:
    /// Another process has the file open.
    explicit FileInUse(const std::filesystem::path& file)
        : BasicError(
              runtimeerror::kPermissionDenied,
              RuntimeErrorText(runtimeerror::kPermissionDenied) + ": '" + file.string() + "'") {}
    /// Another process uses it exclusively; `holder` says which, in words for a person.
    FileInUse(const std::filesystem::path& file, const std::string& holder) : FileInUse(file) {
        m_holder = holder.empty() ? "an unknown process" : holder;
    }

    /// Empty where the file is open and no more.
    const std::string& Holder() const { return m_holder; }

private:
    std::string m_holder;
};

}  // namespace dorvik
