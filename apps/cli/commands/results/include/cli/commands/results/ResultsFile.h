#pragma once

#include "cli/output/ExitCode.h"

#include <functional>
#include <string>

namespace dorvik {

class ResultsDB;

/// Results databases as the commands name them: by paths of this machine.
namespace modResultsFile {

/// Opens the review in a results database, runs the body on it, and closes it. What the file turns out
/// to be instead, and what cannot be read of it, is reported in one sentence and ends in `NothingDone`. A file
/// that is not a results database of this version is not changed in any way.
///
/// The lists have the order and the completeness of a fresh installation, whatever the user's settings.
ExitCode Read(const std::string& hostPath, const std::function<ExitCode(ResultsDB&)>& body);

/// The same for a body that changes the database, with words for that where it fails. A body that changed
/// anything does not return `NothingDone`; a failure beside that ends in `Incomplete`.
ExitCode Change(const std::string& hostPath, const std::function<ExitCode(ResultsDB&)>& body);

}  // namespace modResultsFile

}  // namespace dorvik
