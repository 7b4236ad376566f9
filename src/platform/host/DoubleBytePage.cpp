#include "DoubleBytePage.h"

#include "base/modUtf8.h"

#include <algorithm>
#include <cstddef>
#include <iconv.h>
#include <mutex>

namespace dorvik {

namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr unsigned kFirstUpper = 0x80;

unsigned Value(char byte) {
    return static_cast<unsigned char>(byte);
}

std::size_t PairIndex(unsigned lead, unsigned trail) {
    return (lead - kFirstUpper) * 256 + trail;
}

struct ByteRange {
    unsigned First = 1;  // as it is written: no byte at all
    unsigned Last = 0;
};

using ByteRanges = std::array<ByteRange, 3>;

bool Holds(const ByteRanges& ranges, unsigned byte) {
    return std::ranges::any_of(ranges, [byte](const ByteRange& range) {
        return range.First <= byte && byte <= range.Last;
    });
}

}  // namespace

struct DoubleBytePage::Layout {
    int CodePage = 0;
    const char* ConverterName = nullptr;
    ByteRanges Lead;
    ByteRanges Trail;
};

/// The C library's way from one character of a page to UTF-8.
class DoubleBytePage::Converter {
public:
    explicit Converter(const char* name) : m_handle(::iconv_open("UTF-8", name)) {}
    ~Converter() {
        if (IsOpen()) {
            ::iconv_close(m_handle);
        }
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsOpen() const {
        return m_handle != reinterpret_cast<iconv_t>(-1);  // NOLINT: so the library says it
    }

    char16_t Character(std::string bytes) const {
        std::array<char, 16> text{};
        char* input = bytes.data();
        std::size_t inputLeft = bytes.size();
        char* output = text.data();
        std::size_t outputLeft = text.size();
        const std::size_t result = ::iconv(m_handle, &input, &inputLeft, &output, &outputLeft);
        const std::string_view character(text.data(), text.size() - outputLeft);
        if (result != 0 || inputLeft != 0 || modUtf8::Length(character) != 1) {
            ::iconv(m_handle, nullptr, nullptr, nullptr, nullptr);  // forgets half a character
            return kReplacement;
        }
        const char32_t codePoint = modUtf8::CodePoint(character, 0);
        return codePoint <= 0xFFFF ? static_cast<char16_t>(codePoint) : kReplacement;
    }

private:
    iconv_t m_handle;
};

DoubleBytePage::DoubleBytePage(const Layout& layout, const Converter& converter)
    : m_layout(&layout), m_pairs(PairIndex(0xFF, 0xFF) + 1, kReplacement) {
    for (unsigned lead = kFirstUpper; lead <= 0xFF; ++lead) {
        const char leadByte = static_cast<char>(lead);
        if (!Holds(layout.Lead, lead)) {
            m_singles[lead - kFirstUpper] = converter.Character({leadByte});
            continue;
        }
        m_singles[lead - kFirstUpper] = kReplacement;
        for (unsigned trail = 0; trail <= 0xFF; ++trail) {
            if (Holds(layout.Trail, trail)) {
                m_pairs[PairIndex(lead, trail)] =
                    converter.Character({leadByte, static_cast<char>(trail)});
            }
        }
    }
    FillCodes();
}

void DoubleBytePage::FillCodes() {
    m_codes.resize(0x10000);
    for (unsigned byte = kFirstUpper; byte <= 0xFF; ++byte) {
        AddCode(m_singles[byte - kFirstUpper], byte);
    }
    // Code page 932 has the characters of these rows a second time, from FA on, and Windows writes those.
    constexpr ByteRange kRepeated{0xED, 0xEE};
    for (const bool repeated : {false, true}) {
        for (unsigned lead = kFirstUpper; lead <= 0xFF; ++lead) {
            const bool isRepeated =
                m_layout->CodePage == 932 && kRepeated.First <= lead && lead <= kRepeated.Last;
            for (unsigned trail = 0; trail <= 0xFF && isRepeated == repeated; ++trail) {
                AddCode(m_pairs[PairIndex(lead, trail)], lead << 8U | trail);
            }
        }
    }
}

void DoubleBytePage::AddCode(char16_t character, unsigned code) {
    if (character != kReplacement && m_codes[character] == 0) {
        m_codes[character] = static_cast<std::uint16_t>(code);
    }
}

const DoubleBytePage* DoubleBytePage::Find(int codePage) {
    static constexpr std::array<Layout, 4> kLayouts{{
        {932, "CP932", {{{0x81, 0x9F}, {0xE0, 0xFC}, {}}}, {{{0x40, 0x7E}, {0x80, 0xFC}, {}}}},
        {936, "CP936", {{{0x81, 0xFE}, {}, {}}}, {{{0x40, 0x7E}, {0x80, 0xFE}, {}}}},
        {949, "CP949", {{{0x81, 0xFE}, {}, {}}}, {{{0x41, 0x5A}, {0x61, 0x7A}, {0x81, 0xFE}}}},
        {950, "CP950", {{{0x81, 0xFE}, {}, {}}}, {{{0x40, 0x7E}, {0xA1, 0xFE}, {}}}},
    }};
    static std::array<std::once_flag, kLayouts.size()> loaded;
    static std::array<std::unique_ptr<const DoubleBytePage>, kLayouts.size()> pages;
    const auto* layout = std::ranges::find(kLayouts, codePage, &Layout::CodePage);
    if (layout == kLayouts.end()) {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(layout - kLayouts.begin());
    std::call_once(loaded[index], [&] { pages[index] = Load(*layout); });
    return pages[index].get();
}

std::unique_ptr<const DoubleBytePage> DoubleBytePage::Load(const Layout& layout) {
    const Converter converter(layout.ConverterName);
    if (!converter.IsOpen()) {
        return nullptr;
    }
    return std::unique_ptr<const DoubleBytePage>(new DoubleBytePage(layout, converter));
}

bool DoubleBytePage::BeginsPair(std::string_view bytes) const {
    return bytes.size() >= 2 && Holds(m_layout->Lead, Value(bytes[0])) &&
           Holds(m_layout->Trail, Value(bytes[1]));
}

std::string DoubleBytePage::Decode(std::string_view bytes) const {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 2);
    while (!bytes.empty()) {
        const unsigned first = Value(bytes.front());
        if (first < kFirstUpper) {
            text += bytes.front();
            bytes.remove_prefix(1);
        } else if (BeginsPair(bytes)) {
            modUtf8::Append(text, m_pairs[PairIndex(first, Value(bytes[1]))]);
            bytes.remove_prefix(2);
        } else {
            modUtf8::Append(text, m_singles[first - kFirstUpper]);
            bytes.remove_prefix(1);
        }
    }
    return text;
}

std::optional<std::string> DoubleBytePage::Encode(std::string_view text) const {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const modUtf8::Character character = modUtf8::Decode(text, position);
        position += character.Size;
        if (character.CodePoint < kFirstUpper) {
            bytes += static_cast<char>(character.CodePoint);
            continue;
        }
        const unsigned code = character.CodePoint <= 0xFFFF ? m_codes[character.CodePoint] : 0U;
        if (code == 0) {
            return std::nullopt;
        }
        if (code > 0xFF) {
            bytes += static_cast<char>(code >> 8U);
        }
        bytes += static_cast<char>(code & 0xFFU);
    }
    return bytes;
}

}  // namespace dorvik
