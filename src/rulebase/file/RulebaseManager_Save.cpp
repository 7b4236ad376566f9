#include "foundation/log/Trap.h"
#include "foundation/text/VersionNumber.h"
#include "foundation/xml/KyXMLElement.h"
#include "modSectionReading.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/file/modRulebaseSchema.h"

namespace dorvik {

namespace schema = modRulebaseSchema;
using modSectionReading::Section;

namespace {

/// For a trap: keeps why the first section of a save failed, which is logged as ever.
auto KeepReason(std::string& failure) {
    return [&failure](const BasicError& error) {
        if (failure.empty()) {
            failure = error.what();
        }
        return false;
    };
}

template <class Owner>
std::shared_ptr<KyXMLElement> AddWithAttributes(
    KyXMLElement& section,
    std::string_view name,
    std::type_identity_t<std::span<const AttributeRow<Owner>>> rows,
    const Owner& owner) {
    std::shared_ptr<KyXMLElement> element = section.AddElement(name);
    WriteAttributes(ExistingElement(element), rows, owner);
    return element;
}

/// An element for each item of the list.
template <class Owner, class List>
void AddItems(
    KyXMLElement& section,
    std::string_view name,
    std::type_identity_t<std::span<const AttributeRow<Owner>>> rows,
    const List& list) {
    for (const std::shared_ptr<Owner>& item : list) {
        AddWithAttributes<Owner>(section, name, rows, *item);
    }
}

void AddTags(
    KyXMLElement& section,
    std::string_view name,
    std::span<const AttributeRow<TagItem>> rows,
    const TagTable& table) {
    for (const auto& item : table) {
        const std::shared_ptr<KyXMLElement> element = section.AddElement(name);
        ExistingElement(element).AddAttribute(schema::kTagName, item->TagName());
        WriteAttributes(*element, rows, *item);
    }
}

/// The used slots of a prefix or suffix.
void AddNameItems(
    KyXMLElement& rule,
    std::string_view sectionName,
    std::string_view itemName,
    const ObjectArrayList<PrefixSuffixItem>& items) {
    const std::shared_ptr<KyXMLElement> section = rule.AddElement(sectionName);
    for (const auto& item : items) {
        if (item->PSType != static_cast<std::int32_t>(psNone)) {
            AddWithAttributes<PrefixSuffixItem>(
                ExistingElement(section), itemName, schema::NameItem(), *item);
        }
    }
}

}  // namespace

bool RulebaseManager::SaveProperties(KyXMLElement& root, Rulebase& rulebase, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveProperties"},
        [&] {
            if (rulebase.AutoIncrementVersion()) {
                VersionNumber version;
                version.SetVersion(rulebase.Version());
                Explain(
                    [&] { version.Increment(); },
                    [&] { return ": there is no version after " + rulebase.Version(); });
                rulebase.SetVersion(version.Version());
            }
            const auto section = Section(root, schema::kProperties);
            WriteAttributes(*section, schema::Properties(), rulebase);
            WriteAttributes(*section, schema::Tolerances(), rulebase.Tolerances());
            WriteAttributes(*section, schema::PropertiesBehindTolerances(), rulebase);
        },
        KeepReason(failure));
}

bool RulebaseManager::SaveControlTags(
    KyXMLElement& root, const TagTable& table, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveControlTags"},
        [&] {
            const auto section = Section(root, schema::kControlTags);
            AddTags(*section, schema::kControlTag, schema::ControlTag(), table);
        },
        KeepReason(failure));
}

bool RulebaseManager::SaveDataTypeTags(
    KyXMLElement& root, const TagTable& table, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveDataTypeTags"},
        [&] {
            const auto section = Section(root, schema::kDataTypeTags);
            AddTags(*section, schema::kDataTypeTag, schema::OtherTag(), table);
        },
        KeepReason(failure));
}

bool RulebaseManager::SaveScopeTags(
    KyXMLElement& root, const TagTable& table, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveScopeTags"},
        [&] {
            const auto section = Section(root, schema::kScopeTags);
            AddTags(*section, schema::kScopeTag, schema::OtherTag(), table);
        },
        KeepReason(failure));
}

bool RulebaseManager::SaveDefaultViolations(
    KyXMLElement& root, const DefaultViolations& violations, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveDefaultViolations"},
        [&] {
            const auto section = Section(root, schema::kDefaultViolations);
            for (std::int32_t index = 1; index <= violations.Count(); ++index) {
                AddWithAttributes<ViolationDefinition>(
                    *section,
                    schema::kViolationItem,
                    schema::ViolationItem(),
                    violations.Item(index));
            }
        },
        KeepReason(failure));
}

bool RulebaseManager::SaveCategoryList(
    KyXMLElement& root, const CategoryList& list, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveCategoryList"},
        [&] {
            const auto section = Section(root, schema::kCategoryList);
            section->AddAttribute(schema::kLastID, std::to_string(list.LastID()));
            AddItems<CategoryItem>(*section, schema::kCategoryItem, schema::Category(), list);
        },
        KeepReason(failure));
}

bool RulebaseManager::SaveSeverityList(
    KyXMLElement& root, const SeverityTable& table, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveSeverityList"},
        [&] {
            const auto section = Section(root, schema::kSeverityList);
            AddItems<SeverityItem>(*section, schema::kSeverityItem, schema::Severity(), table);
        },
        KeepReason(failure));
}

bool RulebaseManager::SaveAuthorisedComponents(
    KyXMLElement& root, const AuthorisedComponents& list, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveAuthorisedComponents"},
        [&] {
            const auto section = Section(root, schema::kAuthorisedComponents);
            AddItems<AuthorisedComponent>(
                *section, schema::kAuthorisedComponent, schema::Component(), list);
        },
        KeepReason(failure));
}

bool RulebaseManager::SaveAuthorisedReferences(
    KyXMLElement& root, const AuthorisedReferences& list, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveAuthorisedReferences"},
        [&] {
            const auto section = Section(root, schema::kAuthorisedReferences);
            AddItems<AuthorisedReference>(
                *section, schema::kAuthorisedReference, schema::Reference(), list);
        },
        KeepReason(failure));
}

bool RulebaseManager::SaveUnauthorisedKeywords(
    KyXMLElement& root, const RuleLists& rules, std::string& failure) {
    bool whole = true;
    const bool saved = Trap(
        {"RulebaseManager", "SaveUnauthorisedKeywords"},
        [&] {
            const auto section = Section(root, schema::kUnauthorisedKeywords);
            for (const auto& rule : rules.UnauthorisedKeywords()) {
                const auto element = AddWithAttributes<UnauthorisedKeyword>(
                    *section, schema::kUnauthorisedKeyword, schema::Keyword(), *rule);
                whole =
                    SaveViolationDefintion(*element, rule->ViolationDefinition(), failure) && whole;
            }
        },
        KeepReason(failure));
    return saved && whole;
}

bool RulebaseManager::SaveCodingConventions(
    KyXMLElement& rulesElement, const RuleLists& rules, std::string& failure) {
    bool whole = true;
    const bool saved = Trap(
        {"RulebaseManager", "SaveCodingConventions"},
        [&] {
            const auto section = Section(rulesElement, schema::kCodingConventions);
            for (const auto& rule : rules.CodingConventions()) {
                const auto element = AddWithAttributes<CodingConvention>(
                    *section, schema::kCodingConvention, schema::Coding(), *rule);
                whole =
                    SaveViolationDefintion(*element, rule->ViolationDefinition(), failure) && whole;
            }
        },
        KeepReason(failure));
    return saved && whole;
}

bool RulebaseManager::SaveNamingConventions(
    KyXMLElement& rulesElement, const RuleLists& rules, std::string& failure) {
    bool whole = true;
    const bool saved = Trap(
        {"RulebaseManager", "SaveNamingConventions"},
        [&] {
            const auto section = Section(rulesElement, schema::kNamingConventions);
            for (const auto& rule : rules.NamingConventions()) {
                const auto element = AddWithAttributes<NamingConvention>(
                    *section, schema::kNamingConvention, schema::Naming(), *rule);
                // Required: the items of a prefix or suffix that is disabled are lost by a save.
                if (rule->Prefix().Active()) {
                    AddNameItems(
                        *element,
                        schema::kPrefixItems,
                        schema::kPrefixItem,
                        rule->Prefix().Items());
                }
                if (rule->Suffix().Active()) {
                    AddNameItems(
                        *element,
                        schema::kSuffixItems,
                        schema::kSuffixItem,
                        rule->Suffix().Items());
                }
                whole =
                    SaveViolationDefintion(*element, rule->ViolationDefinition(), failure) && whole;
            }
        },
        KeepReason(failure));
    return saved && whole;
}

// Required: the log knows the procedure under this spelling.
bool RulebaseManager::SaveViolationDefintion(
    KyXMLElement& rule, const ViolationDefinition& definition, std::string& failure) {
    return Trap(
        {"RulebaseManager", "SaveViolationDefintion"},
        [&] {
            AddWithAttributes<dorvik::ViolationDefinition>(
                rule, schema::kViolationDefinition, schema::Violation(), definition);
        },
        KeepReason(failure));
}

}  // namespace dorvik
