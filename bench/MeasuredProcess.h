#pragma once

#include <functional>
#include <string>
#include <vector>

namespace dorvik {

/// What a piece of work cost, measured as a process of its own.
struct Measurement {
    bool Succeeded = false;
    double CpuSeconds = 0;  // user and system
    double WallSeconds = 0;
    double PeakMegabytes = 0;
};

/// Runs the work in a child process; it succeeds when it returns true.
Measurement MeasureWork(const std::function<bool()>& work);

/// Runs a program, its output thrown away.
Measurement MeasureProgram(const std::vector<std::string>& arguments);

}  // namespace dorvik
