#pragma once

#include "parser/ParserEvent.h"

#include <string>

namespace dorvik {

class VB6ParserState;
class VirtualSourceFile;
struct LayoutFault;

/// Receives the event stream of a project that is parsed without rules.
class IProjectEventListener {
public:
    virtual ~IProjectEventListener() = default;

    /// An event has been fired; the objects that it promises are in scope during the call. `file` is
    /// null at the project's own events.
    virtual void EventFired(
        dorvik::ParserEvent event, const VB6ParserState& state, const VirtualSourceFile* file) = 0;
    /// A file could not be opened, or the parser failed in it. The traversal continues with the next file.
    virtual void FileFailed(const VirtualSourceFile& file) = 0;
    /// The layout of a file ended too early; the file itself has been read to its end.
    virtual void LayoutCut(const VirtualSourceFile& file, const LayoutFault& fault) = 0;
    /// Called after every line; true ends the traversal.
    virtual bool StopRequested() = 0;
};

}  // namespace dorvik
