#pragma once

#include "base/Variant.h"
#include "foundation/lists/ObjectKeyedArrayList.h"
#include "foundation/log/Trap.h"
#include "platform/database/Database.h"
#include "results/CategoryStatistics.h"
#include "results/Finding.h"
#include "results/ReviewData.h"
#include "results/StoreFailures.h"
#include "results/StoredReviewCriteria.h"
#include "results/ToleranceFailure.h"
#include "results/Violation.h"
#include "results/ViolationSourceLocation.h"
#include "results/ViolationTally.h"
#include "rulebase/model/RulebaseLoadCriteria.h"
#include "source/BasicObject.h"
#include "source/SourceLineStatistics.h"
#include "source/ViolationStatistics.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace dorvik {

class DVKWorkData;
class ReviewCriteria;
class Rulebase;
class VirtualObject;

/// The results database of one project: one file that holds exactly one review.
///
/// Writing, in this order: `StartReview`; the set-up of the project, then of each file, its sections and
/// its procedures; violations and the figures of each object; last `EndReview` or `AbortReview`.
/// Reading: `OpenReview`, queries, `CloseReview`.
///
/// Item types: 1 project, 2 source file or project file, 3 procedure, layout or declarations section.
///
/// A failure of any operation is logged under the module "C_ResultsDB" and costs only that row or answer:
/// the operation returns what it held, which is an empty list, zeros or false at first. `Failures` tells
/// whoever needs to know, for no verdict may be given of a review that lost anything.
class ResultsDB {
public:
    /// Module of the log lines.
    static constexpr std::string_view kModule = "C_ResultsDB";
    /// The only version of a database that is opened.
    static constexpr std::string_view kSchemaVersion = "6.02.0000";

    /// What the lists of files and procedures are sorted by.
    static constexpr std::int32_t kSortByName = 1;
    static constexpr std::int32_t kSortByCount = 2;
    static constexpr std::int32_t kSortByImpact = 3;
    static constexpr std::int32_t kSortByComplexity = 4;

    using ViolationList = ObjectKeyedArrayList<Violation>;

    /// The sort fields come from these settings and go back to them at the end of this object.
    /// REQUIRES: `settings` outlives this.
    explicit ResultsDB(DVKWorkData& settings);
    /// The same with the settings of the process; with defaults that go nowhere while nobody uses those.
    ResultsDB();
    ~ResultsDB();
    ResultsDB(const ResultsDB&) = delete;
    ResultsDB& operator=(const ResultsDB&) = delete;

    // ---- writing ----

    /// Opens the freshly copied database and writes the review, its categories and severities. False, and
    /// nothing written, where it cannot be opened or has another version.
    bool StartReview(
        const std::string& filename, const Rulebase& rulebase, const ReviewCriteria& criteria);
    /// Gives the object its row and its `ObjectID` and `ObjectType`. `kind` is "Project", "VBP", "File",
    /// "Layout", "Declarations" or "Procedure" in any case; any other does nothing. A set-up that fails
    /// leaves `ObjectID` and the current source file at 0.
    void SetupVObjectResults(std::string_view kind, VirtualObject& object);
    void LogViolation(std::int32_t itemId, std::int32_t itemType, const Violation& violation);
    void LogVirtualObjectProperties(const VirtualObject& object);
    void LogVirtualObjectViolationStats(const VirtualObject& object);
    void LogVirtualObjectLineStats(const VirtualObject& object);
    /// Stamps the end of the review, unless anything of it was lost: to every reader a review without an
    /// end is incomplete. The database stays open.
    void EndReview(std::int32_t ruleExecutions);
    /// Something of the review is lost that never came as far as this, such as a measure that could not be
    /// taken. `reason` reads behind a colon.
    void NoteLoss(std::string_view reason);
    /// Closes and deletes the database.
    void AbortReview();

    // ---- the review ----

    /// Opens a database for reading; false where it has no review or another version. One that is not ours,
    /// or of another version, is left as it was found.
    bool OpenReview(const std::string& filename);
    /// The version that the database last opened has of itself; nothing where it does not tell.
    const std::optional<std::string>& FoundVersion() const { return m_foundVersion; }
    /// What went wrong since the review was started or opened.
    const StoreFailures& Failures() const { return m_failures; }
    /// How long an operation waits for a lock of another program. REQUIRES: ReviewOpen().
    void SetPatience(std::chrono::milliseconds patience) { m_database.SetPatience(patience); }
    /// Also empties `FilterString`.
    void CloseReview();
    bool ReviewOpen() const { return m_reviewOpen; }
    std::int32_t ReviewID() const { return m_reviewId; }
    std::int32_t ProjectID() const { return m_projectId; }
    /// Full path of the database file.
    const std::string& Filename() const { return m_filename; }

    ReviewData GetReviewData();
    StoredReviewCriteria GetReviewCriteria();
    CategorySeverityLists GetCategorySeverityLists();

    // ---- filter and order of lists ----

    /// To be changed by the caller. What it leaves out counts in no filtered figure: a kind of rule or a
    /// severity that is not set, an excluded category. It leaves out nothing while it is not `Dirty` for
    /// the first time.
    RulebaseLoadCriteria& Filter() { return m_filter; }
    /// The filter as a clause without "WHERE"; begins with a blank, is empty without a filter.
    const std::string& FilterString();
    /// True with a filter, and where files or procedures without violations are hidden.
    bool FilterApplied();

    std::int32_t FileSortKey() const { return m_fileSortKey; }
    void SetFileSortKey(std::int32_t key) { m_fileSortKey = key; }
    bool FileSortAscending() const { return m_fileSortAscending; }
    void SetFileSortAscending(bool ascending) { m_fileSortAscending = ascending; }
    std::int32_t ProcSortKey() const { return m_procSortKey; }
    void SetProcSortKey(std::int32_t key) { m_procSortKey = key; }
    bool ProcSortAscending() const { return m_procSortAscending; }
    void SetProcSortAscending(bool ascending) { m_procSortAscending = ascending; }

    // ---- items ----

    BasicObject GetProjectDetails(bool ignoreFilter);
    /// The source files and the project file. Those without violations are left out where the settings
    /// hide them, unless `includeAll`. In the order of the sort fields or, with `sortByFilename`, of the
    /// file names.
    std::vector<BasicObject> GetProjectSourceFileList(bool includeAll, bool sortByFilename);
    /// The procedures and sections of a file, likewise. Without `withStats` the violations and lines
    /// of each stay 0.
    std::vector<BasicObject>
    GetSourceFileProcList(std::int32_t sourceId, bool includeAll, bool withStats);
    bool SourceFileHasProcs(std::int32_t sourceId, bool realProcsOnly);
    /// Number of source files of one type, or of all, the project file included, where `type` is empty.
    std::int32_t GetSourceFileCount(std::string_view type);
    BasicObject GetProcedureDetails(std::int32_t procId);
    /// What a list of files (`itemType` 2) or procedures (3) shows beside the item under the present sort
    /// key: the violations for keys 1 and 2, the impact for 3, nothing for any other.
    Variant GetObjectStatValue(const BasicObject& object, std::int32_t itemType) const;
    /// Sorts in place by a sort key; of equal keys the one found first stays best. Key 1 goes by
    /// file name with `byFilename`, else by name, both without regard to case.
    static void SortBasicObjectList(
        std::vector<BasicObject>& list, std::int32_t key, bool ascending, bool byFilename);

    /// The text of a field of the project, of a file or of a procedure; empty where there is none.
    std::string GetProjectData(std::string_view field);
    std::string GetSourceFileData(std::string_view field, std::int32_t sourceId);
    std::string GetProcedureData(std::string_view field, std::int32_t procId);
    void UpdateProjectName(std::string_view name);
    void UpdateFileName(std::string_view name, std::int32_t sourceId);

    // ---- figures ----

    /// The violations of an item and all below it: stored figures, or those that pass the filter.
    // Required: filtered, the violations of a source file are those of its procedures and sections.
    ViolationTally GetProjectViolationStats(std::int32_t projectId, bool ignoreFilter);
    ViolationTally GetVBPFileViolationStats(std::int32_t sourceId, bool ignoreFilter);
    ViolationTally GetSourceFileViolationStats(std::int32_t sourceId, bool ignoreFilter);
    ViolationTally GetProcedureViolationStats(std::int32_t procId, bool ignoreFilter);
    /// Zeros where the item has no row.
    ViolationStatistics GetViolationStats(std::int32_t itemType, std::int32_t itemId);
    SourceLineStatistics GetLineStats(std::int32_t itemType, std::int32_t itemId);
    /// All categories of the review by title, then "Unallocated". `sourceId` -1 counts the whole database;
    /// `fileLevel` counts the violations of the (project) file itself, otherwise those of its procedures
    /// and sections. The filter takes no part.
    std::vector<CategoryStatistics>
    GetViolationStatsByCategory(std::int32_t sourceId, bool fileLevel);

    // ---- violations ----

    /// The violations under the key of their ID followed by "KEY", by severity and impact.
    // Required: the filter only changes the order, no violation is left out.
    ViolationList GetVBPFileViolationsList(std::int32_t sourceId);
    ViolationList GetSourceFileViolationsList(std::int32_t sourceId);
    ViolationList GetProcedureViolationList(std::int32_t procId);
    Violation GetViolationDetail(std::int32_t violationId);
    ViolationSourceLocation
    GetViolationSourceLocation(std::int32_t violationId, bool fullFileNames);
    /// The `count` violations of the highest severity and impact, in their order of raising where alike.
    std::vector<Finding> GetWorstFindings(std::int32_t count);
    /// Marks a violation as dealt with, or not. False where there is no such violation.
    bool SetViolationCompleted(std::int32_t violationId, bool completed);
    /// Rows of `SFName` and `ItemIDType`: the file of each item that has violations.
    std::optional<Recordset> GetSourceFileValueList();
    /// The rows of an SQL text of the caller's, for a list that is bound to the database.
    std::optional<Recordset> OpenRecordSource(std::string_view sql);

    // ---- tolerances ----

    /// The verdict of the project (`itemType` 1, any `sourceId`) or of a file (2). The measures that failed
    /// are appended to `failures`.
    bool TolerancePass(
        std::int32_t itemType, std::int32_t sourceId, std::vector<ToleranceFailure>& failures);
    bool TolerancePass(std::int32_t itemType, std::int32_t sourceId);
    /// Whether the stored review has a tolerance set.
    // Required: the totals over all severities are not looked at.
    bool TolerancesSet();

private:
    /// How the filtered violations of an item are counted.
    enum class TallyForm : int { Project, SourceFile, Item };
    struct Item {
        std::int32_t Type;
        std::int32_t ID;
    };

    const DVKWorkData& Settings() const;
    void LoadSortFields();
    void StoreSortFields();

    bool OpenDatabase(const std::string& filename);
    void CloseDatabase();
    std::optional<Recordset> GetEditableRecordset(std::string_view sql, SqlValues values = {});
    std::optional<Recordset> GetReadOnlyRecordset(std::string_view sql, SqlValues values = {});
    static Recordset NeedRows(std::optional<Recordset> rows);
    void Execute(std::string_view sql, SqlValues values);
    void RefuseKnownFault(const SqlValues& values);

    /// `dorvik::Trap`, which notes the failure as well. An operation that calls others counts as one.
    template <typename Body>
    bool Trap(const LogOrigin& origin, Body&& body) {
        ++m_openTraps;
        const bool isDone =
            dorvik::Trap(origin, std::forward<Body>(body), [this](const BasicError& failure) {
                m_failures.NoteReason(failure);
                return false;
            });
        m_hasFailed = m_hasFailed || !isDone;
        if (--m_openTraps == 0 && std::exchange(m_hasFailed, false)) {
            CountFailure();
        }
        return isDone;
    }
    void CountFailure();

    bool HasNoSourceFiles();
    void WriteReview(const Rulebase& rulebase, const ReviewCriteria& criteria);
    void WriteCategoryList(const Rulebase& rulebase, const ReviewCriteria& criteria);
    void WriteSeverityList(const Rulebase& rulebase, const ReviewCriteria& criteria);
    void AddIndexes();
    std::int32_t SetupProject(VirtualObject& object);
    std::int32_t SetupSourceFile(VirtualObject& object);
    std::int32_t SetupProcedure(VirtualObject& object);
    std::int32_t SetupLayoutDeclarations(std::string_view kind);

    void RefreshFilter();
    ViolationTally Tally(TallyForm form, Item item, bool ignoreFilter);
    void GetObjectLineStats(Item item, BasicObject& object);
    BasicObject ReadSourceFile(Recordset& rows);
    BasicObject ReadProcedure(Recordset& rows, bool withStats);
    void AddViolations(Item item, ViolationList& list);
    ViolationStatistics CountBySeverity(const std::string& source, std::int32_t categoryId);
    std::string FirstValue(const std::string& sql);
    void WriteName(const std::string& sql, std::string_view name);
    std::string FilenameOfItem(std::int32_t itemType, std::int32_t itemId);

    Database m_database;
    StoreFailures m_failures;
    int m_openTraps = 0;
    bool m_hasFailed = false;  // one of these
    bool m_keepsKnownFaults = false;
    bool m_isKnownFault = false;     // what failed last failed for being a known fault
    std::int32_t m_knownFaults = 0;  // among the failures
    std::optional<std::string> m_foundVersion;
    bool m_databaseOpen = false;
    bool m_reviewOpen = false;
    std::string m_filename;
    std::int32_t m_reviewId = 0;
    std::int32_t m_projectId = 0;
    std::int32_t m_sourceId = 0;  // the file that is being written
    bool m_isNewSource = false;   // it had no row before, so all its procedures are known:
    std::unordered_set<std::string> m_procedures;  // name and type in lower case
    bool m_isNewReview = false;  // all source files of the database are in the next list
    std::unordered_set<std::string> m_sourceFiles;  // path and name in lower case

    DVKWorkData* m_ownSettings = nullptr;  // those of the constructor, if any
    RulebaseLoadCriteria m_filter;
    std::string m_filterString;
    std::int32_t m_fileSortKey = kSortByName;
    bool m_fileSortAscending = true;
    std::int32_t m_procSortKey = kSortByName;
    bool m_procSortAscending = true;
};

}  // namespace dorvik
