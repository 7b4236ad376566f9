#include "SourceLines.h"

#include "base/modUtf8.h"

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

std::string WithValidCharacters(std::string_view text) {
    std::string valid;
    valid.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const auto character = modUtf8::Decode(text, i);
        modUtf8::Append(valid, character.Valid ? character.CodePoint : U'\uFFFD');
        i += character.Size;
    }
    return valid;
}

}  // namespace dorvik::basic
