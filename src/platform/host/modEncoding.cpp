#include "platform/host/modEncoding.h"

#include "DoubleBytePage.h"
#include "base/BasicError.h"
#include "base/modUtf8.h"
#include "platform/host/CodePageTables.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace dorvik::modEncoding {

namespace {

constexpr int kUtf8CodePage = 65001;
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";
constexpr char32_t kReplacement = 0xFFFD;

std::size_t AsciiPrefixSize(std::string_view bytes) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    std::size_t size = 0;
    for (; size + sizeof(std::uint64_t) <= bytes.size(); size += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + size, sizeof word);
        if ((word & kHighBits) != 0) {
            break;
        }
    }
    while (size < bytes.size() && static_cast<unsigned char>(bytes[size]) < 0x80) {
        ++size;
    }
    return size;
}

char16_t UpperCharacter(const CodePageTable& table, char byte) {
    return table.Upper[static_cast<unsigned char>(byte) - 0x80U];
}

std::size_t SingleByteTextSize(std::string_view bytes, const CodePageTable& table) {
    std::size_t size = bytes.size();
    for (const char byte : bytes) {
        if (static_cast<unsigned char>(byte) >= 0x80) {
            size += UpperCharacter(table, byte) < 0x800 ? 1 : 2;
        }
    }
    return size;
}

std::string DecodeSingleByte(std::string_view bytes, const CodePageTable& table) {
    std::string text;
    text.reserve(SingleByteTextSize(bytes, table));
    while (!bytes.empty()) {
        const std::size_t asciiSize = AsciiPrefixSize(bytes);
        text.append(bytes.substr(0, asciiSize));
        bytes.remove_prefix(asciiSize);
        while (!bytes.empty() && static_cast<unsigned char>(bytes.front()) >= 0x80) {
            modUtf8::Append(text, UpperCharacter(table, bytes.front()));
            bytes.remove_prefix(1);
        }
    }
    return text;
}

std::string RepairUtf8(std::string_view bytes) {
    const CodePageTable& table = *FindCodePageTable(kDefaultCodePage);
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t asciiSize = AsciiPrefixSize(bytes);
        text.append(bytes.substr(0, asciiSize));
        bytes.remove_prefix(asciiSize);
        if (bytes.empty()) {
            break;
        }
        const std::size_t size = modUtf8::CharacterSize(bytes, 0);
        if (size == 1) {
            modUtf8::Append(text, UpperCharacter(table, bytes.front()));
        } else {
            text.append(bytes.substr(0, size));
        }
        bytes.remove_prefix(size);
    }
    return text;
}

std::string DecodeUtf8(std::string_view bytes) {
    return modUtf8::IsValid(bytes) ? std::string(bytes) : RepairUtf8(bytes);
}

/// The 16-bit units of UTF-16 text; an odd byte at the end is not a unit.
class UnitSequence {
public:
    UnitSequence(std::string_view bytes, bool isBigEndian)
        : m_bytes(bytes), m_highByte(isBigEndian ? 0 : 1) {}

    std::size_t Count() const { return m_bytes.size() / 2; }
    char32_t Unit(std::size_t index) const {
        const auto high = static_cast<unsigned char>(m_bytes[2 * index + m_highByte]);
        const auto low = static_cast<unsigned char>(m_bytes[2 * index + 1 - m_highByte]);
        return static_cast<char32_t>(high << 8U | low);
    }

private:
    std::string_view m_bytes;
    std::size_t m_highByte;
};

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

void AppendUnit(std::string& bytes, char32_t unit, bool isBigEndian) {
    const char high = static_cast<char>(unit >> 8U);
    const char low = static_cast<char>(unit & 0xFFU);
    bytes += isBigEndian ? high : low;
    bytes += isBigEndian ? low : high;
}

std::optional<std::string> EncodeSingleByte(std::string_view text, const CodePageTable& table) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const modUtf8::Character character = modUtf8::Decode(text, position);
        position += character.Size;
        if (character.CodePoint < 0x80) {
            bytes += static_cast<char>(character.CodePoint);
            continue;
        }
        const auto* place = std::ranges::find(table.Upper, character.CodePoint);
        if (place == table.Upper.end()) {
            return std::nullopt;
        }
        bytes += static_cast<char>(0x80 + (place - table.Upper.begin()));
    }
    return bytes;
}

void CheckCodePage(int codePage) {
    if (!IsKnownCodePage(codePage)) {
        RaiseRuntimeError(
            runtimeerror::kInvalidProcedureCall, "code page " + std::to_string(codePage));
    }
}

}  // namespace

bool IsKnownCodePage(int codePage) {
    return codePage == kUtf8CodePage || FindCodePageTable(codePage) != nullptr ||
           DoubleBytePage::Find(codePage) != nullptr;
}

bool HasMark(std::string_view bytes) {
    return bytes.starts_with(modUtf8::kByteOrderMark) || bytes.starts_with(kUtf16LittleMark) ||
           bytes.starts_with(kUtf16BigMark);
}

std::string DecodeUtf16(std::string_view bytes, bool isBigEndian) {
    const UnitSequence units(bytes, isBigEndian);
    std::string text;
    text.reserve(units.Count() + units.Count() / 8);
    for (std::size_t index = 0; index < units.Count(); ++index) {
        const char32_t unit = units.Unit(index);
        if (unit < 0x80) {
            text += static_cast<char>(unit);
        } else if (
            IsHighSurrogate(unit) && index + 1 < units.Count() &&
            IsLowSurrogate(units.Unit(index + 1))) {
            ++index;
            modUtf8::Append(
                text, 0x10000 + ((unit & 0x3FFU) << 10U | (units.Unit(index) & 0x3FFU)));
        } else {
            const bool isLone = IsHighSurrogate(unit) || IsLowSurrogate(unit);
            modUtf8::Append(text, isLone ? kReplacement : unit);
        }
    }
    if (bytes.size() % 2 != 0) {
        modUtf8::Append(text, kReplacement);
    }
    return text;
}

std::string DecodeByPage(std::string_view bytes, int codePage) {
    CheckCodePage(codePage);
    if (AsciiPrefixSize(bytes) == bytes.size()) {
        return std::string(bytes);
    }
    if (codePage == kUtf8CodePage) {
        return DecodeUtf8(bytes);
    }
    if (const CodePageTable* table = FindCodePageTable(codePage)) {
        return DecodeSingleByte(bytes, *table);
    }
    return DoubleBytePage::Find(codePage)->Decode(bytes);
}

std::optional<std::string> EncodeByPage(std::string_view text, int codePage) {
    CheckCodePage(codePage);
    if (codePage == kUtf8CodePage || AsciiPrefixSize(text) == text.size()) {
        return std::string(text);
    }
    if (const CodePageTable* table = FindCodePageTable(codePage)) {
        return EncodeSingleByte(text, *table);
    }
    return DoubleBytePage::Find(codePage)->Encode(text);
}

std::string EncodeUtf16(std::string_view text, bool isBigEndian) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (std::size_t position = 0; position < text.size();) {
        const modUtf8::Character character = modUtf8::Decode(text, position);
        position += character.Size;
        if (character.CodePoint < 0x10000) {
            AppendUnit(bytes, character.CodePoint, isBigEndian);
        } else {
            const char32_t rest = character.CodePoint - 0x10000;
            AppendUnit(bytes, 0xD800 + (rest >> 10U), isBigEndian);
            AppendUnit(bytes, 0xDC00 + (rest & 0x3FFU), isBigEndian);
        }
    }
    return bytes;
}

std::string Decode(std::string_view bytes, int codePage) {
    if (bytes.starts_with(modUtf8::kByteOrderMark)) {
        CheckCodePage(codePage);
        return DecodeUtf8(bytes.substr(modUtf8::kByteOrderMark.size()));
    }
    if (HasMark(bytes)) {
        CheckCodePage(codePage);
        return DecodeUtf16(bytes.substr(2), bytes.starts_with(kUtf16BigMark));
    }
    return DecodeByPage(bytes, codePage);
}

void DecodeInPlace(std::string& bytes, int codePage) {
    if (!HasMark(bytes) && AsciiPrefixSize(bytes) == bytes.size()) {
        CheckCodePage(codePage);
        return;
    }
    bytes = Decode(bytes, codePage);
}

}  // namespace dorvik::modEncoding
