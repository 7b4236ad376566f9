#include "base/BasicError.h"
#include "foundation/log/Trap.h"
#include "platform/regex/RegularExpression.h"
#include "rulebase/catalogue/modEventScope.h"
#include "rulebase/catalogue/modReadableProperties.h"
#include "rulebase/check/RulebaseCheck.h"
#include "rulebase/check/modTextTags.h"

namespace dorvik {

using modReadableProperties::Reading;

namespace {

std::string Suggestion(const std::string& name) {
    return name.empty() ? "" : "; is '" + name + "' meant?";
}

/// Why the property can be read at no event; empty if it can at some.
std::string
WhyUnreadable(std::string_view object, std::string_view property, const std::string& shown) {
    switch (modReadableProperties::FindReading(object, property)) {
        case Reading::Possible: return {};
        case Reading::Never: return shown + " reads a property that is never set";
        case Reading::UnknownProperty:
            return shown + " reads a property that '" + std::string(object) + "' does not have" +
                   Suggestion(modReadableProperties::NearestProperty(object, property));
        case Reading::UnknownObject:
            return object.empty() ? shown + " is not an object and a property joined by a point"
                                  : shown + " names an object that does not exist" +
                                        Suggestion(modReadableProperties::NearestObject(object));
    }
    return {};
}

}  // namespace

void RulebaseCheck::CheckProperty(
    std::string_view object,
    std::string_view property,
    const Events& events,
    const std::string& shown,
    const RulebaseFault& place) {
    const std::string reason = WhyUnreadable(object, property, shown);
    if (!reason.empty()) {
        AddFault(place, FaultKind::Tag, reason);
        return;
    }
    std::string outside;
    for (const std::int32_t event : events) {
        if (!modEventScope::MayBeInScope(event, object)) {
            outside += (outside.empty() ? "" : ", ") + modEventScope::Describe(event);
        }
    }
    if (!outside.empty()) {
        AddFault(
            place,
            FaultKind::Scope,
            shown + " reads '" + std::string(object) + "', which is not in scope at " + outside);
    }
}

void RulebaseCheck::CheckText(
    std::string_view text,
    const Events& events,
    const std::string& element,
    std::int32_t ruleID,
    const std::string& place) {
    const RulebaseFault at{FaultKind::Tag, ruleID, element, place, ""};
    const modTextTags::TagsOfText found = modTextTags::Find(text);
    for (const TextTag& tag : found.Tags) {
        CheckProperty(tag.Object, tag.Property, events, tag.Text(), at);
    }
    if (found.HasMore) {
        AddFault(
            at,
            FaultKind::Tag,
            "only the first " + std::to_string(modTextTags::kMostTags) +
                " different tags are replaced; any other stays as it is written");
    }
    if (!found.Unreached.empty()) {
        AddFault(
            at,
            FaultKind::Tag,
            found.Unreached.front().Text() + " is not replaced, because the percent sign before '" +
                found.Stopper.substr(0, found.Stopper.find('\n')) +
                "' does not begin a tag; write \"percent\" instead");
    }
}

void RulebaseCheck::CheckViolationTexts(const Rule& rule, const Events& events) {
    const ViolationDefinition& definition = rule.Content->ViolationDefinition();
    const std::int32_t ruleID = rule.Content->RuleID();
    const std::string place = "ViolationDefinition ";
    CheckViolation(definition, rule.Element, ruleID, place);
    CheckText(definition.Description(), events, rule.Element, ruleID, place + "Description");
    CheckText(definition.Advice(), events, rule.Element, ruleID, place + "Advice");
    const modTextTags::TagsOfText inTitle = modTextTags::Find(definition.Title());
    if (!inTitle.Tags.empty()) {
        AddFault(
            FaultKind::Tag,
            rule,
            place + "Name",
            inTitle.Tags.front().Text() +
                " is not replaced, because the name of a violation is shown as it is written");
    }
}

void RulebaseCheck::CheckPattern(const std::string& pattern, const RulebaseFault& place) {
    Trap(
        {"RulebaseCheck", "CheckPattern"},
        [&] { RegularExpression(pattern).Test(""); },
        [&](const BasicError& failure) {
            // An abandoned search does not mean that the pattern is malformed.
            if (failure.Number() != kRegularExpressionTooComplex) {
                AddFault(place, FaultKind::Pattern, failure.what());
            }
            return true;
        });
}

}  // namespace dorvik
