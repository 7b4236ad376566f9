#include "platform/host/OutputRefusal.h"

#include "platform/host/modHostFolder.h"
#include "platform/host/modHostPath.h"

namespace dorvik {

namespace {

std::string_view NameOf(FileKind kind) {
    switch (kind) {
        case FileKind::File: return "file";
        case FileKind::Folder: return "folder";
        case FileKind::Link: return "link";
        case FileKind::Pipe: return "pipe";
        case FileKind::Socket: return "socket";
        case FileKind::Device: return "device";
        case FileKind::Nothing:
        case FileKind::Unknown: break;
    }
    return "thing of an unknown kind";
}

void Require(const HostPath& place, FileKind wanted) {
    // "Folder/" would be looked at after the link.
    const HostPath named = place.Name().empty() ? place.Folder() : place;
    const FileKind kind = modHostFolder::KindOfEntry(named);
    // What cannot be looked at cannot be opened either, and that reports why.
    if (kind == wanted || kind == FileKind::Nothing) {
        return;
    }
    std::string what = "is a ";
    what += NameOf(kind);
    if (kind == FileKind::Link) {
        what += ", and nothing is written through links";
    } else {
        what.append(" where a ").append(NameOf(wanted)).append(" is needed");
    }
    throw OutputRefusal(named, what);
}

}  // namespace

OutputRefusal::OutputRefusal(const HostPath& place, std::string_view what)
    : BasicError(
          runtimeerror::kPathFileAccess,
          "'" + modHostPath::Shown(place) + "' " + std::string(what) +
              ": remove it, or choose another folder for results and reports") {}

std::string OutputRefusal::SentenceIn(const BasicError& failure) {
    const auto* const refusal = dynamic_cast<const OutputRefusal*>(&failure);
    return refusal == nullptr ? std::string() : refusal->what();
}

namespace modObstacles {

void NeedFile(const HostPath& place) {
    Require(place, FileKind::File);
}

void NeedFolder(const HostPath& place) {
    Require(place, FileKind::Folder);
}

}  // namespace modObstacles

}  // namespace dorvik
