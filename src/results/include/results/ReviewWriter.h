#pragma once

#include "results/ResultsStore.h"
#include "results/ReviewKeys.h"
#include "results/Violation.h"
#include "source/ItemType.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>

namespace dorvik {

class ReviewCriteria;
class Rulebase;
class VirtualObject;

/// Writes a review into its database while it runs, in this order: `StartReview`; the set-up of the project,
/// then of each file, its sections and its procedures; violations and the figures of each object; last
/// `EndReview` or `AbortReview`. A failure is logged and costs only that row.
class ReviewWriter {
public:
    /// REQUIRES: both outlive this.
    ReviewWriter(ResultsStore& store, ReviewKeys& keys) : m_store(store), m_keys(keys) {}

    /// Opens the new copy of the template and writes the review, its categories and severities. False if it
    /// cannot be opened or has another version; nothing is written then.
    bool StartReview(
        const std::string& filename, const Rulebase& rulebase, const ReviewCriteria& criteria);
    /// Gives the object its row and its `ObjectID` and `ObjectType`. `kind` is "Project", "VBP", "File",
    /// "Layout", "Declarations" or "Procedure" in any case; any other does nothing. A set-up that fails
    /// leaves `ObjectID` and the current source file at 0.
    void SetupVObjectResults(std::string_view kind, VirtualObject& object);
    void LogViolation(std::int32_t itemId, ItemType itemType, const Violation& violation);
    void LogVirtualObjectProperties(const VirtualObject& object);
    void LogVirtualObjectViolationStats(const VirtualObject& object);
    void LogVirtualObjectLineStats(const VirtualObject& object);
    /// Stamps the end of the review, unless anything of it was lost: to every reader a review without an
    /// end is incomplete. The database stays open.
    void EndReview(std::int32_t ruleExecutions);
    /// Closes and deletes the database.
    void AbortReview();
    /// Must be called when another database is opened, or this one closed: forgets which rows were written.
    void Reset();

private:
    /// The keys of the rows that were written, in lower case. If they are all rows of the table, no query is
    /// needed for a key that is not among them.
    struct WrittenRows {
        bool AreAllRows = false;
        std::unordered_set<std::string> Keys;

        bool RuleOut(const std::string& key) const { return AreAllRows && !Keys.contains(key); }
    };

    void WriteReview(const Rulebase& rulebase, const ReviewCriteria& criteria);
    void WriteCategoryList(const Rulebase& rulebase, const ReviewCriteria& criteria);
    void WriteSeverityList(const Rulebase& rulebase, const ReviewCriteria& criteria);
    std::int32_t SetupProject(VirtualObject& object);
    std::int32_t SetupSourceFile(VirtualObject& object);
    std::int32_t SetupProcedure(VirtualObject& object);
    std::int32_t SetupLayoutDeclarations(std::string_view kind);

    ResultsStore& m_store;
    ReviewKeys& m_keys;
    std::int32_t m_sourceId = 0;  // the file that is being written
    WrittenRows m_files;          // by path and name, of the database
    WrittenRows m_procedures;     // by name and type, of that file
};

}  // namespace dorvik
