#include "foundation/log/Trap.h"
#include "foundation/xml/KyXMLElement.h"
#include "modSectionReading.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/file/modRulebaseSchema.h"
#include "rulebase/model/TableItem.h"

namespace dorvik {

namespace schema = modRulebaseSchema;
using modSectionReading::Section;

namespace {

/// Required: a category section without rules is not written.
void WriteCategorySection(KyXMLElement& parent, const CategoryItem& category) {
    const ObjectArrayList<IRule>& rules = category.CategoryRules();
    if (rules.Count() == 0) {
        return;
    }
    std::string list;
    for (const auto& rule : rules) {
        list += (list.empty() ? "" : "|") + std::to_string(rule->RuleID());
    }
    const auto element = parent.AddElement(schema::kSection);
    ExistingElement(element).AddAttribute(schema::kSectionType, schema::kCategorySection);
    element->AddAttribute(schema::kCategoryID, std::to_string(category.ID()));
    element->AddAttribute(schema::kCategoryRuleList, list);
}

void WriteTableSection(KyXMLElement& parent, const TableItem& table) {
    const auto element = parent.AddElement(schema::kSection);
    ExistingElement(element).AddAttribute(schema::kSectionType, schema::kTableSection);
    WriteAttributes(*element, schema::Table(), table);
}

}  // namespace

bool RulebaseManager::SaveReport(KyXMLElement& root, const Report& report, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveReport"},
        [&] {
            const auto section = Section(root, schema::kReport);
            for (const auto& item : report.Sections()) {
                if (const auto* category = dynamic_cast<const CategoryItem*>(item.get())) {
                    WriteCategorySection(*section, *category);
                } else if (const auto* table = dynamic_cast<const TableItem*>(item.get())) {
                    WriteTableSection(*section, *table);
                }
            }
        },
        [&failure](const BasicError& error) {
            failure = failure.empty() ? error.what() : failure;
            return false;
        });
}

}  // namespace dorvik
