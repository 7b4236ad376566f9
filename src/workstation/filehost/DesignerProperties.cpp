#include "workstation/filehost/DesignerProperties.h"

#include "base/modText.h"
#include "base/modTextCase.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace dorvik {

namespace {

/// By the number of a system colour.
constexpr std::array<std::uint32_t, 25> kSystemColours = {
    0xC8C8C8,  // scroll bar
    0x3A6EA5,  // desktop
    0x99B4D1,  // caption of the active window
    0xBFCDDB,  // caption of another window
    0xF0F0F0,  // menu
    0xFFFFFF,  // window
    0x646464,  // frame of a window
    0x000000,  // text of a menu
    0x000000,  // text of a window
    0x000000,  // text of a caption
    0xB4B4B4,  // border of the active window
    0xF4F7FC,  // border of another window
    0xABABAB,  // work space of an application
    0x0078D7,  // selection
    0xFFFFFF,  // selected text
    0xF0F0F0,  // surface of a button
    0xA0A0A0,  // shadow of a button
    0x6D6D6D,  // disabled text
    0x000000,  // text of a button
    0x000000,  // text of another window's caption
    0xFFFFFF,  // light of a button
    0x696969,  // dark shadow
    0xE3E3E3,  // light edge
    0x000000,  // text of a tip
    0xFFFFE1,  // tip
};

/// The text of a quoted value, up to its closing quote.
std::string Unquoted(std::string_view value) {
    std::string text;
    for (std::size_t place = 1; place < value.size(); ++place) {
        if (value[place] == '"') {
            if (place + 1 == value.size() || value[place + 1] != '"') {
                return text;
            }
            ++place;
        }
        text += value[place];
    }
    return text;
}

bool IsKeptElsewhere(std::string_view value) {
    return value.find(".frx\":") != std::string_view::npos ||
           value.find(".ctx\":") != std::string_view::npos || value.starts_with("$\"");
}

std::optional<double> Parsed(std::string_view text) {
    if (modTextCase::StartsWith(text, "&H")) {
        text = text.substr(2);
        text = text.substr(0, text.find('&'));
        std::uint32_t bits = 0;
        const auto result = std::from_chars(text.data(), text.data() + text.size(), bits, 16);
        return result.ec == std::errc() ? std::optional<double>(bits) : std::nullopt;
    }
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = result.ec == std::errc() && std::isfinite(number);
    return isNumber ? std::optional<double>(number) : std::nullopt;
}

}  // namespace

void DesignerProperties::Add(std::string name, std::string_view value) {
    std::string text;
    if (value.starts_with('"') && !IsKeptElsewhere(value)) {
        text = Unquoted(value);
    } else if (!IsKeptElsewhere(value)) {
        text = modText::Trim(value.substr(0, value.find('\'')));
    }
    m_values.emplace_back(std::move(name), std::move(text));
}

const std::string* DesignerProperties::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(
        m_values, [name](const auto& value) { return modTextCase::Equal(value.first, name); });
    return found == m_values.end() ? nullptr : &found->second;
}

std::string DesignerProperties::Text(std::string_view name) const {
    const std::string* value = Find(name);
    return value == nullptr ? std::string() : *value;
}

std::optional<double> DesignerProperties::Number(std::string_view name) const {
    const std::string* value = Find(name);
    return value == nullptr ? std::nullopt : Parsed(*value);
}

std::int32_t DesignerProperties::WholeNumber(std::string_view name, std::int32_t otherwise) const {
    const auto number = Number(name);
    return number && std::abs(*number) < 2e9 ? static_cast<std::int32_t>(*number) : otherwise;
}

bool DesignerProperties::Flag(std::string_view name, bool otherwise) const {
    const auto number = Number(name);
    return number ? *number != 0 : otherwise;
}

std::uint32_t DesignerProperties::Colour(std::string_view name, std::uint32_t otherwise) const {
    const auto number = Number(name);
    if (!number || *number < 0 || *number > 4294967295.0) {
        return otherwise;
    }
    const auto bits = static_cast<std::uint32_t>(*number);
    if ((bits & 0x80000000U) != 0) {
        const std::size_t index = bits & 0xFFU;
        return index < kSystemColours.size() ? kSystemColours[index] : otherwise;
    }
    return (bits & 0xFFU) << 16U | (bits & 0xFF00U) | (bits >> 16U & 0xFFU);
}

}  // namespace dorvik
