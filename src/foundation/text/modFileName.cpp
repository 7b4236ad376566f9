#include "foundation/text/modFileName.h"

#include "base/modTextCase.h"
#include "base/modUtf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace dorvik::modFileName {

namespace {

constexpr char kInstead = '_';

/// Names that stand for a device on some systems, whatever ending they have.
constexpr std::array<std::string_view, 6> kDevices = {
    "CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
constexpr std::array<std::string_view, 2> kNumberedDevices = {"COM", "LPT"};
constexpr std::array<std::string_view, 12> kDeviceNumbers = {
    "1", "2", "3", "4", "5", "6", "7", "8", "9", "\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};

bool IsControl(char32_t character) {
    constexpr char32_t kDelete = 0x7F;
    constexpr char32_t kBehindControls = 0xA0;
    return character < U' ' || (character >= kDelete && character < kBehindControls);
}

bool IsSeparator(char character) {
    return character == '\\' || character == '/';
}

std::string WithoutForbidden(std::string_view text) {
    std::string name;
    for (std::size_t at = 0; at < text.size();) {
        const modUtf8::Character character = modUtf8::Decode(text, at);
        const bool isSecondDot = text[at] == '.' && name.ends_with('.');
        const bool isForbidden = !character.Valid || IsControl(character.CodePoint) ||
                                 IsSeparator(text[at]) || isSecondDot;
        if (isForbidden) {
            name += kInstead;
        } else {
            name += text.substr(at, character.Size);
        }
        at += character.Size;
    }
    return name;
}

bool IsDevice(std::string_view name) {
    std::string_view base = name.substr(0, name.find('.'));
    base = base.substr(0, base.find_last_not_of(' ') + 1);
    const auto isBase = [base](std::string_view device) {
        return modTextCase::Equal(base, device);
    };
    if (std::ranges::any_of(kDevices, isBase)) {
        return true;
    }
    return std::ranges::any_of(kNumberedDevices, [&](std::string_view device) {
        return base.size() > device.size() &&
               modTextCase::Equal(base.substr(0, device.size()), device) &&
               std::ranges::find(kDeviceNumbers, base.substr(device.size())) !=
                   kDeviceNumbers.end();
    });
}

/// Not longer than so many bytes, cut between two characters.
std::string_view Cut(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes) {
        return text;
    }
    constexpr unsigned kContinued = 0x80;  // the upper two bits of a byte that begins no character
    constexpr unsigned kUpperBits = 0xC0;
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & kUpperBits) == kContinued) {
        --bytes;
    }
    return text.substr(0, bytes);
}

/// "-" and the FNV-1a hash of the text in hexadecimal.
std::string Mark(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char byte : text) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    std::string mark = "-";
    for (int shift = 60; shift >= 0; shift -= 4) {
        mark += kDigits[(hash >> static_cast<unsigned>(shift)) & 0xFU];
    }
    return mark;
}

}  // namespace

std::string FromText(std::string_view text, std::string_view ending) {
    std::string name = WithoutForbidden(text);
    if (name.starts_with('.') || name.starts_with(' ')) {
        name.front() = kInstead;
    }
    if (name.ends_with('.') && ending.starts_with('.')) {
        name.back() = kInstead;
    }
    if (IsDevice(name + std::string(ending))) {
        name.insert(name.begin(), kInstead);
    }
    if (name == text && name.size() + ending.size() <= kMostBytes) {
        return name.append(ending);
    }
    const std::string mark = Mark(text);
    return std::string(Cut(name, kMostBytes - mark.size() - ending.size()))
        .append(mark)
        .append(ending);
}

}  // namespace dorvik::modFileName
