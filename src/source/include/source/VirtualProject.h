#pragma once

#include "foundation/lists/KeyedArrayList.h"
#include "foundation/lists/ObjectKeyedArrayList.h"
#include "foundation/lists/StringKeyedArrayList.h"
#include "platform/host/modEncoding.h"
#include "source/FileType.h"
#include "source/VirtualComponent.h"
#include "source/VirtualObject.h"
#include "source/VirtualReference.h"
#include "source/VirtualSourceFile.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik {

class TextFileReader;

/// How the reading of a project file ended.
enum class ProjectLoadStatus : std::int32_t {
    Good = 0,
    LineFailed = 1,  // a line could not be decoded; logged
    NotOpened = 2,
    NotFound = 3,  // the file or its path does not exist
};

/// A source file that a review could not take in to its end.
struct UnreviewedFile {
    std::string Filename;
    SourceFileStatus Status;  // why it could not be opened; `Good` if it failed after that
    bool IsStored = true;     // false: reviewed, but the results store took no row for it
    std::string Reason =
        {};  // more than the status says, to be put after the name; empty if nothing
    std::int32_t LastLine = 0;  // the last physical line that was read; 0 if none was
};

/// A source file whose layout could not be read on from some line. All that follows the layout was reviewed.
struct CutLayout {
    std::string Filename;
    LayoutFault Fault;
};

/// What a review found and could not store.
struct LostResults {
    std::int32_t Count = 0;
    std::string
        Reason;  // why the first one was lost; also why a review could not begin. To be read after a colon
};

/// What a review found wrong with a project. It stays when the lists of the project are dropped, for the messages to
/// the user afterwards.
struct ProjectOutcome {
    std::int32_t ReferenceErrors = 0;  // references whose type library failed to load
    std::int32_t ComponentErrors = 0;
    std::int32_t ScanErrors = 0;  // of the global names
    std::int32_t FileErrors = 0;
    /// 0 while nothing went wrong.
    std::int32_t ReviewStatus = 0;
    /// The source files that could not be taken in to their end, and those whose layouts could be read only in part,
    /// in the order of the review.
    std::vector<UnreviewedFile> UnreviewedFiles;
    std::vector<CutLayout> CutLayouts;
    /// Without a count all that was found is stored.
    LostResults ResultsLost;

    bool HasErrors() const {
        return ReferenceErrors > 0 || ComponentErrors > 0 || ScanErrors > 0 || FileErrors > 0;
    }
};

/// A Visual Basic project as its project file describes it, read as text. It owns its lists; each source
/// file refers back to it without owning it, so a project neither moves nor is copied.
class VirtualProject {
public:
    /// `codePage` is that of the project file and of its source files where no byte order mark
    /// gives the encoding.
    explicit VirtualProject(int codePage = modEncoding::kDefaultCodePage);
    ~VirtualProject();
    VirtualProject(const VirtualProject&) = delete;
    VirtualProject& operator=(const VirtualProject&) = delete;

    /// Reads the project file and, where that succeeds, adds the properties of its file name.
    ProjectLoadStatus LoadProject(std::string_view filename);
    /// The reader itself. It begins afresh: lists, properties, counts, errors and status of an earlier
    /// reading, and of the review that followed it, are gone. `propertiesOnly` leaves out the default
    /// references and every list; the file counters go up all the same.
    ProjectLoadStatus LoadProjectFile(std::string_view filename, bool propertiesOnly);

    /// By GUID; a design-time reference by its file name.
    ObjectKeyedArrayList<VirtualReference>& References() { return *m_references; }
    /// Paths as written in the file, by running number ("1", "2", ...).
    StringKeyedArrayList& RelatedDocs() { return *m_relatedDocs; }
    /// By the file's name, or by its path where the name is empty.
    ObjectKeyedArrayList<VirtualSourceFile>& SourceFiles() { return *m_sourceFiles; }
    /// By GUID; a design-time component by its file name.
    ObjectKeyedArrayList<VirtualComponent>& Components() { return *m_components; }
    /// Every key of the project file that opens no list, in order: the bag of `ProjectStats`.
    KeyedArrayList& Properties() { return m_projectStats->Properties(); }
    /// Drops `ProjectStats` and the four lists for fresh, empty ones. The scalar values stay.
    void ClearListProperties();

    const std::string& Name() const { return m_name; }
    void SetName(std::string_view name) { m_name = name; }
    /// Full path of the project file, as given to `LoadProject`.
    const std::string& Filename() const { return m_filename; }
    void SetFilename(std::string_view filename) { m_filename = filename; }
    /// "Exe", "OleDll", "OleExe" or "Control".
    const std::string& ProjectType() const { return m_projectType; }
    void SetProjectType(std::string_view type) { m_projectType = type; }
    int CodePage() const { return m_codePage; }

    /// Number of lines that name a file of that type. Forms and MDI forms share one counter, so
    /// either type gives the sum of both; `None` gives 0.
    std::int32_t FileCount(FileType type) const;

    const std::shared_ptr<VirtualObject>& ProjectStats() const { return m_projectStats; }

    ProjectOutcome& Outcome() { return m_outcome; }
    const ProjectOutcome& Outcome() const { return m_outcome; }

    /// How the last reading of the project file ended.
    ProjectLoadStatus LoadStatus() const { return m_loadStatus; }
    /// Why an existing project file holds no text that can be read, to be put after its name; empty
    /// otherwise.
    const std::string& Unreadable() const { return m_unreadable; }
    /// The line at which a reading ended with `LineFailed`; its number is 0 where it was none.
    struct Line {
        std::int32_t Number = 0;
        std::string Text;
    };
    const Line& FailedLine() const { return m_failedLine; }

private:
    /// Lines of the project file that name a source file, by kind.
    struct FileCounts {
        std::int32_t Modules = 0;
        std::int32_t Classes = 0;
        std::int32_t UserControls = 0;
        std::int32_t UserDocuments = 0;
        std::int32_t Designers = 0;
        std::int32_t Forms = 0;  // MDI forms among them
        std::int32_t PropertyPages = 0;
    };

    /// What one line of the project file means.
    struct Entry {
        std::string_view Line;
        std::string_view Key;
        std::string_view Value;
    };
    using EntryAction = bool (VirtualProject::*)(const Entry&, bool propertiesOnly);
    struct EntryRow;
    static const EntryRow kEntryRows[];

    void BeginAfresh();
    ProjectLoadStatus ReadLines(TextFileReader& reader, bool propertiesOnly);
    bool DecodeLineFromVBProjectFile(std::string_view line, bool propertiesOnly);
    bool DecodeEntry(const Entry& entry, bool propertiesOnly);

    bool TakeRelatedDoc(const Entry& entry, bool propertiesOnly);
    bool TakeName(const Entry& entry, bool propertiesOnly);
    bool TakeType(const Entry& entry, bool propertiesOnly);
    bool TakeFavorPentiumPro(const Entry& entry, bool propertiesOnly);
    bool TakeObject(const Entry& entry, bool propertiesOnly);
    bool TakeReference(const Entry& entry, bool propertiesOnly);
    bool TakeSourceFile(const Entry& entry, bool propertiesOnly);

    void AddProperty(std::string_view key, std::string_view value);
    void AddDefaultReferences();
    bool AddProjectFileSourceFile(std::string_view line);
    void AddProjectFileReference(std::string_view line);
    void AddProjectFileComponent(std::string_view line);
    void ReleaseSourceFiles();
    /// The counter of a file type, the same for a form and an MDI form; null for `None`.
    static std::int32_t FileCounts::*Counter(FileType type);

    std::shared_ptr<VirtualObject> m_projectStats;
    std::unique_ptr<ObjectKeyedArrayList<VirtualReference>> m_references;
    std::unique_ptr<ObjectKeyedArrayList<VirtualComponent>> m_components;
    std::unique_ptr<StringKeyedArrayList> m_relatedDocs;
    std::unique_ptr<ObjectKeyedArrayList<VirtualSourceFile>> m_sourceFiles;
    FileCounts m_fileCounts;
    std::string m_name;
    std::string m_path;  // the project file's folder, with its trailing backslash
    std::string m_filename;
    std::string m_projectType;
    ProjectOutcome m_outcome;
    ProjectLoadStatus m_loadStatus = ProjectLoadStatus::Good;
    std::string m_unreadable;
    Line m_failedLine;
    int m_codePage;
};

}  // namespace dorvik
