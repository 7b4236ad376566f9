#include "platform/DoubleByteDecoder.h"

#include "base/BasicError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>

#include <iconv.h>

namespace dorvik {

namespace {

struct ByteRange {
    unsigned char First = 0;
    unsigned char Last = 0;

    bool Holds(char byte) const {
        const auto value = static_cast<unsigned char>(byte);
        return First <= value && value <= Last;
    }
};

constexpr ByteRange kNone{1, 0};
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

bool Holds(const std::array<ByteRange, 3>& ranges, char byte) {
    return std::ranges::any_of(ranges, [byte](const ByteRange& range) { return range.Holds(byte); });
}

iconv_t NoConverter() {
    return reinterpret_cast<iconv_t>(-1);  // NOLINT: the library's own sign of failure
}

}  // namespace

struct DoubleByteDecoder::Page {
    int CodePage = 0;
    const char* ConverterName = nullptr;
    std::array<ByteRange, 3> Lead;
    std::array<ByteRange, 3> Trail;
};

namespace {

using Page = DoubleByteDecoder::Page;

const Page* FindPage(int codePage) {
    static constexpr std::array<Page, 4> kPages{{
        {932, "CP932", {{{0x81, 0x9F}, {0xE0, 0xFC}, kNone}}, {{{0x40, 0x7E}, {0x80, 0xFC}, kNone}}},
        {936, "CP936", {{{0x81, 0xFE}, kNone, kNone}}, {{{0x40, 0x7E}, {0x80, 0xFE}, kNone}}},
        {949,
         "CP949",
         {{{0x81, 0xFE}, kNone, kNone}},
         {{{0x41, 0x5A}, {0x61, 0x7A}, {0x81, 0xFE}}}},
        {950, "CP950", {{{0x81, 0xFE}, kNone, kNone}}, {{{0x40, 0x7E}, {0xA1, 0xFE}, kNone}}},
    }};
    const auto* found = std::ranges::find(kPages, codePage, &Page::CodePage);
    return found == kPages.end() ? nullptr : found;
}

std::size_t UndecodableSize(const Page& page, std::string_view rest) {
    const bool isPair = rest.size() >= 2 && Holds(page.Lead, rest[0]) && Holds(page.Trail, rest[1]);
    return isPair ? 2 : 1;
}

}  // namespace

bool DoubleByteDecoder::Offers(int codePage) {
    const Page* page = FindPage(codePage);
    if (page == nullptr) {
        return false;
    }
    iconv_t converter = ::iconv_open("UTF-8", page->ConverterName);
    if (converter == NoConverter()) {
        return false;
    }
    ::iconv_close(converter);
    return true;
}

DoubleByteDecoder::DoubleByteDecoder(int codePage)
    : m_page(FindPage(codePage)) {
    m_converter = m_page == nullptr ? NoConverter() : ::iconv_open("UTF-8", m_page->ConverterName);
    if (m_converter == NoConverter()) {
        RaiseRuntimeError(
            runtimeerror::kInvalidProcedureCall, "code page " + std::to_string(codePage));
    }
}

DoubleByteDecoder::~DoubleByteDecoder() {
    ::iconv_close(m_converter);
}

std::string DoubleByteDecoder::Decode(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 2);
    while (!bytes.empty()) {
        Convert(bytes, text);
        if (!bytes.empty()) {
            text += kReplacement;
            bytes.remove_prefix(UndecodableSize(*m_page, bytes));
        }
    }
    return text;
}

/// Converts up to the first byte that is no part of a character, and takes off what was converted.
void DoubleByteDecoder::Convert(std::string_view& rest, std::string& text) {
    std::array<char, 4096> buffer;  // NOLINT: only the written part is read
    bool isBufferFull = true;
    while (isBufferFull && !rest.empty()) {
        char* input = const_cast<char*>(rest.data());  // NOLINT: iconv does not write to it
        std::size_t inputLeft = rest.size();
        char* output = buffer.data();
        std::size_t outputLeft = buffer.size();
        errno = 0;
        const std::size_t result =
            ::iconv(m_converter, &input, &inputLeft, &output, &outputLeft);
        isBufferFull = result == static_cast<std::size_t>(-1) && errno == E2BIG;
        rest.remove_prefix(rest.size() - inputLeft);
        text.append(buffer.data(), buffer.size() - outputLeft);
    }
}

}  // namespace dorvik
