#pragma once

namespace dorvik {

class ResultsManager;
class ReviewCriteria;
class VirtualObject;
class VirtualProject;

/// What a review records about its project and files besides violations.
namespace modProjectResults {

/// Sets the verdict of the project file or of a source file. A failure counts as a loss of results.
void MeasureTolerances(
    ResultsManager& results,
    const ReviewCriteria& criteria,
    VirtualObject& object,
    bool isProjectFile);

/// Records in the project what could not be stored in its results database.
void RecordLosses(VirtualProject& project, ResultsManager& results);

}  // namespace modProjectResults

}  // namespace dorvik
