#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace dorvik {

class LogFile;

/// The one log that all code reaches. `modGlobal` creates and installs the real one.
namespace modLog {

/// The installed log. Until one is installed, and again after its removal, this is a quiet log
/// without a file, whose lines go nowhere.
LogFile& Log();

/// Makes `log` the installed log; null removes the present one. Returns the log that was installed
/// before, or null. REQUIRES: `log` outlives its installation; it is not owned.
LogFile* Install(LogFile* log);

/// `LogBasicError` on the installed log, for the one place that traps. The log itself raises when it
/// cannot be written to; that ends here, for a program must not die of its own log.
void LogFailure(const std::exception& failure, std::string_view procedure, std::string_view module);

/// Why the first line that `LogFailure` could not write was not written; empty if all were, since the
/// present log was installed.
const std::string& FirstUnwritten();

}  // namespace modLog

}  // namespace dorvik
