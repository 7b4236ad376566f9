#include "ModernReportRules.h"

#include <map>
#include <tuple>

namespace dorvik {

ModernRuleTable ModernRuleTable::Of(const std::vector<ModernViolation>& violations) {
    ModernRuleTable table;
    std::map<
        std::tuple<
            std::int32_t,
            std::int32_t,
            std::int32_t,
            std::int32_t,
            std::int32_t,
            std::string_view>,
        std::size_t>
        known;
    for (const ModernViolation& item : violations) {
        const Violation& found = item.Violation;
        const auto [place, isNew] = known.try_emplace(
            {found.RuleID,
             found.RuleType,
             found.Severity,
             found.CategoryID,
             found.Impact,
             found.Title},
            table.Rules.size());
        if (isNew) {
            ModernRule rule;
            rule.RuleID = found.RuleID;
            rule.RuleType = found.RuleType;
            rule.Severity = found.Severity;
            rule.CategoryID = found.CategoryID;
            rule.Impact = found.Impact;
            rule.Title = found.Title;
            table.Rules.push_back(std::move(rule));
        }
        ModernRule& rule = table.Rules.at(place->second);
        rule.Description.Add(found.Description);
        rule.Advice.Add(found.Advice);
        table.RuleOfViolation.push_back(place->second);
    }
    return table;
}

}  // namespace dorvik
