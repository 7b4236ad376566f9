#pragma once

#include "parser/IFileParserEvents.h"
#include "parser/VB6ParserState.h"
#include "source/VirtualProject.h"

namespace dorvik {

class IProjectEventListener;
class ReviewCriteria;
class VirtualSourceFile;

/// Traverses a loaded project from begin Project to end Project and reports every parser event to a listener,
/// with the same objects in scope as in a review, but without rules and results.
class ProjectTraversal final : private IFileParserEvents {
public:
    /// The criteria decide as in a review: they have the tolerances of the project file, and whether known faults
    /// are kept. REQUIRES: all three outlive the traversal; the project has been loaded and not been traversed
    /// before.
    ProjectTraversal(
        VirtualProject& project, const ReviewCriteria& criteria, IProjectEventListener& listener);

    /// False if the listener ended the traversal.
    bool Run();

private:
    void ParserEvent(dorvik::ParserEvent event) override;

    void Fire(dorvik::ParserEvent event);
    void TraverseReferences();
    void TraverseFile(VirtualSourceFile& file);
    void CloseIncompleteFile(VirtualSourceFile& file, SourceFileStatus status);
    void CloseCompleteFile(const VirtualSourceFile& file);
    /// True if the parser came to the end of the file, or the listener ended the traversal.
    bool ParseFile(VirtualSourceFile& file);

    VirtualProject& m_project;
    const ReviewCriteria& m_criteria;
    IProjectEventListener& m_listener;
    VB6ParserState m_state;
    const VirtualSourceFile* m_file = nullptr;  // the current file
    bool m_stopped = false;
};

}  // namespace dorvik
