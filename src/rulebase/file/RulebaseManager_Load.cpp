#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "foundation/xml/KyXMLElement.h"
#include "modSectionReading.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/file/modRulebaseSchema.h"

namespace dorvik {

namespace schema = modRulebaseSchema;
using modSectionReading::BooleanAttribute;
using modSectionReading::Children;
using modSectionReading::LongAttribute;
using modSectionReading::Section;

namespace {

/// Rows that the file does not mention keep their defaults; new ones are appended.
void ReadTag(
    const KyXMLElement& element, std::span<const AttributeRow<TagItem>> rows, TagTable& table) {
    const std::string name = element.AttributeValueByName(schema::kTagName);
    const std::shared_ptr<TagItem>* known = table.Find(name);
    if (known != nullptr) {
        ReadAttributes(element, rows, **known);
        return;
    }
    const auto item = std::make_shared<TagItem>();
    item->SetTagName(name);
    table.Add(name, item, false, false);
    ReadAttributes(element, rows, *item);
}

void ReadTags(
    const KyXMLElement& section, std::span<const AttributeRow<TagItem>> rows, TagTable& table) {
    for (const auto& element : Children(section)) {
        ReadTag(*element, rows, table);
    }
}

void ReadSeverity(const KyXMLElement& element, SeverityTable& table) {
    const std::string key = SeverityKeyOf(LongAttribute(element, schema::kSeverityLevel));
    const std::shared_ptr<SeverityItem>* known = table.Find(key);
    if (known != nullptr) {
        ReadAttributes(element, schema::ExistingSeverity(), **known);
        return;
    }
    const auto item = std::make_shared<SeverityItem>();
    ReadAttributes(element, schema::Severity(), *item);
    item->SetKey(key);
    table.Add(key, item, true, false);
}

std::int32_t CountIn(const KyXMLElement& parent, std::string_view name) {
    return Section(parent, name)->ElementCount();
}

}  // namespace

bool RulebaseManager::CheckSchemaVersion(KyXMLElement& root) {
    bool current = false;
    Trap({"RulebaseManager", "CheckSchemaVersion"}, [&] {
        std::string version = root.AttributeValueByName(schema::kVersionAttribute);
        if (!modTextCase::Equal(version, schema::kVersion)) {
            version = UpdateSchema(root, version);
        }
        current = modTextCase::Equal(version, schema::kVersion);
    });
    return current;
}

void RulebaseManager::LoadProperties(const KyXMLElement& root, Rulebase& rulebase) {
    Trap({"RulebaseManager", "LoadProperties"}, [&] {
        const auto section = Section(root, schema::kProperties);
        ReadAttributes(*section, schema::Properties(), rulebase);
        ReadAttributes(*section, schema::Tolerances(), rulebase.Tolerances());
        ReadAttributes(*section, schema::PropertiesBehindTolerances(), rulebase);
    });
}

void RulebaseManager::LoadTolerances(const KyXMLElement& root, ToleranceSettings& tolerances) {
    Trap({"RulebaseManager", "LoadTolerances"}, [&] {
        ReadAttributes(*Section(root, schema::kProperties), schema::Tolerances(), tolerances);
    });
}

void RulebaseManager::LoadControlTags(const KyXMLElement& root, TagTable& table) {
    Trap({"RulebaseManager", "LoadControlTags"}, [&] {
        ReadTags(*Section(root, schema::kControlTags), schema::ControlTag(), table);
    });
}

void RulebaseManager::LoadDataTypeTags(const KyXMLElement& root, TagTable& table) {
    Trap({"RulebaseManager", "LoadDataTypeTags"}, [&] {
        ReadTags(*Section(root, schema::kDataTypeTags), schema::OtherTag(), table);
    });
}

void RulebaseManager::LoadScopeTags(const KyXMLElement& root, TagTable& table) {
    Trap({"RulebaseManager", "LoadScopeTags"}, [&] {
        ReadTags(*Section(root, schema::kScopeTags), schema::OtherTag(), table);
    });
}

void RulebaseManager::LoadDefaultViolations(
    const KyXMLElement& root, DefaultViolations& violations) {
    Trap({"RulebaseManager", "LoadDefaultViolations"}, [&] {
        std::int32_t position = 0;
        for (const auto& element : Children(*Section(root, schema::kDefaultViolations))) {
            ++position;
            ReadAttributes(*element, schema::ViolationItem(), violations.Item(position));
        }
    });
}

void RulebaseManager::LoadCategoryList(
    const KyXMLElement& root, CategoryList& list, RulebaseLoadCriteria& criteria) const {
    Trap({"RulebaseManager", "LoadCategoryList"}, [&] {
        const auto section = Section(root, schema::kCategoryList);
        const bool showHidden = IsAdminInstalled();
        list.SetLastID(LongAttribute(*section, schema::kLastID));
        for (const auto& element : Children(*section)) {
            const bool hidden = BooleanAttribute(*element, schema::kHidden);
            const std::int32_t id = LongAttribute(*element, schema::kID);
            if (hidden && !showHidden) {
                criteria.AddExcludedCategoryID(id);
                continue;
            }
            const auto item = std::make_shared<CategoryItem>();
            item->SetID(id);
            ReadAttributes(*element, schema::CategoryTexts(), *item);
            item->SetHidden(hidden);
            list.Add(item, false);
        }
        list.Sort();
    });
}

void RulebaseManager::LoadSeverityList(const KyXMLElement& root, SeverityTable& table) {
    Trap({"RulebaseManager", "LoadSeverityList"}, [&] {
        for (const auto& element : Children(*Section(root, schema::kSeverityList))) {
            ReadSeverity(*element, table);
        }
    });
}

// Without a trap of its own: a section that is missing here ends the load of the options.
void RulebaseManager::LoadCounts(const KyXMLElement& root, RulebaseLoadCriteria& criteria) {
    criteria.NumAuthComps = CountIn(root, schema::kAuthorisedComponents);
    criteria.NumAuthRefs = CountIn(root, schema::kAuthorisedReferences);
    criteria.NumUnauthKeywords = CountIn(root, schema::kUnauthorisedKeywords);
    const auto rules = Section(root, schema::kRules);
    criteria.NumCodingConventions = CountIn(*rules, schema::kCodingConventions);
    criteria.NumNamingConventions = CountIn(*rules, schema::kNamingConventions);
}

}  // namespace dorvik
