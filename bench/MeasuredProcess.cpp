#include "MeasuredProcess.h"

#include <chrono>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace dorvik {

namespace {

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

Measurement MeasureWork(const std::function<bool()>& work) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(work() ? 0 : 1);
    }
    int status = 0;
    rusage usage{};
    Measurement measurement;
    if (child > 0 && ::wait4(child, &status, 0, &usage) == child) {
        const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
        measurement.Succeeded = WIFEXITED(status) && WEXITSTATUS(status) == 0;
        measurement.CpuSeconds = Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
        measurement.WallSeconds = wall.count();
        measurement.PeakMegabytes =
            static_cast<double>(usage.ru_maxrss) / 1024;  // kilobytes on Linux
    }
    return measurement;
}

Measurement MeasureProgram(const std::vector<std::string>& arguments) {
    return MeasureWork([&arguments] {
        std::vector<char*> words;
        for (const std::string& argument : arguments) {
            words.push_back(const_cast<char*>(argument.c_str()));
        }
        words.push_back(nullptr);
        const int nowhere = ::open("/dev/null", O_WRONLY);
        ::dup2(nowhere, STDOUT_FILENO);
        ::dup2(nowhere, STDERR_FILENO);
        ::execvp(words.front(), words.data());
        return false;
    });
}

}  // namespace dorvik
