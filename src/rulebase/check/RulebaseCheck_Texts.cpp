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

/// What is wrong with asking for the property, wherever; empty if nothing is.
std::string
WhyUnreadable(std::string_view object, std::string_view property, const std::string& shown) {
    switch (modReadableProperties::Look(object, property)) {
        case Reading::Possible: return {};
        case Reading::Never: return shown + " asks for a property that is never set";
        case Reading::UnknownProperty:
            return shown + " asks for a property that '" + std::string(object) + "' does not have" +
                   Suggestion(modReadableProperties::NearestProperty(object, property));
        case Reading::UnknownObject:
            return shown + " names no object" +
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
        Tell(place, FaultKind::Tag, reason);
        return;
    }
    std::string outside;
    for (const std::int32_t event : events) {
        if (!modEventScope::MayHold(event, object)) {
            outside += (outside.empty() ? "" : ", ") + modEventScope::Describe(event);
        }
    }
    if (!outside.empty()) {
        Tell(
            place,
            FaultKind::Scope,
            shown + " asks for '" + std::string(object) + "', which is not in scope at " + outside);
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
        Tell(
            at,
            FaultKind::Tag,
            "only the first " + std::to_string(modTextTags::kMostTags) +
                " different tags are filled in; any other stays as it stands");
    }
    if (!found.Unreached.empty()) {
        Tell(
            at,
            FaultKind::Tag,
            found.Unreached.front().Text() +
                " is not filled in, because the percent sign in front of '" +
                found.Stopper.substr(0, found.Stopper.find('\n')) + "' begins no tag");
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
        Tell(
            FaultKind::Tag,
            rule,
            place + "Name",
            inTitle.Tags.front().Text() +
                " is not filled in, because the name of a violation is shown as it stands");
    }
}

void RulebaseCheck::CheckPattern(const std::string& pattern, const RulebaseFault& place) {
    Trap(
        {"RulebaseCheck", "CheckPattern"},
        [&] { RegularExpression(pattern).Test(""); },
        [&](const BasicError& failure) {
            // One that is only too much for this text says nothing about the pattern.
            if (failure.Number() != kRegularExpressionTooComplex) {
                Tell(place, FaultKind::Pattern, failure.what());
            }
            return true;
        });
}

}  // namespace dorvik
