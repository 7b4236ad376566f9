#include "ReviewSummaryPages.h"
#include "foundation/log/Trap.h"
#include "foundation/text/VersionNumber.h"
#include "modConventions.h"
#include "results/ResultsDB.h"
#include "settings/ComponentVersion.h"
#include "source/Severity.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "frmReviewSummary";

std::string Included(bool isIncluded) {
    return isIncluded ? "Included" : "Not Included";
}

std::string RuleEngineVersion() {
    VersionNumber version;
    version.SetVersion(ComponentVersion());
    return version.Version();
}

}  // namespace

void ReviewSummaryPages::PopulateReviewCriteria() {
    Trap({kModule, "PopulateReviewCriteria"}, [&] {
        const StoredReviewCriteria criteria = m_results.Review().GetReviewCriteria();
        AddReviewCriteriaRows();
        m_rows.AddBlankRow();
        m_rows.AddHeading("Conventions");
        for (const modConventions::ConventionRow& row : modConventions::kConventions) {
            m_rows.AddItem(row.Text, Included((criteria.LoadCriteria.*row.Get)()), row.Icon);
        }
        m_rows.AddBlankRow();
        m_rows.AddHeading("Severity Levels", "SeverityList");
        for (std::int32_t level = 1; level <= static_cast<std::int32_t>(kSeverities.size());
             ++level) {
            m_rows.AddRow(
                {},
                {SummaryRows::SeverityCell(criteria.Lists.Severities, level),
                 ListCell{Included(criteria.LoadCriteria.SeverityLevel(level))}});
        }
        m_rows.AddBlankRow();
        m_rows.AddHeading("Tolerances");
        AddTolerances(criteria.Tolerances, criteria.Lists);
        m_rows.AddBlankRow();
        m_rows.AddHeading("Categories Included", "CategoryList");
        for (const auto& category : criteria.Lists.Categories) {
            m_rows.AddItem(category->Title(), {}, "CategoryItem");
        }
    });
}

void ReviewSummaryPages::AddReviewCriteriaRows() {
    const ReviewData review = m_results.Review().GetReviewData();
    m_rows.AddHeading("Review Criteria", "Review");
    m_rows.AddItem("Rulebase Title", review.RulebaseTitle);
    m_rows.AddItem("Rulebase Version", review.RulebaseVersion);
    m_rows.AddItem("Rule Engine", RuleEngineVersion());
    m_rows.AddItem("Rules Selected", std::to_string(review.ActiveRules));
    m_rows.AddItem("Rule Execution Count", std::to_string(review.RuleExecutions));
}

void ReviewSummaryPages::AddTolerances(
    const ToleranceSettings& tolerances, const CategorySeverityLists& lists) {
    bool isAnySet = false;
    const auto addLimit = [&](const std::string& text, std::int32_t limit) {
        if (limit > ToleranceSettings::kNotSet) {
            m_rows.AddItem(text, std::to_string(limit));
            isAnySet = true;
        }
    };
    const auto addLimits = [&](const LongArrayList& limits, std::string_view measure) {
        for (std::int32_t index = 1; index <= limits.Count(); ++index) {
            const std::string name = index == ToleranceSettings::kPlaces
                                         ? std::string("Total")
                                         : SummaryRows::SeverityCell(lists.Severities, index).Text;
            addLimit("Maximum " + name + std::string(measure), limits.Item(index));
        }
    };
    addLimits(tolerances.Count, " Violation Count");
    addLimits(tolerances.Impact, " Violation Impact");
    addLimit("Maximum Cyclomatic Complexity", tolerances.CyclomaticComplexity);
    addLimit("Minimum Percentage Comments", tolerances.PercentageComments);
    if (!isAnySet) {
        m_rows.AddItem("No Tolerances Set", {});
    }
}

}  // namespace dorvik
