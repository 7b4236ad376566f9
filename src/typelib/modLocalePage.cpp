#include "modLocalePage.h"

#include "ByteView.h"
#include "platform/host/modEncoding.h"

#include <algorithm>
#include <array>

namespace dorvik::modLocalePage {

namespace {

struct LocaleRow {
    std::uint32_t Locale;
    int Page;
};

/// Whole locales, for languages that are written in more than one script.
constexpr std::array<LocaleRow, 12> kLocales{{
    {0x0404, 950},   // Chinese, Taiwan
    {0x0804, 936},   // Chinese, PRC
    {0x0C04, 950},   // Chinese, Hong Kong
    {0x1004, 936},   // Chinese, Singapore
    {0x1404, 950},   // Chinese, Macau
    {0x0C1A, 1251},  // Serbian, Cyrillic
    {0x1C1A, 1251},  // Serbian in Bosnia, Cyrillic
    {0x201A, 1251},  // Bosnian, Cyrillic
    {0x042C, 1254},  // Azeri, Latin
    {0x082C, 1251},  // Azeri, Cyrillic
    {0x0443, 1254},  // Uzbek, Latin
    {0x0843, 1251},  // Uzbek, Cyrillic
}};

/// Languages, the low ten bits of a locale. All others use Windows-1252.
constexpr std::array<LocaleRow, 35> kLanguages{{
    {0x01, 1256}, {0x02, 1251}, {0x04, 936},  {0x05, 1250}, {0x08, 1253}, {0x0D, 1255},
    {0x0E, 1250}, {0x11, 932},  {0x12, 949},  {0x15, 1250}, {0x18, 1250}, {0x19, 1251},
    {0x1A, 1250}, {0x1B, 1250}, {0x1C, 1250}, {0x1E, 874},  {0x1F, 1254}, {0x20, 1256},
    {0x22, 1251}, {0x23, 1251}, {0x24, 1250}, {0x25, 1257}, {0x26, 1257}, {0x27, 1257},
    {0x28, 1251}, {0x29, 1256}, {0x2A, 1258}, {0x2C, 1254}, {0x2F, 1251}, {0x3F, 1251},
    {0x40, 1251}, {0x43, 1254}, {0x44, 1251}, {0x50, 1251}, {0x80, 1256},
}};

template <std::size_t Count>
int PageIn(const std::array<LocaleRow, Count>& rows, std::uint32_t locale) {
    const auto row = std::ranges::find(rows, locale, &LocaleRow::Locale);
    return row == rows.end() ? 0 : row->Page;
}

bool IsControl(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

}  // namespace

int PageOf(std::uint32_t lcid) {
    if (const int page = PageIn(kLocales, lcid & 0xFFFF); page != 0) {
        return page;
    }
    const int page = PageIn(kLanguages, lcid & 0x3FF);
    return page == 0 ? modEncoding::kDefaultCodePage : page;
}

std::string NameText(std::string_view bytes, int codePage, std::uint64_t fileOffset) {
    if (std::ranges::any_of(bytes, IsControl)) {
        RaiseFormatError("the name at offset " + HexText(fileOffset) + " holds control characters");
    }
    return modEncoding::DecodeByPage(bytes, codePage);
}

std::string HelpText(std::string_view bytes, int codePage) {
    std::string text = modEncoding::DecodeByPage(bytes, codePage);
    std::ranges::replace_if(text, IsControl, ' ');
    return text;
}

}  // namespace dorvik::modLocalePage
