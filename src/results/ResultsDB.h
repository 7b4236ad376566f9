#pragma once

#include "platform/Database.h"
#include "results/Finding.h"
#include "results/ToleranceFailure.h"
#include "results/Violation.h"
#include "source/SourceLineStatistics.h"
#include "source/ViolationStatistics.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ReviewCriteria;
class Rulebase;
class VirtualObject;

/// The results database of one project: one file that holds exactly one review.
///
/// Writing, in this order: `StartReview`; the set-up of the project, then of each file, its sections and
/// its procedures; violations and the figures of each object; last `EndReview` or `AbortReview`.
/// Reading: `OpenReview`, queries, `CloseReview`.
///
/// A failure of any operation is logged under the module "C_ResultsDB" and costs only that row or answer.
class ResultsDB {
public:
    /// Module of the log lines.
    static constexpr std::string_view kModule = "C_ResultsDB";

    ResultsDB();
    ~ResultsDB();
    ResultsDB(const ResultsDB&) = delete;
    ResultsDB& operator=(const ResultsDB&) = delete;

    /// Opens the freshly copied database and writes the review, its categories and severities. False, and
    /// nothing written, where it cannot be opened or has another version.
    bool StartReview(
        const std::string& filename, const Rulebase& rulebase, const ReviewCriteria& criteria);
    /// Gives the object its row and its `ObjectID` and `ObjectType`. `kind` is "Project", "VBP", "File",
    /// "Layout", "Declarations" or "Procedure" in any case; any other does nothing. A set-up that fails
    /// leaves `ObjectID` and the current source file at 0.
    void SetupVObjectResults(std::string_view kind, VirtualObject& object);
    /// `itemType`: 1 project, 2 source file or project file, 3 procedure, layout or declarations section.
    void LogViolation(std::int32_t itemId, std::int32_t itemType, const Violation& violation);
    void LogVirtualObjectProperties(const VirtualObject& object);
    void LogVirtualObjectViolationStats(const VirtualObject& object);
    void LogVirtualObjectLineStats(const VirtualObject& object);
    /// Stamps the end of the review. The database stays open.
    void EndReview(std::int32_t ruleExecutions);
    /// Closes and deletes the database.
    void AbortReview();

    /// Opens a finished database for reading; false where it has no review or another version.
    bool OpenReview(const std::string& filename);
    void CloseReview();
    bool ReviewOpen() const { return m_reviewOpen; }
    std::int32_t ReviewID() const { return m_reviewId; }
    std::int32_t ProjectID() const { return m_projectId; }
    /// Full path of the database file.
    const std::string& Filename() const { return m_filename; }

    /// Zeros where the item has no row.
    ViolationStatistics GetViolationStats(std::int32_t itemType, std::int32_t itemId);
    SourceLineStatistics GetLineStats(std::int32_t itemType, std::int32_t itemId);
    /// Number of source files of one type, or of all, the project file included, where `type` is empty.
    std::int32_t GetSourceFileCount(std::string_view type);
    /// The `count` violations of the highest severity and impact, in their order of raising where alike.
    std::vector<Finding> GetWorstFindings(std::int32_t count);
    /// The verdict of the project (`itemType` 1, any `sourceId`) or of a file (2). The measures that failed
    /// are appended to `failures`.
    bool TolerancePass(
        std::int32_t itemType, std::int32_t sourceId, std::vector<ToleranceFailure>& failures);
    bool TolerancePass(std::int32_t itemType, std::int32_t sourceId);
    /// Whether the stored review has a tolerance set.
    bool TolerancesSet();

private:
    bool OpenDatabase(const std::string& filename);
    void CloseDatabase();
    std::optional<Recordset> GetEditableRecordset(std::string_view sql);
    std::optional<Recordset> GetReadOnlyRecordset(std::string_view sql);

    static Recordset NeedRows(std::optional<Recordset> rows);

    void WriteReview(const Rulebase& rulebase, const ReviewCriteria& criteria);
    void WriteCategoryList(const Rulebase& rulebase, const ReviewCriteria& criteria);
    void WriteSeverityList(const Rulebase& rulebase, const ReviewCriteria& criteria);
    std::string FilenameOfItem(std::int32_t itemType, std::int32_t itemId);
    std::int32_t SetupProject(VirtualObject& object);
    std::int32_t SetupSourceFile(VirtualObject& object);
    std::int32_t SetupProcedure(VirtualObject& object);
    std::int32_t SetupLayoutDeclarations(std::string_view kind);

    Database m_database;
    bool m_databaseOpen = false;
    bool m_reviewOpen = false;
    std::string m_filename;
    std::int32_t m_reviewId = 0;
    std::int32_t m_projectId = 0;
    std::int32_t m_sourceId = 0;  // the file that is being written
};

}  // namespace dorvik
