#include "basic/values/TextBytes.h"

#include "basic/values/ArrayBody.h"
#include "basic/values/Characters.h"
#include "basic/values/Coercion.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace dorvik::basic::modTextBytes {

namespace {

constexpr char32_t kFirstPlaneEnd = 0x10000;

void AppendUnit(std::string& bytes, char32_t unit) {
    bytes += static_cast<char>(unit & 0xFFU);
    bytes += static_cast<char>(unit >> 8U & 0xFFU);
}

char32_t UnitAt(std::string_view bytes, std::size_t place) {
    const auto byteAt = [&](std::size_t at) {
        return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
    };
    return byteAt(place) | byteAt(place + 1) << 8U;
}

}  // namespace

std::string BytesOf(std::string_view text) {
    std::string bytes;
    bytes.reserve(2 * text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char32_t character = modCharacters::Next(text, position);
        if (character < kFirstPlaneEnd) {
            AppendUnit(bytes, character);
        } else {
            AppendUnit(bytes, 0xD7C0U + (character >> 10U));
            AppendUnit(bytes, 0xDC00U + (character & 0x3FFU));
        }
    }
    return bytes;
}

std::string TextOf(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t place = 0; place < bytes.size(); place += 2) {
        char32_t character = UnitAt(bytes, place);
        const char32_t next = place + 2 < bytes.size() ? UnitAt(bytes, place + 2) : 0;
        const bool isPair =
            character >= 0xD800 && character < 0xDC00 && next >= 0xDC00 && next < 0xE000;
        if (isPair) {
            character = kFirstPlaneEnd + ((character - 0xD800U) << 10U) + (next - 0xDC00U);
            place += 2;
        }
        modCharacters::Append(text, character);
    }
    return text;
}

bool IsByteArray(const Value& value) {
    return value.Type() == ValueType::Array &&
           value.AsArray()->Element().Kind == DeclaredKind::Byte;
}

std::string BytesIn(const Value& value, std::size_t from, std::size_t count) {
    if (!IsByteArray(value)) {
        std::string buffer;
        const std::string bytes = BytesOf(ToText(value, buffer));
        return from < bytes.size() ? bytes.substr(from, count) : std::string();
    }
    const std::vector<Value>& elements = value.AsArray()->Elements();
    const std::size_t begin = std::min(from, elements.size());
    const std::size_t end = begin + std::min(count, elements.size() - begin);
    std::string bytes;
    bytes.reserve(end - begin);
    for (std::size_t i = begin; i < end; ++i) {
        bytes += static_cast<char>(elements[i].AsByte());
    }
    return bytes;
}

std::size_t CountIn(const Value& value) {
    if (IsByteArray(value)) {
        return value.AsArray()->Elements().size();
    }
    const bool isAscii = value.Type() == ValueType::String && value.TextBody() != nullptr &&
                         value.TextBody()->IsAscii();
    return isAscii ? 2 * value.AsText().size() : BytesIn(value).size();
}

Value ArrayOf(std::string_view bytes) {
    auto array = MakeRef<ArrayBody>(DeclaredType{DeclaredKind::Byte}, false);
    array->Dimension({{0, static_cast<std::int32_t>(bytes.size()) - 1}}, Value::Byte(0));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        array->Elements()[i] = Value::Byte(static_cast<std::uint8_t>(bytes[i]));
    }
    return Value::Array(std::move(array));
}

std::string InCodePage(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        bytes += static_cast<char>(modCharacters::ToCodePage(modCharacters::Next(text, position)));
    }
    return bytes;
}

std::string FromCodePage(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        modCharacters::Append(text, modCharacters::FromCodePage(static_cast<unsigned char>(byte)));
    }
    return text;
}

}  // namespace dorvik::basic::modTextBytes
