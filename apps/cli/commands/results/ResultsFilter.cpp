#include "cli/commands/results/ResultsFilter.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "cli/output/Console.h"
#include "cli/output/SeverityNames.h"
#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>

namespace dorvik {

namespace {

constexpr std::int32_t kNoCategory = -1;

struct KindRow {
    std::string_view Key;
    void (RulebaseLoadCriteria::*Take)(bool);
};

/// By number from 1.
constexpr std::array<KindRow, 6> kKinds = {{
    {"component", &RulebaseLoadCriteria::SetAuthorisedComponents},
    {"reference", &RulebaseLoadCriteria::SetAuthorisedReferences},
    {"keyword", &RulebaseLoadCriteria::SetUnauthorisedKeywords},
    {"coding", &RulebaseLoadCriteria::SetCodingConventions},
    {"naming", &RulebaseLoadCriteria::SetNamingConventions},
    {"documentation", &RulebaseLoadCriteria::SetDocumentationConventions},
}};

void ReportUnknown(const std::string& what, const std::string& wanted, const std::string& known) {
    modConsole::PrintError(
        "the review has no " + what + " '" + wanted + "'" +
        (known.empty() ? "" : " (it has " + known + ")"));
}

// ---- severities ----

std::optional<std::int32_t> FindSeverity(const SeverityTable& table, const std::string& wanted) {
    const std::optional<std::int32_t> number = modText::WholeNumber(wanted);
    for (std::int32_t level = 1; level <= modSeverityNames::kLevels; ++level) {
        const auto* const item = table.Find(SeverityKeyOf(level));
        if (number == level || modTextCase::Equal(modSeverityNames::Word(level), wanted) ||
            (item != nullptr && modTextCase::Equal((*item)->Title(), wanted))) {
            return level;
        }
    }
    return std::nullopt;
}

std::string KnownSeverities(const SeverityTable& table) {
    std::string text;
    for (std::int32_t level = 1; level <= modSeverityNames::kLevels; ++level) {
        const auto* const item = table.Find(SeverityKeyOf(level));
        text += (text.empty() ? "" : ", ") + std::to_string(level) + " " +
                (item == nullptr ? modSeverityNames::Word(level) : (*item)->Title());
    }
    return text;
}

bool TakeSeverities(
    const std::vector<std::string>& wanted, const SeverityTable& table, ResultsDB& database) {
    std::set<std::int32_t> levels;
    for (const std::string& text : wanted) {
        const std::optional<std::int32_t> level = FindSeverity(table, text);
        if (!level.has_value()) {
            ReportUnknown("severity", text, KnownSeverities(table));
            return false;
        }
        levels.insert(*level);
    }
    for (std::int32_t level = 1; level <= modSeverityNames::kLevels; ++level) {
        database.Filter().SetSeverityLevel(level, wanted.empty() || levels.contains(level));
    }
    return true;
}

// ---- categories ----

std::optional<std::int32_t> FindCategory(const CategoryList& list, const std::string& wanted) {
    if (modTextCase::Equal(wanted, "none")) {
        return kNoCategory;
    }
    const std::optional<std::int32_t> number = modText::WholeNumber(wanted);
    for (std::int32_t index = 1; index <= list.Count(); ++index) {
        const CategoryItem& category = *list.Item(index);
        if (category.ID() == number || modTextCase::Equal(category.Title(), wanted)) {
            return category.ID();
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
    const CategorySeverityLists lists = database.GetCategorySeverityLists();
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
    for (const KindRow& row : kKinds) {
        keys.emplace_back(row.Key);
    }
    return keys;
}

std::string_view Key(std::int32_t kind) {
    const bool known = kind >= 1 && kind <= static_cast<std::int32_t>(kKinds.size());
    return known ? kKinds.at(static_cast<std::size_t>(kind - 1)).Key : "unknown";
}

}  // namespace modRuleKinds

}  // namespace dorvik
