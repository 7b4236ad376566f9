#include "workstation/view/modBenchDatabase.h"

#include "results/ResultsDB.h"

#include <chrono>

namespace dorvik::modBenchDatabase {

namespace {

constexpr std::chrono::seconds kPatience{1};

}  // namespace

bool Open(ResultsDB& results, const std::string& file) {
    return results.OpenReview(file, kPatience);
}

std::string Objection(const ResultsDB& results, std::string_view otherwise) {
    if (results.Failures().FirstNumber() != databaseerror::kLocked) {
        return std::string(otherwise);
    }
    return "The results database '" + results.Filename() +
           "' is locked by another program.  Please wait until that program has finished, or close "
           "it, and open the results again.";
}

}  // namespace dorvik::modBenchDatabase
