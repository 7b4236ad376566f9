#include "platform/host/OutputRefusal.h"

#include <system_error>

namespace dorvik {

namespace fs = std::filesystem;

namespace {

std::string_view KindOf(fs::file_type type) {
    switch (type) {
        case fs::file_type::regular: return "file";
        case fs::file_type::directory: return "folder";
        case fs::file_type::fifo: return "pipe";
        case fs::file_type::socket: return "socket";
        case fs::file_type::block:
        case fs::file_type::character: return "device";
        case fs::file_type::symlink: return "link";
        case fs::file_type::none:
        case fs::file_type::not_found:
        case fs::file_type::unknown: break;
    }
    return "thing of an unknown kind";
}

void Require(const fs::path& place, fs::file_type wanted) {
    std::error_code
        ignored;  // what cannot be examined cannot be opened either, which then reports why
    // "Folder/" would mean the target of the link.
    const fs::path named = place.has_filename() ? place : place.parent_path();
    const fs::file_type type = fs::symlink_status(named, ignored).type();
    if (type == wanted || type == fs::file_type::not_found || type == fs::file_type::none) {
        return;
    }
    std::string what = "is a ";
    what += KindOf(type);
    if (type == fs::file_type::symlink) {
        what += ", and nothing is written through links";
    } else {
        what.append(" where a ").append(KindOf(wanted)).append(" is needed");
    }
    throw OutputRefusal(named, what);
}

}  // namespace

OutputRefusal::OutputRefusal(const fs::path& place, std::string_view what)
    : BasicError(
          runtimeerror::kPathFileAccess,
          "'" + place.string() + "' " + std::string(what) +
              ": remove it, or choose another folder for results and reports") {}

std::string OutputRefusal::SentenceIn(const BasicError& failure) {
    const auto* const refusal = dynamic_cast<const OutputRefusal*>(&failure);
    return refusal == nullptr ? std::string() : refusal->what();
}

namespace modObstacles {

void NeedFile(const fs::path& place) {
    Require(place, fs::file_type::regular);
}

void NeedFolder(const fs::path& place) {
    Require(place, fs::file_type::directory);
}

}  // namespace modObstacles

}  // namespace dorvik
