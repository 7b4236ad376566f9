#pragma once

#include "workstation/host/ICodeModule.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// The search of the environment's code window within one line.
namespace dorvik::modCodeFind {

/// Columns in characters from 1; the end is the one after the last character.
struct LineMatch {
    std::int32_t StartColumn = 0;
    std::int32_t EndColumn = 0;

    friend bool operator==(const LineMatch&, const LineMatch&) = default;
};

/// The first place of `sought` at or after a column. In a pattern `*` is any text (the shortest that will do), `?` any
/// character, `#` a digit, `[a-z]` one of several characters and `[!a-z]` any other; a `[` without its `]` is itself.
/// A whole word has neither a letter, a digit nor an underscore at its sides. Nothing is found of an empty text. The
/// time is at most that of the line's length by the text's.
std::optional<LineMatch> InLine(
    std::string_view line,
    std::string_view sought,
    const FindOptions& options,
    std::int32_t fromColumn = 1);

}  // namespace dorvik::modCodeFind
