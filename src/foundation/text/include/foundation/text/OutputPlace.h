#pragma once

#include <string>

namespace dorvik {

/// Where a file that this program writes is: its name in a folder that the user chose, or in the folder
/// "Dorvik" that the program makes beside a project. What is above and at the chosen folder is the user's
/// affair; below it nothing is written through a link.
struct OutputPlace {
    std::string Chosen{};  // ends in a backslash; empty for the current folder
    std::string Below{};   // "Dorvik\", or empty
    std::string Name{};

    std::string Folder() const { return Chosen + Below; }
    std::string Path() const { return Folder() + Name; }

    /// The place below `folder`, or beside the project file in "Dorvik\" where that is empty; without a name.
    static OutputPlace For(const std::string& projectFile, const std::string& folder);

    /// Creates the folder if need be, those above it too. Raises an `OutputRefusal` where the folder beside
    /// the project is a link or no folder, and what `modFiles` raises.
    void MakeFolder() const;
};

}  // namespace dorvik
