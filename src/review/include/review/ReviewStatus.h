#pragma once

#include <cstdint>

namespace dorvik {

/// The states of the review driver and of the project review, in one numbering. A value that begins
/// with `Is` is a status only: a step may return it, but no machine ever stands in it.
enum class ReviewStatus : std::int32_t {
    Start = 1,
    ShowLoadingRulebase = 2,
    LoadRulebase = 3,
    InitialiseReports = 4,
    BeginProjects = 5,
    OpenProject = 6,
    BeginLoadReferences = 7,
    LoadTypeLibReference = 8,
    BeginLoadComponents = 9,
    LoadTypeLibComponent = 10,
    BeginPrescan = 11,
    PrescanFile = 12,
    BeginProject = 13,
    BeginSourceFiles = 14,
    IsSourceFileOpened = 15,
    ProjectTimeSlice = 17,  // of the driver
    LoadSourceFile = 17,    // of the project review
    IsSourceFileClosed = 24,
    EndSourceFiles = 25,
    CloseProject = 26,       // of the driver
    EndProject = 26,         // of the project review
    BatchReport = 27,        // of the driver
    IsProjectComplete = 27,  // of the project review
    IsReviewComplete = 28,
    IsError = 29,
    IsAbort = 30,
    Reference = 34,
    SourceFileTick = 35,
    EndSourceFile = 36,
};

/// What a time slice of either machine comes back with.
enum class SliceResult : std::int32_t { Continue = 0, Failed = 1, Aborted = 2, Complete = 3 };

/// Asks a machine to step until its result is no longer `Continue`.
inline constexpr std::int32_t kWholeReview = -1;

}  // namespace dorvik
