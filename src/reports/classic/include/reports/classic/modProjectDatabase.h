#pragma once

#include <memory>
#include <string>

namespace dorvik {
class ResultsDB;
class ReviewCriteria;
class VirtualProject;
}  // namespace dorvik

/// The results database that a review wrote for a project.
namespace dorvik::modProjectDatabase {

/// Replaces `results` by a new object and opens the database of the project in it; false if there is none. A
/// failure is logged.
bool OpenResultsDatabase(
    const VirtualProject& project,
    const ReviewCriteria& criteria,
    std::unique_ptr<ResultsDB>& results);

/// The full path of the log of its review.
std::string LogFilename(const VirtualProject& project, const ReviewCriteria& criteria);

}  // namespace dorvik::modProjectDatabase
