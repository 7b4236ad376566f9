#include "platform/host/modTextForm.h"

#include "base/modUtf8.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace dorvik::modTextForm {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";
constexpr std::string_view kUtf32LittleMark = "\xFF\xFE\0\0"sv;
constexpr std::string_view kUtf32BigMark = "\0\0\xFE\xFF"sv;
constexpr std::string_view kPadding = "\0\x1A"sv;

constexpr std::uint32_t kCharacters = 0x110000;  // numbers of Unicode
constexpr std::size_t kControlsInText = 20;      // one in so many units at most
constexpr std::size_t kFewControls = 8;          // fewer prove nothing
constexpr std::size_t kFewNuls = 16;
constexpr std::size_t kSidesApart = 32;

/// Whether it is a control character that no text has. NUL is one.
constexpr bool IsControl(std::uint32_t character) {
    constexpr std::uint32_t kOfTexts = 1U << 0x08U | 1U << 0x09U | 1U << 0x0AU | 1U << 0x0BU |
                                       1U << 0x0CU | 1U << 0x0DU | 1U << 0x1AU | 1U << 0x1BU;
    return character < 0x20U && (kOfTexts >> character & 1U) == 0;
}

/// Whether a unit of UTF-16 is a character that no text has; of UTF-32, all the more.
constexpr bool IsStrange(std::uint32_t character) {
    constexpr std::uint32_t kFirstOfC1 = 0x7F;  // with delete
    constexpr std::uint32_t kLastOfC1 = 0x9F;
    constexpr std::uint32_t kFirstSpecial = 0xFFF0;
    constexpr std::uint32_t kLastSpecial = 0xFFFF;
    return IsControl(character) || (character >= kFirstOfC1 && character <= kLastOfC1) ||
           (character >= kFirstSpecial && character <= kLastSpecial);
}

constexpr std::array<std::uint8_t, 256> kControlBytes = [] {
    std::array<std::uint8_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        table.at(byte) = IsControl(byte) ? 1 : 0;
    }
    return table;
}();

std::uint32_t ByteAt(std::string_view bytes, std::size_t place) {
    return static_cast<unsigned char>(bytes[place]);
}

std::uint32_t Unit32(std::string_view bytes, std::size_t place, bool isBigEndian) {
    std::uint32_t unit = 0;
    for (std::size_t index = 0; index < 4; ++index) {
        unit = unit << 8U | ByteAt(bytes, place + (isBigEndian ? index : 3 - index));
    }
    return unit;
}

bool AreCharacters(std::string_view bytes, bool isBigEndian) {
    for (std::size_t place = 0; place + 4 <= bytes.size(); place += 4) {
        if (Unit32(bytes, place, isBigEndian) >= kCharacters) {
            return false;
        }
    }
    return true;
}

/// Without the padding at the end, but with the whole of the last unit.
std::string_view WithoutPadding(std::string_view bytes, std::size_t unitSize) {
    const std::size_t last = bytes.find_last_not_of(kPadding);
    const std::size_t size = last == std::string_view::npos ? 0 : last + 1;
    const std::size_t whole = (size + unitSize - 1) / unitSize * unitSize;
    return bytes.substr(0, whole);
}

bool IsUtf32(std::string_view bytes, bool isBigEndian) {
    if (bytes.size() % 4 != 0 || !AreCharacters(bytes, isBigEndian)) {
        return false;
    }
    std::size_t strange = 0;
    for (std::size_t place = 0; place < bytes.size(); place += 4) {
        strange += IsStrange(Unit32(bytes, place, isBigEndian)) ? 1U : 0U;
    }
    return strange * kControlsInText <= bytes.size() / 4;
}

/// `high` is the place of the upper half in a unit, 0 or 1.
bool IsUtf16(std::string_view bytes, std::size_t high) {
    const std::size_t units = bytes.size() / 2;
    std::size_t nulsHigh = 0;
    std::size_t nulsLow = 0;
    std::size_t strange = 0;
    bool isPairOpen = false;
    for (std::size_t place = 0; place + 2 <= bytes.size(); place += 2) {
        const std::uint32_t upper = ByteAt(bytes, place + high);
        const std::uint32_t lower = ByteAt(bytes, place + 1 - high);
        nulsHigh += upper == 0 ? 1U : 0U;
        nulsLow += lower == 0 ? 1U : 0U;
        const bool isFirstHalf = upper >= 0xD8 && upper < 0xDC;
        const bool isSecondHalf = upper >= 0xDC && upper < 0xE0;
        strange += IsStrange(upper << 8U | lower) || isPairOpen != isSecondHalf ? 1U : 0U;
        isPairOpen = isFirstHalf;
    }
    const std::size_t shareNeeded = nulsHigh < kFewNuls ? 2 : 8;
    return nulsHigh > 0 && nulsHigh * shareNeeded >= units && nulsLow * kSidesApart <= nulsHigh &&
           strange * kControlsInText <= units;
}

/// A run of NULs counts as one.
bool IsBinary(std::string_view bytes) {
    std::size_t controls = 0;
    std::size_t repeated = 0;
    char before = '\1';
    for (const char byte : bytes) {
        controls += kControlBytes[static_cast<unsigned char>(byte)];
        repeated += byte == '\0' && before == '\0' ? 1U : 0U;
        before = byte;
    }
    controls -= repeated;
    return controls >= kFewControls && controls * kControlsInText > bytes.size() - repeated;
}

TextForm RecogniseUnmarked(std::string_view bytes) {
    const std::string_view text = WithoutPadding(bytes, 1);
    if (text.empty()) {
        return bytes.find('\0') == std::string_view::npos ? TextForm::Bytes : TextForm::Binary;
    }
    if (text.find('\0') != std::string_view::npos) {
        const std::string_view quads = WithoutPadding(bytes, 4);
        if (IsUtf32(quads, false) || IsUtf32(quads, true)) {
            return TextForm::Utf32;
        }
        const std::string_view pairs = WithoutPadding(bytes, 2);
        if (IsUtf16(pairs, 1)) {
            return TextForm::Utf16Little;
        }
        if (IsUtf16(pairs, 0)) {
            return TextForm::Utf16Big;
        }
    }
    return IsBinary(text) ? TextForm::Binary : TextForm::Bytes;
}

}  // namespace

TextForm Recognise(std::string_view bytes) {
    if (bytes.starts_with(modUtf8::kByteOrderMark)) {
        return IsBinary(WithoutPadding(bytes, 1)) ? TextForm::Binary : TextForm::Bytes;
    }
    if ((bytes.starts_with(kUtf32LittleMark) && AreCharacters(bytes.substr(4), false)) ||
        (bytes.starts_with(kUtf32BigMark) && AreCharacters(bytes.substr(4), true))) {
        return TextForm::Utf32;
    }
    if (bytes.starts_with(kUtf16LittleMark)) {
        return TextForm::Utf16Little;
    }
    if (bytes.starts_with(kUtf16BigMark)) {
        return TextForm::Utf16Big;
    }
    return RecogniseUnmarked(bytes);
}

std::string_view WhyUnreadable(TextForm form) {
    switch (form) {
        case TextForm::Utf32:
            return "is UTF-32 text; save it as UTF-8, as UTF-16 or in its Windows code page";
        case TextForm::Binary: return "holds binary data, not text";
        case TextForm::Bytes:
        case TextForm::Utf16Little:
        case TextForm::Utf16Big: break;
    }
    return {};
}

}  // namespace dorvik::modTextForm
