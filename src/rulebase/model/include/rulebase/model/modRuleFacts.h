#pragma once

#include "rulebase/model/Rulebase.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// How a fact is to be shown.
enum class FactForm {
    Text,     // in the reading face; may have several lines
    Pattern,  // a regular expression or other piece of code, in the typewriter face
    Script,   // a program, line by line
};

/// One thing that a reader wants to know of a rule.
struct RuleFact {
    std::string Label;
    std::string Text;
    FactForm Form = FactForm::Text;
};

/// Rules in words, for display.
namespace modRuleFacts {

/// How errors name the rule: "rule 12 (No GoTo)".
std::string NameOf(const IRule& rule);

/// "unauthorised keyword", "coding convention", "naming convention".
std::string_view KindName(RuleType kind);
/// "keyword", "coding", "naming".
std::string_view KindKey(RuleType kind);

/// The title of the category; "none" for -1, "unknown (7)" for one that is not there.
std::string CategoryTitle(const Rulebase& rulebase, std::int32_t categoryID);
/// The title of the severity; the number for one that is not there.
std::string SeverityTitle(const Rulebase& rulebase, std::int32_t level);

/// The events that a rule is tried at. For a naming convention those follow from its object.
std::vector<std::int32_t> EventsOf(const IRule& rule);

/// A prefix or suffix in words: "the scope tag, then the text 'x'"; "nothing" without items.
std::string Describe(const ObjectArrayList<PrefixSuffixItem>& items);

/// Everything about the rule, in the order in which a person wants to know it; nothing that is empty.
std::vector<RuleFact> Of(const IRule& rule, const Rulebase& rulebase);

/// A tolerance in words, for example "critical violations, at most: 0", for each that is set.
std::vector<RuleFact> Tolerances(const Rulebase& rulebase);

}  // namespace modRuleFacts

}  // namespace dorvik
