// Makes the empty results database from its definition: make_results_template DEFINITION.sql TARGET.mdb

#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

/// Empty if all went well, else what went wrong.
std::string MakeDatabase(const std::string& definition, const std::filesystem::path& target) {
    sqlite3* database = nullptr;
    std::string failure;
    if (sqlite3_open(target.c_str(), &database) != SQLITE_OK ||
        sqlite3_exec(database, definition.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        failure = sqlite3_errmsg(database);
    }
    sqlite3_close(database);
    return failure;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) {
        std::fputs("usage: make_results_template DEFINITION.sql TARGET.mdb\n", stderr);
        return 2;
    }
    std::ifstream input(arguments[1], std::ios::binary);
    const std::string definition{std::istreambuf_iterator<char>(input), {}};
    const std::filesystem::path target(arguments[2]);
    // A build that is stopped half-way must not leave half a template.
    const std::filesystem::path unfinished = target.string() + ".new";
    std::filesystem::remove(unfinished);
    const std::string failure = input ? MakeDatabase(definition, unfinished) : "cannot be read";
    if (!failure.empty()) {
        std::fprintf(stderr, "make_results_template: %s: %s\n", arguments[1], failure.c_str());
        return 1;
    }
    std::filesystem::rename(unfinished, target);
    return 0;
}
