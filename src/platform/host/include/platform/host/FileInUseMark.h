#pragma once

#include "platform/host/HostPath.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace dorvik {

/// A mark on a file that other processes, and other parts of this one, can see. The system takes it away
/// when the process ends in any way. There are two kinds. With the one any number of them say that they
/// have a file open: while it lives, `WhileUnused` does nothing. With the other one of them says that
/// a thing is its own, by a file that is there for nothing else; it is deleted with the mark.
class FileInUseMark {
public:
    /// Marks the file that has that name now, and waits for a deletion under way. Marks of one process on one
    /// file are one and the same. Null where the file cannot be opened or was just deleted; on a file system
    /// without locks the mark has no effect. To be set before the file is opened for use.
    static std::shared_ptr<FileInUseMark> Set(const HostPath& file);
    /// For the deletion of a file: runs `body`, during which no one can set a mark on the file. False, with
    /// nothing done, while any process holds a mark on it or a lock of the database engine. A file that is not
    /// there is not in use.
    static bool WhileUnused(const HostPath& file, const std::function<void()>& body);

    /// Creates the file, or takes one that a killed process left behind, and marks it for the
    /// caller alone. "process <number>" and `holder` are written into it, for the eyes of a person. Raises
    /// `FileInUse` with that text where a process has it, this process included, an `OutputRefusal` where no
    /// ordinary file is there, and `HostError` where it cannot be created. On a file system without locks
    /// every caller gets it.
    static std::shared_ptr<FileInUseMark> SetAlone(const HostPath& file, std::string_view holder);

    ~FileInUseMark();
    FileInUseMark(const FileInUseMark&) = delete;
    FileInUseMark& operator=(const FileInUseMark&) = delete;

private:
    explicit FileInUseMark(std::intptr_t handle, HostPath own = {})
        : m_handle(handle), m_own(std::move(own)) {}

    std::intptr_t m_handle;  // the system's number of the open file
    HostPath m_own;          // to be deleted; empty for a file that others have open too
};

}  // namespace dorvik
