#pragma once

#include "results/FigureReader.h"
#include "results/ItemReader.h"
#include "results/ListOrder.h"
#include "results/OnFailure.h"
#include "results/ResultsStore.h"
#include "results/ReviewEditor.h"
#include "results/ReviewKeys.h"
#include "results/ReviewReader.h"
#include "results/ReviewWriter.h"
#include "results/VerdictReader.h"
#include "results/ViolationFilter.h"
#include "results/ViolationReader.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

/// The results database of one project: one file that holds exactly one review.
///
/// Writing: `Writer`, from `StartReview` to `EndReview` or `AbortReview`. Reading: `OpenReview`, the readers,
/// `CloseReview`. This class opens and closes the file and keeps what its parts share; each part has the operations
/// of one purpose, and lives as long as this object:
///
///   Writer().LogViolation(...)                writes a review while it runs
///   Editor().SetViolationCompleted(...)       changes a finished one
///   Review().GetReviewData()                  what the review says of itself
///   Items().GetProjectSourceFileList(...)     the project, its files and procedures
///   Figures().GetLineStats(...)               their figures
///   Violations().GetViolationDetail(...)      their violations
///   Verdict().TolerancePass(...)              whether they keep their tolerances
///   Filter(), Order()                         which violations count, and how lists are sorted
///
/// A failure of any operation is logged under the module "C_ResultsDB" and costs only that row or answer:
/// the operation returns what it held, which is an empty list, zeros or false at first. Callers for whom a
/// loss matters check `Failures`, for no verdict may be given of a review that lost anything.
class ResultsDB {
public:
    /// The sort fields of `Order` come from these settings and are stored there again when this object is
    /// destroyed. REQUIRES: `settings` outlives this.
    explicit ResultsDB(DVKWorkData& settings) : m_order(&settings) {}
    /// The same with the settings of the process, or with defaults, which are stored nowhere, while there are
    /// none.
    ResultsDB() : m_order(nullptr) {}
    ResultsDB(const ResultsDB&) = delete;
    ResultsDB& operator=(const ResultsDB&) = delete;

    // ---- the database ----

    /// Opens a database for reading. False where it has no review or another version; it is not changed then.
    /// `patience` is how long this and what follows wait for a lock of another program.
    bool OpenReview(
        const std::string& filename, std::chrono::milliseconds patience = Database::kPatience);
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

    // ---- filter and order of lists ----

    /// To be changed by the caller; see `ViolationFilter`.
    RulebaseLoadCriteria& Filter() { return m_filter.Criteria(); }
    /// The filter as a clause without "WHERE"; begins with a blank, is empty without a filter.
    const std::string& FilterString() { return m_filter.Clause(); }
    /// True with a filter, and where files or procedures without violations are hidden.
    bool FilterApplied() { return !m_filter.Clause().empty() || m_order.HidesItems(); }
    ListOrder& Order() { return m_order; }

    // ---- the parts ----

    ReviewWriter& Writer() { return m_writer; }
    ReviewEditor& Editor() { return m_editor; }
    ReviewReader& Review() { return m_review; }
    ItemReader& Items() { return m_items; }
    FigureReader& Figures() { return m_figures; }
    ViolationReader& Violations() { return m_violations; }
    VerdictReader& Verdict() { return m_verdict; }

private:
    // What the parts share, which therefore comes first.
    ListOrder m_order;
    ResultsStore m_store;
    ReviewKeys m_keys;
    ViolationFilter m_filter;
    bool m_reviewOpen = false;

    ReviewWriter m_writer{m_store, m_keys};
    ReviewEditor m_editor{m_store, m_keys};
    ReviewReader m_review{m_store};
    FigureReader m_figures{m_store, m_filter};
    ItemReader m_items{m_store, m_keys, m_order, m_figures};
    ViolationReader m_violations{m_store, m_filter, m_items};
    VerdictReader m_verdict{m_store, m_keys};
};

}  // namespace dorvik
