#pragma once

#include "results/OnFailure.h"
#include "results/ResultsStore.h"
#include "results/ReviewKeys.h"

#include <cstdint>
#include <string_view>

namespace dorvik {

/// Changes what may be changed in a finished review: names that the project has changed since, and the marks of
/// violations that a user has dealt with.
class ReviewEditor {
public:
    /// REQUIRES: both outlive this.
    ReviewEditor(ResultsStore& store, const ReviewKeys& keys) : m_store(store), m_keys(keys) {}

    void UpdateProjectName(std::string_view name);
    /// Does nothing where there is no such file.
    void UpdateFileName(std::string_view name, std::int32_t sourceId);
    /// Marks a violation as dealt with, or not. False where there is no such violation, and where a failure was logged.
    bool SetViolationCompleted(
        std::int32_t violationId, bool completed, OnFailure onFailure = OnFailure::Log);

private:
    ResultsStore& m_store;
    const ReviewKeys& m_keys;
};

}  // namespace dorvik
