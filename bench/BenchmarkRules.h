#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// One rule of the benchmark's rulebase, as the element of a rulebase file.
struct BenchmarkRule {
    enum class Kind : std::uint8_t { Coding, Naming, Keyword };
    Kind RuleKind;
    std::string
        Place;  // the event or the kind of object, in words, under which its cost is reported
    std::string Xml;
};

/// The 150 rules that a review is measured with: 60 coding conventions at mixed events, most of them
/// at statements of procedures, 40 naming conventions and 50 unauthorised keywords. They are of the
/// kinds that teams write, read what such rules read, and raise seldom, as the rules of a code base do
/// that is looked after.
std::vector<BenchmarkRule> BenchmarkRules();

/// The text of a rulebase file without rules, with the rules in it that `isWanted` picks.
std::string BenchmarkRulebase(
    const std::string& emptyRulebase,
    const std::vector<BenchmarkRule>& rules,
    const std::function<bool(const BenchmarkRule&)>& isWanted);

}  // namespace dorvik
