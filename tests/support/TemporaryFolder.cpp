#include "support/TemporaryFolder.h"

#include "base/modUtf8.h"
#include "support/FilesystemPaths.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <stdlib.h>
#include <system_error>

namespace dorvik::test {

namespace fs = std::filesystem;

namespace {

fs::path NewFolder() {
    std::string pattern =
        (fs::canonical(fs::temp_directory_path()) / "dorvik-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("No temporary folder for a test: " + pattern);
    }
    return pattern;
}

fs::path RelativeHostPath(std::string_view name) {
    std::string text(name);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

/// A test may have taken the rights away.
void AllowDeletion(const fs::path& root) {
    std::error_code ignored;
    fs::permissions(root, fs::perms::owner_all, fs::perm_options::add, ignored);
    for (fs::recursive_directory_iterator entry(root, ignored), end; entry != end;
         entry.increment(ignored)) {
        if (entry->is_directory(ignored) && !entry->is_symlink(ignored)) {
            fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        }
    }
}

}  // namespace

TemporaryFolder::TemporaryFolder()
    : m_hostPath(NewFolder()), m_path(test::ProgramPath(m_hostPath) + "\\") {}

TemporaryFolder::~TemporaryFolder() {
    AllowDeletion(m_hostPath);
    std::error_code ignored;
    fs::remove_all(m_hostPath, ignored);
}

std::string TemporaryFolder::Write(std::string_view name, std::string_view bytes) const {
    const fs::path file = m_hostPath / RelativeHostPath(name);
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream.flush()) {
        throw std::runtime_error("A test file cannot be written: " + file.string());
    }
    return Path(name);
}

std::string TemporaryFolder::Read(std::string_view name) const {
    std::ifstream stream(m_hostPath / RelativeHostPath(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace dorvik::test
