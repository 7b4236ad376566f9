#include "source/modLogicalLine.h"

#include "base/modText.h"
#include "source/modSource.h"

#include <cstddef>

namespace dorvik::modLogicalLine {

namespace {

constexpr std::string_view kDigits = "0123456789";

}  // namespace

/// Most lines are done with by their last character.
bool IsContinued(std::string_view physicalLine) {
    const std::size_t last = physicalLine.find_last_not_of(' ');
    return last != std::string_view::npos && physicalLine[last] == '_' &&
           modSource::SourceLineType(physicalLine) == LineType::Continued;
}

std::string_view WithoutContinuation(std::string_view continuedLine) {
    std::string_view text = modText::TrimRight(continuedLine);
    text.remove_suffix(1);
    return modText::TrimRight(text);
}

void AppendJoined(std::string& logical, std::string_view text) {
    if (!logical.empty()) {
        logical += ' ';
        text = modText::Trim(text);
    }
    logical += text;
}

void RemoveLineNumber(std::string& logical) {
    if (!logical.empty() && kDigits.find(logical.front()) != std::string_view::npos) {
        logical.erase(0, logical.find_first_not_of(kDigits));
    }
}

}  // namespace dorvik::modLogicalLine
