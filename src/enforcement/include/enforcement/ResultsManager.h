#pragma once

#include "enforcement/ReviewLog.h"
#include "enforcement/ViolationLog.h"
#include "parser/VB6ParserState.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

class FileInUseMark;
class ResultsDB;
class ResultsFile;
class ReviewCriteria;
class Rulebase;
class ViolationDefinition;
class VirtualProject;

/// The results of one project review: opens and closes the results database and the review log, and owns the state
/// of the parser, the violation log and the review log, which the rules work with. Rules get them in a
/// `ReviewContext`; scripts use them through the operations of this class.
class ResultsManager {
public:
    ResultsManager();
    /// Ends the review log.
    ~ResultsManager();
    ResultsManager(const ResultsManager&) = delete;
    ResultsManager& operator=(const ResultsManager&) = delete;

    VB6ParserState& ParserState() { return m_parserState; }
    dorvik::ResultsDB& ResultsDB() { return *m_resultsDB; }
    ReviewLog& Log() { return m_log; }
    ViolationLog& Violations() { return m_violations; }
    /// REQUIRES: the project outlives this object, or is replaced by null before it is destroyed.
    void SetProject(VirtualProject* project) { m_project = project; }

    /// Prepares the results file and the review log of a project and starts its review. False if
    /// that failed; the reason is logged, and shown where the user can do something about it.
    ///
    /// Before the old results are deleted, the results file is reserved: no other review can write it until
    /// `AbortReview`, or until this object and all copies of `Reservation` are destroyed.
    bool BeginReview(
        std::string_view projectFile, const ReviewCriteria& criteria, const Rulebase& rulebase);
    /// The reservation of the results file; null without a review.
    std::shared_ptr<FileInUseMark> Reservation() const;
    void EndReview(std::int32_t ruleExecutionCount);
    /// Deletes the results file. Further calls have no effect.
    void AbortReview();

    /// Stores properties and statistics of the object in scope of that name, if it was given an `ObjectID`.
    void LogVirtualObjectResults(std::string_view objectName);

    // Operations of the violation log and the review log, under the names that scripts and callers use.
    void RaiseViolation(
        const ViolationDefinition& definition,
        const ViolationOrigin& origin,
        std::string_view advice) {
        m_violations.RaiseViolation(definition, origin, advice);
    }
    void RaiseEndEventViolation(
        const ViolationDefinition& definition, const ViolationOrigin& origin, ParserEvent event) {
        m_violations.RaiseEndEventViolation(definition, origin, event);
    }
    void DumpDebugPrint(std::string_view message, bool withPrefix) {
        m_log.DumpDebugPrint(message, withPrefix);
    }
    void DumpVirtualObject(std::string_view objectName) { m_log.DumpVirtualObject(objectName); }
    /// The text of the current parser event.
    std::string GetParserEvent() const { return std::string(m_parserState.GetParserEventText()); }
    /// True if the project has a class file (or a form) of that name.
    bool IsClassName(std::string_view name) const;
    bool IsFormName(std::string_view name) const;

private:
    // Destroyed last: until then no other review can write the database and the log.
    std::unique_ptr<ResultsFile> m_file;  // null without a review
    VB6ParserState m_parserState;
    ReviewLog m_log;
    ViolationLog m_violations;
    std::unique_ptr<dorvik::ResultsDB> m_resultsDB;
    VirtualProject* m_project = nullptr;
};

}  // namespace dorvik
