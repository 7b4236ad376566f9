#pragma once

#include "workstation/filehost/ViolationMarks.h"

#include <functional>
#include <string>

namespace dorvik {

/// What is said of a violation where the pointer rests on it.
struct MarkTip {
    std::string Title;
    std::string Advice;
};

/// Gives the tip of a violation.
using MarkTipSource = std::function<MarkTip(const MarkedViolation& violation)>;

}  // namespace dorvik
