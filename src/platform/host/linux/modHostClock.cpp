#include "platform/host/modHostClock.h"

#include <ctime>

namespace dorvik::modHostClock {

LocalTime Now() {
    constexpr double kNanosecondsPerSecond = 1e9;
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    std::tm local{};
    ::localtime_r(&now.tv_sec, &local);
    const DateTime time{
        local.tm_year + 1900,
        local.tm_mon + 1,
        local.tm_mday,
        local.tm_hour,
        local.tm_min,
        local.tm_sec};
    return {time, static_cast<double>(now.tv_nsec) / kNanosecondsPerSecond};
}

}  // namespace dorvik::modHostClock
