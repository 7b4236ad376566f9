#include "cli/commands/script/ScriptCommands.h"

#include <CLI/CLI.hpp>
#include <charconv>

namespace dorvik {

namespace {

/// Why a text is not a time limit; empty if it is one.
std::string WhyNoSeconds(const std::string& text) {
    constexpr double kLongest = 2'000'000;
    double seconds = 0;
    const char* const end = text.data() + text.size();
    const auto [read, fault] = std::from_chars(text.data(), end, seconds);
    const bool isNumber = fault == std::errc() && read == end;
    const bool isLimit = isNumber && seconds >= 0 && seconds <= kLongest;
    return isLimit ? "" : "'" + text + "' is not a number of seconds from 0 to 2000000";
}

}  // namespace

// The texts fit a terminal of 80 columns: at most 49 characters after the column of names.

void ScriptCommands::AddTo(CLI::App& app, std::function<ExitCode()>& chosen) {
    CLI::App& script = *app.add_subcommand("script", "Run and check scripts of rules");
    script.require_subcommand(1);

    CLI::App& run = *script.add_subcommand("run", "Run a script outside a review");
    run.add_option("FILE", m_run.File, "The script")->required()->type_name("");
    run.add_option("--sub", m_run.SubName, "The Sub to run (Main)")->type_name("NAME");
    run.add_option("--facts", m_run.FactsFile, "Objects in scope, as JSON, for 'Dorvik.'")
        ->type_name("FILE");
    run.add_option("--seconds", m_run.Seconds, "Seconds that the script may run (no limit)")
        ->type_name("NUMBER")
        ->check(CLI::Validator(WhyNoSeconds, ""));
    run.callback([&] {
        chosen = [this] {
            return RunScript(m_run);
        };
    });

    CLI::App& check = *script.add_subcommand("check", "Compile scripts and report errors");
    check.add_option("FILE", m_checked, "The scripts")->required()->type_name("");
    check.callback([&] {
        chosen = [this] {
            return CheckScripts(m_checked);
        };
    });

    CLI::App& disassemble =
        *script.add_subcommand("disassemble", "Show the instructions of each line");
    disassemble.add_option("FILE", m_disassembled, "The script")->required()->type_name("");
    disassemble.callback([&] {
        chosen = [this] {
            return DisassembleScript(m_disassembled);
        };
    });
}

}  // namespace dorvik
