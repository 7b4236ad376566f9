#pragma once

#include "cli/CommandLineFixture.h"

#include <rapidjson/document.h>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// For the commands on a results database: a small project "Shop" of three files, reviewed against the
/// rulebase "team.dvk" of four keywords. It fails, for no violation of severity 1 is tolerated.
class ResultsCommandFixture : public CommandLineFixture {
protected:
    using Lines = std::vector<std::vector<std::string>>;

    ResultsCommandFixture();

    /// `dorvik results DATABASE`, then the words.
    ProgramResult Show(const std::vector<std::string>& words) const;
    /// The words and `--json`.
    rapidjson::Document Json(std::vector<std::string> words) const;
    /// The words and `--csv`: the values of each line, the header first.
    Lines Csv(std::vector<std::string> words) const;
    /// The values of a member in the records under `key`, each followed by a blank.
    std::string
    Values(const std::vector<std::string>& words, const char* key, const char* member) const;

    /// Runs an UPDATE on the database.
    void Change(std::string_view sql) const;
    /// Files beside the database, itself among them, by name.
    std::vector<std::string> FilesBeside() const;

    static constexpr const char* kDatabase = "Dorvik/Shop_DORVIK.mdb";
};

/// What comma-separated values say, by the letter of RFC 4180.
std::vector<std::vector<std::string>> ReadCsv(std::string_view text);

}  // namespace dorvik::test
