#include "platform/host/modHostPath.h"

#include "HostPathSearch.h"
#include "base/BasicError.h"
#include "base/modUtf8.h"
#include "platform/host/modEncoding.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <system_error>

namespace dorvik::modHostPath {

namespace {

namespace fs = std::filesystem;

constexpr char kSeparator = '/';
constexpr char kProgramSeparator = '\\';

int g_nameCodePage = modEncoding::kDefaultCodePage;

int EffectiveCodePage(int codePage) {
    return codePage == kNameCodePage ? g_nameCodePage : codePage;
}

std::string TextOfName(std::string_view name, int codePage) {
    return modUtf8::IsValid(name) ? std::string(name) : modEncoding::DecodeByPage(name, codePage);
}

/// Calls `take` with what is before, between and after the separators, and with whether it is the end of the path.
template <class Take>
void ForEachName(std::string_view path, const Take& take) {
    while (!path.empty()) {
        const std::size_t size = std::min(path.find(kSeparator), path.size());
        const bool isLast = size == path.size();
        take(path.substr(0, size), isLast);
        path.remove_prefix(isLast ? size : size + 1);
    }
}

HostPath Normal(const fs::path& path) {
    return HostPath::FromBytes(path.lexically_normal().native());
}

}  // namespace

void SetNameCodePage(int codePage) {
    g_nameCodePage = codePage;
}

HostPath FromProgram(std::string_view path, int codePage) {
    thread_local HostPathSearch search;
    const std::optional<PathParts> parts = CutPath(path);
    return parts ? search.Find(*parts, EffectiveCodePage(codePage)) : HostPath();
}

std::string ToProgram(const HostPath& path, int codePage) {
    const int page = EffectiveCodePage(codePage);
    std::string text;
    text.reserve(path.Bytes().size());
    ForEachName(path.Bytes(), [&](std::string_view name, bool isLast) {
        text += TextOfName(name, page);
        if (!isLast) {
            text += kProgramSeparator;
        }
    });
    return text;
}

bool HasProgramForm(const HostPath& path, int codePage) {
    const int page = EffectiveCodePage(codePage);
    bool hasForm = true;
    ForEachName(path.Bytes(), [&](std::string_view name, bool) {
        // Not as a byte of another character, as in some double-byte pages.
        hasForm = hasForm && TextOfName(name, page).find(kProgramSeparator) == std::string::npos;
    });
    return hasForm;
}

HostPath FromUser(const std::string& typed) {
    if (typed.empty()) {
        throw BasicError(runtimeerror::kPathNotFound, "an empty text is not a path");
    }
    std::error_code error;
    const fs::path path = fs::absolute(typed, error);
    if (error) {
        throw BasicError(
            runtimeerror::kPathNotFound,
            "'" + typed +
                "' cannot be found, because the working folder no longer exists; change to "
                "another one");
    }
    return Normal(path);
}

HostPath FromUserRelative(const std::string& typed) {
    return Normal(typed);
}

std::string Shown(const HostPath& path) {
    return path.Bytes();
}

std::string ForEngine(const HostPath& path) {
    return path.Bytes();
}

bool IsSameFile(const HostPath& left, const HostPath& right) {
    struct stat ofLeft {};
    struct stat ofRight {};
    return ::stat(left.Bytes().c_str(), &ofLeft) == 0 &&
           ::stat(right.Bytes().c_str(), &ofRight) == 0 && ofLeft.st_dev == ofRight.st_dev &&
           ofLeft.st_ino == ofRight.st_ino;
}

std::optional<HostPath> RealPath(const HostPath& path) {
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };
    const std::unique_ptr<char, Free> real(::realpath(path.Bytes().c_str(), nullptr));
    return real == nullptr ? std::nullopt : std::optional(HostPath::FromBytes(real.get()));
}

}  // namespace dorvik::modHostPath
