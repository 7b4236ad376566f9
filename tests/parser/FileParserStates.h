#pragma once

#include "parser/VB6Parser.h"
#include "support/StateNames.h"

namespace dorvik::test {

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

}  // namespace dorvik::test

namespace dorvik {

// For GoogleTest.
inline void PrintTo(FileParserState state, std::ostream* out) {
    test::PrintState(test::kFileParserStates, state, *out);
}

}  // namespace dorvik
