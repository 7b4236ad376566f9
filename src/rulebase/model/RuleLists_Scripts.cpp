#include "foundation/log/Trap.h"
#include "rulebase/model/RuleLists.h"
#include "rulebase/model/modRuleFacts.h"
#include "rulebase/script/ScriptFile.h"

namespace dorvik {

namespace {

template <class Rules>
void AddScripts(ScriptFile& file, const Rules& rules) {
    for (const auto& rule : rules) {
        file.AddScript(rule->RuleID(), rule->Condition());
    }
}

}  // namespace

std::string RuleLists::CreateScriptFile(std::vector<basic::ScriptOrigin>* origins) const {
    std::string filename;
    Trap({"RuleLists", "CreateScriptFile"}, [&] {
        ScriptFile file;
        AddScripts(file, m_codingConventions);
        AddScripts(file, m_namingConventions);
        file.CreateScriptFile();
        filename = file.FullFilename();
        if (origins == nullptr) {
            return;
        }
        origins->clear();
        for (const ScriptFile::ScriptLines& lines : file.Lines()) {
            const auto& rule = m_allConventions.Item(RuleKeyOf(lines.RuleID));
            origins->push_back(
                {lines.First, lines.Last, modRuleFacts::NameOf(*rule), lines.RuleID});
        }
    });
    return filename;
}

}  // namespace dorvik
