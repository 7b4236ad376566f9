#include "cli/commands/typelib/TypelibCommands.h"

#include <CLI/CLI.hpp>

namespace dorvik {

// The texts fit a terminal of 80 columns: at most 49 characters after the column of names.

void TypelibCommands::AddTo(CLI::App& app, std::function<ExitCode()>& chosen) {
    CLI::App& typelib = *app.add_subcommand("typelib", "Show what is known of type libraries");
    typelib.require_subcommand(1);

    CLI::App& list = *typelib.add_subcommand("list", "List libraries and the names of their types");
    list.add_option("FILE|GUID", m_list.What, "A file, also 'name\\3', or a library's GUID")
        ->required()
        ->type_name("");
    list.add_option(
            "--type-libraries", m_list.Folders, "Search this folder for the GUID (repeatable)")
        ->type_name("DIR")
        ->allow_extra_args(false);
    list.add_flag("--json", m_list.Json, "Print JSON");
    list.callback([&] {
        chosen = [this] {
            return RunTypelibList(m_list);
        };
    });

    CLI::App& index = *typelib.add_subcommand("index", "List the libraries in a folder and below");
    index.add_option("DIR", m_index.Folder, "The folder")->required()->type_name("");
    index.add_flag("--json", m_index.Json, "Print JSON");
    index.callback([&] {
        chosen = [this] {
            return RunTypelibIndex(m_index);
        };
    });
}

}  // namespace dorvik
