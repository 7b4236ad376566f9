#include "workstation/filehost/CodeFile.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "modHiddenLines.h"
#include "platform/host/TextFileReader.h"
#include "platform/host/modEncoding.h"
#include "platform/host/modTextForm.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace dorvik {

namespace {

constexpr int kUtf8CodePage = 65001;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

FileEncoding RecognisedEncoding(std::string_view bytes, std::string_view path, int codePage) {
    using modTextForm::TextForm;
    const TextForm form = modTextForm::Recognise(bytes);
    FileEncoding encoding;
    encoding.CodePage = codePage;
    switch (form) {
        case TextForm::Utf32:
        case TextForm::Binary: throw UnreadableText(form, path);
        case TextForm::Utf16Little: encoding.Is = FileEncoding::Form::Utf16Little; break;
        case TextForm::Utf16Big: encoding.Is = FileEncoding::Form::Utf16Big; break;
        case TextForm::Bytes: break;
    }
    if (bytes.starts_with(kUtf8Mark)) {
        encoding.CodePage = kUtf8CodePage;
        encoding.MarkSize = kUtf8Mark.size();
    } else if (modEncoding::HasMark(bytes)) {
        encoding.MarkSize = 2;
    }
    return encoding;
}

[[noreturn]] void RaiseTooLarge(std::string_view path, const std::string& limit) {
    throw BasicError(
        runtimeerror::kPathFileAccess,
        "The file '" + std::string(path) + "' has more than " + limit +
            " and cannot be opened as code.");
}

std::string_view EndText(LineEnd end) {
    switch (end) {
        case LineEnd::None: return "";
        case LineEnd::CrLf: return "\r\n";
        case LineEnd::Lf: return "\n";
        case LineEnd::Cr: return "\r";
    }
    return "";
}

/// Lines of bytes, each character as many bytes as the encoding has.
class LineSplitter {
public:
    LineSplitter(std::string_view bytes, const FileEncoding& encoding)
        : m_bytes(bytes),
          m_unit(encoding.Is == FileEncoding::Form::CodePage ? 1 : 2),
          m_low(encoding.Is == FileEncoding::Form::Utf16Big ? 1 : 0) {}

    /// The next line end at or after `from`; the size of the text where there is none.
    std::size_t NextEnd(std::size_t from) const {
        if (m_unit == 1) {
            return std::min(m_bytes.find_first_of("\r\n", from), m_bytes.size());
        }
        while (from + 1 < m_bytes.size() && !Is(from, '\r') && !Is(from, '\n')) {
            from += m_unit;
        }
        return from + 1 < m_bytes.size() ? from : m_bytes.size();
    }

    LineEnd EndAt(std::size_t place) const {
        if (place >= m_bytes.size()) {
            return LineEnd::None;
        }
        if (Is(place, '\n')) {
            return LineEnd::Lf;
        }
        return Is(place + m_unit, '\n') ? LineEnd::CrLf : LineEnd::Cr;
    }

    bool EndsInLineEnd() const {
        return m_bytes.size() >= m_unit &&
               (Is(m_bytes.size() - m_unit, '\r') || Is(m_bytes.size() - m_unit, '\n'));
    }

    std::size_t SizeOf(LineEnd end) const { return EndText(end).size() * m_unit; }

private:
    bool Is(std::size_t place, char character) const {
        return place + m_unit <= m_bytes.size() && m_bytes[place + m_low] == character &&
               (m_unit == 1 || m_bytes[place + 1 - m_low] == '\0');
    }

    std::string_view m_bytes;
    std::size_t m_unit;
    std::size_t m_low;  // of the byte of a unit that an ASCII character is in
};

}  // namespace

CodeFile::CodeFile(std::string_view path, int codePage, std::optional<FileType> type)
    : m_path(path) {
    if (modFiles::FileSize(path) > kMostBytes) {
        RaiseTooLarge(path, "256 MB");
    }
    const std::string bytes = modFiles::ReadBytes(path, codePage);
    m_encoding = RecognisedEncoding(bytes, path, codePage);
    NoteState(bytes);
    m_head = bytes.substr(0, m_encoding.MarkSize);
    TakeLines(SplitBytes(std::string_view(bytes).substr(m_encoding.MarkSize)), type);
}

std::vector<CodeFile::PhysicalLine> CodeFile::SplitBytes(std::string_view bytes) const {
    std::vector<PhysicalLine> lines;
    const LineSplitter splitter(bytes, m_encoding);
    for (std::size_t start = 0; start < bytes.size();) {
        if (lines.size() == static_cast<std::size_t>(kMostLines)) {
            RaiseTooLarge(m_path, std::to_string(kMostLines) + " lines");
        }
        PhysicalLine line;
        const std::size_t end = splitter.NextEnd(start);
        line.End = splitter.EndAt(end);
        line.Bytes = bytes.substr(start, end - start);
        line.WithEnd = bytes.substr(start, end - start + splitter.SizeOf(line.End));
        start += line.WithEnd.size();
        lines.push_back(line);
    }
    return lines;
}

std::string CodeFile::Decode(std::string_view bytes) const {
    if (m_encoding.Is == FileEncoding::Form::CodePage) {
        return modEncoding::DecodeByPage(bytes, m_encoding.CodePage);
    }
    return modEncoding::DecodeUtf16(bytes, m_encoding.Is == FileEncoding::Form::Utf16Big);
}

void CodeFile::TakeLines(const std::vector<PhysicalLine>& lines, std::optional<FileType> type) {
    std::vector<std::string> texts;
    texts.reserve(lines.size());
    for (const PhysicalLine& line : lines) {
        texts.push_back(Decode(line.Bytes));
    }
    const std::size_t headCount = type ? modHiddenLines::HeadCount(texts, *type) : 0;
    const std::vector<bool> hidden =
        type ? modHiddenLines::AttributeLines(texts, headCount) : std::vector<bool>(texts.size());
    for (std::size_t index = 0; index < lines.size(); ++index) {
        const bool isShown = index >= headCount && !hidden[index - headCount];
        if (isShown) {
            TakeShownLine(lines[index], std::move(texts[index]));
        } else {
            TakeHiddenLine(lines[index], std::move(texts[index]));
        }
    }
    if (!lines.empty()) {
        m_endsInLineEnd = lines.back().End != LineEnd::None;
        if (lines.front().End != LineEnd::None) {
            m_usualEnd = lines.front().End;
        }
    }
}

void CodeFile::TakeShownLine(const PhysicalLine& line, std::string text) {
    FileLine record;
    record.End = line.End;
    if (!modUtf8::IsAscii(text)) {
        record.Has =
            std::make_shared<FileLine::Kept>(FileLine::Kept{true, std::string(line.Bytes), {}});
    }
    m_lines.Texts.push_back(std::move(text));
    m_lines.Records.push_back(std::move(record));
}

void CodeFile::TakeHiddenLine(const PhysicalLine& line, std::string text) {
    if (m_lines.Records.empty()) {
        TakeHeadLine(line, std::move(text));
        return;
    }
    FileLine& record = m_lines.Records.back();
    FileLine::Kept kept = record.Has == nullptr ? FileLine::Kept() : *record.Has;
    kept.Hidden += line.WithEnd;
    record.Has = std::make_shared<FileLine::Kept>(std::move(kept));
}

void CodeFile::TakeHeadLine(const PhysicalLine& line, std::string text) {
    const NameLine place{m_headLines.size(), m_head.size(), line.Bytes.size()};
    if (m_nameLine.Size == 0 && modTextCase::StartsWith(text, "Attribute VB_Name =")) {
        m_nameLine = place;
    } else if (
        m_nameLine.Size == 0 && m_beginLine.Size == 0 && modTextCase::StartsWith(text, "Begin ")) {
        m_beginLine = place;
    }
    m_head += line.WithEnd;
    m_headLines.push_back(std::move(text));
}

void CodeFile::Rename(std::string_view name) {
    if (!Encode(name)) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall, std::string(name));
    }
    if (m_nameLine.Size > 0) {
        RewriteNameLine(m_nameLine, "Attribute VB_Name = \"" + std::string(name) + "\"");
    }
    if (m_beginLine.Size > 0) {
        const std::string& text = m_headLines[m_beginLine.Index];
        const std::size_t type = text.find(' ') + 1;
        const std::size_t size = m_beginLine.Size;
        RewriteNameLine(
            m_beginLine, text.substr(0, text.find(' ', type)) + " " + std::string(name) + " ");
        m_nameLine.Start += m_beginLine.Size - size;
    }
}

void CodeFile::RewriteNameLine(NameLine& line, const std::string& text) {
    const std::string bytes = Encode(text).value_or(std::string());
    m_head.replace(line.Start, line.Size, bytes);
    line.Size = bytes.size();
    m_headLines[line.Index] = text;
}

FileLines CodeFile::Exchange(std::int32_t start, std::int32_t count, FileLines lines) {
    const auto exchange = [&](auto& kept, auto& taken) {
        const auto first = kept.begin() + (start - 1);
        std::remove_reference_t<decltype(kept)> removed(
            std::make_move_iterator(first), std::make_move_iterator(first + count));
        const auto place = kept.erase(first, first + count);
        kept.insert(
            place, std::make_move_iterator(taken.begin()), std::make_move_iterator(taken.end()));
        return removed;
    };
    FileLines removed;
    removed.Texts = exchange(m_lines.Texts, lines.Texts);
    removed.Records = exchange(m_lines.Records, lines.Records);
    return removed;
}

FileLines
CodeFile::ForTexts(std::int32_t start, std::int32_t count, std::vector<std::string> texts) const {
    FileLines lines;
    lines.Records.resize(texts.size(), FileLine{m_usualEnd, nullptr});
    const std::size_t both = std::min(texts.size(), static_cast<std::size_t>(count));
    for (std::size_t index = 0; index < both; ++index) {
        const FileLine& old = m_lines.Records[static_cast<std::size_t>(start) - 1 + index];
        FileLine& record = lines.Records[index];
        record.End = old.End;
        if (old.Has != nullptr && !old.Has->Hidden.empty()) {
            record.Has =
                std::make_shared<FileLine::Kept>(FileLine::Kept{false, {}, old.Has->Hidden});
        }
    }
    lines.Texts = std::move(texts);
    return lines;
}

std::string CodeFile::EncodedEnd(LineEnd end) const {
    const std::string_view text = EndText(end == LineEnd::None ? m_usualEnd : end);
    return m_encoding.Is == FileEncoding::Form::CodePage
               ? std::string(text)
               : modEncoding::EncodeUtf16(text, m_encoding.Is == FileEncoding::Form::Utf16Big);
}

std::optional<std::string> CodeFile::Encode(std::string_view text) const {
    if (m_encoding.Is == FileEncoding::Form::CodePage) {
        return modEncoding::EncodeByPage(text, m_encoding.CodePage);
    }
    return modEncoding::EncodeUtf16(text, m_encoding.Is == FileEncoding::Form::Utf16Big);
}

bool CodeFile::AppendLine(EncodedFile& file, std::size_t index) const {
    const FileLine& record = m_lines.Records[index];
    const std::string& text = m_lines.Texts[index];
    if (record.Has != nullptr && record.Has->HasBytes) {
        file.Bytes += record.Has->Bytes;
        return true;
    }
    if (m_encoding.Is != FileEncoding::Form::CodePage) {
        file.Bytes += modEncoding::EncodeUtf16(text, m_encoding.Is == FileEncoding::Form::Utf16Big);
        return true;
    }
    const auto bytes = modEncoding::EncodeByPage(text, m_encoding.CodePage);
    if (!bytes) {
        NoteRefusal(file, index);
        return false;
    }
    file.Bytes += *bytes;
    return true;
}

/// What is not shown may be the last of the file, without a line end.
void CodeFile::EndLastLine(std::string& bytes) const {
    const bool isBegin = bytes.size() <= m_encoding.MarkSize;
    if (!isBegin && !LineSplitter(bytes, m_encoding).EndsInLineEnd()) {
        bytes += EncodedEnd(LineEnd::None);
    }
}

void CodeFile::NoteRefusal(EncodedFile& file, std::size_t index) const {
    const std::string& text = m_lines.Texts[index];
    file.RefusedLine = static_cast<std::int32_t>(index) + 1;
    for (std::size_t place = 0; place < text.size();) {
        const std::string character = text.substr(place, modUtf8::CharacterSize(text, place));
        if (!modEncoding::EncodeByPage(character, m_encoding.CodePage)) {
            file.RefusedCharacter = character;
            return;
        }
        place += character.size();
    }
}

EncodedFile CodeFile::Encoded() const {
    EncodedFile file;
    file.Bytes = m_head;
    for (std::size_t index = 0; index < m_lines.Texts.size(); ++index) {
        const FileLine& record = m_lines.Records[index];
        const bool hasHidden = record.Has != nullptr && !record.Has->Hidden.empty();
        const bool isLast = index + 1 == m_lines.Texts.size() && !hasHidden;
        EndLastLine(file.Bytes);
        if (!AppendLine(file, index)) {
            return file;
        }
        if (!isLast || m_endsInLineEnd) {
            file.Bytes += EncodedEnd(record.End);
        }
        if (hasHidden) {
            file.Bytes += record.Has->Hidden;
        }
    }
    return file;
}

bool CodeFile::HasChangedOnDisk() const {
    if (!modFiles::FileExists(m_path) || modFiles::StampOf(m_path) == m_stamp) {
        return false;
    }
    return std::hash<std::string_view>()(modFiles::ReadBytes(m_path)) != m_hash;
}

void CodeFile::AcceptFileOnDisk() {
    if (modFiles::FileExists(m_path)) {
        NoteState(modFiles::ReadBytes(m_path));
    }
}

void CodeFile::Write(const std::string& bytes) {
    modFiles::WriteBytesAtomically(m_path, bytes);
    NoteState(bytes);
}

void CodeFile::NoteState(std::string_view bytes) {
    m_stamp = modFiles::StampOf(m_path);
    m_hash = std::hash<std::string_view>()(bytes);
}

}  // namespace dorvik
