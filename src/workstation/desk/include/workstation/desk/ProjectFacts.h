#pragma once

#include <string>
#include <utility>
#include <vector>

namespace dorvik {

class FileProject;

/// What a project says of itself in its file, for a window that shows it.
struct ProjectFacts {
    struct Section {
        std::string Heading;
        std::vector<std::pair<std::string, std::string>> Rows;  // name and value
    };

    std::string Title;                // the name of the project
    std::vector<Section> Properties;  // "Project", "Files", "Related documents"
    std::vector<Section> References;  // "References", "Components"
};

/// Reads the project's file. Where that cannot be read, only what is known without it is there.
ProjectFacts FactsOf(const FileProject& project);

}  // namespace dorvik
