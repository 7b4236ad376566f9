#include "settings/ComponentVersion.h"

#include <string_view>

namespace dorvik {

namespace {

constexpr std::size_t kMinorDigits = 2;
constexpr std::size_t kRevisionDigits = 4;

std::string WithZeros(int number, std::size_t digits) {
    std::string text = std::to_string(number);
    text.insert(0, text.size() < digits ? digits - text.size() : 0, '0');
    return text;
}

}  // namespace

std::string ComponentVersion() {
    return std::to_string(DORVIK_VERSION_MAJOR) + "." +
           WithZeros(DORVIK_VERSION_MINOR, kMinorDigits) + "." +
           WithZeros(DORVIK_VERSION_REVISION, kRevisionDigits);
}

}  // namespace dorvik
