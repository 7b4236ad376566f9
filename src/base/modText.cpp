#include "base/modText.h"

#include "base/BasicError.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace dorvik::modText {

namespace {

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsSign(char character) {
    return character == '+' || character == '-';
}

std::size_t SkipDigits(const std::string& text, std::size_t position) {
    while (position < text.size() && IsDigit(text[position])) {
        ++position;
    }
    return position;
}

/// After the exponent that begins at `position`, or `position` itself if none does. The reviewed
/// language writes "D" as well as "E"; the "D" is turned into an "E".
std::size_t SkipExponent(std::string& text, std::size_t position) {
    if (position >= text.size() ||
        std::string_view("eEdD").find(text[position]) == std::string_view::npos) {
        return position;
    }
    std::size_t digits = position + 1;
    if (digits < text.size() && IsSign(text[digits])) {
        ++digits;
    }
    const std::size_t end = SkipDigits(text, digits);
    if (end == digits) {
        return position;
    }
    text[position] = 'E';
    return end;
}

/// The byte after the number that the text begins with; 0 if it begins with none.
std::size_t NumberEnd(std::string& text) {
    const std::size_t first = !text.empty() && text[0] == '-' ? 1 : 0;
    std::size_t end = SkipDigits(text, first);
    std::size_t digits = end - first;
    if (end < text.size() && text[end] == '.') {
        const std::size_t fractionEnd = SkipDigits(text, end + 1);
        digits += fractionEnd - (end + 1);
        end = fractionEnd;
    }
    return digits == 0 ? 0 : SkipExponent(text, end);
}

/// Whether a number that a double cannot hold is too small rather than too large.
bool IsBelowOne(std::string_view number) {
    const std::size_t exponentMark = number.find('E');
    if (exponentMark != std::string_view::npos) {
        return number[exponentMark + 1] == '-';
    }
    const std::size_t first = number.find_first_not_of("-0");
    return first == std::string_view::npos || number[first] == '.';
}

}  // namespace

std::string_view TrimLeft(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view TrimRight(std::string_view text) {
    std::size_t end = text.size();
    while (end > 0 && text[end - 1] == ' ') {
        --end;
    }
    return text.substr(0, end);
}

std::string_view Trim(std::string_view text) {
    return TrimRight(TrimLeft(text));
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator) {
    std::string joined;
    for (const std::string& part : parts) {
        if (&part != &parts.front()) {
            joined += separator;
        }
        joined += part;
    }
    return joined;
}

double LeadingNumber(std::string_view text) {
    std::string number;
    for (const char character : text) {
        if (character != ' ') {
            number += character;
        }
    }
    if (number.starts_with('+') && number.size() > 1 && !IsSign(number[1])) {
        number.erase(0, 1);
    }
    number.resize(NumberEnd(number));
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range && !IsBelowOne(number)) {
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    return value;
}

std::optional<std::int32_t> WholeNumber(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && IsDigit(text[1])) {
        text.remove_prefix(1);
    }
    std::int32_t value = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc{} || result.ptr != end) {
        return std::nullopt;
    }
    return value;
}

std::int32_t RoundToLong(double value) {
    const double rounded = std::nearbyint(value);
    constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr double kGreatest = std::numeric_limits<std::int32_t>::max();
    if (!(rounded >= kLeast && rounded <= kGreatest)) {  // also true for what is not a number
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    return static_cast<std::int32_t>(rounded);
}

std::int32_t LeadingLong(std::string_view text) {
    return RoundToLong(LeadingNumber(text));
}

}  // namespace dorvik::modText
