#include "cli/output/modCommandPath.h"

#include "base/BasicError.h"

#include <system_error>

namespace dorvik::modCommandPath {

std::filesystem::path Absolute(const std::string& typed) {
    if (typed.empty()) {
        throw BasicError(runtimeerror::kPathNotFound, "an empty text is not a path");
    }
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(typed, error);
    if (error) {
        throw BasicError(
            runtimeerror::kPathNotFound,
            "'" + typed +
                "' cannot be found, because the working folder no longer exists; change to another "
                "one");
    }
    return path.lexically_normal();
}

std::string Inner(const std::string& typed, int codePage) {
    return modFiles::FromHostPath(Absolute(typed), codePage);
}

}  // namespace dorvik::modCommandPath
