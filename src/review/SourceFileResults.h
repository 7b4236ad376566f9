#pragma once

#include <cstdint>

namespace dorvik {

class ResultsManager;
class ReviewCriteria;
class VirtualProject;
class VirtualSourceFile;

/// The results of the source file that a project review is reading: stores the figures of the file, and records
/// with the project everything that kept it from being reviewed completely. One per project review.
class SourceFileResults {
public:
    /// REQUIRES: all three outlive this object.
    SourceFileResults(
        VirtualProject& project, const ReviewCriteria& criteria, ResultsManager& results)
        : m_project(project), m_criteria(criteria), m_results(results) {}

    /// REQUIRES: the file outlives the matching `EndFile`.
    void BeginFile(VirtualSourceFile& file);
    void EndFile() { m_file = nullptr; }

    /// Rules of an event were skipped, not for an error of a rule but because of a failure such as a lack of
    /// memory. Between files it is recorded for the project file.
    void NoteSkippedRules();
    /// Stores the figures of the file and of its declarations.
    void LogFileResults();

    // Either of these ends the review of the file. An incomplete one has read lines only if it was parsed.
    void CloseIncompleteFile(bool isParsed);
    void CloseCompleteFile();

private:
    void LogLayoutFault();

    VirtualProject& m_project;
    const ReviewCriteria& m_criteria;
    ResultsManager& m_results;
    VirtualSourceFile* m_file = nullptr;  // null between files
    std::int32_t m_skippedRulesAt = 0;    // the first line where rules were skipped; 0: none
};

}  // namespace dorvik
