#include "foundation/modLog.h"

#include "foundation/LogFile.h"

#include <utility>

namespace dorvik::modLog {

namespace {

LogFile* g_installed = nullptr;

LogFile& QuietLog() {
    static LogFile log = [] {
        LogFile quiet;
        quiet.SetQuiet(true);
        return quiet;
    }();
    return log;
}

}  // namespace

LogFile& Log() {
    return g_installed != nullptr ? *g_installed : QuietLog();
}

LogFile* Install(LogFile* log) {
    return std::exchange(g_installed, log);
}

void LogFailure(
    const std::exception& failure, std::string_view procedure, std::string_view module) {
    Log().LogBasicError(failure, procedure, module);
}

}  // namespace dorvik::modLog
