// How a source file gets its name and its type: from its line in the project file or, where that
// line does not tell the name, from the first line of the file itself that does.

#include "TextFileOpening.h"
#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "source/PropertyName.h"
#include "source/VirtualSourceFile.h"
#include "source/modVOSource.h"

namespace dorvik {

namespace {

/// Where in a naming line the name is.
enum class NamePart {
    RestOfLine,
    AfterBrace,     // two characters after the first "}"
    BetweenQuotes,  // between the first two double quotes
};

struct NamingRow {
    std::string_view Prefix;
    NamePart Part;
    std::string_view Key;  // empty: the key of the project file stays
};

// The order counts for no single line, as no prefix begins another; but the first line of the file
// that matches any row wins, so that a layout names its form before the name attribute does.
constexpr NamingRow kNamingRows[] = {
    {"Begin VB.Form ", NamePart::RestOfLine, "Form"},
    {"Begin VB.MDIForm ", NamePart::RestOfLine, "MDIForm"},
    {"Begin {", NamePart::AfterBrace, "Designer"},
    {"Begin VB.PropertyPage ", NamePart::RestOfLine, "PropertyPage"},
    {"Begin VB.UserDocument ", NamePart::RestOfLine, "UserDocument"},
    {"Begin VB.UserControl ", NamePart::RestOfLine, "UserControl"},
    {"Attribute VB_Name = ", NamePart::BetweenQuotes, ""},
};

/// The row whose prefix the line begins with as it is written: an indented line, that of a control
/// inside the layout, matches none.
const NamingRow* FindNamingRow(std::string_view line) {
    if (line.empty() || std::string_view("BbAa").find(line.front()) == std::string_view::npos) {
        return nullptr;
    }
    for (const NamingRow& row : kNamingRows) {
        if (modTextCase::StartsWith(line, row.Prefix)) {
            return &row;
        }
    }
    return nullptr;
}

std::string_view AfterBrace(std::string_view line) {
    const std::size_t brace = line.find('}');
    return brace == std::string_view::npos ? std::string_view()
                                           : modUtf8::Mid(line.substr(brace), 3);
}

std::string_view BetweenQuotes(std::string_view line) {
    const std::size_t opening = line.find('"');
    if (opening == std::string_view::npos) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    const std::size_t closing = line.find('"', opening + 1);
    if (closing == std::string_view::npos) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    return line.substr(opening + 1, closing - opening - 1);
}

std::string_view NameFromLine(std::string_view line, const NamingRow& row) {
    switch (row.Part) {
        case NamePart::RestOfLine: return line.substr(row.Prefix.size());
        case NamePart::AfterBrace: return AfterBrace(line);
        case NamePart::BetweenQuotes: return BetweenQuotes(line);
    }
    return {};
}

}  // namespace

SourceFileStatus VirtualSourceFile::InitFileFromVBProjectFileLine(
    std::string_view line, std::string_view projectFolder) {
    SourceFileStatus status = SourceFileStatus::UnexpectedError;
    Trap({"VirtualSourceFile", "InitFileFromVBProjectFileLine"}, [&] {
        status = InitFromLine(line, projectFolder);
    });
    return status;
}

SourceFileStatus
VirtualSourceFile::InitFromLine(std::string_view line, std::string_view projectFolder) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return SourceFileStatus::TypeUnknown;
    }
    std::string key(line.substr(0, equals));
    std::string name;
    SourceFileStatus status = SourceFileStatus::Good;
    const std::string_view rest = line.substr(equals + 1);
    const std::size_t semicolon = rest.find(';');
    if (semicolon != std::string_view::npos) {
        name = rest.substr(0, semicolon);
        const std::string_view file = modText::Trim(rest.substr(semicolon + 1));
        m_filename = modUtilFunctions::RelativeToAbsolutePath(file, projectFolder);
    } else {
        m_filename = modUtilFunctions::RelativeToAbsolutePath(rest, projectFolder);
        status = DetermineNameAndFileType(name, key);
    }
    if (status == SourceFileStatus::Good) {
        const auto type = FileTypeFromKey(key);
        if (type == dorvik::FileType::None) {
            return SourceFileStatus::TypeUnknown;
        }
        m_fileType = type;
    }
    // A file that could not be read is named, and has its properties, all the same.
    m_name = name.empty() ? m_filename : name;
    Properties().Add(propertyname::kName, Variant(m_name), false);
    Properties().Add(propertyname::kType, Variant(key), false);
    modVOSource::AddFilenameRelatedProperties(*m_fileStats, m_filename);
    return status;
}

SourceFileStatus VirtualSourceFile::DetermineNameAndFileType(std::string& name, std::string& key) {
    SourceFileStatus status = SourceFileStatus::UnexpectedError;
    Trap({"VirtualSourceFile", "DetermineNameAndFileType"}, [&] {
        const TextFileOpening opening = OpenTextFile(m_filename, m_codePage);
        if (opening.IsMissing()) {
            status = SourceFileStatus::NotFound;
            return;
        }
        if (opening.Reader == nullptr) {
            m_unreadable = opening.Unreadable;
            opening.Raise(m_filename);
        }
        status = FindNamingLine(*opening.Reader, name, key);
    });
    return status;
}

SourceFileStatus
VirtualSourceFile::FindNamingLine(TextFileReader& reader, std::string& name, std::string& key) {
    while (!reader.AtEnd()) {
        const std::string_view line = reader.ReadLine();
        const NamingRow* row = FindNamingRow(line);
        if (row == nullptr) {
            continue;
        }
        const std::string_view found = modText::Trim(NameFromLine(line, *row));
        if (!found.empty()) {
            name = found;
        }
        if (!row->Key.empty()) {
            key = row->Key;
        }
        return SourceFileStatus::Good;
    }
    return SourceFileStatus::NameUnknown;
}

}  // namespace dorvik
