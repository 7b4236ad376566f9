#pragma once

#include <cstddef>
#include <string_view>

/// Strings in a line, as far as a plain pairing of its double quotes finds them.
namespace dorvik::modQuotedText {

/// Calls `visit(part)` for what is around the strings, from left to right; joined, the parts are
/// the line with every string emptied, its two quotes kept. A quote without a partner and what
/// follows it belong to the last part.
template <typename Visit>
void ForEachPartAround(std::string_view line, Visit&& visit) {
    std::size_t from = 0;
    std::size_t seek = 0;
    while (true) {
        const std::size_t opening = line.find('"', seek);
        const std::size_t closing =
            opening == std::string_view::npos ? opening : line.find('"', opening + 1);
        if (closing == std::string_view::npos) {
            visit(line.substr(from));
            return;
        }
        visit(line.substr(from, opening + 1 - from));
        from = closing;
        seek = closing + 1;
    }
}

}  // namespace dorvik::modQuotedText
