#include "reports/format/modReportLinks.h"

#include "base/modUtf8.h"
#include "platform/host/modHostPath.h"

#include <algorithm>
#include <cstddef>

namespace dorvik::modReportLinks {

namespace {

constexpr std::string_view kEncoded = "%#?&:\"'<>\\";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool NeedsEncoding(char character) {
    return static_cast<unsigned char>(character) < ' ' || character == '\x7f' ||
           kEncoded.find(character) != std::string_view::npos;
}

void AppendEncoded(std::string& href, char character) {
    const auto number = static_cast<unsigned char>(character);
    href += '%';
    href += kHexDigits[number / kHexDigits.size()];
    href += kHexDigits[number % kHexDigits.size()];
}

std::string Encoded(std::string_view path) {
    std::string href;
    for (std::size_t index = 0; index < path.size();) {
        const modUtf8::Character character = modUtf8::Decode(path, index);
        const bool isBlankAtEnd = path[index] == ' ' && (index == 0 || index + 1 == path.size());
        if (!character.Valid || NeedsEncoding(path[index]) || isBlankAtEnd) {
            AppendEncoded(href, path[index]);
        } else {
            href += path.substr(index, character.Size);
        }
        index += character.Size;
    }
    return href;
}

/// The link of a path of another machine, such as `C:\Src\a.txt` or `\\server\src\a.txt`, which works there.
std::string HrefElsewhere(std::string_view path) {
    constexpr std::size_t kDriveSize = 2;
    const bool hasDrive = path.size() > kDriveSize && path[1] == ':' && path[kDriveSize] == '\\';
    const bool isOfNetwork = path.starts_with("\\\\");
    if (!hasDrive && !isOfNetwork) {
        return Encoded(path);
    }
    std::string href = hasDrive ? "file:///" : "file:";
    const std::size_t plain = hasDrive ? kDriveSize : 0;
    href += path.substr(0, plain);
    std::string rest(path.substr(plain));
    std::replace(rest.begin(), rest.end(), '\\', '/');
    return href + Encoded(rest);
}

}  // namespace

std::string HrefOfFile(std::string_view filename) {
    return Encoded(filename);
}

std::string HrefOfPath(std::string_view path) {
    const std::string host = modHostPath::Shown(modHostPath::FromProgram(path));
    return host.empty() ? HrefElsewhere(path) : Encoded(host);
}

std::string PathText(std::string_view path) {
    const std::string host = modHostPath::Shown(modHostPath::FromProgram(path));
    return host.empty() ? std::string(path) : host;
}

}  // namespace dorvik::modReportLinks
