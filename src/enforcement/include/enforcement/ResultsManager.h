#pragma once

#include "parser/ParserEvent.h"
#include "parser/VB6ParserState.h"
#include "platform/host/UnfinishedFile.h"
#include "results/ResultsDB.h"
#include "results/Violation.h"
#include "rulebase/model/RuleType.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace dorvik {

class BasicError;
class FileInUseMark;
class Rulebase;
class ReviewCriteria;
class ViolationDefinition;
class VirtualProject;
struct OutputPlace;

/// Stands between the rules and the results store of one project review. A rule hands in a
/// `ViolationDefinition` with the coordinates of the event; this class builds the `Violation`,
/// expands its texts against the objects in scope, writes it at once and counts it on the chain of
/// owning objects. It also opens and closes the results database and the review log.
///
/// Owns the `ResultsDB` and the `VB6ParserState` of the project.
class ResultsManager {
public:
    /// Where and by which rule a violation is raised.
    struct Origin {
        Location Place;
        std::int32_t RuleID;  // 0 for the violations that belong to no rule
        dorvik::RuleType RuleType;
        std::string_view LocationMember;
    };

    ResultsManager();
    /// Ends the review log.
    ~ResultsManager();
    ResultsManager(const ResultsManager&) = delete;
    ResultsManager& operator=(const ResultsManager&) = delete;

    VB6ParserState& ParserState() { return m_parserState; }
    dorvik::ResultsDB& ResultsDB() { return *m_resultsDB; }
    /// REQUIRES: the project outlives this object, or is replaced by null before it goes.
    void SetProject(VirtualProject* project) { m_project = project; }

    /// Prepares the results file and the review log of a project and starts its review. False if
    /// that failed; the reason is logged, and shown where the user can do something about it.
    ///
    /// From before the old results are deleted on nobody else can begin a review of the project into this
    /// place: until `AbortReview`, or until this object and `Reservation` are gone.
    bool BeginReview(
        std::string_view projectFile, const ReviewCriteria& criteria, const Rulebase& rulebase);
    /// What keeps other reviews out; null without a review.
    const std::shared_ptr<FileInUseMark>& Reservation() const { return m_reservation; }
    void EndReview(std::int32_t ruleExecutionCount);
    /// Leaves no results file behind. May be called again without harm.
    void AbortReview();

    /// The first violations of a source line store it whole, unless it is longer than `kLongestWholeLine`
    /// characters; any other stores its first `kCutLine` characters and " ..." behind them, also of the
    /// other texts.
    static constexpr std::int32_t kWholeLines = 63;
    static constexpr std::size_t kLongestWholeLine = 32'768;
    static constexpr std::size_t kCutLine = 1000;

    /// Raises a violation at the current source line. `advice` replaces the definition's unless empty.
    void RaiseViolation(
        const ViolationDefinition& definition, const Origin& origin, std::string_view advice);
    /// Raises a violation at the end event of an object; it is told at the line where the object starts.
    void RaiseEndEventViolation(
        const ViolationDefinition& definition, const Origin& origin, ParserEvent event);

    /// Stores properties and statistics of the object in scope of that name, if it was given an `ObjectID`.
    void LogVirtualObjectResults(std::string_view objectName);

    /// Writes a line to the review log, with the current event and rule in front if asked.
    void DumpDebugPrint(std::string_view message, bool withPrefix);
    /// Writes all properties and workfields of an object in scope to the review log.
    void DumpVirtualObject(std::string_view objectName);

    /// The text of the current parser event.
    std::string GetParserEvent() const;
    /// True if the project has a class file (or a form) of that name.
    bool IsClassName(std::string_view name) const;
    bool IsFormName(std::string_view name) const;

    /// Replaces each "%Object.Property%" by the value of that property. Stops at the first malformed tag, and
    /// at the bounds of `modTextTags`, which the review log tells.
    std::string ChangeTagsToValues(std::string_view text);

private:
    void LogViolation(const Violation& violation);
    void NoteViolation(bool isStored);
    Violation MakeViolation(const ViolationDefinition& definition, const Origin& origin) const;
    void MarkCurrentRule(std::int32_t ruleId, std::string_view mark);
    std::string TagValue(std::string_view tag);
    void LimitTexts(Violation& violation);
    void ReservePlace(const OutputPlace& place, const std::string& log);
    std::string ReasonIn(
        const BasicError& failure, std::string_view projectFile, const std::string& database) const;
    bool PrepareResultsFile(const std::string& target);

    // Gone last: until then the database and the log are this review's.
    std::shared_ptr<FileInUseMark> m_reservation;
    VB6ParserState m_parserState;
    std::optional<UnfinishedFile>
        m_unfinished;  // the results file, between its first byte and its end
    std::unique_ptr<dorvik::ResultsDB> m_resultsDB;
    VirtualProject* m_project = nullptr;
    std::int32_t m_countedFile = 0;  // the `ObjectID` of the file whose lines these are
    std::unordered_map<std::int32_t, std::int32_t> m_violationsOfLines;
};

}  // namespace dorvik
