#include "cli/commands/results/ResultsFilter.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "cli/output/Console.h"
#include "cli/output/SeverityNames.h"
#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"
#include "rulebase/model/RuleType.h"
#include "source/Severity.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>

namespace dorvik {

namespace {

constexpr std::int32_t kNoCategory = -1;

struct KindRow {
    RuleType Type;
    std::string_view Key;
    void (RulebaseLoadCriteria::*Take)(bool);
};

/// In the order of their numbers.
constexpr std::array<KindRow, 6> kKinds = {{
    {ruleTypeComponent, "component", &RulebaseLoadCriteria::SetAuthorisedComponents},
    {ruleTypeReference, "reference", &RulebaseLoadCriteria::SetAuthorisedReferences},
    {ruleTypeKeyword, "keyword", &RulebaseLoadCriteria::SetUnauthorisedKeywords},
    {ruleTypeCoding, "coding", &RulebaseLoadCriteria::SetCodingConventions},
    {ruleTypeNaming, "naming", &RulebaseLoadCriteria::SetNamingConventions},
    {ruleTypeDocumentation, "documentation", &RulebaseLoadCriteria::SetDocumentationConventions},
}};

void ReportUnknown(const std::string& what, const std::string& wanted, const std::string& known) {
    modConsole::PrintError(
        "the review has no " + what + " '" + wanted + "'" +
        (known.empty() ? "" : " (it has " + known + ")"));
}

// ---- severities ----

std::optional<Severity> FindSeverity(const SeverityTable& table, const std::string& wanted) {
    const std::optional<std::int32_t> number = modText::WholeNumber(wanted);
    for (const Severity severity : kSeverities) {
        const auto* const item = table.Find(SeverityKeyOf(NumberOf(severity)));
        if (number == NumberOf(severity) ||
            modTextCase::Equal(modSeverityNames::Word(severity), wanted) ||
            (item != nullptr && modTextCase::Equal((*item)->Title(), wanted))) {
            return severity;
        }
    }
    return std::nullopt;
}

std::string KnownSeverities(const SeverityTable& table) {
    std::string text;
    for (const Severity severity : kSeverities) {
        const std::int32_t number = NumberOf(severity);
        const auto* const item = table.Find(SeverityKeyOf(number));
        text += (text.empty() ? "" : ", ") + std::to_string(number) + " " +
                (item == nullptr ? modSeverityNames::Word(severity) : (*item)->Title());
    }
    return text;
}

bool TakeSeverities(
    const std::vector<std::string>& wanted, const SeverityTable& table, ResultsDB& database) {
    std::set<Severity> named;
    for (const std::string& text : wanted) {
        const std::optional<Severity> severity = FindSeverity(table, text);
        if (!severity.has_value()) {
            ReportUnknown("severity", text, KnownSeverities(table));
            return false;
        }
        named.insert(*severity);
    }
    for (const Severity severity : kSeverities) {
        database.Filter().SetSeverityLevel(
            NumberOf(severity), wanted.empty() || named.contains(severity));
    }
    return true;
}

// ---- categories ----

std::optional<std::int32_t> FindCategory(const CategoryList& list, const std::string& wanted) {
    if (modTextCase::Equal(wanted, "none")) {
        return kNoCategory;
    }
    const std::optional<std::int32_t> number = modText::WholeNumber(wanted);
    for (const auto& category : list) {
        if (category->ID() == number || modTextCase::Equal(category->Title(), wanted)) {
            return category->ID();
        }
    }
    return std::nullopt;
}

/// A violation may be of a category that the list of the review does not have.
std::set<std::int32_t> CategoriesInUse(ResultsDB& database) {
    std::set<std::int32_t> found;
    Trap({"ResultsFilter", "CategoriesInUse"}, [&] {
        auto rows = database.OpenRecordSource("SELECT DISTINCT CategoryID FROM Violations");
        for (; rows && !rows->EOF_(); rows->MoveNext()) {
            found.insert(rows->Value("CategoryID").AsLong());
        }
    });
    return found;
}

bool TakeCategories(
    const std::vector<std::string>& wanted, const CategoryList& list, ResultsDB& database) {
    if (wanted.empty()) {
        return true;
    }
    std::set<std::int32_t> others = CategoriesInUse(database);
    for (const std::string& text : wanted) {
        const std::optional<std::int32_t> category = FindCategory(list, text);
        if (!category.has_value()) {
            ReportUnknown("category", text, "");
            return false;
        }
        others.erase(*category);
    }
    for (const std::int32_t category : others) {
        database.Filter().AddExcludedCategoryID(category);
    }
    return true;
}

}  // namespace

bool ApplyResultsFilter(const ResultsFilterOptions& options, ResultsDB& database) {
    if (options.IsEmpty()) {
        return true;
    }
    const CategorySeverityLists lists = database.Review().GetCategorySeverityLists();
    for (const KindRow& row : kKinds) {
        const bool named =
            std::find(options.Kinds.begin(), options.Kinds.end(), row.Key) != options.Kinds.end();
        (database.Filter().*row.Take)(options.Kinds.empty() || named);
    }
    return TakeSeverities(options.Severities, lists.Severities, database) &&
           TakeCategories(options.Categories, lists.Categories, database);
}

namespace modRuleKinds {

std::vector<std::string> Keys() {
    std::vector<std::string> keys;
    keys.reserve(kKinds.size());
    for (const KindRow& row : kKinds) {
        keys.emplace_back(row.Key);
    }
    return keys;
}

std::string_view Key(std::int32_t kind) {
    const auto found = std::find_if(kKinds.begin(), kKinds.end(), [kind](const KindRow& row) {
        return static_cast<std::int32_t>(row.Type) == kind;
    });
    return found == kKinds.end() ? "unknown" : found->Key;
}

}  // namespace modRuleKinds

}  // namespace dorvik
