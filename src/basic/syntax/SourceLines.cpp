#include "SourceLines.h"

namespace dorvik::basic {

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find_first_of("\r\n", start);
        if (end == std::string_view::npos) {
            lines.push_back(text.substr(start));
            break;
        }
        lines.push_back(text.substr(start, end - start));
        const bool isPair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
        start = end + (isPair ? 2 : 1);
    }
    return lines;
}

}  // namespace dorvik::basic
