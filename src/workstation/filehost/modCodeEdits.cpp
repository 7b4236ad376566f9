#include "workstation/filehost/modCodeEdits.h"

#include "base/modText.h"
#include "workstation/filehost/FileCodeModule.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

namespace dorvik::modCodeEdits {

namespace {

using Edit = std::function<std::string(const std::string& line)>;

void EditLines(FileCodeModule& module, std::int32_t first, std::int32_t last, const Edit& edit) {
    const std::int32_t start = std::max(first, 1);
    const std::int32_t end = std::min(last, module.CountOfLines());
    bool isChanged = false;
    std::vector<std::string> lines;
    for (std::int32_t line = start; line <= end; ++line) {
        const std::string& text = module.Texts()[static_cast<std::size_t>(line) - 1];
        lines.push_back(edit(text));
        isChanged = isChanged || lines.back() != text;
    }
    if (isChanged) {
        module.ReplaceLines(start, end - start + 1, modText::Join(lines, modText::kLineEnd));
    }
}

}  // namespace

std::string_view Indentation(std::string_view line) {
    return line.substr(0, std::min(line.find_first_not_of(" \t"), line.size()));
}

void Comment(FileCodeModule& module, std::int32_t first, std::int32_t last) {
    EditLines(module, first, last, [](const std::string& line) { return "'" + line; });
}

void Uncomment(FileCodeModule& module, std::int32_t first, std::int32_t last) {
    EditLines(module, first, last, [](const std::string& line) {
        const std::size_t place = Indentation(line).size();
        std::string text = line;
        if (place < text.size() && text[place] == '\'') {
            text.erase(place, 1);
        }
        return text;
    });
}

}  // namespace dorvik::modCodeEdits
