#include "source/VirtualProject.h"

#include "TextFileOpening.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "modProjectFileLine.h"
#include "source/modVOSource.h"

namespace dorvik {

namespace {

struct DefaultReference {
    std::string_view GUID;
    std::string_view Filename;
    std::string_view Description;
};

// What every project refers to without saying so in its file.
constexpr DefaultReference kDefaultReferences[] = {
    {"{000204EF-0000-0000-C000-000000000046}", "MSVBVM60.DLL", "Visual Basic For Applications"},
    {"{EA544A21-C82D-11D1-A3E4-00A0C90AEA82}",
     "MSVBVM60.DLL\\3",
     "Visual Basic runtime objects and procedures"},
    {"{FCFB3D2E-A0FA-1068-A738-08002B3371B5}", "VB6.OLB", "Visual Basic objects and procedures"},
};
constexpr std::string_view kDefaultReferenceVersion = "6.0";
constexpr std::int32_t kDefaultReferenceLCID = 9;

constexpr std::string_view kPentiumKey = "FavorPentiumPro(tm)";
constexpr std::string_view kPentiumProperty = "FavorPentiumPro";

}  // namespace

struct VirtualProject::EntryRow {
    std::string_view Key;
    EntryAction Action;
};

const VirtualProject::EntryRow VirtualProject::kEntryRows[] = {
    {"RelatedDoc", &VirtualProject::TakeRelatedDoc},
    {"Name", &VirtualProject::TakeName},
    {"Class", &VirtualProject::TakeSourceFile},
    {"Designer", &VirtualProject::TakeSourceFile},
    {"Form", &VirtualProject::TakeSourceFile},
    {"MDIForm", &VirtualProject::TakeSourceFile},
    {"Module", &VirtualProject::TakeSourceFile},
    {"PropertyPage", &VirtualProject::TakeSourceFile},
    {"UserControl", &VirtualProject::TakeSourceFile},
    {"UserDocument", &VirtualProject::TakeSourceFile},
    {"Object", &VirtualProject::TakeObject},
    {"Reference", &VirtualProject::TakeReference},
    {kPentiumKey, &VirtualProject::TakeFavorPentiumPro},
    {"Type", &VirtualProject::TakeType},
};

VirtualProject::VirtualProject(int codePage) : m_codePage(codePage) {
    ClearListProperties();
}

VirtualProject::~VirtualProject() {
    ReleaseSourceFiles();
}

ProjectLoadStatus VirtualProject::LoadProject(std::string_view filename) {
    const ProjectLoadStatus status = LoadProjectFile(filename, false);
    m_loadStatus = status;
    if (status == ProjectLoadStatus::Good) {
        // A file may hold a key of its own called "Path"; that costs these properties only.
        Trap({"VirtualProject", "LoadProject"}, [&] {
            modVOSource::AddFilenameRelatedProperties(*m_projectStats, m_filename);
        });
    }
    return status;
}

ProjectLoadStatus VirtualProject::LoadProjectFile(std::string_view filename, bool propertiesOnly) {
    ProjectLoadStatus status = ProjectLoadStatus::LineFailed;
    Trap({"VirtualProject", "LoadProjectFile"}, [&] {
        BeginAfresh();
        const TextFileOpening opening = OpenTextFile(filename, m_codePage);
        if (opening.Reader == nullptr) {
            m_unreadable = opening.Unreadable;
            status =
                opening.IsMissing() ? ProjectLoadStatus::NotFound : ProjectLoadStatus::NotOpened;
            return;
        }
        m_path = modUtilFunctions::PathFromFilename(filename);
        m_filename = filename;
        if (!propertiesOnly) {
            AddDefaultReferences();
        }
        status = ReadLines(*opening.Reader, propertiesOnly);
    });
    return status;
}

void VirtualProject::BeginAfresh() {
    ClearListProperties();
    m_fileCounts = {};
    m_outcome = {};
    m_name.clear();
    m_projectType.clear();
    m_unreadable.clear();
}

ProjectLoadStatus VirtualProject::ReadLines(TextFileReader& reader, bool propertiesOnly) {
    // A file of 0 bytes has no line at all, and is read without a failure.
    m_failedLine = {};
    for (std::int32_t number = 1; !reader.AtEnd(); ++number) {
        const std::string_view line = reader.ReadLine();
        if (!DecodeLineFromVBProjectFile(line, propertiesOnly)) {
            m_failedLine = {number, std::string(line)};
            return ProjectLoadStatus::LineFailed;
        }
        // Required: the first empty line ends the reading. A line of blanks is not an empty line.
        if (line.empty()) {
            break;
        }
    }
    return ProjectLoadStatus::Good;
}

bool VirtualProject::DecodeLineFromVBProjectFile(std::string_view line, bool propertiesOnly) {
    return Trapped({"VirtualProject", "DecodeLineFromVBProjectFile"}, false, [&] {
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            return true;
        }
        Entry entry;
        entry.Line = line;
        entry.Key = line.substr(0, equals);
        entry.Value = modProjectFileLine::UnquotedValue(line.substr(equals + 1));
        return DecodeEntry(entry, propertiesOnly);
    });
}

bool VirtualProject::DecodeEntry(const Entry& entry, bool propertiesOnly) {
    for (const EntryRow& row : kEntryRows) {
        if (modTextCase::Equal(row.Key, entry.Key)) {
            return (this->*row.Action)(entry, propertiesOnly);
        }
    }
    AddProperty(entry.Key, entry.Value);
    return true;
}

void VirtualProject::AddProperty(std::string_view key, std::string_view value) {
    Properties().Add(key, Variant(value), false);
}

bool VirtualProject::TakeRelatedDoc(const Entry& entry, bool propertiesOnly) {
    if (!propertiesOnly) {
        const std::string key = std::to_string(m_relatedDocs->Count() + 1);
        m_relatedDocs->Add(key, std::string(entry.Value), false);
    }
    return true;
}

bool VirtualProject::TakeName(const Entry& entry, bool /*propertiesOnly*/) {
    m_name = entry.Value;
    AddProperty(entry.Key, entry.Value);
    return true;
}

bool VirtualProject::TakeType(const Entry& entry, bool /*propertiesOnly*/) {
    m_projectType = entry.Value;
    AddProperty(entry.Key, entry.Value);
    return true;
}

bool VirtualProject::TakeFavorPentiumPro(const Entry& entry, bool /*propertiesOnly*/) {
    AddProperty(kPentiumProperty, entry.Value);
    return true;
}

bool VirtualProject::TakeObject(const Entry& entry, bool propertiesOnly) {
    if (!propertiesOnly) {
        AddProjectFileComponent(entry.Line);
    }
    return true;
}

bool VirtualProject::TakeReference(const Entry& entry, bool propertiesOnly) {
    if (!propertiesOnly) {
        AddProjectFileReference(entry.Line);
    }
    return true;
}

bool VirtualProject::TakeSourceFile(const Entry& entry, bool propertiesOnly) {
    ++(m_fileCounts.*Counter(FileTypeFromKey(entry.Key)));
    return propertiesOnly || AddProjectFileSourceFile(entry.Line);
}

bool VirtualProject::AddProjectFileSourceFile(std::string_view line) {
    return Trap({"VirtualProject", "AddProjectFileSourceFile"}, [&] {
        auto file = std::make_shared<VirtualSourceFile>(m_codePage);
        // A file that failed is still listed; the project review reports it.
        file->SetReviewStatus(file->InitFileFromVBProjectFileLine(line, m_path));
        file->SetProject(this);
        const std::string& key = file->Name().empty() ? file->Filename() : file->Name();
        m_sourceFiles->Add(key, file, false, true);
    });
}

void VirtualProject::AddProjectFileReference(std::string_view line) {
    Trap({"VirtualProject", "AddProjectFileReference"}, [&] {
        const auto reference = modProjectFileLine::ReferenceFromLine(line);
        m_references->Add(reference.Key, reference.Item, false, true);
    });
}

void VirtualProject::AddProjectFileComponent(std::string_view line) {
    Trap({"VirtualProject", "AddProjectFileComponent"}, [&] {
        const auto component = modProjectFileLine::ComponentFromLine(line);
        m_components->Add(component.Key, component.Item, false, true);
    });
}

void VirtualProject::AddDefaultReferences() {
    Trap({"VirtualProject", "AddDefaultReferences"}, [&] {
        for (const DefaultReference& row : kDefaultReferences) {
            auto reference = std::make_shared<VirtualReference>();
            reference->Version = kDefaultReferenceVersion;
            reference->GUID = row.GUID;
            reference->Description = row.Description;
            reference->Filename = row.Filename;
            reference->LCID = kDefaultReferenceLCID;
            m_references->Add(row.GUID, std::move(reference), false, true);
        }
    });
}

void VirtualProject::ClearListProperties() {
    ReleaseSourceFiles();
    m_projectStats = std::make_shared<VirtualObject>();
    m_references = std::make_unique<ObjectKeyedArrayList<VirtualReference>>();
    m_components = std::make_unique<ObjectKeyedArrayList<VirtualComponent>>();
    m_relatedDocs = std::make_unique<StringKeyedArrayList>();
    m_sourceFiles = std::make_unique<ObjectKeyedArrayList<VirtualSourceFile>>();
}

void VirtualProject::ReleaseSourceFiles() {
    if (!m_sourceFiles) {
        return;
    }
    // Someone may still hold one of the files; it must not refer to a project that is gone.
    for (const auto& file : *m_sourceFiles) {
        if (file != nullptr) {
            file->SetProject(nullptr);
        }
    }
}

std::int32_t VirtualProject::FileCount(FileType type) const {
    const auto counter = Counter(type);
    return counter != nullptr ? m_fileCounts.*counter : 0;
}

std::int32_t VirtualProject::FileCounts::*VirtualProject::Counter(FileType type) {
    switch (type) {
        case FileType::Class: return &FileCounts::Classes;
        case FileType::Form:
        case FileType::MDIForm: return &FileCounts::Forms;
        case FileType::Designer: return &FileCounts::Designers;
        case FileType::Module: return &FileCounts::Modules;
        case FileType::PropertyPage: return &FileCounts::PropertyPages;
        case FileType::UserDocument: return &FileCounts::UserDocuments;
        case FileType::UserControl: return &FileCounts::UserControls;
        case FileType::None: break;
    }
    return nullptr;
}

}  // namespace dorvik
