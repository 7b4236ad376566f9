#pragma once

#include "rulebase/check/IScriptChecker.h"

namespace dorvik {

namespace basic {
class ScriptEngine;
}

/// Compiles the scripts of a rulebase as a review would, and reports the errors of each rule, with lines and columns
/// of its own script. Nothing is run.
class RuleScriptChecker final : public IScriptChecker {
public:
    std::vector<std::vector<ScriptFault>> Check(std::span<const RuleScript> scripts) override;

private:
    /// Finds the errors of each script by itself: those of its syntax, and a main procedure that a review cannot
    /// call.
    void Parse(std::span<const RuleScript> scripts);
    /// Finds the errors that show only when all scripts are compiled as one module: names that two of them define,
    /// procedures that none defines, members that the extension object does not have. A script with errors of its
    /// own is replaced by stand-ins for its procedures, so that it does not hide the errors of the others.
    void Compile(std::span<const RuleScript> scripts);
    /// Assigns the errors of the module to the scripts. `isComplete` is false if a script has no stand-in.
    void AssignErrors(
        const basic::ScriptEngine& engine, std::span<const RuleScript> scripts, bool isComplete);

    std::vector<std::vector<ScriptFault>> m_faults;
};

}  // namespace dorvik
