#include "RuleJson.h"

#include "parser/VBParserEvents.h"
#include "rulebase/catalogue/ObjectHelper.h"
#include "rulebase/model/modRuleFacts.h"

namespace dorvik {

namespace {

void WriteItems(
    JsonOutput& json, std::string_view key, const ObjectArrayList<PrefixSuffixItem>& items) {
    json.BeginArray(key);
    for (const auto& item : items) {
        if (item->PSType != static_cast<std::int32_t>(psNone)) {
            json.BeginObject();
            json.Number("type", item->PSType);
            json.Text("value", item->Value);
            json.EndObject();
        }
    }
    json.EndArray();
}

void WriteNaming(JsonOutput& json, const NamingConvention& rule) {
    json.Number("objectType", rule.ObjectType());
    json.Text("object", ObjectHelper::ObjectName(rule.ObjectType()));
    json.Text("property", rule.PropertyName());
    json.Flag("caseSensitive", rule.CaseSensitive());
    json.Text("exclusionList", rule.ExclusionList());
    if (rule.Prefix().Active()) {
        WriteItems(json, "prefix", rule.Prefix().Items());
        json.Text("prefixAdvice", rule.Prefix().Advice());
    }
    if (rule.BodyActive()) {
        json.Text("bodyPattern", rule.BodyPattern());
        json.Number("bodyMinLength", rule.MinBodyLength());
        json.Number("bodyMaxLength", rule.MaxBodyLength());
        json.Text("bodyAdvice", rule.BodyAdvice());
    }
    if (rule.Suffix().Active()) {
        WriteItems(json, "suffix", rule.Suffix().Items());
        json.Text("suffixAdvice", rule.Suffix().Advice());
    }
}

void WriteViolation(JsonOutput& json, const ViolationDefinition& violation) {
    json.BeginObject("violation");
    json.Text("name", violation.Title());
    json.Text("description", violation.Description());
    json.Text("advice", violation.Advice());
    json.EndObject();
}

void WriteEvents(JsonOutput& json, const IRule& rule) {
    json.BeginArray("events");
    for (const std::int32_t event : modRuleFacts::EventsOf(rule)) {
        json.BeginObject();
        json.Number("number", event);
        json.Text("name", VBParserEvents::ParserEventText(event));
        json.EndObject();
    }
    json.EndArray();
}

}  // namespace

void WriteRuleAsJson(JsonOutput& json, const IRule& rule, const Rulebase& rulebase) {
    const ViolationDefinition& violation = rule.ViolationDefinition();
    json.BeginObject();
    json.Number("id", rule.RuleID());
    json.Text("kind", modRuleFacts::KindKey(rule.RuleType()));
    json.Text("title", rule.Title());
    json.Text("description", rule.Description());
    json.Flag("active", rule.RuleActive());
    json.Number("severity", violation.Severity());
    json.Text("severityTitle", modRuleFacts::SeverityTitle(rulebase, violation.Severity()));
    json.Number("impact", violation.Impact());
    json.Number("category", violation.CategoryID());
    json.Text("categoryTitle", modRuleFacts::CategoryTitle(rulebase, violation.CategoryID()));
    json.Text("condition", rule.Condition());
    WriteEvents(json, rule);
    if (const auto* coding = dynamic_cast<const CodingConvention*>(&rule)) {
        json.Flag("pending", coding->PendingViolation());
        json.Number("endEvent", coding->EndEventID());
    } else if (const auto* naming = dynamic_cast<const NamingConvention*>(&rule)) {
        WriteNaming(json, *naming);
    }
    WriteViolation(json, violation);
    json.EndObject();
}

}  // namespace dorvik
