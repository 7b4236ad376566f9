#include "cli/output/FigureText.h"

namespace dorvik::modFigureText {

std::string Grouped(std::int32_t number) {
    std::string text = std::to_string(number);
    const std::size_t firstDigit = number < 0 ? 1 : 0;
    for (std::size_t place = text.size(); place > firstDigit + 3; place -= 3) {
        text.insert(place - 3, 1, ',');
    }
    return text;
}

std::string Counted(std::int32_t number, std::string_view one, std::string_view many) {
    return Grouped(number).append(" ").append(number == 1 ? one : many);
}

}  // namespace dorvik::modFigureText
