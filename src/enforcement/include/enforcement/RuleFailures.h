#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class IRule;
class ReviewLog;

/// Which rules failed during a review, and which were stopped at a limit. After the third stop a rule is
/// disabled for the rest of the review, because every further stop would cost the same time.
class RuleFailures {
public:
    static constexpr int kStopsUntilDisabled = 3;

    /// The part of a rule that was run: its script or its pattern.
    struct RulePart {
        std::int32_t RuleID = 0;
        std::string RuleName;  // as messages name it: "rule 12 (No GoTo)"
        std::string_view What;
    };
    static RulePart ScriptOf(std::int32_t ruleId, std::string_view ruleName);
    static RulePart PatternOf(const IRule& rule);

    /// The part was stopped at a limit. The log, if there is one, gets a line when this disables the rule.
    void CountStop(const RulePart& part, const ReviewLog* log);
    /// The part failed for any other reason: an error of the script, a malformed pattern.
    void CountFailure(const RulePart& part);

    bool IsDisabled(std::int32_t ruleId) const {
        if (m_disabled.empty()) {
            return false;
        }
        const auto stops = m_stops.find(ruleId);
        return stops != m_stops.end() && stops->second.Count >= kStopsUntilDisabled;
    }

    /// A part that failed or was stopped, and how often.
    struct CountedPart {
        RulePart Part;
        std::int64_t Count = 0;
    };
    /// In the order in which they were disabled.
    const std::vector<RulePart>& DisabledRules() const { return m_disabled; }
    /// The rules that were stopped, but not so often that they were disabled; by number.
    std::vector<CountedPart> StoppedRules() const;
    /// By number.
    std::vector<CountedPart> FailedRules() const;

private:
    std::map<std::int32_t, CountedPart> m_stops;     // by rule number, with the part that was first
    std::map<std::int32_t, CountedPart> m_failures;  // likewise
    std::vector<RulePart> m_disabled;
};

}  // namespace dorvik
