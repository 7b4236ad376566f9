#pragma once

#include "parser/VB6Parser.h"
#include "review/ReviewStatus.h"

#include <cstdint>
#include <ostream>
#include <string_view>

/// The numbered states and actions of a review by name: tests compare them by name, and a failure prints it.

namespace dorvik::test {

/// Where a project review stands.
using ProjectState = ReviewStatus;

/// What a review says that it is doing: the numbers of ProgressInfo::Action.
enum ProgressAction : std::int32_t {
    LoadingRulebase = 1,
    Reviewing = 2,
    GeneratingReport = 3,
    ExtractingNames = 4,
    LoadingReferences = 5,
    InitialisingReview = 6,
    LoadingComponents = 7,
};

template <typename State>
struct StateNameRow {
    State Value;
    std::string_view Name;
};

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

inline constexpr StateNameRow<FileParserState> kFileParserStates[] = {
    {FileParserState::None, "None"},
    {FileParserState::BeginSourceFile, "BeginSourceFile"},
    {FileParserState::SourceFileHeader, "SourceFileHeader"},
    {FileParserState::Layout, "Layout"},
    {FileParserState::DeclarationLine, "DeclarationLine"},
    {FileParserState::EnumBodyLine, "EnumBodyLine"},
    {FileParserState::TypeBodyLine, "TypeBodyLine"},
    {FileParserState::ProcedureBodyLine, "ProcedureBodyLine"},
    {FileParserState::ProcedureHeader, "ProcedureHeader"},
    {FileParserState::EndSourceFile, "EndSourceFile"},
    {FileParserState::Failed, "Failed"},
    {FileParserState::Stopped, "Stopped"},
    {FileParserState::Finished, "Finished"},
};

template <typename State, std::size_t size>
void PrintState(const StateNameRow<State> (&rows)[size], State state, std::ostream& out) {
    for (const StateNameRow<State>& row : rows) {
        if (row.Value == state) {
            out << row.Name;
            return;
        }
    }
    out << "state " << static_cast<std::int32_t>(state);
}

}  // namespace dorvik::test

namespace dorvik {

// For GoogleTest.
inline void PrintTo(ReviewStatus state, std::ostream* out) {
    test::PrintState(test::kProjectStates, state, *out);
}
inline void PrintTo(FileParserState state, std::ostream* out) {
    test::PrintState(test::kFileParserStates, state, *out);
}

}  // namespace dorvik
