#pragma once

#include "parser/ParserEvent.h"

#include <string>

namespace dorvik {

class VB6ParserState;
class VirtualSourceFile;
struct LayoutFault;

/// Watches the event stream of a project that is walked without rules.
class IProjectEventListener {
public:
    virtual ~IProjectEventListener() = default;

    /// An event has been fired; the objects that it promises are in scope during the call. `file` is
    /// null at the project's own events.
    virtual void EventFired(
        dorvik::ParserEvent event, const VB6ParserState& state, const VirtualSourceFile* file) = 0;
    /// A file could not be opened, or the parser gave up in the middle of it. The walk goes on.
    virtual void FileFailed(const VirtualSourceFile& file) = 0;
    /// The layout of a file ended too early; the file itself has been read to its end.
    virtual void LayoutCut(const VirtualSourceFile& file, const LayoutFault& fault) = 0;
    /// Asked after every line; true ends the walk.
    virtual bool StopRequested() = 0;
};

}  // namespace dorvik
