#include "modHiddenLines.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "source/modLogicalLine.h"
#include "source/modSource.h"
#include "source/modStatementFront.h"

#include <algorithm>
#include <string_view>

namespace dorvik::modHiddenLines {

namespace {

bool IsContinued(std::string_view line) {
    std::string buffer;
    return modLogicalLine::IsContinued(modStatementFront::WithBlanks(line, buffer));
}

/// The line after the logical one that begins at `line`.
std::size_t NextLogicalLine(const std::vector<std::string>& lines, std::size_t line) {
    while (line < lines.size() && IsContinued(lines[line])) {
        ++line;
    }
    return std::min(line + 1, lines.size());
}

/// Unlike a review, which takes every line that begins with the word for an attribute, so that a variable of such a name
/// stays in sight.
bool IsAttribute(std::string_view line) {
    return modTextCase::StartsWith(line, "Attribute ") ||
           modTextCase::StartsWith(line, "Attribute\t");
}

bool IsBegin(std::string_view trimmed) {
    return modTextCase::Equal(trimmed, "BEGIN") || modTextCase::StartsWith(trimmed, "Begin ");
}

/// The line after the layout that begins at `line`, or after the last one where it has no end.
std::size_t AfterLayout(const std::vector<std::string>& lines, std::size_t line) {
    std::size_t depth = 0;
    for (; line < lines.size(); ++line) {
        const std::string_view trimmed = modText::Trim(lines[line]);
        if (IsBegin(trimmed)) {
            ++depth;
        } else if (modTextCase::Equal(trimmed, "End") && --depth == 0) {
            return line + 1;
        }
    }
    return line;
}

std::size_t HeaderCount(const std::vector<std::string>& lines) {
    std::size_t line = 0;
    while (line < lines.size() && (modTextCase::StartsWith(lines[line], "VERSION ") ||
                                   modSource::IsOCXObjectDefinition(lines[line]))) {
        ++line;
    }
    const bool hasLayout = line < lines.size() && IsBegin(modText::Trim(lines[line]));
    return hasLayout ? AfterLayout(lines, line) : line;
}

}  // namespace

std::size_t HeadCount(const std::vector<std::string>& lines, FileType type) {
    for (std::size_t line = 0; line < lines.size();) {
        const std::size_t next = NextLogicalLine(lines, line);
        if (modTextCase::StartsWith(lines[line], "Attribute VB_Name =")) {
            return next;
        }
        line = next;
    }
    return type == FileType::Module ? 0 : HeaderCount(lines);
}

std::vector<bool> AttributeLines(const std::vector<std::string>& lines, std::size_t first) {
    std::vector<bool> hidden;
    hidden.reserve(lines.size() - first);
    while (first < lines.size()) {
        const std::size_t next = NextLogicalLine(lines, first);
        hidden.insert(hidden.end(), next - first, IsAttribute(lines[first]));
        first = next;
    }
    return hidden;
}

}  // namespace dorvik::modHiddenLines
