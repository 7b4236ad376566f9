#include "modProjectFileLine.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modUtf8.h"
#include "source/modSource.h"

#include <vector>

namespace dorvik::modProjectFileLine {

namespace {

/// The elements of the text between "#" marks; raises 9 where there are fewer than `needed`.
std::vector<std::string_view> Elements(std::string_view text, std::size_t needed) {
    std::vector<std::string_view> elements = modText::Split(text, '#');
    if (elements.size() < needed) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return elements;
}

/// Required: everything after the first backslash, so that the letter in front of the name stays
/// with it. A line without a backslash is taken whole.
std::string_view DesignTimeFilename(std::string_view line) {
    return line.substr(line.find('\\') + 1);
}

int HexadecimalDigit(char character) {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

}  // namespace

std::string_view UnquotedValue(std::string_view value) {
    if (value.empty() || value.front() != '"') {
        return value;
    }
    if (value.size() == 1) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    return modUtf8::WithoutLast(value, 1).substr(1);
}

Keyed<VirtualReference> ReferenceFromLine(std::string_view line) {
    auto reference = std::make_shared<VirtualReference>();
    const std::size_t brace = line.find('{');
    if (brace == std::string_view::npos) {
        reference->DesignTime = true;
        reference->Filename = DesignTimeFilename(line);
        return {reference->Filename, reference};
    }
    const auto elements = Elements(line.substr(brace), 5);
    reference->GUID = elements[0];
    reference->Version = elements[1];
    reference->LCID = LocaleFromHexadecimal(elements[2]);
    reference->Filename = elements[3];
    reference->Description = elements[4];
    return {reference->GUID, reference};
}

Keyed<VirtualComponent> ComponentFromLine(std::string_view line) {
    auto component = std::make_shared<VirtualComponent>();
    const std::size_t brace = line.find('{');
    if (brace == std::string_view::npos) {
        component->DesignTime = true;
        component->Filename = DesignTimeFilename(line);
        return {component->Filename, component};
    }
    const std::string_view text = line.substr(brace);
    const std::size_t semicolon = text.find(';');
    if (semicolon == std::string_view::npos) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    component->Filename = modSource::RemoveQuotes(modText::Trim(text.substr(semicolon + 1)));
    const auto elements = Elements(text.substr(0, semicolon), 3);
    component->GUID = elements[0];
    component->Version = elements[1];
    component->LCID = LocaleFromHexadecimal(elements[2]);
    return {component->GUID, component};
}

std::int32_t LocaleFromHexadecimal(std::string_view digits) {
    std::uint64_t value = 0;
    std::size_t position = 0;
    for (; position < digits.size(); ++position) {
        const char character = digits[position];
        if (character == ' ' || character == '\t') {
            continue;
        }
        const int digit = HexadecimalDigit(character);
        if (digit < 0) {
            break;
        }
        value = value * 16 + static_cast<std::uint64_t>(digit);
        if (value > 0xFFFFFFFF) {
            RaiseRuntimeError(runtimeerror::kOverflow);
        }
    }
    const bool isLong = position < digits.size() && digits[position] == '&';
    if (value <= 0xFFFF && !isLong) {
        return static_cast<std::int16_t>(value);
    }
    return static_cast<std::int32_t>(value);
}

}  // namespace dorvik::modProjectFileLine
