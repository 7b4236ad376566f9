#pragma once

#include <cstdint>

namespace dorvik {

class IFileParserEvents;
class VB6ParserState;
class VirtualSourceFile;

/// How a tick of a file parser ended.
enum class TickResult : std::int32_t {
    Continue = 0,
    Failed = 1,
    Stopped = 2,
    EndOfFile = 3,
};

/// A file parser, as the project review uses it. A parser is created for one file, which its owner has connected
/// and will disconnect.
class IFileParser {
public:
    virtual ~IFileParser() = default;

    /// Sets the parser to its first state.
    /// REQUIRES: both outlive the parser or its `Dispose`; the file is connected and "File" in scope.
    virtual void
    InitialiseSourceFileReview(VirtualSourceFile& sourceFile, VB6ParserState& parserState) = 0;
    /// REQUIRES: `callback` outlives the parser or its `UnhookCallback`.
    virtual void HookupCallback(IFileParserEvents& callback) = 0;
    /// Drops the source file and the parser state.
    virtual void Dispose() = 0;
    virtual void UnhookCallback() = 0;
    /// Processes one logical source line, or one step where no line is read. `characters` becomes
    /// the number of characters read from the file, which may be 0.
    virtual void ReviewTick(std::int32_t& characters, TickResult& result) = 0;
};

}  // namespace dorvik
