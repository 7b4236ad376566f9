#pragma once

#include <cstdint>
#include <string>

namespace dorvik::basic {

/// Ends a script for good; nothing in it can trap this.
struct ScriptStop {
    std::int32_t Number = 0;  // 0: the script ended itself
    std::string Text;
    bool IsLimit = false;  // it has used up its instructions or its time
};

}  // namespace dorvik::basic
