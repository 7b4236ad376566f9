#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "foundation/xml/KyXMLElement.h"
#include "modSectionReading.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/file/modRulebaseSchema.h"
#include "rulebase/model/TableItem.h"

namespace dorvik {

namespace schema = modRulebaseSchema;
using modSectionReading::Children;
using modSectionReading::LongAttribute;
using modSectionReading::Section;

namespace {

/// Required: a rule that is no longer there is left out, without a word.
void ReadRulesOfSection(
    const std::string& list, const RuleLists& rules, ObjectArrayList<IRule>& shown) {
    if (list.empty()) {
        return;
    }
    for (const std::string_view part : modText::Split(list, '|')) {
        const std::int32_t number = modText::RoundToLong(modText::LeadingNumber(part));
        const auto* const rule = rules.AllConventions().Find(RuleKeyOf(number));
        if (rule != nullptr) {
            shown.Add(*rule);
        }
    }
}

/// Required: a section of a category that is not there is left out, without a word. That is so for
/// a hidden category that was not loaded.
void ReadCategorySection(const KyXMLElement& element, Rulebase& rulebase) {
    const std::int32_t id = LongAttribute(element, schema::kCategoryID);
    if (!rulebase.CategoryList().ContainsID(id)) {
        return;
    }
    const CategoryItem& category = *rulebase.CategoryList().Item(CategoryList::CategoryIDToKey(id));
    const auto section = std::make_shared<CategoryItem>();
    section->SetDescription(category.Description());
    section->SetID(category.ID());
    section->SetTitle(category.Title());
    rulebase.Report().Sections().Add(section);
    ReadRulesOfSection(
        element.AttributeValueByName(schema::kCategoryRuleList),
        rulebase.RuleLists(),
        section->CategoryRules());
}

void ReadTableSection(const KyXMLElement& element, Report& report) {
    const auto table = std::make_shared<TableItem>();
    ReadAttributes(element, schema::Table(), *table);
    report.Sections().Add(table);
}

/// Required: a category section without rules is not written.
void WriteCategorySection(KyXMLElement& parent, const CategoryItem& category) {
    const ObjectArrayList<IRule>& rules = category.CategoryRules();
    if (rules.Count() == 0) {
        return;
    }
    std::string list;
    for (std::int32_t index = 1; index <= rules.Count(); ++index) {
        list += (index > 1 ? "|" : "") + std::to_string(rules.Item(index)->RuleID());
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

void RulebaseManager::LoadReport(const KyXMLElement& root, Rulebase& rulebase) {
    Trap({"RulebaseManager", "LoadReport"}, [&] {
        for (const auto& element : Children(*Section(root, schema::kReport))) {
            const std::string type = element->AttributeValueByName(schema::kSectionType);
            if (modTextCase::Equal(type, schema::kCategorySection)) {
                ReadCategorySection(*element, rulebase);
            } else {
                ReadTableSection(*element, rulebase.Report());
            }
        }
    });
}

bool RulebaseManager::SaveReport(KyXMLElement& root, const Report& report, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveReport"},
        [&] {
            const auto section = Section(root, schema::kReport);
            for (std::int32_t index = 1; index <= report.Sections().Count(); ++index) {
                const IListItem* item = report.Sections().Item(index).get();
                if (const auto* category = dynamic_cast<const CategoryItem*>(item)) {
                    WriteCategorySection(*section, *category);
                } else if (const auto* table = dynamic_cast<const TableItem*>(item)) {
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
