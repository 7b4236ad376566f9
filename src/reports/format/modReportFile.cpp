#include "reports/format/modReportFile.h"

#include "base/modUtf8.h"
#include "platform/host/modFiles.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace dorvik::modReportFile {

namespace {

constexpr unsigned char kFirstBeyondAscii = 0x80;
constexpr char32_t kFirstPrintable = 0xA0;
constexpr char32_t kReplacement = 0xFFFD;

bool IsBeyondAscii(char byte) {
    return static_cast<unsigned char>(byte) >= kFirstBeyondAscii;
}

/// Browsers read a reference to one of the controls U+0080 to U+009F as a character of code page 1252, which the
/// text does not contain.
std::uint32_t Shown(char32_t character) {
    const bool isControl = character >= kFirstBeyondAscii && character < kFirstPrintable;
    return static_cast<std::uint32_t>(isControl ? kReplacement : character);
}

}  // namespace

std::string ToAscii(std::string_view page) {
    std::string result;
    result.reserve(page.size());
    std::size_t position = 0;
    while (position < page.size()) {
        const auto* const start = page.data() + position;
        const auto* const end = page.data() + page.size();
        const auto* const beyond = std::find_if(start, end, IsBeyondAscii);
        result.append(start, beyond);
        position += static_cast<std::size_t>(beyond - start);
        if (beyond != end) {
            const modUtf8::Character character = modUtf8::Decode(page, position);
            result += "&#" + std::to_string(Shown(character.CodePoint)) + ";";
            position += character.Size;
        }
    }
    return result;
}

void Write(const OutputPlace& place, std::string_view page) {
    WriteAsItIs(place, ToAscii(page));
}

void WriteAsItIs(const OutputPlace& place, std::string_view page) {
    place.MakeFolder();
    // Under exactly this name, because other pages link to it.
    modFiles::WriteBytesAtomicallyAsNamed(place.Folder(), place.Name, page);
}

}  // namespace dorvik::modReportFile
