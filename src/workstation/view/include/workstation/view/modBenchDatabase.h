#pragma once

#include <string>
#include <string_view>

namespace dorvik {

class ResultsDB;

/// Results databases as the work bench opens them: the user waits for it, so it waits for other programs for a moment only.
namespace modBenchDatabase {

/// `ResultsDB::OpenReview`.
bool Open(ResultsDB& results, const std::string& file);

/// The message for a database that could not be opened: what to do where another program has it locked, else `otherwise`.
std::string Objection(const ResultsDB& results, std::string_view otherwise);

}  // namespace modBenchDatabase

}  // namespace dorvik
