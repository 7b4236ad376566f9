#pragma once

#include <string>

namespace dorvik {

/// A source file of the project that the review could not, or not wholly, read, as a page words it.
/// (`UnreviewedFile` of the source floor is the record behind it.)
struct UnreadFile {
    std::string Filename;  // without its folder
    std::string Reason;    // "Failed To Open Source File" and the like, for the reader of a report
};

}  // namespace dorvik
