#include "reports/modReportFile.h"

#include "base/modUtf8.h"
#include "foundation/modUtilFunctions.h"
#include "platform/modFiles.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace dorvik::modReportFile {

namespace {

constexpr unsigned char kFirstBeyondAscii = 0x80;

bool IsBeyondAscii(char byte) {
    return static_cast<unsigned char>(byte) >= kFirstBeyondAscii;
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
            result += "&#" + std::to_string(static_cast<std::uint32_t>(character.CodePoint)) + ";";
            position += character.Size;
        }
    }
    return result;
}

void Write(std::string_view path, std::string_view page) {
    const std::string folder = modUtilFunctions::PathFromFilename(path);
    if (!modUtilFunctions::FolderExists(folder)) {
        modUtilFunctions::CreateFullPath(folder);
    }
    // By exactly this name, because other pages link to it.
    modFiles::WriteBytesAtomicallyAsNamed(path, ToAscii(page));
}

}  // namespace dorvik::modReportFile
