#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// What a compiler found wrong in a rule's script.
struct ScriptFault {
    std::int32_t Line = 0;  // 1-based, within the rule's own script
    std::string Sentence;
};

/// Compiles the scripts of a rulebase without running them. The check of a rulebase takes one; the
/// script engine stands above this floor and implements it.
class IScriptChecker {
public:
    virtual ~IScriptChecker() = default;
    /// Nothing if the script compiles. The scripts of one rulebase come in the order in which a
    /// review would put them into one module, so that names which two scripts share can be told.
    virtual std::vector<ScriptFault> Check(std::int32_t ruleID, std::string_view script) = 0;
};

}  // namespace dorvik
