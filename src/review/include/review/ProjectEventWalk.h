#pragma once

#include "parser/IFileParserEvents.h"
#include "parser/VB6ParserState.h"
#include "source/VirtualProject.h"

namespace dorvik {

class IProjectEventListener;
class ReviewCriteria;
class VirtualSourceFile;

/// Walks a loaded project from begin Project to end Project and shows every parser event to a
/// listener, with the same objects in scope as in a review, but with no rules and no results.
class ProjectEventWalk final : private IFileParserEvents {
public:
    /// What a review does by its criteria is done by these: what the project file is measured against,
    /// and whether known faults are kept. REQUIRES: all three outlive the walk; the project has been loaded
    /// and not been walked before.
    ProjectEventWalk(
        VirtualProject& project, const ReviewCriteria& criteria, IProjectEventListener& listener);

    /// False if the listener ended the walk.
    bool Run();

private:
    void ParserEvent(dorvik::ParserEvent event) override;

    void Fire(dorvik::ParserEvent event);
    void WalkReferences();
    void WalkFile(VirtualSourceFile& file);
    void CloseIncompleteFile(VirtualSourceFile& file, SourceFileStatus status);
    void CloseCompleteFile(const VirtualSourceFile& file);
    /// True if the parser came to the end of the file, or the listener ended the walk.
    bool ParseFile(VirtualSourceFile& file);

    VirtualProject& m_project;
    const ReviewCriteria& m_criteria;
    IProjectEventListener& m_listener;
    VB6ParserState m_state;
    const VirtualSourceFile* m_file = nullptr;  // the file now being walked
    bool m_stopped = false;
};

}  // namespace dorvik
