#pragma once

#include <filesystem>
#include <memory>

namespace dorvik {

/// A mark on an open file that other processes, and other parts of this one, can see: while it lives,
/// `IsInUse` is true for the file. The system takes it away when the process ends in any way.
class FileInUseMark {
public:
    /// Marks an existing file. Marks of one process on one file are one and the same. Nothing comes back
    /// where the file cannot be opened; on a file system without locks the mark has no effect.
    static std::shared_ptr<FileInUseMark> Set(const std::filesystem::path& file);
    /// True while anybody holds a mark on the file or a lock of the database engine.
    static bool IsInUse(const std::filesystem::path& file);

    ~FileInUseMark();
    FileInUseMark(const FileInUseMark&) = delete;
    FileInUseMark& operator=(const FileInUseMark&) = delete;

private:
    explicit FileInUseMark(int descriptor) : m_descriptor(descriptor) {}

    int m_descriptor;
};

}  // namespace dorvik
