#pragma once

#include <cstdint>
#include <string>

namespace dorvik::basic {

/// Which script of a rulebase a range of the module's lines came from, so that errors can name it.
struct ScriptOrigin {
    std::int32_t FirstLine = 0;  // in the module, from 1
    std::int32_t LastLine = 0;
    std::string Name;  // "rule 12 (No GoTo)"
    std::int32_t Rule = 0;
};

}  // namespace dorvik::basic
