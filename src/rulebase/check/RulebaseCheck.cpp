#include "rulebase/check/RulebaseCheck.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/xml/KyXMLDoc.h"
#include "platform/xml/XmlDocument.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/file/modRulebaseSchema.h"
#include "rulebase/model/modRulebaseDefaults.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>

namespace dorvik {

namespace {

constexpr std::int32_t kNoCategory = -1;
constexpr std::int32_t kLowestSeverity = 1;
constexpr std::int32_t kHighestSeverity = 5;

struct KindRow {
    FaultKind Kind;
    std::string_view Name;
};

constexpr KindRow kKinds[] = {
    {FaultKind::Unreadable, "unreadable"},
    {FaultKind::Duplicate, "duplicate"},
    {FaultKind::Unknown, "unknown"},
    {FaultKind::NeverFires, "never-fires"},
    {FaultKind::Pattern, "pattern"},
    {FaultKind::Tag, "tag"},
    {FaultKind::Scope, "scope"},
    {FaultKind::Script, "script"},
};

/// The events at which the default violations are raised, by position.
constexpr std::int32_t kDefaultViolationEvents[] = {5, 5, 26, 26, 7};

/// The rows that a review looks up by name; a row of such a form with any other name is never used.
constexpr std::string_view kDataTypeRows[] = {
    "(Classes)",
    "(Controls)",
    "(Designers)",
    "(Enumerations)",
    "(Forms)",
    "(MDI Forms)",
    "(Modules)",
    "(Property Pages)",
    "(User Controls)",
    "(User-Defined Types)",
    "(User Documents)",
};
constexpr std::string_view kControlRows[] = {"(Unknown ProgID)"};

bool Holds(std::span<const std::string_view> names, std::string_view sought) {
    return std::any_of(names.begin(), names.end(), [&](std::string_view name) {
        return modTextCase::Equal(name, sought);
    });
}

bool IsOrBecomesCurrent(KyXMLElement& root, const std::string& version) {
    return modTextCase::Equal(version, modRulebaseSchema::kVersion) ||
           RulebaseManager::UpdateSchema(root, version) == modRulebaseSchema::kVersion;
}

bool IsSeverity(std::int32_t level) {
    return level >= kLowestSeverity && level <= kHighestSeverity;
}

}  // namespace

std::string_view FaultKindName(FaultKind kind) {
    return std::find_if(
               std::begin(kKinds),
               std::end(kKinds),
               [&](const KindRow& row) { return row.Kind == kind; })
        ->Name;
}

bool RulebaseCheck::Run(std::string_view filename) {
    if (!Read(filename)) {
        return false;
    }
    CheckContents();
    return true;
}

bool RulebaseCheck::RunForLoad(std::string_view filename) {
    if (!Read(filename)) {
        return false;
    }
    CheckCategories();
    CheckItems();
    CheckRuleNumbers();
    return true;
}

bool RulebaseCheck::Read(std::string_view filename) {
    m_faults.clear();
    m_problem.clear();
    KyXMLDoc document;
    if (!document.LoadFromFile(filename)) {
        m_problem = document.Document().Error().Reason;
        return false;
    }
    const std::shared_ptr<KyXMLElement> root = document.RootElement();
    const std::string version =
        root->XMLNode().Attribute(modRulebaseSchema::kVersionAttribute).value_or("");
    if (!IsOrBecomesCurrent(*root, version)) {
        m_problem = version.empty()
                        ? "the element '" + root->ElementName() + "' has no schema version"
                        : "its schema version is '" + version +
                              "'; supported versions are 6.0, 6.1 and 6.2";
        return false;
    }
    m_contents = ReadContents(root, m_faults);
    return true;
}

void RulebaseCheck::CheckContents() {
    CheckTags();
    CheckDefaultViolations();
    CheckCategories();
    CheckUnique(m_contents.Severities, "SeverityLevel", "the later one replaces it", false);
    CheckItems();
    CheckRuleNumbers();
    CompileScripts();
    for (const Rule& rule : m_contents.Rules) {
        CheckRule(rule);
    }
    CheckReport();
}

void RulebaseCheck::AddFault(
    FaultKind kind, const Rule& rule, std::string_view attribute, std::string sentence) {
    m_faults.push_back(
        {kind,
         rule.Content->RuleID(),
         rule.Element,
         std::string(attribute),
         std::move(sentence),
         rule.Line});
}

void RulebaseCheck::AddFault(RulebaseFault place, FaultKind kind, std::string sentence) {
    place.Kind = kind;
    place.Sentence = std::move(sentence);
    m_faults.push_back(std::move(place));
}

void RulebaseCheck::CheckUnique(
    const std::vector<RulebaseContents::Identified>& items,
    std::string_view attribute,
    std::string_view consequence,
    bool costsReview) {
    std::map<std::string, std::string> elements;
    for (const RulebaseContents::Identified& item : items) {
        const auto [first, isNew] =
            elements.emplace(modTextCase::ToLower(item.Identifier), item.Element);
        if (!isNew) {
            std::string sentence = "'" + item.Identifier + "' is already that of ";
            sentence.append(first->second).append("; ").append(consequence);
            m_faults.push_back(
                {FaultKind::Duplicate,
                 0,
                 item.Element,
                 std::string(attribute),
                 sentence,
                 item.Line,
                 costsReview});
        }
    }
}

void RulebaseCheck::CheckItems() {
    CheckUnique(m_contents.Components, "LibID", "this one is not loaded", true);
    CheckUnique(m_contents.References, "LibID", "this one is not loaded", true);
}

void RulebaseCheck::CheckCategories() {
    CheckUnique(
        m_contents.Categories, "ID", "this one and the categories after it are not loaded", true);
    for (const RulebaseContents::Identified& category : m_contents.Categories) {
        const std::int32_t id = modText::WholeNumber(category.Identifier).value_or(0);
        if (m_contents.LastCategoryID.has_value() && id > *m_contents.LastCategoryID) {
            m_faults.push_back(
                {FaultKind::Duplicate,
                 0,
                 std::string(modRulebaseSchema::kCategoryList),
                 std::string(modRulebaseSchema::kLastID),
                 "it is " + std::to_string(*m_contents.LastCategoryID) + ", less than the ID " +
                     category.Identifier + " of " + category.Element +
                     ", so a new category would get an ID that is in use"});
            return;
        }
    }
}

bool RulebaseCheck::HasCategory(std::int32_t id) const {
    return std::any_of(
        m_contents.Categories.begin(),
        m_contents.Categories.end(),
        [&](const RulebaseContents::Identified& category) {
            return category.Identifier == std::to_string(id);
        });
}

void RulebaseCheck::CheckTags() {
    CheckTagTable(m_contents.ControlTags);
    CheckTagTable(m_contents.DataTypeTags);
    CheckTagTable(m_contents.ScopeTags);
    for (const RulebaseContents::Tag& tag : m_contents.ControlTags) {
        if (tag.Content.TagName().starts_with('(') && !Holds(kControlRows, tag.Content.TagName())) {
            CheckTagName(tag, "control");
        }
    }
    for (const RulebaseContents::Tag& tag : m_contents.DataTypeTags) {
        if (tag.Content.TagName().starts_with('(') &&
            !Holds(kDataTypeRows, tag.Content.TagName())) {
            CheckTagName(tag, "data type");
        }
    }
    for (const RulebaseContents::Tag& tag : m_contents.ScopeTags) {
        if (!Holds(modRulebaseDefaults::ScopeTagNames(), tag.Content.TagName())) {
            CheckTagName(tag, "scope");
        }
    }
    CheckPattern(
        m_contents.ArrayTag,
        {FaultKind::Pattern, 0, std::string(modRulebaseSchema::kProperties), "ArrayTag", ""});
}

void RulebaseCheck::CheckTagName(const RulebaseContents::Tag& tag, std::string_view table) {
    m_faults.push_back(
        {FaultKind::Unknown,
         0,
         tag.Element,
         std::string(modRulebaseSchema::kTagName),
         "no " + std::string(table) + " has this name, so the tag is never used"});
}

void RulebaseCheck::CheckTagTable(const std::vector<RulebaseContents::Tag>& tags) {
    std::vector<RulebaseContents::Identified> names;
    for (const RulebaseContents::Tag& tag : tags) {
        names.push_back({tag.Content.TagName(), tag.Element});
        // A tag is inserted into the pattern as it is written, in brackets if it has alternatives.
        CheckPattern(tag.Content.TagValue(), {FaultKind::Pattern, 0, tag.Element, "TagValue", ""});
    }
    CheckUnique(names, modRulebaseSchema::kTagName, "the later one replaces it", false);
}

void RulebaseCheck::CheckRuleNumbers() {
    std::map<std::int32_t, const Rule*> rules;
    for (const Rule& rule : m_contents.Rules) {
        const std::int32_t number = rule.Content->RuleID();
        if (rule.Unreadable.contains("RuleID")) {
            continue;
        }
        const auto [first, isNew] = rules.emplace(number, &rule);
        if (!isNew) {
            AddFault(
                FaultKind::Duplicate,
                rule,
                "RuleID",
                "the number is already that of " + first->second->Element +
                    "; this rule is not loaded");
            m_faults.back().CostsReview = rule.IsOn() && first->second->IsOn();
            // In a review the number is that of the first rule that is on.
            first->second = first->second->IsOn() ? first->second : &rule;
        }
    }
    if (!rules.empty() && m_contents.LastRuleID.has_value() &&
        rules.rbegin()->first > *m_contents.LastRuleID) {
        m_faults.push_back(
            {FaultKind::Duplicate,
             0,
             std::string(modRulebaseSchema::kRules),
             std::string(modRulebaseSchema::kLastRuleID),
             "it is " + std::to_string(*m_contents.LastRuleID) + ", less than the number of " +
                 rules.rbegin()->second->Element +
                 ", so a new rule would get a number that is in use"});
    }
}

void RulebaseCheck::CheckViolation(
    const ViolationDefinition& definition,
    const std::string& element,
    std::int32_t ruleID,
    const std::string& place) {
    if (definition.CategoryID() != kNoCategory && !HasCategory(definition.CategoryID())) {
        m_faults.push_back(
            {FaultKind::Unknown,
             ruleID,
             element,
             place + "CategoryID",
             "there is no category " + std::to_string(definition.CategoryID()) +
                 "; use the ID of a category, or -1 for none"});
    }
    if (!IsSeverity(definition.Severity())) {
        m_faults.push_back(
            {FaultKind::Unknown,
             ruleID,
             element,
             place + "SeverityLevel",
             std::to_string(definition.Severity()) +
                 " is not a severity from 1 to 5, so the violation is never raised"});
    }
}

void RulebaseCheck::CheckDefaultViolations() {
    std::size_t position = 0;
    for (const RulebaseContents::Violation& violation : m_contents.DefaultViolations) {
        const Events events{kDefaultViolationEvents[position]};
        CheckViolation(violation.Content, violation.Element, 0, "");
        CheckText(violation.Content.Description(), events, violation.Element, 0, "Description");
        CheckText(violation.Content.Advice(), events, violation.Element, 0, "Advice");
        ++position;
    }
}

void RulebaseCheck::CheckReport() {
    std::set<std::int32_t> numbers;
    for (const Rule& rule : m_contents.Rules) {
        numbers.insert(rule.Content->RuleID());
    }
    for (const RulebaseContents::Section& section : m_contents.Sections) {
        if (section.CategoryID.has_value() && !HasCategory(*section.CategoryID)) {
            m_faults.push_back(
                {FaultKind::Unknown,
                 0,
                 section.Element,
                 "CategoryID",
                 "there is no category " + std::to_string(*section.CategoryID) +
                     ", so the section is omitted"});
        }
        for (const std::int32_t number : section.RuleIDs) {
            if (!numbers.contains(number)) {
                m_faults.push_back(
                    {FaultKind::Unknown,
                     0,
                     section.Element,
                     "CategoryRuleList",
                     "there is no rule " + std::to_string(number) + ", so it is omitted"});
            }
        }
    }
}

}  // namespace dorvik
