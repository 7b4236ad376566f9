#pragma once

#include "base/BasicError.h"

#include <filesystem>
#include <string>

namespace dorvik {

/// Someone else has a file that was asked for alone. Number 70.
class FileInUse final : public BasicError {
public:
    /// Someone has the file open.
    explicit FileInUse(const std::filesystem::path& file)
        : BasicError(
              runtimeerror::kPermissionDenied,
              RuntimeErrorText(runtimeerror::kPermissionDenied) + ": '" + file.string() + "'") {}
    /// Someone has it for himself; `holder` says who, in words for a person.
    FileInUse(const std::filesystem::path& file, const std::string& holder) : FileInUse(file) {
        m_holder = holder.empty() ? "an unknown process" : holder;
    }

    /// Empty where the file is open and no more.
    const std::string& Holder() const { return m_holder; }

private:
    std::string m_holder;
};

}  // namespace dorvik
