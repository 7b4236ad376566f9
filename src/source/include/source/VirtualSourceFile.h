#pragma once

#include "foundation/lists/StringKeyedArrayList.h"
#include "platform/host/modEncoding.h"
#include "source/FileType.h"
#include "source/VirtualObject.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class TextFileReader;
class VirtualProject;

/// How the naming or opening of a source file ended; the number is the file's review status.
enum class SourceFileStatus : std::int32_t {
    Good = 0,
    UnexpectedError = 1,  // logged
    NameUnknown = 2,      // the file ended before a line that gives its name
    TypeUnknown = 3,      // the project file's line has no "=", or its key is not a file type
    NotFound = 4,         // the file or its path does not exist
};

/// One logical line of a source file. Made to be kept and passed to the reader again and again: the
/// buffers are reused, and a line that is not continued costs no allocation once they have grown.
struct SourceLine {
    std::string Raw;                 // as in the file; physical lines joined by CR LF
    std::string Logical;             // continuations joined, line number dropped
    std::int32_t PhysicalLines = 0;  // 0 for an attribute line: it has no line number
    std::int32_t RawLength = 0;      // characters of `Raw`, CR LF included
};

/// A line of a layout at which its reading ends too early. The rest of the file is read as usual.
struct LayoutFault {
    std::int32_t PhysicalLine = 0;
    std::string Reason;  // what is wrong in that line, as a clause: "the property 'X' is ..."

    /// The clause with its line: "in line 7 the property ...".
    std::string Clause() const { return "in line " + std::to_string(PhysicalLine) + " " + Reason; }
};

/// One source file of a project, from its line in the project file to the end of the review. It
/// finds out name and type, and turns the physical lines of the file into logical ones.
///
/// Calling order: `InitFileFromVBProjectFileLine` once; then for each reading `Connect`,
/// `GetNextSourceLine` until false, `Disconnect`. Every reading behaves as the first.
class VirtualSourceFile {
public:
    /// `codePage` is that of the file's text where no byte order mark gives the encoding.
    explicit VirtualSourceFile(int codePage = modEncoding::kDefaultCodePage);
    ~VirtualSourceFile();
    VirtualSourceFile(const VirtualSourceFile&) = delete;
    VirtualSourceFile& operator=(const VirtualSourceFile&) = delete;

    /// Opens the file for a reading. A missing file is logged as a message.
    SourceFileStatus Connect();

    /// Takes name, file and type from a line of the project file ("Class=Name; file" or
    /// "Form=file", which is opened to find the name). `projectFolder` ends in a backslash.
    SourceFileStatus
    InitFileFromVBProjectFileLine(std::string_view line, std::string_view projectFolder);

    /// Reads the next logical line. False at the end of the file, with `line` left as it was, and
    /// after a failure, which is logged. REQUIRES: Connect gave `Good`.
    bool GetNextSourceLine(SourceLine& line);

    /// True where the last `GetNextSourceLine` gave false for a failure, not for the end of the file.
    bool ReadingFailed() const { return m_readingFailed; }

    /// The last physical line that was read, from 1 on, whatever counts as a line of the review; it stays
    /// until the next `Connect`.
    std::int32_t PhysicalLine() const { return m_physicalLine; }

    /// Why a file that is there holds no text that can be read, to be put after its name; empty otherwise.
    const std::string& Unreadable() const { return m_unreadable; }

    /// Where the layout of the file could not be read on. The first place stays until the next `Connect`.
    const std::optional<LayoutFault>& FoundLayoutFault() const { return m_layoutFault; }
    void SetLayoutFault(LayoutFault fault);

    /// Closes the file if it is open and switches line counting off.
    void Disconnect();

    const std::string& Name() const { return m_name; }
    void SetName(std::string_view name) { m_name = name; }
    /// Full path, backslashes inside.
    const std::string& Filename() const { return m_filename; }
    void SetFilename(std::string_view filename) { m_filename = filename; }
    dorvik::FileType FileType() const { return m_fileType; }
    void SetFileType(dorvik::FileType type) { m_fileType = type; }

    /// The project that lists this file. The project owns the file and clears the pointer when it
    /// drops its list, so it never outlives the project; null for a file without one.
    VirtualProject* Project() const { return m_project; }
    void SetProject(VirtualProject* project) { m_project = project; }

    /// Length in bytes, known once `Connect` succeeded; a file beyond 31 bits gives the largest number.
    std::int32_t Size() const { return m_size; }

    /// True for the types that have a layout section. A class has a header in its text too, which is
    /// not treated as one. The two always agree.
    bool HasLayout() const { return dorvik::HasLayout(m_fileType); }
    bool HasHeader() const { return HasLayout(); }

    const std::shared_ptr<VirtualObject>& FileStats() const { return m_fileStats; }
    KeyedArrayList& Properties() { return m_fileStats->Properties(); }

    /// Names that can own event procedures in this file, as keys and as values.
    /// Read it freely, but add only through `AddEventItem`.
    const StringKeyedArrayList& EventItems() const;
    /// Adds a name to `EventItems`. A name already there, in any case, is not added again, and
    /// nothing is raised: control arrays repeat their name.
    void AddEventItem(std::string_view name);
    /// Whether `EventItems` holds the name, in any case. Does not scan the list.
    bool HasEventItem(std::string_view name) const;

    /// True after the name attribute, while the file is open: lines count from there on.
    bool LineCountingEnabled() const { return m_lineCountingEnabled; }

    SourceFileStatus ReviewStatus() const { return m_reviewStatus; }
    void SetReviewStatus(SourceFileStatus status) { m_reviewStatus = status; }

private:
    struct EventNames;

    SourceFileStatus InitFromLine(std::string_view line, std::string_view projectFolder);
    SourceFileStatus DetermineNameAndFileType(std::string& name, std::string& key);
    static SourceFileStatus
    FindNamingLine(TextFileReader& reader, std::string& name, std::string& key);
    void ReadPhysicalLines(SourceLine& line);
    /// Appends the next physical line to the raw text and gives it as it is analysed.
    std::string_view ReadPhysicalLine(SourceLine& line);
    void ReadContinuations(SourceLine& line);
    void ClassifyAttributeOrCode(SourceLine& line);
    EventNames& EventNamesAtFirstUse() const;

    std::string m_name;
    std::string m_filename;
    dorvik::FileType m_fileType = dorvik::FileType::None;
    std::int32_t m_size = 0;
    int m_codePage;
    std::unique_ptr<TextFileReader> m_reader;  // null while the file is not open
    VirtualProject* m_project = nullptr;
    std::shared_ptr<VirtualObject> m_fileStats;
    bool m_lineCountingEnabled = false;
    bool m_nameAttributeSeen = false;
    mutable std::unique_ptr<EventNames> m_eventNames;  // null until the first use
    SourceFileStatus m_reviewStatus = SourceFileStatus::Good;
    std::int32_t m_physicalLine = 0;
    bool m_readingFailed = false;
    bool m_mayNeedBlanks = false;  // see `modStatementFront`
    std::string m_blankedLine;     // its buffer
    std::string m_unreadable;
    std::optional<LayoutFault> m_layoutFault;
};

}  // namespace dorvik
