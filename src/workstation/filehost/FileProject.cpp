#include "workstation/filehost/FileProject.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modFiles.h"
#include "source/VirtualProject.h"
#include "workstation/controls/modWorkstationMessage.h"
#include "workstation/host/HostCallList.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "FileProject";

std::string_view WithoutFolder(std::string_view path) {
    return path.substr(path.find_last_of('\\') + 1);
}

std::string_view Stem(std::string_view path) {
    const std::string_view name = WithoutFolder(path);
    return name.substr(0, name.find_last_of('.'));
}

/// A file that could not name itself has its path for a name.
std::string NameOf(const VirtualSourceFile& file) {
    const bool isPath = file.Name().empty() || file.Name() == file.Filename();
    return isPath ? std::string(Stem(file.Filename())) : file.Name();
}

[[noreturn]] void Refuse(const std::string& sentence) {
    throw BasicError(runtimeerror::kPathFileAccess, sentence);
}

std::string Quoted(std::string_view path) {
    return "'" + std::string(path) + "'";
}

/// The place of the line `Name="..."`, or of the one in front of which it belongs.
std::int32_t NameLine(const std::vector<std::string>& lines, bool& isThere) {
    for (std::size_t index = 0; index < lines.size() && !lines[index].empty(); ++index) {
        isThere = modTextCase::StartsWith(lines[index], "Name=");
        if (isThere) {
            return static_cast<std::int32_t>(index) + 1;
        }
    }
    const auto end = std::ranges::find(lines, std::string());
    return static_cast<std::int32_t>(end - lines.begin()) + 1;
}

void SetLine(CodeFile& file, std::int32_t line, std::int32_t count, std::string text) {
    file.Exchange(line, count, file.ForTexts(line, count, {std::move(text)}));
}

/// A line of a project file with the new name of a component: "Module=m; m.bas", "Startup="m"".
std::string
RenamedLine(const std::string& line, std::string_view oldName, std::string_view newName) {
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) {
        return line;
    }
    const std::string key = line.substr(0, equals);
    const std::string value = line.substr(equals + 1);
    const std::size_t semicolon = value.find(';');
    const bool isMember = FileTypeFromKey(key) != FileType::None && semicolon != std::string::npos;
    if (isMember && modTextCase::Equal(value.substr(0, semicolon), oldName)) {
        return key + "=" + std::string(newName) + value.substr(semicolon);
    }
    const bool isReference =
        modTextCase::Equal(key, "Startup") || modTextCase::Equal(key, "IconForm");
    if (isReference && modTextCase::Equal(value, "\"" + std::string(oldName) + "\"")) {
        return key + "=\"" + std::string(newName) + "\"";
    }
    return line;
}

}  // namespace

struct FileProject::Output {
    FileComponent* Component = nullptr;
    std::string Bytes;
};

FileProject::FileProject(VirtualProject& project, HostCallList& calls)
    : m_name(project.Name()),
      m_fileName(project.Filename()),
      m_type(HostProjectTypeOf(project.ProjectType())),
      m_codePage(project.CodePage()) {
    if (m_name.empty()) {
        m_name = Stem(m_fileName);
    }
    AddComponents(project, calls);
}

void FileProject::AddComponents(VirtualProject& project, HostCallList& calls) {
    const auto record = [this, &calls](
                            const FileComponent& component,
                            const std::string& what,
                            const std::string& rest) {
        calls.Add(what + " " + m_name + " " + component.Name() + (rest.empty() ? "" : " " + rest));
    };
    for (const auto& file : project.SourceFiles()) {
        if (!modFiles::FileExists(file->Filename())) {
            m_missingFiles.push_back(file->Filename());
            continue;
        }
        ComponentFacts facts;
        facts.Name = NameOf(*file);
        facts.FileName = file->Filename();
        facts.Type = file->FileType();
        facts.CodePage = m_codePage;
        m_components.push_back(std::make_unique<FileComponent>(std::move(facts), record));
        m_dirt.push_back(
            m_components.back()->DirtyChanged.Subscribe([this] { DirtyChanged.Raise(); }));
    }
}

bool FileProject::IsDirty() const {
    return m_isDirty || m_isRenamed || std::ranges::any_of(m_components, [](const auto& component) {
               return component->IsDirty();
           });
}

FileComponent& FileProject::Component(std::int32_t index) {
    if (index < 1 || index > ComponentCount()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return *m_components[static_cast<std::size_t>(index) - 1];
}

FileComponent& FileProject::Component(std::string_view nameOrFile) {
    FileComponent* component = FindComponent(nameOrFile);
    if (component == nullptr) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange, std::string(nameOrFile));
    }
    return *component;
}

FileComponent* FileProject::FindComponent(std::string_view nameOrFile) {
    const auto find = [&](auto nameOf) -> FileComponent* {
        const auto found = std::ranges::find_if(m_components, [&](const auto& component) {
            return modTextCase::Equal(nameOf(*component), nameOrFile);
        });
        return found == m_components.end() ? nullptr : found->get();
    };
    FileComponent* component =
        find([](const FileComponent& item) { return std::string_view(item.Name()); });
    if (component == nullptr) {
        component =
            find([](const FileComponent& item) { return std::string_view(item.FileName()); });
    }
    if (component == nullptr) {
        component = find([](const FileComponent& item) { return WithoutFolder(item.FileName()); });
    }
    return component;
}

void FileProject::SetDirty(bool dirty) {
    m_isDirty = dirty;
    DirtyChanged.Raise();
}

void FileProject::SetName(std::string name) {
    m_name = std::move(name);
    m_isRenamed = true;
    DirtyChanged.Raise();
}

void FileProject::RenameComponent(FileComponent& component, std::string_view newName) {
    const bool isTaken = std::ranges::any_of(m_components, [&](const auto& other) {
        return other.get() != &component && modTextCase::Equal(other->Name(), newName);
    });
    if (newName.empty() || isTaken) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall, std::string(newName));
    }
    const std::string old = component.Name();
    component.SetName(newName);
    m_nameChanges.push_back({old, component.Name()});
    m_isRenamed = true;
    DirtyChanged.Raise();
}

bool FileProject::Save() {
    bool isSaved = false;
    Trap(
        {kModule, "Save"},
        [&] {
            WriteAll();
            EndNeverSaved();
            isSaved = true;
        },
        [](const BasicError& failure) {
            modWorkstationMessage::Show(MessageIcon::Exclamation, failure.what());
            return true;
        });
    DirtyChanged.Raise();
    return isSaved;
}

void FileProject::SaveAs(std::string_view fileName) {
    if (modTextCase::Equal(fileName, m_fileName)) {
        WriteAll();
        EndNeverSaved();
        return;
    }
    CheckFolder(fileName);
    WriteAll();
    modFiles::WriteBytesAtomically(fileName, modFiles::ReadBytes(m_fileName));
    m_fileName = fileName;
    m_neverSaved = false;
    FileNameChanged.Raise(m_fileName);
}

void FileProject::CheckFolder(std::string_view fileName) const {
    const std::string folder = modUtilFunctions::PathFromFilename(m_fileName);
    if (!modTextCase::Equal(folder, modUtilFunctions::PathFromFilename(fileName))) {
        Refuse(
            "The project '" + m_name + "' can only be saved in its folder, " + Quoted(folder) +
            ", from where its file names its members.");
    }
    if (modFiles::FileExists(fileName)) {
        Refuse("The file " + Quoted(fileName) + " exists already.");
    }
}

std::vector<FileProject::Output> FileProject::Outputs() {
    std::vector<Output> outputs;
    for (const auto& component : m_components) {
        if (!component->IsDirty()) {
            continue;
        }
        const CodeFile& file = component->LoadedModule()->File();
        const std::string path = Quoted(component->FileName());
        if (file.HasChangedOnDisk()) {
            Refuse(
                "The file " + path +
                " was changed on disk after it had been opened, and was not saved, so that nothing "
                "is lost. Close the "
                "project and open it again to see what is on disk.");
        }
        if (component->IsReadOnly()) {
            Refuse("The file " + path + " is read-only and was not saved.");
        }
        EncodedFile encoded = file.Encoded();
        if (encoded.RefusedLine > 0) {
            Refuse(
                "The file " + path + " was not saved: line " + std::to_string(encoded.RefusedLine) +
                " has the character '" + encoded.RefusedCharacter + "', which code page " +
                std::to_string(file.Encoding().CodePage) + " lacks. Nothing of the project '" +
                m_name + "' was saved.");
        }
        outputs.push_back({component.get(), std::move(encoded.Bytes)});
    }
    return outputs;
}

/// All that is in the project file but names is left as it is on disk now.
std::string FileProject::ProjectFileBytes(CodeFile& file) const {
    bool isThere = false;
    const std::int32_t line = NameLine(file.Texts(), isThere);
    SetLine(file, line, isThere ? 1 : 0, "Name=\"" + m_name + "\"");
    for (const NameChange& change : m_nameChanges) {
        for (std::size_t index = 0; index < file.Texts().size(); ++index) {
            const std::string text = RenamedLine(file.Texts()[index], change.Old, change.New);
            if (text != file.Texts()[index]) {
                SetLine(file, static_cast<std::int32_t>(index) + 1, 1, text);
            }
        }
    }
    EncodedFile encoded = file.Encoded();
    if (encoded.RefusedLine > 0) {
        Refuse(
            "The file " + Quoted(m_fileName) + " was not saved: a name has the character '" +
            encoded.RefusedCharacter + "', which code page " +
            std::to_string(file.Encoding().CodePage) + " lacks.");
    }
    return std::move(encoded.Bytes);
}

void FileProject::WriteAll() {
    const std::vector<Output> outputs = Outputs();
    if (m_isRenamed) {
        CodeFile file(m_fileName, m_codePage, std::nullopt);
        file.Write(ProjectFileBytes(file));
        m_isRenamed = false;
        m_nameChanges.clear();
    }
    for (const Output& output : outputs) {
        output.Component->CodeModule().Write(output.Bytes);
    }
    m_isDirty = false;
}

void FileProject::EndNeverSaved() {
    if (std::exchange(m_neverSaved, false)) {
        FileNameChanged.Raise(m_fileName);
    }
}

}  // namespace dorvik
