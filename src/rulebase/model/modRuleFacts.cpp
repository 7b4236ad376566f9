#include "rulebase/model/modRuleFacts.h"

#include "base/Quoted.h"
#include "base/modTextCase.h"
#include "parser/VBParserEvents.h"
#include "rulebase/catalogue/ObjectHelper.h"
#include "rulebase/catalogue/modNamingEvents.h"

#include <algorithm>

namespace dorvik::modRuleFacts {

namespace {

constexpr std::int32_t kNoCategory = -1;

struct KindRow {
    RuleType Kind;
    std::string_view Name;
    std::string_view Key;
};

constexpr KindRow kKinds[] = {
    {ruleTypeComponent, "authorised component", "component"},
    {ruleTypeReference, "authorised reference", "reference"},
    {ruleTypeKeyword, "unauthorised keyword", "keyword"},
    {ruleTypeCoding, "coding convention", "coding"},
    {ruleTypeNaming, "naming convention", "naming"},
};

const KindRow& RowOf(RuleType kind) {
    return *std::find_if(
        std::begin(kKinds), std::end(kKinds), [&](const KindRow& row) { return row.Kind == kind; });
}

struct ItemRow {
    PrefixSuffixType Type;
    std::string_view Words;
};

constexpr ItemRow kItems[] = {
    {psControlTag, "the control tag"},
    {psDataTypeTag, "the data type tag"},
    {psScopeTag, "the scope tag"},
    {psArrayTag, "the array tag"},
};

std::string ItemWords(const PrefixSuffixItem& item) {
    const auto type = static_cast<PrefixSuffixType>(item.PSType);
    if (type == psText) {
        return "the text " + Quoted(item.Value);
    }
    if (type == psProperty) {
        return "the value of " + item.Value;
    }
    for (const ItemRow& row : kItems) {
        if (row.Type == type) {
            return std::string(row.Words);
        }
    }
    return "item type " + std::to_string(item.PSType);
}

std::string EventWords(const std::vector<std::int32_t>& events) {
    std::string words;
    for (const std::int32_t event : events) {
        words += (words.empty() ? "" : ", ") + std::to_string(event) + " " +
                 std::string(VBParserEvents::ParserEventText(event));
    }
    return words.empty() ? "none" : words;
}

/// Adds facts and leaves the empty ones out.
class Facts {
public:
    void Add(std::string label, std::string text, FactForm form = FactForm::Text) {
        if (!text.empty()) {
            m_facts.push_back({std::move(label), std::move(text), form});
        }
    }
    std::vector<RuleFact> Take() { return std::move(m_facts); }

private:
    std::vector<RuleFact> m_facts;
};

std::string BodyWords(const NamingConvention& rule) {
    std::string words;
    if (rule.MinBodyLength() >= 1) {
        words = "at least " + std::to_string(rule.MinBodyLength());
    }
    if (rule.MaxBodyLength() >= 1) {
        words += (words.empty() ? "at most " : ", at most ") + std::to_string(rule.MaxBodyLength());
    }
    return words.empty() ? "" : words + " characters";
}

void AddNaming(const NamingConvention& rule, Facts& facts) {
    facts.Add(
        "Object",
        std::string(ObjectHelper::ObjectText(rule.ObjectType())) + " (object type " +
            std::to_string(rule.ObjectType()) + ")");
    facts.Add("Property", rule.PropertyName());
    facts.Add("Events", EventWords(EventsOf(rule)));
    facts.Add("Letter case", rule.CaseSensitive() ? "counts" : "does not count");
    if (rule.Prefix().Active()) {
        facts.Add("Prefix", Describe(rule.Prefix().Items()));
        facts.Add("Prefix advice", rule.Prefix().Advice());
    }
    if (rule.BodyActive()) {
        facts.Add("Body pattern", rule.BodyPattern(), FactForm::Pattern);
        facts.Add("Body length", BodyWords(rule));
        facts.Add("Body advice", rule.BodyAdvice());
    }
    if (rule.Suffix().Active()) {
        facts.Add("Suffix", Describe(rule.Suffix().Items()));
        facts.Add("Suffix advice", rule.Suffix().Advice());
    }
    facts.Add("Exempt", rule.ExclusionList());
    facts.Add("Script", rule.Condition(), FactForm::Script);
}

void AddKind(const IRule& rule, Facts& facts) {
    if (const auto* naming = dynamic_cast<const NamingConvention*>(&rule)) {
        AddNaming(*naming, facts);
        return;
    }
    facts.Add("Events", EventWords(EventsOf(rule)));
    if (rule.RuleType() == ruleTypeKeyword) {
        facts.Add("Pattern", rule.Condition(), FactForm::Pattern);
        return;
    }
    if (const auto* coding = dynamic_cast<const CodingConvention*>(&rule);
        coding != nullptr && coding->PendingViolation()) {
        facts.Add("Held back until", EventWords({coding->EndEventID()}));
    }
    facts.Add("Script", rule.Condition(), FactForm::Script);
}

void AddTolerances(
    Facts& facts, const Rulebase& rulebase, const LongArrayList& list, const std::string& what) {
    for (std::int32_t place = 1; place <= ToleranceSettings::kPlaces; ++place) {
        if (list.Item(place) != ToleranceSettings::kNotSet) {
            const std::string label =
                place == ToleranceSettings::kPlaces ? "Total" : SeverityTitle(rulebase, place);
            facts.Add(label + " " + what, "at most " + std::to_string(list.Item(place)));
        }
    }
}

}  // namespace

std::string NameOf(const IRule& rule) {
    return "rule " + std::to_string(rule.RuleID()) + " (" + rule.Title() + ")";
}

std::string_view KindName(RuleType kind) {
    return RowOf(kind).Name;
}

std::string_view KindKey(RuleType kind) {
    return RowOf(kind).Key;
}

std::string CategoryTitle(const Rulebase& rulebase, std::int32_t categoryID) {
    if (categoryID == kNoCategory) {
        return "none";
    }
    if (!rulebase.CategoryList().ContainsID(categoryID)) {
        return "unknown (" + std::to_string(categoryID) + ")";
    }
    return rulebase.CategoryList().Item(CategoryList::CategoryIDToKey(categoryID))->Title();
}

std::string SeverityTitle(const Rulebase& rulebase, std::int32_t level) {
    const auto* item = rulebase.SeverityList().Find(SeverityKeyOf(level));
    return item == nullptr ? std::to_string(level) : (*item)->Title();
}

std::vector<std::int32_t> EventsOf(const IRule& rule) {
    if (const auto* events = dynamic_cast<const EventRule*>(&rule)) {
        return events->ParserEvents();
    }
    std::vector<std::int32_t> events;
    if (const auto* naming = dynamic_cast<const NamingConvention*>(&rule)) {
        for (const NamingEventRow& row : modNamingEvents::Of(naming->ObjectType())) {
            events.push_back(static_cast<std::int32_t>(row.Event));
        }
    }
    return events;
}

std::string Describe(const ObjectArrayList<PrefixSuffixItem>& items) {
    std::string words;
    for (const auto& item : items) {
        if (item->PSType != static_cast<std::int32_t>(psNone)) {
            words += (words.empty() ? "" : ", then ") + ItemWords(*item);
        }
    }
    return words.empty() ? "nothing" : words;
}

std::vector<RuleFact> Of(const IRule& rule, const Rulebase& rulebase) {
    const ViolationDefinition& violation = rule.ViolationDefinition();
    Facts facts;
    facts.Add("Kind", std::string(KindName(rule.RuleType())));
    if (!rule.RuleActive()) {
        facts.Add("Active", "no");
    }
    facts.Add(
        "Severity",
        std::to_string(violation.Severity()) + " " + SeverityTitle(rulebase, violation.Severity()));
    facts.Add("Impact", std::to_string(violation.Impact()));
    facts.Add("Category", CategoryTitle(rulebase, violation.CategoryID()));
    facts.Add("Description", rule.Description());
    AddKind(rule, facts);
    facts.Add("Violation", violation.Title());
    facts.Add("Text", violation.Description());
    facts.Add("Advice", violation.Advice());
    return facts.Take();
}

std::vector<RuleFact> Tolerances(const Rulebase& rulebase) {
    Facts facts;
    AddTolerances(facts, rulebase, rulebase.Tolerances().Count, "violations");
    AddTolerances(facts, rulebase, rulebase.Tolerances().Impact, "impact");
    if (rulebase.Tolerances().PercentageComments != ToleranceSettings::kNotSet) {
        facts.Add(
            "Percentage of comments",
            "at least " + std::to_string(rulebase.Tolerances().PercentageComments));
    }
    if (rulebase.Tolerances().CyclomaticComplexity != ToleranceSettings::kNotSet) {
        facts.Add(
            "Cyclomatic complexity",
            "at most " + std::to_string(rulebase.Tolerances().CyclomaticComplexity));
    }
    return facts.Take();
}

}  // namespace dorvik::modRuleFacts
