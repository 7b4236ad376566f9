#include "WideText.h"

#include "basic/values/Characters.h"

#include <cstdint>
#include <cstring>

namespace dorvik::basic::modWideText {

namespace {

/// The bytes of the character that begins at an offset; as for `modCharacters`, one ends where another begins.
std::size_t BytesAt(std::string_view text, std::size_t offset) {
    const bool isAscii =
        static_cast<unsigned char>(text[offset]) < 0x80 &&
        (offset + 1 == text.size() || static_cast<unsigned char>(text[offset + 1]) < 0x80);
    return isAscii ? 1 : modCharacters::Skip(text, 1, offset) - offset;
}

/// Zeros fill up a character; only that of the code 0 has none other.
std::size_t BytesOf(const char* character) {
    std::size_t bytes = kWidth;
    while (bytes > 1 && character[bytes - 1] == '\0') {
        --bytes;
    }
    return bytes;
}

bool BeginsACharacter(std::string_view text) {
    return modCharacters::Count(text.substr(0, 1)) == 1;
}

/// Whether the text begins with a character and none of them is too long.
bool Fits(std::string_view text) {
    if (!BeginsACharacter(text)) {
        return false;
    }
    for (std::size_t offset = 0, bytes = 0; offset < text.size(); offset += bytes) {
        bytes = BytesAt(text, offset);
        if (bytes > kWidth) {
            return false;
        }
    }
    return true;
}

/// REQUIRES: the text is one character that fits.
void WriteOne(char* target, std::string_view character) {
    std::uint32_t bytes = 0;
    static_assert(sizeof(bytes) == kWidth);
    std::memcpy(&bytes, character.data(), character.size());
    std::memcpy(target, &bytes, kWidth);
}

/// REQUIRES: the text fits.
void Write(char* target, std::string_view text) {
    for (std::size_t offset = 0; offset < text.size(); target += kWidth) {
        const std::size_t bytes = BytesAt(text, offset);
        WriteOne(target, text.substr(offset, bytes));
        offset += bytes;
    }
}

}  // namespace

std::string Widened(std::string_view text, std::size_t length) {
    std::string wide;
    if (Fits(text)) {
        wide.resize(length * kWidth);
        Write(wide.data(), text);
    }
    return wide;
}

std::string Narrowed(std::string_view wide, std::size_t first, std::size_t count) {
    std::string text;
    text.reserve(count);
    for (const char *character = wide.data() + first * kWidth, *end = character + count * kWidth;
         character != end;
         character += kWidth) {
        text.append(character, BytesOf(character));
    }
    return text;
}

bool Overwrite(std::string& wide, std::size_t first, std::size_t count, std::string_view part) {
    if (count == 1 && part.size() <= kWidth && BeginsACharacter(part)) {
        WriteOne(wide.data() + first * kWidth, part);
        return true;
    }
    const bool fits = Fits(part);
    if (fits) {
        Write(wide.data() + first * kWidth, part);
    }
    return fits;
}

}  // namespace dorvik::basic::modWideText
