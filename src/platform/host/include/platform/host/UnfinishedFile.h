#pragma once

#include <cstddef>
#include <string_view>

namespace dorvik {

/// While it lives, a file that is worth nothing before it is finished is on a list, so that a program that
/// has to end at once can remove it. The file is that of the program's path and those that the database engine
/// keeps beside it. One path counts once; a path that is too long, or one too many, is not on the list.
class UnfinishedFile {
public:
    /// Removes nothing that is there at this moment: the caller says so once the file is its own.
    explicit UnfinishedFile(std::string_view path);
    /// Takes it off the list; the file stays.
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    /// Removes all files on the list. May be called from a signal handler, and wherever nothing else works any
    /// more. The program is to end then.
    static void RemoveAll() noexcept;

private:
    std::size_t m_slot;
};

}  // namespace dorvik
