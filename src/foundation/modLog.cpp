#include "foundation/modLog.h"

#include "foundation/LogFile.h"

#include <utility>

namespace dorvik::modLog {

namespace {

LogFile* g_installed = nullptr;
std::string g_firstUnwritten;

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
    g_firstUnwritten.clear();
    return std::exchange(g_installed, log);
}

void LogFailure(
    const std::exception& failure, std::string_view procedure, std::string_view module) {
    try {
        Log().LogBasicError(failure, procedure, module);
    } catch (const std::exception& ofTheLog) {
        if (g_firstUnwritten.empty()) {
            g_firstUnwritten = ofTheLog.what();
        }
    }
}

const std::string& FirstUnwritten() {
    return g_firstUnwritten;
}

}  // namespace dorvik::modLog
