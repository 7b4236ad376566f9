#pragma once

#include "rulebase/check/IScriptChecker.h"

namespace dorvik {

namespace basic {
class ScriptEngine;
}

/// Compiles the scripts of a rulebase the way a review would, and tells each rule what is wrong with
/// its own, places counted within its own script. Nothing runs.
class RuleScriptChecker final : public IScriptChecker {
public:
    std::vector<std::vector<ScriptFault>> Check(std::span<const RuleScript> scripts) override;

private:
    /// What keeps a script from being read at all, or a review from calling it. In the module something stands
    /// for the procedures of such a one, so that it cannot hide what is wrong with the others.
    void Read(std::span<const RuleScript> scripts);
    /// What shows only when all of them stand in one module: names that two share, procedures that
    /// no script has, what the extension object does not know.
    void Compile(std::span<const RuleScript> scripts);
    void Tell(const basic::ScriptEngine& engine, std::span<const RuleScript> scripts, bool isWhole);

    std::vector<std::vector<ScriptFault>> m_faults;
};

}  // namespace dorvik
