#include "workstation/desk/ProjectExplorer.h"

#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "source/FileType.h"
#include "workstation/dialogs/modItemIcons.h"
#include "workstation/filehost/FileHost.h"

#include <algorithm>
#include <array>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "ProjectExplorer";

struct KindRow {
    FileType Type;
    std::string_view Text;
};

/// In the order in which they are shown.
constexpr std::array<KindRow, 8> kKinds{{
    {FileType::Form, "Forms"},
    {FileType::MDIForm, "MDI forms"},
    {FileType::Module, "Modules"},
    {FileType::Class, "Class modules"},
    {FileType::UserControl, "User controls"},
    {FileType::PropertyPage, "Property pages"},
    {FileType::UserDocument, "User documents"},
    {FileType::Designer, "Designers"},
}};

struct ProjectTypeRow {
    HostProjectType Type;
    std::string_view Name;  // as the project file has it
};

constexpr std::array<ProjectTypeRow, 4> kProjectTypes{{
    {HostProjectType::StandardExe, "Exe"},
    {HostProjectType::ActiveXExe, "OleExe"},
    {HostProjectType::ActiveXDll, "OleDll"},
    {HostProjectType::ActiveXControl, "Control"},
}};

std::string ProjectImage(HostProjectType type) {
    const auto row = std::ranges::find(kProjectTypes, type, &ProjectTypeRow::Type);
    return std::string(modItemIcons::ProjectIconKeyFromType(
        row == kProjectTypes.end() ? std::string_view() : row->Name));
}

std::string_view WithoutFolder(std::string_view path) {
    const std::size_t separator = path.find_last_of("\\/");
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

struct ProcedureRow {
    ProcedureKind Kind;
    std::string_view Suffix;
    std::string_view Type;  // as the results name it
    std::string_view Image;
};

constexpr std::array<ProcedureRow, 4> kProcedures{{
    {ProcedureKind::SubOrFunction, "", "", "Method"},
    {ProcedureKind::PropertyGet, " (Get)", "Property Get", "Property"},
    {ProcedureKind::PropertyLet, " (Let)", "Property Let", "Property"},
    {ProcedureKind::PropertySet, " (Set)", "Property Set", "Property"},
}};

const ProcedureRow& RowOf(ProcedureKind kind) {
    return *std::ranges::find(kProcedures, kind, &ProcedureRow::Kind);
}

/// A "Sub" and a "Function" cannot have one name, so the type counts for properties alone.
FindingCount CountOf(const ProjectFindingCounts::File* file, const CodeProcedure& procedure) {
    if (file == nullptr) {
        return {};
    }
    const std::string_view type = RowOf(procedure.Kind).Type;
    const auto found = std::ranges::find_if(file->Procedures, [&](const auto& item) {
        return modTextCase::Equal(item.Name, procedure.Name) &&
               (type.empty() || modTextCase::Equal(item.Type, type));
    });
    return found == file->Procedures.end() ? FindingCount() : found->Count;
}

}  // namespace

ProjectExplorer::ProjectExplorer(FileHost& host) : m_host(host) {
    Subscribe();
    WatchDirt();
}

void ProjectExplorer::Subscribe() {
    HostEvents& events = m_host.Events();
    const auto changed = [this] {
        WatchDirt();
        Changed.Raise();
    };
    m_events.push_back(events.ProjectAdded.Subscribe([changed](IHostProject&) { changed(); }));
    m_events.push_back(
        events.ProjectRemoved.Subscribe([changed](const std::string&) { changed(); }));
    m_events.push_back(events.ProjectRenamed.Subscribe(
        [changed](IHostProject&, const std::string&) { changed(); }));
    m_events.push_back(events.AfterChangeFileName.Subscribe(
        [changed](IHostProject&, HostFileType, const std::string&) { changed(); }));
    m_events.push_back(events.FileRenamed.Subscribe(
        [changed](IHostComponent&, const std::string&) { changed(); }));
}

void ProjectExplorer::WatchDirt() {
    m_dirt.clear();
    for (std::int32_t index = 1; index <= m_host.ProjectCount(); ++index) {
        m_dirt.push_back(
            m_host.Project(index).DirtyChanged.Subscribe([this] { DirtyChanged.Raise(); }));
    }
}

void ProjectExplorer::SetCounts(ProjectFindingCounts counts) {
    m_counts = std::move(counts);
    Changed.Raise();
}

const ProjectFindingCounts* ProjectExplorer::CountsOf(const FileProject& project) const {
    return !m_counts.ProjectFile.empty() &&
                   modTextCase::Equal(m_counts.ProjectFile, project.PathOnDisk())
               ? &m_counts
               : nullptr;
}

std::vector<ExplorerNode> ProjectExplorer::Projects() const {
    std::vector<ExplorerNode> nodes;
    for (std::int32_t index = 1; index <= m_host.ProjectCount(); ++index) {
        nodes.push_back(NodeOf(m_host.Project(index)));
    }
    return nodes;
}

ExplorerNode ProjectExplorer::NodeOf(FileProject& project) const {
    ExplorerNode node;
    node.Text = project.Name();
    node.Image = ProjectImage(project.Type());
    node.Project = project.Name();
    node.File = project.PathOnDisk();
    node.Dirty = project.IsDirty();
    if (const ProjectFindingCounts* const counts = CountsOf(project)) {
        node.Findings = counts->Count;
    }
    for (const KindRow& row : kKinds) {
        ExplorerNode kind;
        kind.Kind = ExplorerKind::FileKind;
        kind.Text = row.Text;
        kind.Image = FileTypeKey(row.Type);
        kind.Project = project.Name();
        for (std::int32_t index = 1; index <= project.ComponentCount(); ++index) {
            const FileComponent& file = project.Component(index);
            if (file.FileType() == row.Type) {
                kind.Children.push_back(NodeOf(project, file));
                kind.Findings.Add(kind.Children.back().Findings);
            }
        }
        if (!kind.Children.empty()) {
            node.Children.push_back(std::move(kind));
        }
    }
    return node;
}

ExplorerNode ProjectExplorer::NodeOf(const FileProject& project, const FileComponent& file) const {
    ExplorerNode node;
    node.Kind = ExplorerKind::File;
    node.Text = file.Name() + " (" + std::string(WithoutFolder(file.FileName())) + ")";
    node.Image = FileTypeKey(file.FileType());
    node.Project = project.Name();
    node.File = file.FileName();
    node.Dirty = file.IsDirty();
    node.HasProcedures = true;
    const ProjectFindingCounts* const counts = CountsOf(project);
    if (const ProjectFindingCounts::File* const found =
            counts == nullptr ? nullptr : counts->FindFile(WithoutFolder(file.FileName()))) {
        node.Findings = found->Count;
    }
    return node;
}

std::vector<ExplorerNode>
ProjectExplorer::ProceduresOf(std::string_view project, std::string_view file) const {
    std::vector<ExplorerNode> nodes;
    Trap({kModule, "ProceduresOf"}, [&] {
        FileProject& owner = m_host.Project(project);
        FileComponent& component = owner.Component(file);
        const ProjectFindingCounts* const counts = CountsOf(owner);
        const ProjectFindingCounts::File* const found =
            counts == nullptr ? nullptr : counts->FindFile(WithoutFolder(component.FileName()));
        for (const CodeProcedure& procedure : component.CodeModule().Procedures().Procedures()) {
            ExplorerNode node;
            node.Kind = ExplorerKind::Procedure;
            node.Text = procedure.Name + std::string(RowOf(procedure.Kind).Suffix);
            node.Image = RowOf(procedure.Kind).Image;
            node.Project = owner.Name();
            node.File = component.FileName();
            node.Line = procedure.DefinitionLine;
            node.Findings = CountOf(found, procedure);
            nodes.push_back(std::move(node));
        }
    });
    return nodes;
}

}  // namespace dorvik
