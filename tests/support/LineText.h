#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// The lines of a file's text, without their CR LF or LF.
inline std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        lines.emplace_back(line);
    }
    return lines;
}

}  // namespace dorvik::test
