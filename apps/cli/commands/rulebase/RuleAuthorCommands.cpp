#include "cli/commands/rulebase/RuleAuthorCommands.h"

#include <CLI/CLI.hpp>

namespace dorvik {

// The texts fit a terminal of 80 columns: at most 49 characters after the column of names.

void RuleAuthorCommands::AddTo(CLI::App& app, std::function<ExitCode()>& chosen) {
    CLI::App& rulebase =
        *app.add_subcommand("rulebase", "Show, check, write and document a rulebase");
    rulebase.require_subcommand(1);
    AddReaders(rulebase, chosen);
    AddList(rulebase, chosen);
    AddWriters(rulebase, chosen);
    AddCatalogue(app, chosen);
}

void RuleAuthorCommands::AddReaders(CLI::App& rulebase, std::function<ExitCode()>& chosen) {
    CLI::App& show = *rulebase.add_subcommand("show", "Show the rulebase at a glance");
    show.add_option("FILE", m_show.File, "The rulebase")->required()->type_name("");
    show.callback([&] {
        chosen = [this] {
            return RunRulebaseShow(m_show);
        };
    });

    CLI::App& explain = *rulebase.add_subcommand("explain", "Show everything about one rule");
    explain.add_option("FILE", m_explain.File, "The rulebase")->required()->type_name("");
    explain.add_option("RULE", m_explain.Rule, "Its number, its title or a part of the title")
        ->required()
        ->type_name("");
    explain.add_flag("--json", m_explain.Json, "Print JSON");
    explain.callback([&] {
        chosen = [this] {
            return RunRulebaseExplain(m_explain);
        };
    });

    CLI::App& check =
        *rulebase.add_subcommand("check", "Report faults before a review; 1 if there are any");
    check.add_option("FILE", m_check.Files, "Rulebases")->required()->type_name("");
    check.add_flag("--json", m_check.Json, "Print JSON");
    check.callback([&] {
        chosen = [this] {
            return RunRulebaseCheck(m_check);
        };
    });
}

void RuleAuthorCommands::AddList(CLI::App& rulebase, std::function<ExitCode()>& chosen) {
    CLI::App& list = *rulebase.add_subcommand("list", "List the rules as a table");
    list.add_option("FILE", m_list.File, "The rulebase")->required()->type_name("");
    list.add_option("--kind", m_list.Kinds, "Only these kinds: keyword,coding,naming")
        ->type_name("LIST")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::IsMember({"keyword", "coding", "naming"}).description(""));
    list.add_option("--severity", m_list.Severities, "Only 1 (critical) to 5 (information)")
        ->type_name("LIST")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::Range(1, 5).description(""));
    list.add_option("--category", m_list.Category, "Only this title or ID, or 'none'")
        ->type_name("NAME");
    list.add_option("--event", m_list.Event, "Only rules that apply at this event")
        ->type_name("EVENT");
    list.add_flag("--json", m_list.Json, "Print JSON, with everything about each rule");
    list.callback([&] {
        chosen = [this] {
            return RunRulebaseList(m_list);
        };
    });
}

void RuleAuthorCommands::AddWriters(CLI::App& rulebase, std::function<ExitCode()>& chosen) {
    CLI::App& fresh = *rulebase.add_subcommand("new", "Write a rulebase without rules");
    fresh.add_option("FILE", m_new.File, "The rulebase to write")->required()->type_name("");
    fresh.add_option("--title", m_new.Title, "Its title ('Untitled')")->type_name("TEXT");
    fresh.add_flag("--force", m_new.Force, "Overwrite an existing file");
    fresh.callback([&] {
        chosen = [this] {
            return RunRulebaseNew(m_new);
        };
    });

    CLI::App& save =
        *rulebase.add_subcommand("save", "Read a rulebase and write it to another file");
    save.add_option("FILE", m_save.File, "The rulebase to read")->required()->type_name("");
    save.add_option("--to", m_save.Target, "The file to write")->required()->type_name("FILE");
    save.callback([&] {
        chosen = [this] {
            return RunRulebaseSave(m_save);
        };
    });

    CLI::App& document = *rulebase.add_subcommand("document", "Write a rulebase as a page");
    document.add_option("FILE", m_document.File, "The rulebase")->required()->type_name("");
    document.add_option("--to", m_document.Target, "The page to write (HTML)")
        ->required()
        ->type_name("FILE");
    document.callback([&] {
        chosen = [this] {
            return RunRulebaseDocument(m_document);
        };
    });
}

void RuleAuthorCommands::AddCatalogue(CLI::App& app, std::function<ExitCode()>& chosen) {
    CLI::App& catalogue =
        *app.add_subcommand("catalogue", "What a rule can talk about: objects, events, scope");
    catalogue
        .add_option("PART", m_catalogue.Part, "One of: objects, properties, events, scope (all)")
        ->type_name("")
        ->check(CLI::IsMember({"objects", "properties", "events", "scope"}).description(""));
    catalogue.add_flag("--json", m_catalogue.Json, "Print JSON");
    catalogue.callback([&] {
        chosen = [this] {
            return RunCatalogue(m_catalogue);
        };
    });
}

}  // namespace dorvik
