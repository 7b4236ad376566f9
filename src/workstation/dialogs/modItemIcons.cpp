#include "workstation/dialogs/modItemIcons.h"

#include "base/modTextCase.h"
#include "source/FileType.h"

namespace dorvik::modItemIcons {

namespace {

struct ProjectIcon {
    std::string_view Type;
    std::string_view Icon;
};

constexpr ProjectIcon kProjectIcons[] = {
    {"OleDll", "AXDLL"}, {"OleExe", "AXEXE"}, {"Exe", "STDEXE"}, {"Control", "AXCONTROL"}};
constexpr std::string_view kOther = "OTHER";

}  // namespace

std::string_view ProjectIconKeyFromType(std::string_view projectType) {
    for (const ProjectIcon& row : kProjectIcons) {
        if (modTextCase::Equal(row.Type, projectType)) {
            return row.Icon;
        }
    }
    return kOther;
}

std::string_view IconFromSourceFileType(std::string_view fileType) {
    const FileType type = FileTypeFromKey(fileType);
    return type == FileType::None ? kOther : FileTypeKey(type);
}

}  // namespace dorvik::modItemIcons
