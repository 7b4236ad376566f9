#include "cli/commands/rulebase/RulebaseCheckCommand.h"

#include "cli/commands/rulebase/RulebaseFile.h"
#include "cli/output/Console.h"
#include "cli/output/JsonOutput.h"
#include "cli/output/TablePrinter.h"
#include "cli/output/modCommandPath.h"
#include "enforcement/RuleScriptChecker.h"
#include "rulebase/check/RulebaseCheck.h"

#include <algorithm>

namespace dorvik {

namespace {

/// One line a finding, so that other programs can take it.
void PrintFaults(const std::string& file, const std::vector<RulebaseFault>& faults) {
    const bool coloured = modConsole::OutputIsColoured();
    std::string text;
    for (const RulebaseFault& fault : faults) {
        const std::string place =
            fault.Element + (fault.Attribute.empty() ? "" : ", " + fault.Attribute);
        text +=
            modTerminalText::Harmless(file) + ": " +
            modTerminalText::Shaded(modTerminalText::Harmless(place), Shade::Heading, coloured) +
            ": " + modTerminalText::Harmless(fault.Sentence) + "\n";
    }
    modConsole::Print(text);
}

void WriteFaults(
    JsonOutput& json, const std::string& file, const std::vector<RulebaseFault>& faults) {
    for (const RulebaseFault& fault : faults) {
        json.BeginObject();
        json.Text("file", file);
        json.Text("kind", FaultKindName(fault.Kind));
        fault.RuleID == 0 ? json.Null("rule") : json.Number("rule", fault.RuleID);
        fault.Line == 0 ? json.Null("line") : json.Number("line", fault.Line);
        json.Text("element", fault.Element);
        json.Text("attribute", fault.Attribute);
        json.Text("sentence", fault.Sentence);
        json.EndObject();
    }
}

}  // namespace

ExitCode RunRulebaseCheck(const RulebaseCheckOptions& options) {
    auto worst = ExitCode::Passed;
    JsonOutput json;
    json.BeginArray();
    for (const std::string& file : options.Files) {
        if (!modRulebaseFile::Exists(file)) {
            worst = ExitCode::NothingDone;
            continue;
        }
        RuleScriptChecker scripts;
        RulebaseCheck check(&scripts);
        if (!check.Run(modCommandPath::Inner(file))) {
            modConsole::PrintError(modRulebaseFile::CannotBeRead(file, check.Problem()));
            worst = ExitCode::NothingDone;
            continue;
        }
        if (!check.Faults().empty()) {
            worst = std::max(worst, ExitCode::Failed);
        }
        options.Json ? WriteFaults(json, file, check.Faults()) : PrintFaults(file, check.Faults());
    }
    json.EndArray();
    if (options.Json) {
        json.Print();
    }
    return worst;
}

}  // namespace dorvik
