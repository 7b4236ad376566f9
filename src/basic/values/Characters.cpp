#include "basic/values/Characters.h"

#include "base/modUtf8.h"
#include "platform/host/CodePageTables.h"
#include "platform/host/modEncoding.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace dorvik::basic::modCharacters {

namespace {

constexpr char32_t kFirstHalf = 0xD800;
constexpr char32_t kLastHalf = 0xDFFF;

unsigned ByteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

constexpr std::size_t kWordSize = sizeof(std::uint64_t);

constexpr std::uint64_t kLowestBits = 0x0101010101010101;  // of each byte of a word

/// The lowest bit of each byte of eight says whether it does not begin a character.
std::uint64_t ContinuationsInWord(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, kWordSize);
    return (word >> 7U) & ~(word >> 6U) & kLowestBits;
}

/// The sum of bytes that are 0 or 1.
std::size_t SumOfBytes(std::uint64_t word) {
    return static_cast<std::size_t>((word * kLowestBits) >> 56U);
}

/// The place of the character with that number, from 0, among eight bytes; eight if so many do not begin there.
std::size_t PlaceInWord(const char* bytes, std::size_t number) {
    constexpr std::uint64_t kHighestBits = kLowestBits << 7U;
    const std::uint64_t begins = ContinuationsInWord(bytes) ^ kLowestBits;
    const std::uint64_t counts = begins * kLowestBits;  // in each byte: how many begin up to there
    const std::uint64_t isAfter = (counts + (0x7F - number) * kLowestBits) & kHighestBits;
    return static_cast<std::size_t>(std::countr_zero(isAfter)) / 8;
}

/// The half of a surrogate pair whose three bytes begin at `position`; 0 if none does.
char32_t HalfAt(std::string_view text, std::size_t position) {
    if (text.size() - position < 3 || ByteAt(text, position) != 0xED ||
        !IsContinuation(text[position + 1]) || !IsContinuation(text[position + 2])) {
        return 0;
    }
    const char32_t half = 0xD000U | ((ByteAt(text, position + 1) & 0x3FU) << 6U) |
                          (ByteAt(text, position + 2) & 0x3FU);
    return half >= kFirstHalf ? half : 0;
}

}  // namespace

std::size_t Count(std::string_view text) {
    std::size_t characters = 0;
    for (const char byte : text) {
        characters += IsContinuation(byte) ? 0 : 1;
    }
    return characters;
}

std::size_t Skip(std::string_view text, std::size_t count, std::size_t from) {
    if (count == 0) {
        return from;
    }
    // A word has at most as many characters as bytes; what it begins may end after it.
    for (; count >= kWordSize && text.size() - from >= kWordSize; from += kWordSize) {
        count -= kWordSize - SumOfBytes(ContinuationsInWord(text.data() + from));
    }
    if (text.size() - from >= kWordSize) {
        const std::size_t place = PlaceInWord(text.data() + from, count);
        if (place < kWordSize) {
            return from + place;
        }
    }
    while (from < text.size() && IsContinuation(text[from])) {
        ++from;
    }
    for (; count > 0 && from < text.size(); --count) {
        ++from;
        while (from < text.size() && IsContinuation(text[from])) {
            ++from;
        }
    }
    return from;
}

std::size_t Previous(std::string_view text, std::size_t position) {
    --position;
    while (position > 0 && IsContinuation(text[position])) {
        --position;
    }
    return position;
}

char32_t Next(std::string_view text, std::size_t& position) {
    if (const char32_t half = HalfAt(text, position); half != 0) {
        position += 3;
        return half;
    }
    const modUtf8::Character character = modUtf8::Decode(text, position);
    position += character.Size;
    return character.CodePoint;
}

void Append(std::string& text, char32_t codePoint) {
    if (codePoint < kFirstHalf || codePoint > kLastHalf) {
        modUtf8::Append(text, codePoint);
        return;
    }
    text += static_cast<char>(0xED);
    text += static_cast<char>(0x80U | ((codePoint >> 6U) & 0x3FU));
    text += static_cast<char>(0x80U | (codePoint & 0x3FU));
}

char32_t FromCodePage(unsigned char code) {
    static const CodePageTable* table = FindCodePageTable(modEncoding::kDefaultCodePage);
    return code < 0x80 ? code : table->Upper[code - 0x80U];
}

unsigned char ToCodePage(char32_t codePoint) {
    if (codePoint < 0x80) {
        return static_cast<unsigned char>(codePoint);
    }
    for (unsigned code = 0x80; code < 0x100; ++code) {
        if (FromCodePage(static_cast<unsigned char>(code)) == codePoint) {
            return static_cast<unsigned char>(code);
        }
    }
    return '?';
}

}  // namespace dorvik::basic::modCharacters
