#include "workstation/filehost/modCodeLines.h"

#include "base/modText.h"
#include "workstation/filehost/modCodeFind.h"

#include <algorithm>
#include <cstddef>

namespace dorvik::modCodeLines {

std::string Joined(const std::vector<std::string>& lines, std::int32_t start, std::int32_t count) {
    const auto size = static_cast<std::int64_t>(lines.size());
    const std::int64_t end = std::min(std::int64_t{start} + count - 1, size);
    std::string text;
    for (std::int64_t line = std::max(start, 1); line <= end; ++line) {
        if (line > start) {
            text += modText::kLineEnd;
        }
        text += lines[static_cast<std::size_t>(line) - 1];
    }
    return text;
}

std::vector<std::string> SplitText(std::string_view text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find_first_of("\r\n", start);
        if (end == std::string_view::npos) {
            lines.emplace_back(text.substr(start));
            return lines;
        }
        lines.emplace_back(text.substr(start, end - start));
        const bool isPair = text.substr(end).starts_with(modText::kLineEnd);
        start = end + (isPair ? 2 : 1);
    }
}

std::optional<CodeRange> Find(
    const std::vector<std::string>& lines,
    std::string_view text,
    const CodeRange& within,
    const FindOptions& options) {
    if (within.StartLine < 1) {
        return std::nullopt;
    }
    const auto last = std::min(within.EndLine, static_cast<std::int32_t>(lines.size()));
    for (std::int32_t line = within.StartLine; line <= last; ++line) {
        const auto match =
            modCodeFind::InLine(lines[static_cast<std::size_t>(line) - 1], text, options);
        if (match) {
            return CodeRange{line, match->StartColumn, line, match->EndColumn};
        }
    }
    return std::nullopt;
}

LinesChange
Difference(const std::vector<std::string>& before, const std::vector<std::string>& after) {
    const std::size_t both = std::min(before.size(), after.size());
    std::size_t front = 0;
    while (front < both && before[front] == after[front]) {
        ++front;
    }
    std::size_t back = 0;
    while (back < both - front &&
           before[before.size() - 1 - back] == after[after.size() - 1 - back]) {
        ++back;
    }
    LinesChange change;
    change.Start = static_cast<std::int32_t>(front) + 1;
    change.Removed = static_cast<std::int32_t>(before.size() - front - back);
    change.Inserted = static_cast<std::int32_t>(after.size() - front - back);
    return change;
}

}  // namespace dorvik::modCodeLines
