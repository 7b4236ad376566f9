#include "FormatPattern.h"

#include "base/modTextCase.h"

#include <algorithm>

namespace dorvik::basic::modFormatPattern {

namespace {

bool BeginsExponent(std::string_view pattern, std::size_t position) {
    const char next = position + 1 < pattern.size() ? pattern[position + 1] : '\0';
    return Lower(pattern[position]) == 'e' && (next == '+' || next == '-');
}

}  // namespace

char Lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

std::size_t RunLength(std::string_view pattern, std::size_t position, std::size_t most) {
    const char letter = Lower(pattern[position]);
    std::size_t length = 1;
    while (length < most && position + length < pattern.size() &&
           Lower(pattern[position + length]) == letter) {
        ++length;
    }
    return length;
}

std::string_view HalfDayMark(std::string_view pattern, std::size_t position) {
    for (const std::string_view mark : {"AM/PM", "A/P", "AMPM"}) {
        const std::string_view found = pattern.substr(position, mark.size());
        if (modTextCase::Equal(found, mark)) {
            return found;
        }
    }
    return {};
}

bool TakeLiteral(std::string_view pattern, std::size_t& position, std::string& literal) {
    if (pattern[position] == '\\') {
        ++position;
        if (position < pattern.size()) {
            literal += pattern[position++];
        }
        return true;
    }
    if (pattern[position] != '"') {
        return false;
    }
    const std::size_t end = std::min(pattern.find('"', position + 1), pattern.size());
    literal += pattern.substr(position + 1, end - position - 1);
    position = std::min(end + 1, pattern.size());
    return true;
}

std::vector<std::string_view> Sections(std::string_view pattern) {
    std::vector<std::string_view> sections;
    std::string literal;
    std::size_t start = 0;
    for (std::size_t position = 0; position < pattern.size();) {
        if (TakeLiteral(pattern, position, literal)) {
            continue;
        }
        if (pattern[position] == ';') {
            sections.push_back(pattern.substr(start, position - start));
            start = position + 1;
        }
        ++position;
    }
    sections.push_back(pattern.substr(start));
    return sections;
}

Kind KindOf(std::string_view pattern) {
    std::string literal;
    for (std::size_t position = 0; position < pattern.size();) {
        if (TakeLiteral(pattern, position, literal)) {
            continue;
        }
        const char character = Lower(pattern[position]);
        if (std::string_view("0#%").find(character) != std::string_view::npos ||
            BeginsExponent(pattern, position)) {
            return Kind::Number;
        }
        if (std::string_view("@&<>!").find(character) != std::string_view::npos) {
            return Kind::Text;
        }
        const bool isDate =
            std::string_view("cdwmqyhns:/").find(character) != std::string_view::npos;
        if (isDate || !HalfDayMark(pattern, position).empty() ||
            (character == 't' && RunLength(pattern, position, 5) == 5)) {
            return Kind::Date;
        }
        ++position;
    }
    return Kind::Number;
}

}  // namespace dorvik::basic::modFormatPattern
