#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace dorvik::test {

/// A new empty folder for one test, deleted with everything in it at the end of its life.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The folder as the program names it: backslashes, one at the end.
    const std::string& Path() const { return m_path; }
    /// The program's path of a file or folder in here; `name` may hold backslashes.
    std::string Path(std::string_view name) const { return m_path + std::string(name); }
    const std::filesystem::path& HostPath() const { return m_hostPath; }

    /// Writes a file with exactly these bytes, folders on the way included, and returns its
    /// program's path.
    std::string Write(std::string_view name, std::string_view bytes) const;
    /// The bytes of a file in here; an empty text if there is no such file.
    std::string Read(std::string_view name) const;

private:
    std::filesystem::path m_hostPath;
    std::string m_path;
};

}  // namespace dorvik::test
