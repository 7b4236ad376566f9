#include "cli/commands/rulebase/RulebaseExplainCommand.h"

#include "RuleJson.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "cli/commands/rulebase/RulebaseFile.h"
#include "cli/output/Console.h"
#include "cli/output/TablePrinter.h"
#include "rulebase/model/modRuleFacts.h"

#include <functional>
#include <optional>

namespace dorvik {

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::string_view kTab = "    ";  // as wide as in the editor that the scripts come from

std::vector<const IRule*>
RulesThat(const Rulebase& rulebase, const std::function<bool(const IRule&)>& fit) {
    std::vector<const IRule*> fitting;
    const auto& rules = rulebase.RuleLists().AllConventions();
    for (const auto& rule : rules) {
        if (fit(*rule)) {
            fitting.push_back(rule.get());
        }
    }
    return fitting;
}

/// By number, else by the whole title, else by a part of it.
std::vector<const IRule*> Find(const Rulebase& rulebase, const std::string& wanted) {
    if (const std::optional<std::int32_t> number = modText::WholeNumber(wanted)) {
        std::vector<const IRule*> numbered =
            RulesThat(rulebase, [&](const IRule& rule) { return rule.RuleID() == *number; });
        if (!numbered.empty()) {
            return numbered;
        }
    }
    std::vector<const IRule*> titled = RulesThat(
        rulebase, [&](const IRule& rule) { return modTextCase::Equal(rule.Title(), wanted); });
    if (!titled.empty() || wanted.empty()) {
        return titled;
    }
    return RulesThat(rulebase, [&](const IRule& rule) {
        return modTextCase::Find(rule.Title(), wanted) != std::string::npos;
    });
}

/// The lines of a script as they are written, each with its number. They are not wrapped: a script is read
/// and copied line by line.
void PrintScript(const RuleFact& fact) {
    const bool coloured = modConsole::OutputIsColoured();
    std::string text = "\n  " + fact.Label + "\n";
    const std::vector<std::string> lines =
        modTerminalText::Wrap(modTextCase::ReplaceAll(fact.Text, "\t", kTab), std::string::npos);
    const std::size_t width = std::to_string(lines.size()).size();
    std::size_t number = 0;
    for (const std::string& line : lines) {
        std::string shown = std::to_string(++number);
        shown.insert(0, width - shown.size() + kIndent * 2, ' ');
        text += modTerminalText::Shaded(shown, Shade::Dim, coloured) +
                (line.empty() ? "" : "  " + line) + "\n";
    }
    modConsole::Print(text);
}

void PrintRule(const IRule& rule, const Rulebase& rulebase) {
    modConsole::Print(
        modTerminalText::Shaded(
            modTerminalText::Harmless(std::to_string(rule.RuleID()) + "  " + rule.Title()),
            Shade::Heading,
            modConsole::OutputIsColoured()) +
        "\n");
    TablePrinter table({{""}, {"", false, true}});
    table.SetIndent(kIndent);
    std::vector<RuleFact> scripts;
    for (const RuleFact& fact : modRuleFacts::Of(rule, rulebase)) {
        if (fact.Form == FactForm::Script) {
            scripts.push_back(fact);
        } else {
            table.AddRow({{fact.Label, Shade::Dim}, {fact.Text}});
        }
    }
    table.Print();
    for (const RuleFact& script : scripts) {
        PrintScript(script);
    }
}

}  // namespace

ExitCode RunRulebaseExplain(const RulebaseExplainOptions& options) {
    const std::unique_ptr<Rulebase> rulebase = modRulebaseFile::Load(options.File);
    if (rulebase == nullptr) {
        return ExitCode::NothingDone;
    }
    const std::vector<const IRule*> rules = Find(*rulebase, options.Rule);
    if (rules.empty()) {
        modConsole::PrintError(
            "the rulebase '" + options.File + "' has no rule '" + options.Rule +
            "' (see 'dorvik rulebase list')");
        return ExitCode::NothingDone;
    }
    if (options.Json) {
        JsonOutput json;
        json.BeginArray();
        for (const IRule* rule : rules) {
            WriteRuleAsJson(json, *rule, *rulebase);
        }
        json.EndArray();
        json.Print();
        return ExitCode::Passed;
    }
    for (const IRule* rule : rules) {
        if (rule != rules.front()) {
            modConsole::Print("\n");
        }
        PrintRule(*rule, *rulebase);
    }
    return ExitCode::Passed;
}

}  // namespace dorvik
