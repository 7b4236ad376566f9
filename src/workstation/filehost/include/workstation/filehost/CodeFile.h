#pragma once

#include "platform/host/modFiles.h"
#include "source/FileType.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// How text becomes bytes in a file.
struct FileEncoding {
    enum class Form { CodePage, Utf16Little, Utf16Big };

    Form Is = Form::CodePage;
    int CodePage = 0;  // 65001 after a mark of UTF-8
    std::size_t MarkSize = 0;
};

enum class LineEnd : std::uint8_t { None, CrLf, Lf, Cr };

/// A line of code as its file has it, besides its text.
struct FileLine {
    struct Kept {
        bool HasBytes = false;
        std::string Bytes;   // of a line that no one has changed, without its end
        std::string Hidden;  // the attribute lines after it, with their ends
    };

    LineEnd End = LineEnd::None;      // that of the file's other lines for a new one
    std::shared_ptr<const Kept> Has;  // null for most lines: they are written as their text
};

/// Texts and what belongs to them; both have the same size.
struct FileLines {
    std::vector<std::string> Texts;
    std::vector<FileLine> Records;
};

/// What a file is to hold, or why it cannot.
struct EncodedFile {
    std::string Bytes;
    std::int32_t RefusedLine = 0;  // from 1; 0 where all could be encoded
    std::string RefusedCharacter;  // the first one that the code page lacks
};

/// The file of a code module: the lines that the environment's code window shows, and the bytes of all the others.
///
/// Not shown are all lines up to the attribute with the name, or, in a file without it, the header and the layout; and
/// every attribute line after them. So lines count as in a review. What is not shown, and every line that was not
/// changed, is written back byte for byte, its line end included.
class CodeFile {
public:
    static constexpr std::int64_t kMostBytes = 256 * 1024 * 1024;
    static constexpr std::int32_t kMostLines = 1'000'000;

    /// Raises as `TextFileReader` does, and `kPathFileAccess` for a file of more bytes or lines than the above. Without a
    /// type it is a text file that is shown whole.
    CodeFile(std::string_view path, int codePage, std::optional<FileType> type);

    const std::string& Path() const { return m_path; }
    const FileEncoding& Encoding() const { return m_encoding; }
    /// The lines that are not shown up to the first one that is, as text.
    const std::vector<std::string>& HeadLines() const { return m_headLines; }
    const std::vector<std::string>& Texts() const { return m_lines.Texts; }

    /// Puts lines in the place of `count` ones from `start` on, and gives back those. REQUIRES: they are there.
    FileLines Exchange(std::int32_t start, std::int32_t count, FileLines lines);
    /// Texts in place of `count` lines from `start` on: each keeps the end and the hidden lines of the one whose place
    /// it takes. REQUIRES: they are there.
    FileLines
    ForTexts(std::int32_t start, std::int32_t count, std::vector<std::string> texts) const;

    /// Gives the module another name, in the attribute that has it and in the begin of a layout. Raises
    /// `kInvalidProcedureCall` for a name that the code page lacks.
    void Rename(std::string_view name);

    EncodedFile Encoded() const;
    /// Whether the file on disk is not the one any more that was read or written last. One that is gone has not changed:
    /// nothing can be lost.
    bool HasChangedOnDisk() const;
    /// What is on disk now counts as read.
    void AcceptFileOnDisk();
    /// Replaces the file. Raises where that fails, with the old content left.
    void Write(const std::string& bytes);

private:
    struct PhysicalLine {
        std::string_view Bytes;    // without its end
        std::string_view WithEnd;  // with it
        LineEnd End = LineEnd::None;
    };

    /// A line of the head that has the module's name.
    struct NameLine {
        std::size_t Index = 0;  // among the lines of the head
        std::size_t Start = 0;  // its bytes in the head
        std::size_t Size = 0;   // 0 where there is no such line
    };

    std::vector<PhysicalLine> SplitBytes(std::string_view bytes) const;
    std::string Decode(std::string_view bytes) const;
    void TakeLines(const std::vector<PhysicalLine>& lines, std::optional<FileType> type);
    void TakeShownLine(const PhysicalLine& line, std::string text);
    void TakeHiddenLine(const PhysicalLine& line, std::string text);
    void TakeHeadLine(const PhysicalLine& line, std::string text);
    void RewriteNameLine(NameLine& line, const std::string& text);
    /// Nothing for a text that the code page lacks.
    std::optional<std::string> Encode(std::string_view text) const;
    /// False with what is refused noted, where the code page lacks a character.
    bool AppendLine(EncodedFile& file, std::size_t index) const;
    void EndLastLine(std::string& bytes) const;
    void NoteRefusal(EncodedFile& file, std::size_t index) const;
    std::string EncodedEnd(LineEnd end) const;
    void NoteState(std::string_view bytes);

    std::string m_path;
    FileEncoding m_encoding;
    std::string m_head;  // bytes, with the mark
    std::vector<std::string> m_headLines;
    NameLine m_nameLine;   // `Attribute VB_Name = "m"`
    NameLine m_beginLine;  // `Begin VB.Form m`, in front of the other
    FileLines m_lines;
    LineEnd m_usualEnd = LineEnd::CrLf;
    bool m_endsInLineEnd = true;
    modFiles::FileStamp m_stamp;
    std::size_t m_hash = 0;
};

}  // namespace dorvik
