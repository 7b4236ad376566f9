#pragma once

#include <cstdint>

namespace dorvik {

/// The states of a project review. A value that begins with `Is` is a status only: a step may return it,
/// but the machine is never in it. The numbers are one sequence with those of `ReviewStatus`.
enum class ProjectReviewStatus : std::int32_t {
    BeginLoadReferences = 7,
    LoadTypeLibReference = 8,
    BeginLoadComponents = 9,
    LoadTypeLibComponent = 10,
    BeginPrescan = 11,
    PrescanFile = 12,
    BeginProject = 13,
    BeginSourceFiles = 14,
    IsSourceFileOpened = 15,
    LoadSourceFile = 17,
    IsSourceFileClosed = 24,
    EndSourceFiles = 25,
    EndProject = 26,
    IsProjectComplete = 27,
    IsError = 29,
    IsAbort = 30,
    Reference = 34,
    SourceFileTick = 35,
    EndSourceFile = 36,
};

}  // namespace dorvik
