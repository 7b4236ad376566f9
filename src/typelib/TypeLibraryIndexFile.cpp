#include "typelib/TypeLibraryIndexFile.h"

#include "base/modText.h"
#include "foundation/log/Trap.h"
#include "platform/host/modFiles.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "TypeLibraryIndexFile";
/// The first line. The number goes up with every change of the lines or of what readers find.
constexpr std::string_view kHeading = "Dorvik type library index\t1";
constexpr std::string_view kFile = "file";
constexpr std::string_view kLibrary = "library";
constexpr std::string_view kFault = "fault";
/// Against a file that grows for ever.
constexpr std::size_t kMostFiles = 100'000;

/// The field with nothing in it that parts fields or lines.
std::string Field(std::string_view text) {
    std::string field(text);
    std::ranges::replace_if(
        field, [](char character) { return static_cast<unsigned char>(character) < ' '; }, ' ');
    return field;
}

std::string Line(const std::vector<std::string>& fields) {
    return modText::Join(fields, "\t") + "\n";
}

std::optional<std::int64_t> Number(std::string_view text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return number;
}

/// A path that a line cannot hold is not kept.
bool CanBeKept(std::string_view path) {
    return Field(path) == path;
}

/// Raises if the folder cannot be made.
void MakeFolder(const std::string& folder) {
    const std::size_t end = folder.rfind('\\');
    if (!folder.empty() && !modFiles::FolderExists(folder)) {
        MakeFolder(end == std::string::npos ? std::string() : folder.substr(0, end));
        modFiles::CreateFolder(folder);
    }
}

/// Reads the lines one by one; nothing counts if one of them is not as it was written.
class Loader {
public:
    using Files = std::map<std::string, IndexedTypeLibraryFile, std::less<>>;

    bool Take(std::string_view line) {
        const std::vector<std::string_view> fields = modText::Split(line, '\t');
        if (fields.front() == kFile) {
            return TakeFile(fields);
        }
        if (m_current == nullptr) {
            return false;
        }
        if (fields.front() == kFault && fields.size() == 2) {
            m_current->Faults.emplace_back(fields[1]);
            return true;
        }
        return fields.front() == kLibrary && TakeLibrary(fields);
    }

    Files& Result() { return m_files; }

private:
    bool TakeFile(const std::vector<std::string_view>& fields) {
        if (fields.size() != 4) {
            return false;
        }
        const auto size = Number(fields[2]);
        const auto modified = Number(fields[3]);
        if (!size || !modified) {
            return false;
        }
        m_path = fields[1];
        m_current = &m_files[m_path];
        *m_current = {*size, *modified, {}, {}};
        return true;
    }

    bool TakeLibrary(const std::vector<std::string_view>& fields) {
        if (fields.size() != 8) {
            return false;
        }
        const auto number = modText::WholeNumber(fields[1]);
        const auto major = modText::WholeNumber(fields[3]);
        const auto minor = modText::WholeNumber(fields[4]);
        const auto lcid = modText::WholeNumber(fields[5]);
        if (!number || !major || !minor || !lcid) {
            return false;
        }
        m_current->Libraries.push_back(
            {m_path,
             *number,
             std::string(fields[2]),
             *major,
             *minor,
             *lcid,
             std::string(fields[6]),
             std::string(fields[7])});
        return true;
    }

    Files m_files;
    std::string m_path;
    IndexedTypeLibraryFile* m_current = nullptr;
};

void AppendFile(std::string& text, const std::string& path, const IndexedTypeLibraryFile& file) {
    text +=
        Line({std::string(kFile), path, std::to_string(file.Size), std::to_string(file.Modified)});
    for (const IndexedTypeLibrary& library : file.Libraries) {
        text += Line(
            {std::string(kLibrary),
             std::to_string(library.Number),
             Field(library.Guid),
             std::to_string(library.MajorVersion),
             std::to_string(library.MinorVersion),
             std::to_string(library.Lcid),
             Field(library.Name),
             Field(library.Description)});
    }
    for (const std::string& fault : file.Faults) {
        text += Line({std::string(kFault), Field(fault)});
    }
}

}  // namespace

TypeLibraryIndexFile::TypeLibraryIndexFile(std::string_view path) : m_path(path) {
    if (!m_path.empty() && modFiles::FileExists(m_path)) {
        Trap({kModule, "TypeLibraryIndexFile"}, [&] { Load(modFiles::ReadBytes(m_path)); });
    }
}

const IndexedTypeLibraryFile* TypeLibraryIndexFile::Find(std::string_view path) const {
    const auto found = m_files.find(path);
    return found == m_files.end() ? nullptr : &found->second;
}

const IndexedTypeLibraryFile&
TypeLibraryIndexFile::Put(std::string_view path, IndexedTypeLibraryFile file) {
    m_isChanged = true;
    IndexedTypeLibraryFile& kept = m_files[std::string(path)];
    kept = std::move(file);
    return kept;
}

bool TypeLibraryIndexFile::Save() {
    if (m_path.empty() || !m_isChanged) {
        return true;
    }
    bool saved = false;
    // The index only saves time, so a failure to keep it is not reported.
    Trap(
        {kModule, "Save"},
        [&] {
            MakeFolder(m_path.substr(0, m_path.rfind('\\')));
            modFiles::WriteBytesAtomically(m_path, Text());
            saved = true;
        },
        [](const BasicError& /*failure*/) { return true; });
    m_isChanged = false;
    return saved;
}

void TypeLibraryIndexFile::Load(std::string_view text) {
    if (!text.starts_with(kHeading)) {
        return;
    }
    text.remove_prefix(std::min(kHeading.size() + 1, text.size()));
    Loader loader;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos || !loader.Take(text.substr(0, end))) {
            return;
        }
        text.remove_prefix(end + 1);
    }
    m_files = std::move(loader.Result());
}

std::string TypeLibraryIndexFile::Text() const {
    std::string text(kHeading);
    text += "\n";
    std::size_t count = 0;
    for (const auto& [path, file] : m_files) {
        if (CanBeKept(path) && modFiles::FileExists(path) && ++count <= kMostFiles) {
            AppendFile(text, path, file);
        }
    }
    return text;
}

}  // namespace dorvik
