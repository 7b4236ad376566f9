#pragma once

#include <cstdint>

namespace dorvik {

/// The states of the review driver. A value that begins with `Is` is a status only: a step may return it,
/// but the machine is never in it. The numbers are one sequence with those of `ProjectReviewStatus`.
enum class ReviewStatus : std::int32_t {
    Start = 1,
    ShowLoadingRulebase = 2,
    LoadRulebase = 3,
    InitialiseReports = 4,
    BeginProjects = 5,
    OpenProject = 6,
    ProjectTimeSlice = 17,
    CloseProject = 26,
    BatchReport = 27,
    IsReviewComplete = 28,
    IsError = 29,
    IsAbort = 30,
};

}  // namespace dorvik
