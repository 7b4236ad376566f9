#pragma once

#include "criteria/ProgressInfo.h"

#include <string>

namespace dorvik {

/// One line on standard error that is written over again and again while a review runs.
class ProgressLine {
public:
    explicit ProgressLine(bool shown) : m_shown(shown) {}
    /// Clears the line.
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(const ProgressInfo& progress);
    /// Takes the line away, so that something else can be written there.
    void Clear();

private:
    bool m_shown;
    std::string m_line;  // as it is written on the screen
};

}  // namespace dorvik
