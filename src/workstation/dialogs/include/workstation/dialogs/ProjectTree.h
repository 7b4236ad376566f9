#pragma once

#include "workstation/controls/CheckTree.h"
#include "workstation/controls/Event.h"

#include <cstdint>
#include <string_view>

namespace dorvik {

class ReviewCriteria;

namespace modFileKinds {
struct FileKindRow;
}

/// The projects of a review in a tree with check marks and, below those that are open in the environment, their source
/// files by type. A mark that the user sets reaches the nodes below and above.
class ProjectTree {
public:
    /// The kinds of node, by their tags.
    static constexpr std::string_view kProjectNode = "ProjectNode";
    static constexpr std::string_view kFileTypeNode = "FileTypeNode";
    static constexpr std::string_view kSourceFileNode = "SourceFileNode";

    /// REQUIRES: `tree` outlives this.
    explicit ProjectTree(CheckTree& tree);

    /// Reads the project files of open projects. Files are marked as they were for the last review, all of them for a
    /// first one.
    void PopulateProjectTree(ReviewCriteria& criteria);
    /// Moves the marks to the criteria: which projects and files are selected.
    void DataFromScreen(ReviewCriteria& criteria) const;
    bool AnyProjectChecked() const;
    void SelectAllOrNone(bool select);

    /// By the names, without regard to case; null where there is none.
    CheckNode* FindProjectNode(std::string_view project) const;
    CheckNode* FindSourceFileNode(std::string_view project, std::string_view file) const;

private:
    struct ProjectFiles;

    void AddSourceFilesToTree(
        CheckNode& projectNode, ReviewCriteria& criteria, std::int32_t projectIndex);
    void AddFilesOfKind(const ProjectFiles& files, const modFileKinds::FileKindRow& kind);
    void EchoCheckedState(CheckNode& node);
    void EchoCheckedStateToChildren(CheckNode& node);
    void EchoCheckedStateToParent(CheckNode& node);

    CheckTree& m_tree;
    Subscription m_onNodeChecked;
};

}  // namespace dorvik
