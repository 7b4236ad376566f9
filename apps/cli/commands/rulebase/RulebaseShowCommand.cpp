#include "cli/commands/rulebase/RulebaseShowCommand.h"

#include "cli/commands/rulebase/RulebaseFile.h"
#include "cli/output/Console.h"
#include "cli/output/TablePrinter.h"
#include "rulebase/model/modRuleFacts.h"

namespace dorvik {

namespace {

constexpr std::size_t kIndent = 2;

void PrintHeading(const std::string& title) {
    modConsole::Print(
        "\n" + modTerminalText::Shaded(title, Shade::Heading, modConsole::OutputIsColoured()) +
        "\n");
}

void PrintHead(const Rulebase& rulebase, const std::string& file) {
    TablePrinter table({{""}, {"", false, true}});
    table.AddRow({{"Title"}, {rulebase.Title(), Shade::Heading}});
    table.AddRow({{"Version"}, {rulebase.Version()}});
    table.AddRow({{"File"}, {file}});
    if (!rulebase.Description().empty()) {
        table.AddRow({{"Description"}, {rulebase.Description()}});
    }
    table.Print();
}

void PrintCounts(const Rulebase& rulebase) {
    const RuleLists& rules = rulebase.RuleLists();
    PrintHeading("Contents");
    TablePrinter table({{"", true}, {""}});
    table.SetIndent(kIndent);
    table.AddRow({{rules.UnauthorisedKeywords().Count()}, {"unauthorised keywords"}});
    table.AddRow({{rules.CodingConventions().Count()}, {"coding conventions"}});
    table.AddRow({{rules.NamingConventions().Count()}, {"naming conventions"}});
    table.AddRow({{rulebase.AuthorisedComponents().Count()}, {"authorised components"}});
    table.AddRow({{rulebase.AuthorisedReferences().Count()}, {"authorised references"}});
    table.Print();
}

void PrintCategories(const Rulebase& rulebase) {
    PrintHeading("Categories");
    TablePrinter table({{"ID", true}, {"Category", false, true}, {"Rules", true}});
    table.SetIndent(kIndent);
    const CategoryList& categories = rulebase.CategoryList();
    for (const auto& category : categories) {
        table.AddRow(
            {{category->ID()},
             {category->Title() + (category->Hidden() ? " (hidden)" : "")},
             {rulebase.RuleLists().ConventionsListByCatID(category->ID()).Count()}});
    }
    table.RowCount() > 0 ? table.Print() : modConsole::Print("  none\n");
}

std::int32_t RulesOfSeverity(const Rulebase& rulebase, std::int32_t level) {
    std::int32_t count = 0;
    const auto& rules = rulebase.RuleLists().AllConventions();
    for (const auto& rule : rules) {
        count += rule->ViolationDefinition().Severity() == level ? 1 : 0;
    }
    return count;
}

void PrintSeverities(const Rulebase& rulebase) {
    PrintHeading("Severities");
    TablePrinter table(
        {{"Level", true}, {"Severity", false, true}, {"Impact", true}, {"Rules", true}});
    table.SetIndent(kIndent);
    const SeverityTable& severities = rulebase.SeverityList();
    for (const auto& item : severities) {
        table.AddRow(
            {{item->SeverityLevel()},
             {item->Title()},
             {std::int32_t{item->Impact()}},
             {RulesOfSeverity(rulebase, item->SeverityLevel())}});
    }
    table.Print();
}

void PrintTolerances(const Rulebase& rulebase) {
    PrintHeading("Tolerances");
    TablePrinter table({{"", false, true}, {""}});
    table.SetIndent(kIndent);
    for (const RuleFact& fact : modRuleFacts::Tolerances(rulebase)) {
        table.AddRow({{fact.Label}, {fact.Text}});
    }
    table.RowCount() > 0 ? table.Print() : modConsole::Print("  none set\n");
}

}  // namespace

ExitCode RunRulebaseShow(const RulebaseShowOptions& options) {
    const std::unique_ptr<Rulebase> rulebase = modRulebaseFile::Load(options.File);
    if (rulebase == nullptr) {
        return ExitCode::NothingDone;
    }
    PrintHead(*rulebase, options.File);
    PrintCounts(*rulebase);
    PrintCategories(*rulebase);
    PrintSeverities(*rulebase);
    PrintTolerances(*rulebase);
    modRulebaseFile::ReportUnreadable(options.File);
    return ExitCode::Passed;
}

}  // namespace dorvik
