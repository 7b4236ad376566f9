#pragma once

#include <string>

namespace dorvik {

/// A source file of the project that the review did not read, or not to its end, in the words of a report page. It is
/// made from the `UnreviewedFile` of the project.
struct UnreadFile {
    std::string Filename;  // without its folder
    std::string Reason;    // "Failed To Open Source File" and the like
};

}  // namespace dorvik
