#include "TypeCatalogueReader.h"

#include "base/Quoted.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "typelib/TypeKinds.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLibraryWord = "library";
/// A class that can be put on a form. Type libraries know no kind of its own for it.
constexpr std::string_view kControlWord = "control";
constexpr std::int32_t kClass = 5;
constexpr std::int32_t kHighestVersion = 0xFFFF;

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

/// Takes the first word off the text, and the blanks around it.
std::string_view CutWord(std::string_view& text) {
    text = WithoutBlanks(text);
    const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
    text = WithoutBlanks(text.substr(word.size()));
    return word;
}

bool IsHex(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'F') ||
           (character >= 'a' && character <= 'f');
}

bool IsGuid(std::string_view text) {
    constexpr std::string_view kForm = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
    return text.size() == kForm.size() &&
           std::equal(text.begin(), text.end(), kForm.begin(), [](char character, char form) {
               return form == 'x' ? IsHex(character) : character == form;
           });
}

bool IsNameCharacter(char character) {
    const auto byte = static_cast<unsigned char>(character);
    const auto lower = static_cast<unsigned char>(byte | 0x20U);
    return byte >= 0x80 || byte == '_' || (lower >= 'a' && lower <= 'z') ||
           (byte >= '0' && byte <= '9');
}

bool IsTypeName(std::string_view text) {
    return !text.empty() && (text.front() < '0' || text.front() > '9') &&
           std::all_of(text.begin(), text.end(), IsNameCharacter);
}

void AppendWords(std::string& text, std::string_view sentence) {
    text.append(text.empty() ? "" : " ").append(sentence);
}

}  // namespace

struct TypeCatalogueReader::WordRow {
    std::string_view Word;
    TakeLine Take;
};

const TypeCatalogueReader::WordRow TypeCatalogueReader::kWords[] = {
    {kLibraryWord, &TypeCatalogueReader::TakeLibrary},
    {"guid", &TypeCatalogueReader::TakeGuid},
    {"version", &TypeCatalogueReader::TakeVersions},
    {"language", &TypeCatalogueReader::TakeLanguage},
    {"file", &TypeCatalogueReader::TakeFilename},
    {"description", &TypeCatalogueReader::TakeDescription},
    {"source", &TypeCatalogueReader::TakeSource},
    {"note", &TypeCatalogueReader::TakeNote},
    {"types-as", &TypeCatalogueReader::TakeTypesAs},
};

void TypeCatalogueReader::Read(std::string_view text) {
    text = modUtf8::WithoutByteOrderMark(text);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        ++m_line;
        ReadLine(line);
    }
    Finish();
}

void TypeCatalogueReader::ReadLine(std::string_view line) {
    std::string_view rest = line;
    const std::string_view word = CutWord(rest);
    if (word.empty() || word.front() == '#') {
        return;
    }
    if (m_draft.Line == 0 && !modTextCase::Equal(word, kLibraryWord)) {
        Complain(m_line, "it comes before the first line that begins with 'library'");
    } else if (rest.empty()) {
        Complain(m_line, "no value follows " + Quoted(word));
    } else if (!TakeFact(word, rest) && !TakeTypes(word, rest)) {
        Complain(m_line, "unknown keyword " + Quoted(word));
    }
}

bool TypeCatalogueReader::TakeFact(std::string_view word, std::string_view rest) {
    for (const WordRow& row : kWords) {
        if (modTextCase::Equal(row.Word, word)) {
            (this->*row.Take)(rest);
            return true;
        }
    }
    return false;
}

bool TypeCatalogueReader::TakeTypes(std::string_view word, std::string_view names) {
    const auto* const row = std::ranges::find_if(kTypeKinds, [word](const TypeKindRow& kind) {
        return modTextCase::Equal(kind.Word, word);
    });
    const bool isControl = modTextCase::Equal(word, kControlWord);
    if (row == kTypeKinds.end() && !isControl) {
        return false;
    }
    const std::int32_t kind = isControl ? kClass : row->Kind;
    while (!names.empty()) {
        AddType(CutWord(names), kind);
    }
    return true;
}

void TypeCatalogueReader::AddType(std::string_view name, std::int32_t kind) {
    if (!IsTypeName(name)) {
        Complain(m_line, Quoted(name) + " is not a valid name of a type");
    } else if (!m_draft.Names.insert(modTextCase::ToLower(name)).second) {
        Complain(m_line, "the library has the name " + Quoted(name) + " already");
    } else {
        m_draft.Library.Facts.Contents.Types.push_back({std::string(name), kind});
    }
}

void TypeCatalogueReader::TakeLibrary(std::string_view rest) {
    Finish();
    m_draft.Line = m_line;
    m_draft.Library.CatalogueFile = m_name;
    m_draft.Library.Facts.Contents.Name = rest;
}

void TypeCatalogueReader::TakeGuid(std::string_view rest) {
    if (IsGuid(rest)) {
        m_draft.Library.Facts.Guid = modTextCase::ToUpper(rest);
    } else {
        Complain(
            m_line,
            Quoted(rest) + " is not a GUID; an example is {00020430-0000-0000-C000-000000000046}");
    }
}

bool TypeCatalogueReader::ReadVersion(std::string_view text, Version& version) {
    const std::vector<std::string_view> parts = modText::Split(text, '.');
    if (parts.size() != 2) {
        return false;
    }
    const auto isNumber = [](const std::optional<std::int32_t>& number) {
        return number.has_value() && *number >= 0 && *number <= kHighestVersion;
    };
    const auto major = modText::WholeNumber(parts[0]);
    const auto minor = modText::WholeNumber(parts[1]);
    if (!isNumber(major) || !isNumber(minor)) {
        return false;
    }
    version = {*major, *minor};
    return true;
}

void TypeCatalogueReader::TakeVersions(std::string_view rest) {
    while (!rest.empty()) {
        const std::string_view word = CutWord(rest);
        Version version;
        if (ReadVersion(word, version)) {
            m_draft.Versions.push_back(version);
        } else {
            Complain(m_line, Quoted(word) + " is not a version; an example is 2.0");
        }
    }
}

void TypeCatalogueReader::TakeLanguage(std::string_view rest) {
    const std::optional<std::int32_t> number = modText::WholeNumber(rest);
    if (number.has_value() && *number >= 0) {
        m_draft.Library.Facts.Lcid = *number;
    } else {
        Complain(m_line, Quoted(rest) + " is not a language; an example is 1033, and 0 means none");
    }
}

void TypeCatalogueReader::TakeFilename(std::string_view rest) {
    m_draft.Library.Filename = rest;
}

void TypeCatalogueReader::TakeDescription(std::string_view rest) {
    m_draft.Library.Facts.Description = rest;
}

void TypeCatalogueReader::TakeSource(std::string_view rest) {
    AppendWords(m_draft.Library.Source, rest);
}

void TypeCatalogueReader::TakeNote(std::string_view rest) {
    AppendWords(m_draft.Library.Note, rest);
}

void TypeCatalogueReader::TakeTypesAs(std::string_view rest) {
    const std::string_view guid = CutWord(rest);
    Version version;
    if (IsGuid(guid) && ReadVersion(rest, version)) {
        m_draft.Library.TypesAs = {
            modTextCase::ToUpper(guid), version.Major, version.Minor, m_line};
    } else {
        Complain(m_line, "'types-as' must be followed by a GUID and a version");
    }
}

void TypeCatalogueReader::Finish() {
    Draft draft = std::exchange(m_draft, {});
    if (draft.Line == 0) {
        return;
    }
    CatalogueLibrary& library = draft.Library;
    const std::string which = "the library " + Quoted(library.Facts.Contents.Name);
    if (library.Facts.Guid.empty()) {
        Complain(draft.Line, which + " has no GUID");
    } else if (draft.Versions.empty()) {
        Complain(draft.Line, which + " has no version");
    } else {
        for (const Version& version : draft.Versions) {
            library.Facts.MajorVersion = version.Major;
            library.Facts.MinorVersion = version.Minor;
            m_libraries.push_back(library);
        }
    }
}

void TypeCatalogueReader::Complain(std::size_t line, const std::string& what) {
    m_faults.push_back({std::string(m_name), line, what});
}

}  // namespace dorvik
