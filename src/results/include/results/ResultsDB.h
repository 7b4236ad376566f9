#pragma once

#include "results/FigureReader.h"
#include "results/ItemReader.h"
#include "results/ListOrder.h"
#include "results/ResultsStore.h"
#include "results/ReviewKeys.h"
#include "results/ReviewReader.h"
#include "results/ReviewWriter.h"
#include "results/Verdict.h"
#include "results/ViolationFilter.h"
#include "results/ViolationReader.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// What becomes of an operation that fails.
enum class OnFailure : int { Log, Raise };

/// The results database of one project: one file that holds exactly one review.
///
/// Writing, in this order: `StartReview`; the set-up of the project, then of each file, its sections and
/// its procedures; violations and the figures of each object; last `EndReview` or `AbortReview`.
/// Reading: `OpenReview`, queries, `CloseReview`.
///
/// A failure of any operation is logged under the module "C_ResultsDB" and costs only that row or answer:
/// the operation returns what it held, which is an empty list, zeros or false at first. Callers for whom a
/// loss matters ask `Failures`, for no verdict may be given of a review that lost anything.
///
/// This class opens and closes; the work is done by its parts, and an operation has its description there.
class ResultsDB {
public:
    static constexpr std::string_view kSchemaVersion = ResultsStore::kSchemaVersion;
    static constexpr std::int32_t kSortByName = ListOrder::kSortByName;
    static constexpr std::int32_t kSortByCount = ListOrder::kSortByCount;
    static constexpr std::int32_t kSortByImpact = ListOrder::kSortByImpact;
    static constexpr std::int32_t kSortByComplexity = ListOrder::kSortByComplexity;

    using ViolationList = ViolationReader::ViolationList;

    /// The sort fields come from these settings and go back to them at the end of this object.
    /// REQUIRES: `settings` outlives this.
    explicit ResultsDB(DVKWorkData& settings) : m_order(&settings) {}
    /// The same with the settings of the process, or with defaults that go nowhere while there are none.
    ResultsDB() : m_order(nullptr) {}
    ResultsDB(const ResultsDB&) = delete;
    ResultsDB& operator=(const ResultsDB&) = delete;

    // ---- the database ----

    /// Opens a database for reading; false where it has no review or another version. One that is not ours,
    /// or of another version, is left as it was found.
    bool OpenReview(const std::string& filename);
    /// Also empties `FilterString`.
    void CloseReview();
    bool ReviewOpen() const { return m_reviewOpen; }
    std::int32_t ReviewID() const { return m_keys.ReviewID; }
    std::int32_t ProjectID() const { return m_keys.ProjectID; }
    const std::string& Filename() const { return m_store.Filename(); }
    const std::optional<std::string>& FoundVersion() const { return m_store.FoundVersion(); }
    const StoreFailures& Failures() const { return m_store.Failures(); }
    void NoteLoss(std::string_view reason) { m_store.NoteLoss(reason); }
    void SetPatience(std::chrono::milliseconds patience) { m_store.SetPatience(patience); }
    /// The rows of an SQL text of the caller's, for a list that is bound to the database. A caller that reports
    /// its own failures has them raised: then nothing is logged or counted.
    std::optional<Recordset>
    OpenRecordSource(std::string_view sql, OnFailure onFailure = OnFailure::Log) {
        return onFailure == OnFailure::Raise ? m_store.BindRows(sql)
                                             : m_store.GetReadOnlyRecordset(sql);
    }

    // ---- writing: ReviewWriter ----

    bool StartReview(
        const std::string& filename, const Rulebase& rulebase, const ReviewCriteria& criteria) {
        return m_writer.StartReview(filename, rulebase, criteria);
    }
    void SetupVObjectResults(std::string_view kind, VirtualObject& object) {
        m_writer.SetupVObjectResults(kind, object);
    }
    void LogViolation(std::int32_t itemId, ItemType itemType, const Violation& violation) {
        m_writer.LogViolation(itemId, itemType, violation);
    }
    void LogVirtualObjectProperties(const VirtualObject& object) {
        m_writer.LogVirtualObjectProperties(object);
    }
    void LogVirtualObjectViolationStats(const VirtualObject& object) {
        m_writer.LogVirtualObjectViolationStats(object);
    }
    void LogVirtualObjectLineStats(const VirtualObject& object) {
        m_writer.LogVirtualObjectLineStats(object);
    }
    void EndReview(std::int32_t ruleExecutions) { m_writer.EndReview(ruleExecutions); }
    void AbortReview() { m_writer.AbortReview(); }
    void UpdateProjectName(std::string_view name) { m_writer.UpdateProjectName(name); }
    void UpdateFileName(std::string_view name, std::int32_t sourceId) {
        m_writer.UpdateFileName(name, sourceId);
    }
    bool SetViolationCompleted(std::int32_t violationId, bool completed) {
        return m_writer.SetViolationCompleted(violationId, completed);
    }

    // ---- the review: ReviewReader ----

    ReviewData GetReviewData() { return m_review.GetReviewData(); }
    StoredReviewCriteria GetReviewCriteria() { return m_review.GetReviewCriteria(); }
    CategorySeverityLists GetCategorySeverityLists() { return m_review.GetCategorySeverityLists(); }

    // ---- filter and order of lists: ViolationFilter, ListOrder ----

    RulebaseLoadCriteria& Filter() { return m_filter.Criteria(); }
    const std::string& FilterString() { return m_filter.Clause(); }
    /// True with a filter, and where files or procedures without violations are hidden.
    bool FilterApplied() { return !m_filter.Clause().empty() || m_order.HidesItems(); }

    std::int32_t FileSortKey() const { return m_order.FileSortKey(); }
    void SetFileSortKey(std::int32_t key) { m_order.SetFileSortKey(key); }
    bool FileSortAscending() const { return m_order.FileSortAscending(); }
    void SetFileSortAscending(bool ascending) { m_order.SetFileSortAscending(ascending); }
    std::int32_t ProcSortKey() const { return m_order.ProcSortKey(); }
    void SetProcSortKey(std::int32_t key) { m_order.SetProcSortKey(key); }
    bool ProcSortAscending() const { return m_order.ProcSortAscending(); }
    void SetProcSortAscending(bool ascending) { m_order.SetProcSortAscending(ascending); }
    Variant GetObjectStatValue(const BasicObject& object, ItemType itemType) const {
        return m_order.GetObjectStatValue(object, itemType);
    }
    static void SortBasicObjectList(
        std::vector<BasicObject>& list, std::int32_t key, bool ascending, bool byFilename) {
        ListOrder::SortBasicObjectList(list, key, ascending, byFilename);
    }

    // ---- items: ItemReader ----

    BasicObject GetProjectDetails(bool ignoreFilter) {
        return m_items.GetProjectDetails(ignoreFilter);
    }
    std::vector<BasicObject> GetProjectSourceFileList(bool includeAll, bool sortByFilename) {
        return m_items.GetProjectSourceFileList(includeAll, sortByFilename);
    }
    std::vector<BasicObject>
    GetSourceFileProcList(std::int32_t sourceId, bool includeAll, bool withStats) {
        return m_items.GetSourceFileProcList(sourceId, includeAll, withStats);
    }
    bool SourceFileHasProcs(std::int32_t sourceId, bool realProcsOnly) {
        return m_items.SourceFileHasProcs(sourceId, realProcsOnly);
    }
    std::int32_t GetSourceFileCount(std::string_view type) {
        return m_items.GetSourceFileCount(type);
    }
    BasicObject GetProcedureDetails(std::int32_t procId) {
        return m_items.GetProcedureDetails(procId);
    }
    std::string GetProjectData(std::string_view field) { return m_items.GetProjectData(field); }
    std::string GetSourceFileData(std::string_view field, std::int32_t sourceId) {
        return m_items.GetSourceFileData(field, sourceId);
    }
    std::string GetProcedureData(std::string_view field, std::int32_t procId) {
        return m_items.GetProcedureData(field, procId);
    }

    // ---- figures: FigureReader ----

    ViolationTally GetProjectViolationStats(std::int32_t projectId, bool ignoreFilter) {
        return m_figures.GetProjectViolationStats(projectId, ignoreFilter);
    }
    ViolationTally GetVBPFileViolationStats(std::int32_t sourceId, bool ignoreFilter) {
        return m_figures.GetVBPFileViolationStats(sourceId, ignoreFilter);
    }
    ViolationTally GetSourceFileViolationStats(std::int32_t sourceId, bool ignoreFilter) {
        return m_figures.GetSourceFileViolationStats(sourceId, ignoreFilter);
    }
    ViolationTally GetProcedureViolationStats(std::int32_t procId, bool ignoreFilter) {
        return m_figures.GetProcedureViolationStats(procId, ignoreFilter);
    }
    ViolationStatistics GetViolationStats(ItemType itemType, std::int32_t itemId) {
        return m_figures.GetViolationStats(itemType, itemId);
    }
    SourceLineStatistics GetLineStats(ItemType itemType, std::int32_t itemId) {
        return m_figures.GetLineStats(itemType, itemId);
    }
    std::vector<CategoryStatistics>
    GetViolationStatsByCategory(std::int32_t sourceId, bool fileLevel) {
        return m_figures.GetViolationStatsByCategory(sourceId, fileLevel);
    }

    // ---- violations: ViolationReader ----

    ViolationList GetVBPFileViolationsList(std::int32_t sourceId) {
        return m_violations.GetVBPFileViolationsList(sourceId);
    }
    ViolationList GetSourceFileViolationsList(std::int32_t sourceId) {
        return m_violations.GetSourceFileViolationsList(sourceId);
    }
    ViolationList GetProcedureViolationList(std::int32_t procId) {
        return m_violations.GetProcedureViolationList(procId);
    }
    Violation GetViolationDetail(std::int32_t violationId) {
        return m_violations.GetViolationDetail(violationId);
    }
    ViolationSourceLocation
    GetViolationSourceLocation(std::int32_t violationId, bool fullFileNames) {
        return m_violations.GetViolationSourceLocation(violationId, fullFileNames);
    }
    std::vector<Finding> GetWorstFindings(std::int32_t count) {
        return m_violations.GetWorstFindings(count);
    }
    std::optional<Recordset> GetSourceFileValueList() {
        return m_violations.GetSourceFileValueList();
    }

    // ---- tolerances: Verdict ----

    bool TolerancePass(
        ItemType itemType, std::int32_t sourceId, std::vector<ToleranceFailure>& failures) {
        return m_verdict.TolerancePass(itemType, sourceId, failures);
    }
    bool TolerancePass(ItemType itemType, std::int32_t sourceId) {
        std::vector<ToleranceFailure> failures;
        return m_verdict.TolerancePass(itemType, sourceId, failures);
    }
    bool TolerancesSet() { return m_verdict.TolerancesSet(); }

private:
    // What the parts share, which therefore comes first.
    ListOrder m_order;
    ResultsStore m_store;
    ReviewKeys m_keys;
    ViolationFilter m_filter;
    bool m_reviewOpen = false;

    ReviewWriter m_writer{m_store, m_keys};
    ReviewReader m_review{m_store};
    FigureReader m_figures{m_store, m_filter};
    ItemReader m_items{m_store, m_keys, m_order, m_figures};
    ViolationReader m_violations{m_store, m_filter, m_items};
    Verdict m_verdict{m_store, m_keys};
};

}  // namespace dorvik
