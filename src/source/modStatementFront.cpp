#include "source/modStatementFront.h"

#include <cstddef>

namespace dorvik::modStatementFront {

namespace {

constexpr std::string_view kNoBreakSpace = "\xC2\xA0";

/// The bytes of the character at that place if it is one of ours, otherwise 0.
std::size_t HidingSize(std::string_view line, std::size_t place) {
    if (line[place] == '\0' || line[place] == '\f') {
        return 1;
    }
    return line.substr(place).starts_with(kNoBreakSpace) ? kNoBreakSpace.size() : 0;
}

bool IsBlank(char character) {
    return character == ' ' || character == '\t';
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

}  // namespace

std::string_view WithBlanks(std::string_view line, std::string& buffer) {
    bool isFront = true;  // nothing of the statement yet
    bool isInString = false;
    bool isNumber = true;  // only digits so far, from the first column on
    bool isChanged = false;
    std::size_t copied = 0;  // bytes of the line that are in the buffer
    for (std::size_t place = 0; place < line.size(); ++place) {
        const char character = line[place];
        isNumber = isNumber && IsDigit(character);
        const std::size_t hiding = isFront && !isNumber ? HidingSize(line, place) : 0;
        if (hiding > 0) {
            if (!isChanged) {
                buffer.clear();
                isChanged = true;
            }
            buffer.append(line.substr(copied, place - copied)).append(1, ' ');
            copied = place + hiding;
            place = copied - 1;
        } else if (character == '"') {
            isInString = !isInString;
            isFront = false;
        } else if (isInString) {
            continue;
        } else if (character == '\'') {
            break;
        } else {
            isFront = character == ':' || isNumber || (isFront && IsBlank(character));
        }
    }
    return isChanged ? std::string_view(buffer.append(line.substr(copied))) : line;
}

}  // namespace dorvik::modStatementFront
