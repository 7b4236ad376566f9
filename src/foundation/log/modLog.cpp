#include "foundation/log/modLog.h"

#include "foundation/log/LogFile.h"

#include <cstddef>
#include <utility>

namespace dorvik::modLog {

namespace {

LogFile* g_installed = nullptr;
std::string g_firstUnwritten;

constexpr std::size_t kLongestReason = 2000;

/// Allocates nothing: it may be for want of memory that a line is not written.
void KeepFirst(std::string_view reason) {
    if (g_firstUnwritten.empty()) {
        g_firstUnwritten.assign(reason.substr(0, g_firstUnwritten.capacity()));
    }
}

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
    g_firstUnwritten.reserve(kLongestReason);
    return std::exchange(g_installed, log);
}

void LogFailure(
    const std::exception& failure, std::string_view procedure, std::string_view module) {
    try {
        Log().LogBasicError(failure, procedure, module);
    } catch (const std::exception& ofTheLog) {
        KeepFirst(ofTheLog.what());
    }
}

const std::string& FirstUnwritten() {
    return g_firstUnwritten;
}

}  // namespace dorvik::modLog
