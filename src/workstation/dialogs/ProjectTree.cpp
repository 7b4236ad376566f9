#include "workstation/dialogs/ProjectTree.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "modFileKinds.h"
#include "source/VirtualProject.h"
#include "source/VirtualSourceFile.h"
#include "workstation/dialogs/modItemIcons.h"
#include "workstation/dialogs/modOpenProject.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "frmReviewOptions";
constexpr char kKeySeparator = '_';

bool AnyChildChecked(const CheckNode& node) {
    return std::any_of(node.Children.begin(), node.Children.end(), [](const auto& child) {
        return child->Checked;
    });
}

std::string_view KindOf(const CheckNode& node) {
    return std::string_view(node.Tag).substr(0, node.Tag.find(kKeySeparator));
}

/// The project number at the start of a key.
std::int32_t ProjectIndexOf(const CheckNode& node) {
    return modText::LeadingLong(std::string_view(node.Key).substr(0, node.Key.find(kKeySeparator)));
}

std::string_view FileKeyOf(const CheckNode& node) {
    return std::string_view(node.Key).substr(node.Key.find(kKeySeparator) + 1);
}

/// A project of which no file is known has no selection to remember.
void ForgetFiles(ReviewCriteria& criteria, const std::string& project, bool hasFiles) {
    auto& files = criteria.PreviouslySelectedFiles();
    if (files.Contains(project)) {
        files.Remove(project);
    }
    if (hasFiles) {
        files.Add(project, std::make_shared<StringKeyedArrayList>());
    }
}

}  // namespace

/// A project whose files are added to the tree.
struct ProjectTree::ProjectFiles {
    CheckNode& ProjectNode;
    VirtualProject& Project;
    std::int32_t ProjectIndex;
    const StringKeyedArrayList* Previous;  // the files of the last review; null for a first one
};

ProjectTree::ProjectTree(CheckTree& tree)
    : m_tree(tree),
      m_onNodeChecked(
          tree.NodeChecked.Subscribe([this](CheckNode& node) { EchoCheckedState(node); })) {}

void ProjectTree::PopulateProjectTree(ReviewCriteria& criteria) {
    Trap({kModule, "PopulateProjectTree"}, [&] {
        m_tree.Clear();
        for (std::int32_t index = 1; index <= criteria.ProjectList().Count(); ++index) {
            const auto& project = criteria.ProjectList().Item(index);
            CheckNode node;
            node.Key = std::to_string(index) + "Project";
            node.Tag = kProjectNode;
            node.Text = criteria.ProjectList().Key(index);
            node.Image = modItemIcons::ProjectIconKeyFromType(project->ProjectType());
            node.Checked = criteria.ProjectList().Selected(index);
            node.Expanded = true;
            CheckNode& projectNode = m_tree.Add(nullptr, std::move(node));
            if (criteria.ReviewType() == ReviewType_IDE) {
                AddSourceFilesToTree(projectNode, criteria, index);
            }
        }
    });
}

void ProjectTree::AddSourceFilesToTree(
    CheckNode& projectNode, ReviewCriteria& criteria, std::int32_t projectIndex) {
    Trap({kModule, "AddSourceFilesToTree"}, [&] {
        const auto& project = criteria.ProjectList().Item(projectIndex);
        const std::shared_ptr<StringKeyedArrayList>* const found =
            criteria.PreviouslySelectedFiles().Find(criteria.ProjectList().Key(projectIndex));
        const StringKeyedArrayList* const previous = found != nullptr ? found->get() : nullptr;
        modOpenProject::Read(*project);
        for (const modFileKinds::FileKindRow& kind : modFileKinds::kKinds) {
            AddFilesOfKind({projectNode, *project, projectIndex, previous}, kind);
        }
    });
}

void ProjectTree::AddFilesOfKind(const ProjectFiles& files, const modFileKinds::FileKindRow& kind) {
    const std::string number = std::to_string(files.ProjectIndex);
    CheckNode* kindNode = nullptr;
    for (std::int32_t index = 1; index <= files.Project.SourceFiles().Count(); ++index) {
        const auto& file = files.Project.SourceFiles().Item(index);
        if (!kind.Has(file->FileType())) {
            continue;
        }
        if (kindNode == nullptr) {
            CheckNode node;
            node.Key = number + std::string(kind.Text);
            node.Tag = kFileTypeNode;
            node.Text = kind.Text;
            node.Image = modItemIcons::IconFromSourceFileType(FileTypeKey(kind.Type));
            kindNode = &m_tree.Add(&files.ProjectNode, std::move(node));
        }
        const std::string& key = files.Project.SourceFiles().Key(index);
        CheckNode node;
        node.Key = number;
        node.Key += kKeySeparator;
        node.Key += key;
        node.Tag = kSourceFileNode;
        node.Text = file->Name();
        node.Image = modItemIcons::IconFromSourceFileType(FileTypeKey(file->FileType()));
        node.Checked =
            files.Previous != nullptr ? files.Previous->Contains(key) : files.ProjectNode.Checked;
        m_tree.Add(kindNode, std::move(node));
    }
    if (kindNode != nullptr) {
        m_tree.SetChecked(*kindNode, AnyChildChecked(*kindNode));
    }
}

void ProjectTree::EchoCheckedState(CheckNode& node) {
    EchoCheckedStateToChildren(node);
    EchoCheckedStateToParent(node);
}

void ProjectTree::EchoCheckedStateToChildren(CheckNode& node) {
    for (const auto& child : node.Children) {
        m_tree.SetChecked(*child, node.Checked);
        EchoCheckedStateToChildren(*child);
    }
}

/// A parent is marked as long as anything below it is.
void ProjectTree::EchoCheckedStateToParent(CheckNode& node) {
    if (node.Parent != nullptr) {
        m_tree.SetChecked(*node.Parent, AnyChildChecked(*node.Parent));
        EchoCheckedStateToParent(*node.Parent);
    }
}

void ProjectTree::DataFromScreen(ReviewCriteria& criteria) const {
    for (const CheckNode* const node : m_tree.Nodes()) {
        const std::string_view kind = KindOf(*node);
        if (kind == kProjectNode) {
            const std::int32_t index = ProjectIndexOf(*node);
            criteria.ProjectList().SetSelected(index, node->Checked);
            ForgetFiles(criteria, criteria.ProjectList().Key(index), !node->Children.empty());
        } else if (kind == kSourceFileNode) {
            const std::int32_t index = ProjectIndexOf(*node);
            const std::string_view file = FileKeyOf(*node);
            criteria.ProjectList().Item(index)->SourceFiles().SetSelected(file, node->Checked);
            if (node->Checked) {
                criteria.PreviouslySelectedFiles()
                    .Item(criteria.ProjectList().Key(index))
                    ->Add(file, std::string(file));
            }
        }
    }
}

bool ProjectTree::AnyProjectChecked() const {
    return std::any_of(m_tree.Roots().begin(), m_tree.Roots().end(), [](const auto& node) {
        return node->Checked;
    });
}

void ProjectTree::SelectAllOrNone(bool select) {
    for (CheckNode* const node : m_tree.Nodes()) {
        m_tree.SetChecked(*node, select);
    }
}

CheckNode* ProjectTree::FindProjectNode(std::string_view project) const {
    for (const auto& node : m_tree.Roots()) {
        if (modTextCase::Equal(node->Text, project)) {
            return node.get();
        }
    }
    return nullptr;
}

CheckNode* ProjectTree::FindSourceFileNode(std::string_view project, std::string_view file) const {
    const CheckNode* const projectNode = FindProjectNode(project);
    if (projectNode == nullptr) {
        return nullptr;
    }
    for (const auto& typeNode : projectNode->Children) {
        for (const auto& node : typeNode->Children) {
            if (modTextCase::Equal(node->Text, file)) {
                return node.get();
            }
        }
    }
    return nullptr;
}

}  // namespace dorvik
