#pragma once

#include "review/ProjectReviewStatus.h"
#include "support/StateNames.h"

namespace dorvik::test {

/// The state of a project review.
using ProjectState = ProjectReviewStatus;

inline constexpr StateNameRow<ProjectState> kProjectStates[] = {
    {ProjectState::BeginLoadReferences, "BeginLoadReferences"},
    {ProjectState::LoadTypeLibReference, "LoadTypeLibReference"},
    {ProjectState::BeginLoadComponents, "BeginLoadComponents"},
    {ProjectState::LoadTypeLibComponent, "LoadTypeLibComponent"},
    {ProjectState::BeginPrescan, "BeginPrescan"},
    {ProjectState::PrescanFile, "PrescanFile"},
    {ProjectState::BeginProject, "BeginProject"},
    {ProjectState::Reference, "Reference"},
    {ProjectState::BeginSourceFiles, "BeginSourceFiles"},
    {ProjectState::LoadSourceFile, "LoadSourceFile"},
    {ProjectState::SourceFileTick, "SourceFileTick"},
    {ProjectState::EndSourceFile, "EndSourceFile"},
    {ProjectState::EndSourceFiles, "EndSourceFiles"},
    {ProjectState::EndProject, "EndProject"},
};

}  // namespace dorvik::test

namespace dorvik {

// For GoogleTest.
inline void PrintTo(ProjectReviewStatus state, std::ostream* out) {
    test::PrintState(test::kProjectStates, state, *out);
}

}  // namespace dorvik
