#include "ByteView.h"

#include "base/BasicError.h"

#include <array>
#include <charconv>

namespace dorvik {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

std::uint8_t ByteAt(std::string_view bytes, std::uint64_t offset) {
    return static_cast<std::uint8_t>(bytes[offset]);
}

/// The order in which the text of a GUID shows its bytes: the first three groups are numbers.
constexpr std::array<std::uint8_t, 16> kGuidOrder{
    3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};

bool HasDashBefore(std::size_t place) {
    return place == 4 || place == 6 || place == 8 || place == 10;
}

}  // namespace

std::string HexText(std::uint64_t number) {
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    std::string text = "0x";
    for (const char* digit = digits.data(); digit != end; ++digit) {
        text += *digit >= 'a' ? static_cast<char>(*digit - 'a' + 'A') : *digit;
    }
    return text;
}

void RaiseFormatError(const std::string& text) {
    throw BasicError(kInvalidFileFormat, text);
}

std::uint16_t ByteView::Word(std::uint64_t offset) const {
    Check(offset, 2);
    return static_cast<std::uint16_t>(ByteAt(m_bytes, offset) | ByteAt(m_bytes, offset + 1) << 8);
}

std::uint32_t ByteView::DoubleWord(std::uint64_t offset) const {
    Check(offset, 4);
    return static_cast<std::uint32_t>(Word(offset)) | static_cast<std::uint32_t>(Word(offset + 2))
                                                          << 16;
}

std::string_view ByteView::Bytes(std::uint64_t offset, std::uint64_t size) const {
    Check(offset, size);
    return m_bytes.substr(offset, size);
}

std::string_view ByteView::ZeroEnded(std::uint64_t offset, std::uint64_t longest) const {
    Check(offset, 1);
    const std::string_view text = m_bytes.substr(offset, longest + 1);
    const std::size_t zero = text.find('\0');
    if (zero == std::string_view::npos) {
        RaiseFormatError("the text at offset " + HexText(FileOffset(offset)) + " has no end");
    }
    return text.substr(0, zero);
}

std::string ByteView::Guid(std::uint64_t offset) const {
    const std::string_view bytes = Bytes(offset, kGuidOrder.size());
    std::string text = "{";
    for (std::size_t place = 0; place < kGuidOrder.size(); ++place) {
        if (HasDashBefore(place)) {
            text += '-';
        }
        const std::uint8_t byte = ByteAt(bytes, kGuidOrder[place]);
        text += kHexDigits[byte >> 4];
        text += kHexDigits[byte & 15];
    }
    return text + "}";
}

ByteView ByteView::Part(std::uint64_t offset, std::uint64_t size, std::string_view name) const {
    if (offset > Size() || size > Size() - offset) {
        RaiseFormatError(
            std::string(name) + " (" + std::to_string(size) + " bytes at offset " +
            HexText(FileOffset(offset)) + ") is outside " + Extent());
    }
    ByteView part(m_bytes.substr(offset, size), name);
    part.m_start = FileOffset(offset);
    return part;
}

ByteView ByteView::From(std::uint64_t offset, std::string_view name) const {
    return Part(offset, offset > Size() ? 0 : Size() - offset, name);
}

void ByteView::Check(std::uint64_t offset, std::uint64_t size) const {
    if (offset > Size() || size > Size() - offset) {
        RaiseFormatError("offset " + HexText(FileOffset(offset)) + " leads outside " + Extent());
    }
}

std::string ByteView::Extent() const {
    return std::string(m_name) + " (" + HexText(m_start) + " to " + HexText(FileOffset(Size())) +
           ")";
}

}  // namespace dorvik
