#include "base/BasicError.h"
#include "base/modText.h"
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

/// Required: a fifth item fails, because only four slots exist.
void ReadNameItems(
    const KyXMLElement& rule,
    std::string_view sectionName,
    ObjectArrayList<PrefixSuffixItem>& items) {
    std::int32_t slot = 0;
    for (const auto& element : Children(*Section(rule, sectionName))) {
        ++slot;
        if (slot > NamingConvention::kItemCount) {
            throw BasicError(
                runtimeerror::kSubscriptOutOfRange,
                RuntimeErrorText(runtimeerror::kSubscriptOutOfRange) + ": " + element->PlaceText() +
                    " is more than the four that a name can have");
        }
        ReadAttributes(*element, schema::NameItem(), *items.Item(slot));
    }
}

/// The form in which a review searches the list: every value has a ";" on both sides.
/// Required: an empty list becomes ";;".
void WrapExclusionList(NamingConvention& rule) {
    rule.SetExclusionList(";" + std::string(modText::Trim(rule.ExclusionList())) + ";");
}

}  // namespace

void RulebaseManager::LoadListedItems(
    const KyXMLElement& root, RulebaseLoadCriteria& criteria, Rulebase& rulebase) {
    const auto components = Section(root, schema::kAuthorisedComponents);
    criteria.NumAuthComps = components->ElementCount();
    if (criteria.LoadForEdit() || criteria.AuthorisedComponents()) {
        LoadAuthorisedComponents(*components, rulebase.AuthorisedComponents());
    }
    const auto references = Section(root, schema::kAuthorisedReferences);
    criteria.NumAuthRefs = references->ElementCount();
    if (criteria.LoadForEdit() || criteria.AuthorisedReferences()) {
        LoadAuthorisedReferences(*references, rulebase.AuthorisedReferences());
    }
    const auto keywords = Section(root, schema::kUnauthorisedKeywords);
    criteria.NumUnauthKeywords = keywords->ElementCount();
    if (criteria.LoadForEdit() || criteria.UnauthorisedKeywords()) {
        LoadUnauthorisedKeywords(*keywords, criteria, rulebase.RuleLists());
    }
}

void RulebaseManager::LoadRules(
    const KyXMLElement& root, RulebaseLoadCriteria& criteria, RuleLists& rules) {
    const auto element = Section(root, schema::kRules);
    rules.SetLastID(LongAttribute(*element, schema::kLastRuleID));
    const auto coding = Section(*element, schema::kCodingConventions);
    criteria.NumCodingConventions = coding->ElementCount();
    if (criteria.LoadForEdit() || criteria.CodingConventions()) {
        LoadCodingConventions(*coding, criteria, rules);
    }
    const auto naming = Section(*element, schema::kNamingConventions);
    criteria.NumNamingConventions = naming->ElementCount();
    if (criteria.LoadForEdit() || criteria.NamingConventions()) {
        LoadNamingConventions(*naming, criteria, rules);
    }
}

void RulebaseManager::LoadAuthorisedComponents(
    const KyXMLElement& section, AuthorisedComponents& list) {
    Trap({"RulebaseManager", "LoadAuthorisedComponents"}, [&] {
        for (const auto& element : Children(section)) {
            const auto item = std::make_shared<AuthorisedComponent>();
            ReadAttributes(*element, schema::Component(), *item);
            list.AddComponent(item);
        }
    });
}

void RulebaseManager::LoadAuthorisedReferences(
    const KyXMLElement& section, AuthorisedReferences& list) {
    Trap({"RulebaseManager", "LoadAuthorisedReferences"}, [&] {
        for (const auto& element : Children(section)) {
            const auto item = std::make_shared<AuthorisedReference>();
            ReadAttributes(*element, schema::Reference(), *item);
            list.AddReference(item);
        }
    });
}

void RulebaseManager::LoadUnauthorisedKeywords(
    const KyXMLElement& section, const RulebaseLoadCriteria& criteria, RuleLists& rules) {
    Trap({"RulebaseManager", "LoadUnauthorisedKeywords"}, [&] {
        for (const auto& element : Children(section)) {
            if (!IsLoadableRule(criteria, *element)) {
                continue;
            }
            const auto rule = std::make_shared<UnauthorisedKeyword>();
            ReadAttributes(*element, schema::Keyword(), *rule);
            LoadViolationDefinition(*element, rule->ViolationDefinition());
            rules.AddConvention(rule, false);
        }
    });
}

void RulebaseManager::LoadCodingConventions(
    const KyXMLElement& section, const RulebaseLoadCriteria& criteria, RuleLists& rules) {
    Trap({"RulebaseManager", "LoadCodingConventions"}, [&] {
        for (const auto& element : Children(section)) {
            if (!IsLoadableRule(criteria, *element)) {
                continue;
            }
            const auto rule = std::make_shared<CodingConvention>();
            ReadAttributes(*element, schema::Coding(), *rule);
            LoadViolationDefinition(*element, rule->ViolationDefinition());
            rules.AddConvention(rule, false);
        }
    });
}

void RulebaseManager::LoadNamingConventions(
    const KyXMLElement& section, const RulebaseLoadCriteria& criteria, RuleLists& rules) {
    Trap({"RulebaseManager", "LoadNamingConventions"}, [&] {
        for (const auto& element : Children(section)) {
            if (!IsLoadableRule(criteria, *element)) {
                continue;
            }
            const auto rule = std::make_shared<NamingConvention>();
            ReadAttributes(*element, schema::Naming(), *rule);
            if (!criteria.LoadForEdit()) {
                WrapExclusionList(*rule);
            }
            if (rule->PrefixActive()) {
                ReadNameItems(*element, schema::kPrefixItems, rule->PrefixItems());
            }
            if (rule->SuffixActive()) {
                ReadNameItems(*element, schema::kSuffixItems, rule->SuffixItems());
            }
            LoadViolationDefinition(*element, rule->ViolationDefinition());
            rules.AddConvention(rule, false);
        }
    });
}

bool RulebaseManager::IsLoadableRule(
    const RulebaseLoadCriteria& criteria, const KyXMLElement& rule) {
    if (criteria.LoadForEdit()) {
        return true;
    }
    bool loadable = false;
    Trap({"RulebaseManager", "IsLoadableRule"}, [&] {
        if (!BooleanAttribute(rule, schema::kRuleActive)) {
            return;
        }
        const auto definition = Section(rule, schema::kViolationDefinition);
        if (!criteria.SeverityLevel(LongAttribute(*definition, schema::kSeverityLevel))) {
            return;
        }
        loadable = !criteria.IsExcludedCategoryID(LongAttribute(*definition, schema::kCategoryID));
    });
    return loadable;
}

void RulebaseManager::LoadViolationDefinition(
    const KyXMLElement& rule, ViolationDefinition& definition) {
    Trap({"RulebaseManager", "LoadViolationDefinition"}, [&] {
        ReadAttributes(
            *Section(rule, schema::kViolationDefinition), schema::Violation(), definition);
    });
}

}  // namespace dorvik
