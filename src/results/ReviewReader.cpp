#include "results/ReviewReader.h"

#include "foundation/text/modUtilFunctions.h"
#include "modConventionColumns.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = ResultsStore::kModule;

void ReadTolerances(Recordset& rows, ToleranceSettings& tolerances) {
    tolerances.Count.Clear();
    tolerances.Impact.Clear();
    for (std::int32_t index = 1; index <= ToleranceSettings::kPlaces; ++index) {
        const std::string number = std::to_string(index);
        tolerances.Count.Add(rows.Value("ToleranceCount" + number).AsLong());
        tolerances.Impact.Add(rows.Value("ToleranceImpact" + number).AsLong());
    }
    tolerances.CyclomaticComplexity = rows.Value("ToleranceCyclomaticComplexity").AsLong();
    tolerances.PercentageComments = rows.Value("TolerancePercentageComments").AsLong();
}

void ReadCategories(Recordset& rows, CategoryList& categories) {
    for (; !rows.EOF_(); rows.MoveNext()) {
        const auto category = std::make_shared<CategoryItem>();
        category->SetID(rows.Value("CategoryID").AsLong());
        category->SetTitle(rows.Value("Category").AsText());
        categories.Add(category, /*newItem=*/false);
    }
    categories.Sort();
}

void ReadSeverities(Recordset& rows, SeverityTable& severities) {
    for (; !rows.EOF_(); rows.MoveNext()) {
        const auto severity = std::make_shared<SeverityItem>();
        severity->SetSeverityLevel(rows.Value("SeverityLevel").AsLong());
        severity->SetColour(rows.Value("SeverityColour").AsLong());
        severity->SetTitle(rows.Value("SeverityText").AsText());
        severity->SetKey(SeverityKeyOf(severity->SeverityLevel()));
        const Variant included = rows.Value("Included");
        severities.Add(
            severity->Key(),
            severity,
            !included.IsEmpty() && included.AsBoolean(),
            /*ensureUniqueKey=*/false);
    }
}

}  // namespace

std::optional<ReviewKeys> ReviewReader::GetReviewKeys() {
    auto rows = m_store.RequireRows("SELECT ReviewID, ProjectID FROM Review");
    if (rows.EOF_()) {
        return std::nullopt;
    }
    rows.MoveFirst();
    return ReviewKeys{rows.Value("ReviewID").AsLong(), rows.Value("ProjectID").AsLong()};
}

ReviewData ReviewReader::GetReviewData() {
    ReviewData data;
    m_store.Trap({kModule, "GetReviewData"}, [&] {
        auto rows = m_store.RequireRows(
            "SELECT RulebaseTitle, RulebaseVersion, Reviewer, Start, [End], ActiveRules, "
            "RuleExecutions FROM Review");
        if (rows.EOF_()) {
            return;
        }
        data.RulebaseTitle = rows.Value("RulebaseTitle").AsText();
        data.RulebaseVersion = rows.Value("RulebaseVersion").AsText();
        data.Reviewer = rows.Value("Reviewer").AsText();
        data.ActiveRules = rows.Value("ActiveRules").AsLong();
        data.RuleExecutions = rows.Value("RuleExecutions").AsLong();
        data.Start = modUtilFunctions::KyDBDateToDate(rows.Value("Start").AsText());
        if (const std::string end = rows.Value("End").AsText(); !end.empty()) {
            data.End = modUtilFunctions::KyDBDateToDate(end);
        }
    });
    return data;
}

StoredReviewCriteria ReviewReader::GetReviewCriteria() {
    StoredReviewCriteria result;
    m_store.Trap({kModule, "GetReviewCriteria"}, [&] {
        RulebaseLoadCriteria& criteria = result.LoadCriteria;
        auto rows = m_store.RequireRows("SELECT * FROM Review");
        if (!rows.EOF_()) {
            rows.MoveFirst();
            for (const auto& convention : modConventionColumns::kConventions) {
                (criteria.*convention.Include)(rows.Value(convention.FlagColumn).AsBoolean());
                criteria.*convention.Count = rows.Value(convention.CountColumn).AsLong();
            }
            ReadTolerances(rows, result.Tolerances);
        }
        result.Lists = GetCategorySeverityLists();
        const SeverityTable& severities = result.Lists.Severities;
        for (std::int32_t index = 1; index <= severities.Count(); ++index) {
            criteria.SetSeverityLevel(
                severities.Item(index)->SeverityLevel(), severities.Selected(index));
        }
    });
    return result;
}

CategorySeverityLists ReviewReader::GetCategorySeverityLists() {
    CategorySeverityLists lists;
    m_store.Trap({kModule, "GetCategorySeverityLists"}, [&] {
        auto categories = m_store.RequireRows("SELECT CategoryID, Category FROM CategoryList");
        ReadCategories(categories, lists.Categories);
        auto severities = m_store.RequireRows(
            "SELECT SeverityColour, SeverityLevel, SeverityText, Included FROM SeverityList");
        ReadSeverities(severities, lists.Severities);
    });
    return lists;
}

}  // namespace dorvik
