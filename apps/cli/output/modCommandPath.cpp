#include "cli/output/modCommandPath.h"

namespace dorvik::modCommandPath {

std::string Inner(const std::string& typed, int codePage) {
    return modHostPath::ToProgram(modHostPath::FromUser(typed), codePage);
}

bool IsSameFile(const std::string& left, const std::string& right) {
    return modHostPath::IsSameFile(
        modHostPath::FromUserRelative(left), modHostPath::FromUserRelative(right));
}

}  // namespace dorvik::modCommandPath
