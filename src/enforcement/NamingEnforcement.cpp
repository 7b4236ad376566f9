#include "NamingEnforcement.h"

#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "enforcement/NamingConventionHelper.h"
#include "enforcement/ReviewLog.h"
#include "enforcement/RuleEngine.h"
#include "enforcement/ViolationLog.h"
#include "foundation/log/Trap.h"
#include "parser/VB6ParserState.h"
#include "rulebase/model/Rulebase.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_VB6ProjectReview";

/// The list has a separator at both ends; without any entry it is two of them.
bool IsExcluded(std::string_view name, std::string_view exclusionList) {
    if (exclusionList.size() <= 2) {
        return false;
    }
    const std::string entry = ";" + std::string(name) + ";";
    return modTextCase::Find(exclusionList, entry) != std::string_view::npos;
}

}  // namespace

void NamingEnforcement::ApplyObjectNamingConventions(
    const EventLocation& location, std::string_view objectName, ObjectType type, bool endEvent) {
    auto* rules =
        m_review.Rulebase.RuleLists().ObjectNCList(static_cast<std::int32_t>(type), false);
    if (rules == nullptr) {
        return;
    }
    for (const auto& candidate : *rules) {
        Trap({kModule, "ApplyObjectNamingConventions"}, [&] {
            NamingConvention& rule = *candidate;
            if (m_review.RuleEngine.Failures().IsDisabled(rule.RuleID())) {
                return;
            }
            m_review.State.SetCurrentRuleID(std::to_string(rule.RuleID()));
            if (rule.Condition().empty() || m_review.RuleEngine.ExecuteRuleCondition(
                                                rule.RuleID()) == ScriptResult::ApplyConvention) {
                ApplyNamingConvention(location, objectName, rule, endEvent);
            }
        });
    }
}

void NamingEnforcement::ApplyNamingConvention(
    const EventLocation& location,
    std::string_view objectName,
    NamingConvention& rule,
    bool endEvent) {
    Trap({kModule, "ApplyNamingConvention"}, [&] {
        const std::optional<Variant> property =
            m_review.Log.FindProperty(objectName, rule.PropertyName());
        if (!property) {
            return;
        }
        const std::string name = property->AsText();
        if (IsExcluded(name, rule.ExclusionList())) {
            return;
        }
        const ViolationDefinition* definition = FailedTest(location, objectName, name, rule);
        if (definition == nullptr) {
            return;
        }
        const ViolationOrigin origin = location.OriginOf(rule);
        if (endEvent) {
            m_review.Violations.RaiseEndEventViolation(*definition, origin, location.Event);
        } else {
            m_review.Violations.RaiseViolation(*definition, origin, "");
        }
    });
}

const ViolationDefinition* NamingEnforcement::FailedTest(
    const EventLocation& location,
    std::string_view objectName,
    std::string_view name,
    NamingConvention& rule) {
    const ViolationDefinition& unknownControl = m_review.Rulebase.DefaultViolations().Item(
        static_cast<std::int32_t>(DefaultViolationType::UnknownControl));
    // Required: the advice is written into the rule's own definition, where it stays for the review.
    const auto failWith = [&rule](const std::string& advice) {
        rule.ViolationDefinition().SetAdvice(advice);
        return &std::as_const(rule).ViolationDefinition();
    };
    Affix prefix{rule.Prefix(), "^", ""};
    Affix suffix{rule.Suffix(), "", "$"};
    for (Affix* const affix : {&prefix, &suffix}) {
        const NamingResult result = TestAffix(location, objectName, name, rule, *affix);
        if (result != NamingResult::Success) {
            return result == NamingResult::UnknownControl ? &unknownControl
                                                          : failWith(affix->Required.Advice());
        }
    }
    if (!rule.BodyActive()) {
        return nullptr;
    }
    std::string_view body = modUtf8::Mid(name, modUtf8::Length(prefix.Match) + 1);
    if (modUtf8::Length(body) >= modUtf8::Length(suffix.Match)) {
        body = modUtf8::WithoutLast(body, modUtf8::Length(suffix.Match));
    }
    return BodyPasses(body, rule) ? nullptr : failWith(rule.BodyAdvice());
}

NamingResult NamingEnforcement::TestAffix(
    const EventLocation& location,
    std::string_view objectName,
    std::string_view name,
    const NamingConvention& rule,
    Affix& affix) {
    if (!affix.Required.Active()) {
        return NamingResult::Success;
    }
    std::string pattern;
    const NamingResult computed = m_helper.ComputePrefixSuffixPattern(
        affix.Required.Items(), location.Event, objectName, pattern);
    if (computed == NamingResult::UnknownControl) {
        return computed;
    }
    // If a tag has no value or the pattern cannot be tested, the name passes.
    if (computed != NamingResult::Success || pattern.empty()) {
        return NamingResult::Success;
    }
    pattern.insert(0, affix.Before).append(affix.After);
    const NamingResult tested = Test(rule, name, pattern, &affix.Match);
    return tested == NamingResult::NoMatch ? tested : NamingResult::Success;
}

bool NamingEnforcement::BodyPasses(std::string_view body, const NamingConvention& rule) {
    const auto length = static_cast<std::int32_t>(modUtf8::Length(body));
    if ((rule.MinBodyLength() >= 1 && length < rule.MinBodyLength()) ||
        (rule.MaxBodyLength() >= 1 && length > rule.MaxBodyLength())) {
        return false;
    }
    // The pattern is used without anchors: it may match anywhere.
    return body.empty() || rule.BodyPattern().empty() ||
           Test(rule, body, rule.BodyPattern(), nullptr) != NamingResult::NoMatch;
}

NamingResult NamingEnforcement::Test(
    const NamingConvention& rule,
    std::string_view text,
    std::string_view pattern,
    std::string* match) {
    const NamingResult result = m_helper.TestPattern(text, pattern, rule.CaseSensitive(), match);
    if (m_helper.WasStopped()) {
        m_review.RuleEngine.CountPatternStop(rule);
    } else if (m_helper.WasMalformed()) {
        m_review.RuleEngine.CountPatternFailure(rule);
    }
    return result;
}

}  // namespace dorvik
