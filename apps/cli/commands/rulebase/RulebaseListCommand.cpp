#include "cli/commands/rulebase/RulebaseListCommand.h"

#include "RuleJson.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "cli/commands/rulebase/RulebaseFile.h"
#include "cli/output/Console.h"
#include "cli/output/JsonOutput.h"
#include "cli/output/TablePrinter.h"
#include "parser/ParserEventTable.h"
#include "rulebase/model/modRuleFacts.h"

#include <algorithm>
#include <optional>

namespace dorvik {

namespace {

constexpr std::int32_t kNoCategory = -1;

/// The filters with their names looked up.
struct Filter {
    std::vector<std::string> Kinds;
    std::vector<std::int32_t> Severities;
    std::optional<std::int32_t> Category;
    std::optional<std::int32_t> Event;

    bool Fits(const IRule& rule) const {
        const std::vector<std::int32_t> events = modRuleFacts::EventsOf(rule);
        return Among(Kinds, std::string(modRuleFacts::KindKey(rule.RuleType()))) &&
               Among(Severities, rule.ViolationDefinition().Severity()) &&
               (!Category.has_value() || *Category == rule.ViolationDefinition().CategoryID()) &&
               (!Event.has_value() ||
                std::find(events.begin(), events.end(), *Event) != events.end());
    }

private:
    template <class Value>
    static bool Among(const std::vector<Value>& wanted, const Value& value) {
        return wanted.empty() || std::find(wanted.begin(), wanted.end(), value) != wanted.end();
    }
};

std::optional<std::int32_t> FindCategory(const Rulebase& rulebase, const std::string& wanted) {
    if (modTextCase::Equal(wanted, "none")) {
        return kNoCategory;
    }
    const std::optional<std::int32_t> number = modText::WholeNumber(wanted);
    const CategoryList& categories = rulebase.CategoryList();
    for (const auto& category : categories) {
        if (category->ID() == number || modTextCase::Equal(category->Title(), wanted)) {
            return category->ID();
        }
    }
    return std::nullopt;
}

std::optional<std::int32_t> FindEvent(const std::string& wanted) {
    const std::optional<std::int32_t> number = modText::WholeNumber(wanted);
    for (const ParserEventRow& row : kParserEvents) {
        if (static_cast<std::int32_t>(row.Event) == number ||
            modTextCase::Equal(row.Text, wanted)) {
            return static_cast<std::int32_t>(row.Event);
        }
    }
    return std::nullopt;
}

/// Nothing, and a sentence, if a filter names something that is not there.
std::optional<Filter> MakeFilter(const RulebaseListOptions& options, const Rulebase& rulebase) {
    Filter filter{options.Kinds, options.Severities, {}, {}};
    if (!options.Category.empty()) {
        filter.Category = FindCategory(rulebase, options.Category);
        if (!filter.Category.has_value()) {
            modConsole::PrintError(
                "the rulebase '" + options.File + "' has no category '" + options.Category +
                "' (see 'dorvik rulebase show')");
            return std::nullopt;
        }
    }
    if (!options.Event.empty()) {
        filter.Event = FindEvent(options.Event);
        if (!filter.Event.has_value()) {
            modConsole::PrintError(
                "there is no event '" + options.Event + "' (see 'dorvik catalogue events')");
            return std::nullopt;
        }
    }
    return filter;
}

std::vector<const IRule*> FittingRules(const Rulebase& rulebase, const Filter& filter) {
    std::vector<const IRule*> fitting;
    const auto& rules = rulebase.RuleLists().AllConventions();
    for (const auto& rule : rules) {
        if (filter.Fits(*rule)) {
            fitting.push_back(rule.get());
        }
    }
    return fitting;
}

void PrintTable(const Rulebase& rulebase, const std::vector<const IRule*>& rules) {
    TablePrinter table(
        {{"Rule", true},
         {"Kind"},
         {"Severity"},
         {"Category", false, true},
         {"Title", false, true}});
    for (const IRule* rule : rules) {
        const ViolationDefinition& violation = rule->ViolationDefinition();
        const Shade shade = rule->RuleActive() ? Shade::Plain : Shade::Dim;
        table.AddRow(
            {{std::to_string(rule->RuleID()), shade},
             {std::string(modRuleFacts::KindKey(rule->RuleType())), shade},
             {modRuleFacts::SeverityTitle(rulebase, violation.Severity()), shade},
             {modRuleFacts::CategoryTitle(rulebase, violation.CategoryID()), shade},
             {rule->Title() + (rule->RuleActive() ? "" : " (off)"), shade}});
    }
    table.Print();
}

void PrintJson(const Rulebase& rulebase, const std::vector<const IRule*>& rules) {
    JsonOutput json;
    json.BeginObject();
    json.Text("title", rulebase.Title());
    json.Text("version", rulebase.Version());
    json.BeginArray("rules");
    for (const IRule* rule : rules) {
        WriteRuleAsJson(json, *rule, rulebase);
    }
    json.EndArray();
    json.EndObject();
    json.Print();
}

}  // namespace

ExitCode RunRulebaseList(const RulebaseListOptions& options) {
    const std::unique_ptr<Rulebase> rulebase = modRulebaseFile::Load(options.File);
    if (rulebase == nullptr) {
        return ExitCode::NothingDone;
    }
    const std::optional<Filter> filter = MakeFilter(options, *rulebase);
    if (!filter.has_value()) {
        return ExitCode::NothingDone;
    }
    const std::vector<const IRule*> rules = FittingRules(*rulebase, *filter);
    if (options.Json) {
        PrintJson(*rulebase, rules);
    } else if (rules.empty()) {
        modConsole::Print("No rules.\n");
    } else {
        PrintTable(*rulebase, rules);
    }
    modRulebaseFile::ReportUnreadable(options.File);
    return ExitCode::Passed;
}

}  // namespace dorvik
