#include "base/modUtf8.h"

#include <cstdint>
#include <cstring>

namespace dorvik::modUtf8 {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr std::uint64_t kHighBits = 0x8080808080808080ULL;

std::uint64_t EightBytes(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

unsigned ByteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

/// The length that the first byte promises, 0 for a byte that begins no sequence.
std::size_t PromisedSize(unsigned lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC2) {
        return 0;  // a trail byte, or the start of an overlong form
    }
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}

/// Rejects overlong forms, surrogates and what is above U+10FFFF.
bool IsAllowed(char32_t codePoint, std::size_t size) {
    switch (size) {
        case 3: return codePoint >= 0x800 && (codePoint < 0xD800 || codePoint > 0xDFFF);
        case 4: return codePoint >= 0x10000 && codePoint <= 0x10FFFF;
        default: return true;
    }
}

/// The byte offset after `count` characters that begin at `position`.
std::size_t Advance(std::string_view text, std::size_t position, std::size_t count) {
    while (count > 0 && position < text.size()) {
        position += CharacterSize(text, position);
        --count;
    }
    return position;
}

}  // namespace

std::string_view WithoutByteOrderMark(std::string_view text) {
    return text.starts_with(kByteOrderMark) ? text.substr(kByteOrderMark.size()) : text;
}

bool IsAscii(std::string_view text) {
    const char* bytes = text.data();
    std::size_t left = text.size();
    for (; left >= 8; left -= 8, bytes += 8) {
        if ((EightBytes(bytes) & kHighBits) != 0) {
            return false;
        }
    }
    unsigned rest = 0;
    for (; left > 0; --left, ++bytes) {
        rest |= static_cast<unsigned char>(*bytes);
    }
    return rest < 0x80;
}

Character Decode(std::string_view text, std::size_t position) {
    const unsigned lead = ByteAt(text, position);
    if (lead < 0x80) {
        return {lead, 1, true};
    }
    const std::size_t size = PromisedSize(lead);
    if (size == 0 || size > text.size() - position) {
        return {kReplacement, 1, false};
    }
    char32_t codePoint = lead & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        const unsigned trail = ByteAt(text, position + i);
        if ((trail & 0xC0U) != 0x80) {
            return {kReplacement, 1, false};
        }
        codePoint = (codePoint << 6) | (trail & 0x3FU);
    }
    if (!IsAllowed(codePoint, size)) {
        return {kReplacement, 1, false};
    }
    return {codePoint, size, true};
}

std::size_t Length(std::string_view text) {
    if (IsAscii(text)) {
        return text.size();
    }
    std::size_t length = 0;
    for (std::size_t position = 0; position < text.size(); ++length) {
        position += CharacterSize(text, position);
    }
    return length;
}

std::string_view Mid(std::string_view text, std::size_t start, std::size_t count) {
    const std::size_t before = start - 1;
    if (before >= text.size()) {
        return {};
    }
    if (IsAscii(text.substr(0, before))) {
        text.remove_prefix(before);
    } else {
        text.remove_prefix(Advance(text, 0, before));
    }
    return Left(text, count);
}

std::string_view Left(std::string_view text, std::size_t count) {
    if (count >= text.size()) {
        return text;
    }
    if (IsAscii(text.substr(0, count))) {
        return text.substr(0, count);
    }
    return text.substr(0, Advance(text, 0, count));
}

std::string_view WithoutLast(std::string_view text, std::size_t count) {
    if (count >= text.size()) {
        return {};
    }
    if (IsAscii(text.substr(text.size() - count))) {
        return text.substr(0, text.size() - count);
    }
    const std::size_t length = Length(text);
    return count >= length ? std::string_view{} : Left(text, length - count);
}

std::size_t CharacterSize(std::string_view text, std::size_t position) {
    return ByteAt(text, position) < 0x80 ? 1 : Decode(text, position).Size;
}

char32_t CodePoint(std::string_view text, std::size_t position) {
    return Decode(text, position).CodePoint;
}

void Append(std::string& text, char32_t codePoint) {
    const auto trail = [codePoint](unsigned shift) {
        return static_cast<char>(0x80U | ((codePoint >> shift) & 0x3FU));
    };
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        text += static_cast<char>(0xC0U | (codePoint >> 6));
        text += trail(0);
    } else if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) {
        Append(text, kReplacement);
    } else if (codePoint < 0x10000) {
        text += static_cast<char>(0xE0U | (codePoint >> 12));
        text += trail(6);
        text += trail(0);
    } else {
        text += static_cast<char>(0xF0U | (codePoint >> 18));
        text += trail(12);
        text += trail(6);
        text += trail(0);
    }
}

bool IsValid(std::string_view text) {
    if (IsAscii(text)) {
        return true;
    }
    for (std::size_t position = 0; position < text.size();) {
        const Character character = Decode(text, position);
        if (!character.Valid) {
            return false;
        }
        position += character.Size;
    }
    return true;
}

std::string WithValidCharacters(std::string_view text) {
    if (IsValid(text)) {
        return std::string(text);
    }
    std::string valid;
    for (std::size_t position = 0; position < text.size();) {
        const Character character = Decode(text, position);
        Append(valid, character.CodePoint);
        position += character.Size;
    }
    return valid;
}

}  // namespace dorvik::modUtf8
