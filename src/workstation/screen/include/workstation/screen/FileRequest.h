#pragma once

#include <string>
#include <vector>

namespace dorvik {

/// What a dialog for the choice of a file shows.
struct FileRequest {
    std::string Title;
    /// Pairs of a description and patterns, each written "Text (*.x)|*.x".
    std::vector<std::string> Filters;
    std::string DefaultExtension = {};
    std::string StartAt = {};  // a folder or file, empty for the dialog's own choice
    bool ForSaving = false;
};

}  // namespace dorvik
