#include "rulebase/RandomRulebase.h"
#include "rulebase/model/TableItem.h"

#include <sstream>

namespace dorvik::test {

namespace {

/// Collects named values, one a line.
class Description {
public:
    template <class... Values>
    void Add(const char* name, const Values&... values) {
        m_text << name << ":";
        ((m_text << " {" << values << "}"), ...);
        m_text << '\n';
    }
    std::string Text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
};

void AddTags(Description& description, const char* name, const TagTable& table) {
    for (std::int32_t index = 1; index <= table.Count(); ++index) {
        const TagItem& item = *table.Item(index);
        description.Add(
            name,
            table.Key(index),
            item.TagName(),
            item.TagValue(),
            item.TagDescription(),
            item.TagExample());
    }
}

void AddViolation(Description& description, const ViolationDefinition& violation) {
    description.Add(
        "violation",
        violation.Title(),
        violation.Description(),
        violation.Advice(),
        violation.Severity(),
        violation.Impact(),
        violation.CategoryID(),
        violation.ViolationDescription());
}

void AddNameItems(
    Description& description, const char* name, const ObjectArrayList<PrefixSuffixItem>& items) {
    for (std::int32_t slot = 1; slot <= items.Count(); ++slot) {
        description.Add(name, items.Item(slot)->PSType, items.Item(slot)->Value);
    }
}

void AddNaming(Description& description, const NamingConvention& rule) {
    description.Add(
        "naming",
        rule.CaseSensitive(),
        rule.ObjectType(),
        rule.PropertyType(),
        rule.PropertyName(),
        rule.ExclusionList(),
        rule.Prefix().Active(),
        rule.Prefix().Advice(),
        rule.BodyActive(),
        rule.BodyPattern(),
        rule.MaxBodyLength(),
        rule.MinBodyLength(),
        rule.BodyAdvice(),
        rule.Suffix().Active(),
        rule.Suffix().Advice());
    AddNameItems(description, "prefix", rule.Prefix().Items());
    AddNameItems(description, "suffix", rule.Suffix().Items());
}

void AddRule(Description& description, const IRule& rule) {
    description.Add(
        "rule",
        rule.RuleID(),
        static_cast<int>(rule.RuleType()),
        rule.RuleActive(),
        rule.Title(),
        rule.Description(),
        rule.Condition(),
        rule.PendingViolation());
    AddViolation(description, rule.ViolationDefinition());
    if (const auto* events = dynamic_cast<const EventRule*>(&rule)) {
        description.Add("events", events->ParserEventList());
    }
    if (const auto* coding = dynamic_cast<const CodingConvention*>(&rule)) {
        description.Add("end event", coding->EndEventID());
    }
    if (const auto* naming = dynamic_cast<const NamingConvention*>(&rule)) {
        AddNaming(description, *naming);
    }
}

template <class List>
void AddRules(Description& description, const List& list) {
    for (std::int32_t index = 1; index <= list.Count(); ++index) {
        AddRule(description, *list.Item(index));
    }
}

void AddLists(Description& description, const Rulebase& rulebase) {
    for (std::int32_t index = 1; index <= rulebase.CategoryList().Count(); ++index) {
        const CategoryItem& item = *rulebase.CategoryList().Item(index);
        description.Add(
            "category", item.ID(), item.Key(), item.Title(), item.Description(), item.Hidden());
    }
    for (std::int32_t index = 1; index <= rulebase.SeverityList().Count(); ++index) {
        const SeverityItem& item = *rulebase.SeverityList().Item(index);
        description.Add(
            "severity",
            item.Key(),
            item.Title(),
            item.Description(),
            item.SeverityLevelText(),
            item.SeverityLevel(),
            item.Colour(),
            item.Impact());
    }
    for (std::int32_t index = 1; index <= rulebase.AuthorisedComponents().Count(); ++index) {
        const AuthorisedComponent& item = *rulebase.AuthorisedComponents().Item(index);
        description.Add(
            "component", item.LibID(), item.Filename(), item.VersionList(), item.Advice());
    }
    for (std::int32_t index = 1; index <= rulebase.AuthorisedReferences().Count(); ++index) {
        const AuthorisedReference& item = *rulebase.AuthorisedReferences().Item(index);
        description.Add(
            "reference",
            item.LibID(),
            item.Description(),
            item.Filename(),
            item.VersionList(),
            item.Advice());
    }
}

void AddReport(Description& description, const Report& report) {
    for (std::int32_t index = 1; index <= report.Sections().Count(); ++index) {
        const IListItem& item = *report.Sections().Item(index);
        description.Add("section", item.Key(), item.Title(), item.Description(), item.ID());
        if (const auto* table = dynamic_cast<const TableItem*>(&item)) {
            description.Add("table", table->TableType());
        }
        if (const auto* category = dynamic_cast<const CategoryItem*>(&item)) {
            for (std::int32_t rule = 1; rule <= category->CategoryRules().Count(); ++rule) {
                description.Add("shown", category->CategoryRules().Item(rule)->RuleKey());
            }
        }
    }
}

}  // namespace

std::string DescriptionOf(const Rulebase& rulebase) {
    Description description;
    description.Add(
        "rulebase",
        rulebase.Title(),
        rulebase.Version(),
        rulebase.Description(),
        rulebase.AutoIncrementVersion(),
        rulebase.UnknownControlViolation(),
        rulebase.UseCTagsAsDTTags(),
        rulebase.ArrayTag(),
        rulebase.Tolerances().PercentageComments,
        rulebase.Tolerances().CyclomaticComplexity,
        rulebase.CategoryList().LastID(),
        rulebase.RuleLists().LastID());
    for (std::int32_t place = 1; place <= ToleranceSettings::kPlaces; ++place) {
        description.Add(
            "tolerance",
            rulebase.Tolerances().Count.Item(place),
            rulebase.Tolerances().Impact.Item(place));
    }
    AddTags(description, "control tag", rulebase.ControlTags());
    AddTags(description, "data type tag", rulebase.DataTypeTags());
    AddTags(description, "scope tag", rulebase.ScopeTags());
    for (std::int32_t index = 1; index <= rulebase.DefaultViolations().Count(); ++index) {
        AddViolation(description, rulebase.DefaultViolations().Item(index));
    }
    AddLists(description, rulebase);
    AddRules(description, rulebase.RuleLists().UnauthorisedKeywords());
    AddRules(description, rulebase.RuleLists().CodingConventions());
    AddRules(description, rulebase.RuleLists().NamingConventions());
    AddReport(description, rulebase.Report());
    return description.Text();
}

}  // namespace dorvik::test
