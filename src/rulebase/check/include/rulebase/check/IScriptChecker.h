#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace dorvik {

/// A rule's script as the rulebase has it.
struct RuleScript {
    std::int32_t RuleID = 0;
    std::string RuleName;  // how a sentence about another rule names this one
    std::string Text;
};

/// What a compiler found wrong in a rule's script.
struct ScriptFault {
    std::int32_t Line = 0;  // 1-based, within the rule's own script
    std::string Sentence;
    std::int32_t Column = 0;  // 1-based, in characters; 0 where it is not known
    bool IsError = true;      // keeps the scripts of all rules from running; else only a hint
};

/// Compiles the scripts of a rulebase without running them. `RulebaseCheck` uses it; it is implemented in a
/// higher layer, which links the script engine.
class IScriptChecker {
public:
    virtual ~IScriptChecker() = default;
    /// The faults of each script, at its position in the list; none if it compiles. The scripts are
    /// in the order in which a review joins them to one module, so they can use each other's
    /// procedures, and no two procedures may have the same name. No two scripts have the same number.
    virtual std::vector<std::vector<ScriptFault>> Check(std::span<const RuleScript> scripts) = 0;
};

}  // namespace dorvik
