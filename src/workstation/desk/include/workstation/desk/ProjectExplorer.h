#pragma once

#include "workstation/controls/Event.h"
#include "workstation/desk/Findings.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class FileComponent;
class FileHost;
class FileProject;

enum class ExplorerKind : std::int32_t { Project, FileKind, File, Procedure };

/// A project, a kind of file in it, a file, or a procedure.
struct ExplorerNode {
    ExplorerKind Kind = ExplorerKind::Project;
    std::string Text;
    std::string Image;      // name of a picture
    std::string Project;    // name
    std::string File;       // full path of the file; of the project, its own
    std::int32_t Line = 0;  // of a procedure's definition
    FindingCount Findings;
    bool Dirty = false;
    bool HasProcedures = false;  // they are read once the file is opened in the tree
    std::vector<ExplorerNode> Children;
};

/// The open projects as a tree, with the violations of the results that are shown.
class ProjectExplorer {
public:
    /// REQUIRES: `host` outlives this.
    explicit ProjectExplorer(FileHost& host);

    /// As the environment and the results are now.
    std::vector<ExplorerNode> Projects() const;
    /// In the order of the module; nothing where the file cannot be read.
    std::vector<ExplorerNode> ProceduresOf(std::string_view project, std::string_view file) const;
    /// The results that are shown; without a project file none.
    void SetCounts(ProjectFindingCounts counts);

    /// Another project, file or name, or other counts.
    Event<> Changed;
    /// Whether files have changes that were not saved.
    Event<> DirtyChanged;

private:
    void Subscribe();
    void WatchDirt();
    const ProjectFindingCounts* CountsOf(const FileProject& project) const;
    ExplorerNode NodeOf(FileProject& project) const;
    ExplorerNode NodeOf(const FileProject& project, const FileComponent& file) const;

    FileHost& m_host;
    ProjectFindingCounts m_counts;
    std::vector<Subscription> m_events;
    std::vector<Subscription> m_dirt;  // one for each project
};

}  // namespace dorvik
