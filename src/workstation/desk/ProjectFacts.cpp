#include "workstation/desk/ProjectFacts.h"

#include "foundation/log/Trap.h"
#include "source/FileType.h"
#include "source/VirtualProject.h"
#include "workstation/filehost/FileProject.h"

#include <string_view>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "ProjectFacts";

using Section = ProjectFacts::Section;

std::string NameOfType(HostProjectType type) {
    switch (type) {
        case HostProjectType::StandardExe: return "Standard program";
        case HostProjectType::ActiveXExe: return "ActiveX program";
        case HostProjectType::ActiveXDll: return "ActiveX library";
        case HostProjectType::ActiveXControl: return "ActiveX control";
    }
    return {};
}

Section ProjectSection(const FileProject& project, VirtualProject& read) {
    Section section{"Project", {}};
    section.Rows.emplace_back("Name", project.Name());
    section.Rows.emplace_back("Type", NameOfType(project.Type()));
    section.Rows.emplace_back("File", project.PathOnDisk());
    section.Rows.emplace_back("Unsaved changes", project.IsDirty() ? "Yes" : "No");
    KeyedArrayList& properties = read.Properties();
    for (std::int32_t index = 1; index <= properties.Count(); ++index) {
        section.Rows.emplace_back(properties.Key(index), properties.Item(index).AsText());
    }
    return section;
}

Section FileSection(VirtualProject& read) {
    Section section{"Files", {}};
    const auto& files = read.SourceFiles();
    for (std::int32_t index = 1; index <= files.Count(); ++index) {
        const auto file = files.Item(index);
        section.Rows.emplace_back(std::string(FileTypeKey(file->FileType())), file->Filename());
    }
    return section;
}

Section DocumentSection(VirtualProject& read) {
    Section section{"Related documents", {}};
    const StringKeyedArrayList& documents = read.RelatedDocs();
    for (std::int32_t index = 1; index <= documents.Count(); ++index) {
        section.Rows.emplace_back(std::to_string(index), documents.Item(index));
    }
    return section;
}

std::string Joined(const std::string& version, const std::string& filename) {
    return version.empty() || filename.empty() ? version + filename : version + ", " + filename;
}

Section ReferenceSection(VirtualProject& read) {
    Section section{"References", {}};
    const auto& references = read.References();
    for (std::int32_t index = 1; index <= references.Count(); ++index) {
        const auto reference = references.Item(index);
        const std::string& description = reference->Description;
        section.Rows.emplace_back(
            description.empty() ? reference->GUID : description,
            Joined(reference->Version, reference->Filename));
    }
    return section;
}

Section ComponentSection(VirtualProject& read) {
    Section section{"Components", {}};
    const auto& components = read.Components();
    for (std::int32_t index = 1; index <= components.Count(); ++index) {
        const auto component = components.Item(index);
        section.Rows.emplace_back(component->Filename, Joined(component->Version, component->GUID));
    }
    return section;
}

}  // namespace

ProjectFacts FactsOf(const FileProject& project) {
    ProjectFacts facts;
    facts.Title = project.Name();
    Trap({kModule, "FactsOf"}, [&] {
        VirtualProject read;
        read.LoadProject(project.PathOnDisk());
        facts.Properties.push_back(ProjectSection(project, read));
        facts.Properties.push_back(FileSection(read));
        facts.Properties.push_back(DocumentSection(read));
        facts.References.push_back(ReferenceSection(read));
        facts.References.push_back(ComponentSection(read));
    });
    return facts;
}

}  // namespace dorvik
