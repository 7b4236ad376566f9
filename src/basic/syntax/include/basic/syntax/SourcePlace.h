#pragma once

#include <cstdint>

namespace dorvik::basic {

/// The location of something in a module: physical line and column, both from 1, columns in characters.
struct SourcePlace {
    std::int32_t Line = 0;
    std::int32_t Column = 0;
    friend bool operator==(const SourcePlace&, const SourcePlace&) = default;
};

}  // namespace dorvik::basic
