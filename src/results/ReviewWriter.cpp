// A review from its start to its end.

#include "results/ReviewWriter.h"

#include "base/DateTime.h"
#include "criteria/ReviewCriteria.h"
#include "modConventionColumns.h"
#include "platform/host/modHost.h"
#include "rulebase/model/Rulebase.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = ResultsStore::kModule;

void SetConventions(Recordset& rows, const RulebaseLoadCriteria& criteria) {
    for (const auto& convention : modConventionColumns::kConventions) {
        rows.SetValue(convention.FlagColumn, (criteria.*convention.IsIncluded)());
        rows.SetValue(convention.CountColumn, criteria.*convention.Count);
    }
}

void SetTolerances(Recordset& rows, const ReviewCriteria& criteria) {
    for (std::int32_t index = 1; index <= ToleranceSettings::kPlaces; ++index) {
        const std::string number = std::to_string(index);
        rows.SetValue("ToleranceCount" + number, criteria.Tolerances().Count.Item(index));
        rows.SetValue("ToleranceImpact" + number, criteria.Tolerances().Impact.Item(index));
    }
    rows.SetValue("ToleranceCyclomaticComplexity", criteria.Tolerances().CyclomaticComplexity);
    rows.SetValue("TolerancePercentageComments", criteria.Tolerances().PercentageComments);
}

bool HasNoSourceFiles(ResultsStore& store) {
    return store.RequireRows("SELECT SourceID FROM SourceFiles").EOF_();
}

}  // namespace

bool ReviewWriter::StartReview(
    const std::string& filename, const Rulebase& rulebase, const ReviewCriteria& criteria) {
    return m_store.Trapped({kModule, "StartReview"}, false, [&] {
        m_store.KeepKnownFaults(criteria.KeepsKnownFaults());
        if (!m_store.OpenDatabase(filename)) {
            return false;
        }
        Reset();
        m_files.AreAllRows = HasNoSourceFiles(m_store);
        WriteReview(rulebase, criteria);
        WriteCategoryList(rulebase, criteria);
        WriteSeverityList(rulebase, criteria);
        return true;
    });
}

void ReviewWriter::WriteReview(const Rulebase& rulebase, const ReviewCriteria& criteria) {
    auto rows = m_store.RequireEditableRows("SELECT * FROM Review WHERE ReviewID = 0");
    rows.AddNew();
    rows.SetValue("Start", modDateText::DatabaseStamp(modHost::Now()));
    rows.SetValue("Type", static_cast<std::int32_t>(criteria.ReviewType()));
    rows.SetValue("RulebaseTitle", rulebase.Title());
    rows.SetValue("RulebaseVersion", rulebase.Version());
    rows.SetValue("Reviewer", modHost::LogonName());
    rows.SetValue("ActiveRules", rulebase.RuleCount());
    SetConventions(rows, criteria.LoadCriteria());
    SetTolerances(rows, criteria);
    rows.Update();
    rows.MoveFirst();
    m_keys.ReviewID = rows.Value("ReviewID").AsLong();
}

void ReviewWriter::WriteCategoryList(const Rulebase& rulebase, const ReviewCriteria& criteria) {
    auto rows = m_store.RequireEditableRows("SELECT * FROM CategoryList WHERE CategoryListID = 0");
    const auto& categories = rulebase.CategoryList();
    for (std::int32_t index = 1; index <= categories.Count(); ++index) {
        const auto& category = *categories.Item(index);
        if (criteria.LoadCriteria().IsExcludedCategoryID(category.ID())) {
            continue;
        }
        rows.AddNew();
        rows.SetValue("ReviewID", m_keys.ReviewID);
        rows.SetValue("CategoryID", category.ID());
        rows.SetValue("Category", category.Title());
        rows.Update();
    }
}

// Required: a level that takes no part in the review has its row too.
void ReviewWriter::WriteSeverityList(const Rulebase& rulebase, const ReviewCriteria& criteria) {
    auto rows =
        m_store.RequireEditableRows("SELECT * FROM SeverityList WHERE SeverityRecordID = 0");
    for (const auto& severity : rulebase.SeverityList()) {
        rows.AddNew();
        rows.SetValue("ReviewID", m_keys.ReviewID);
        rows.SetValue("SeverityColour", severity->Colour());
        rows.SetValue("SeverityLevel", severity->SeverityLevel());
        rows.SetValue("SeverityText", severity->Title());
        rows.SetValue("Included", criteria.LoadCriteria().SeverityLevel(severity->SeverityLevel()));
        rows.Update();
    }
}

void ReviewWriter::EndReview(std::int32_t ruleExecutions) {
    if (m_store.HasLostRows()) {
        return;
    }
    m_store.Trap({kModule, "EndReview"}, [&] {
        auto rows = m_store.RequireEditableRows(
            "SELECT RuleExecutions, [End] FROM Review WHERE ReviewID = " +
            std::to_string(m_keys.ReviewID));
        if (rows.EOF_()) {
            return;
        }
        rows.MoveFirst();
        rows.Edit();
        rows.SetValue("End", modDateText::DatabaseStamp(modHost::Now()));
        rows.SetValue("RuleExecutions", ruleExecutions);
        rows.Update();
    });
    if (!m_store.HasLostRows()) {
        m_store.AddIndexes();
    }
}

void ReviewWriter::AbortReview() {
    m_store.Trap({kModule, "AbortReview"}, [&] {
        Reset();
        m_store.DeleteDatabase();
    });
}

void ReviewWriter::Reset() {
    m_sourceId = 0;
    m_files = {};
    m_procedures = {};
}

}  // namespace dorvik
