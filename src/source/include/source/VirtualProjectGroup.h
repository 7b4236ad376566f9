#pragma once

#include "platform/host/modEncoding.h"

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace dorvik {

/// The projects that a project group file (".vbg") names.
class VirtualProjectGroup {
public:
    /// Reads the group file. Raises the reader's BasicError if it cannot be opened.
    explicit VirtualProjectGroup(
        std::string_view filename, int codePage = modEncoding::kDefaultCodePage);

    /// Full paths of the project files, in the order of the file, each once (paths compare case-blind).
    /// Whether the files exist is not looked at.
    const std::vector<std::string>& ProjectFilenames() const { return m_projectFilenames; }

private:
    void TakeLine(std::string_view line, std::string_view folder);

    std::vector<std::string> m_projectFilenames;
    std::unordered_set<std::string> m_known;  // the same in lower case
};

}  // namespace dorvik
