#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Where a type library is, and what distinguishes it from others.
struct IndexedTypeLibrary {
    std::string Path;
    std::int32_t Number = 1;  // of the library within the file
    std::string Guid;
    std::int32_t MajorVersion = 0;
    std::int32_t MinorVersion = 0;
    std::int32_t Lcid = 0;
    std::string Name;
    std::string Description;
};

/// What a file held when its size and time were these.
struct IndexedTypeLibraryFile {
    std::int64_t Size = 0;
    std::int64_t Modified = 0;  // nanoseconds since 1970
    std::vector<IndexedTypeLibrary> Libraries;
    std::vector<std::string> Faults;
};

/// The file that keeps an index of type libraries between runs: UTF-8, a line a fact, fields parted by
/// tabs. A file that is damaged, or that another release wrote, is taken as empty.
class TypeLibraryIndexFile {
public:
    /// Reads the file. An empty path stands for no file.
    explicit TypeLibraryIndexFile(std::string_view path);

    /// What is known of the file at that path; null if nothing.
    const IndexedTypeLibraryFile* Find(std::string_view path) const;
    const IndexedTypeLibraryFile& Put(std::string_view path, IndexedTypeLibraryFile file);

    /// Writes the index if anything was put in since it was read. Files that are gone are left out.
    /// False if it cannot be written.
    bool Save();

private:
    void Load(std::string_view text);
    std::string Text() const;

    std::string m_path;
    std::map<std::string, IndexedTypeLibraryFile, std::less<>> m_files;
    bool m_isChanged = false;
};

}  // namespace dorvik
