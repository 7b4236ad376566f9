#include "foundation/text/modUtilFunctions.h"

#include "base/BasicError.h"
#include "base/Variant.h"
#include "base/modText.h"
#include "base/modUtf8.h"
#include "foundation/lists/ITextBox.h"
#include "foundation/log/Trap.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace dorvik::modUtilFunctions {

namespace {

constexpr std::string_view kUpOneFolder = "..\\";
constexpr std::string_view kBehindDriveLetter = ":\\";
constexpr std::int16_t kBackspace = 8;

/// The number that the characters from the 1-based `start` on tell; raises where there is none.
int NumberAt(std::string_view text, std::size_t start, std::size_t count) {
    return Variant(modUtf8::Mid(text, start, count)).AsLong();
}

}  // namespace

std::string RelativeToAbsolutePath(std::string_view relative, std::string_view base) {
    std::string folder(base);
    bool wentUp = false;
    while (relative.starts_with(kUpOneFolder)) {
        relative.remove_prefix(kUpOneFolder.size());
        folder = ParentFolderFromPath(folder);
        wentUp = true;
    }
    if (!wentUp && modUtf8::Mid(relative, 2, 2) == kBehindDriveLetter) {
        return std::string(relative);
    }
    return folder.append(relative);
}

std::string ParentFolderFromPath(std::string_view path) {
    if (path.find('\\') == std::string_view::npos) {
        return {};
    }
    if (path.ends_with('\\')) {
        path.remove_suffix(1);
    }
    const std::size_t separator = path.rfind('\\');
    // Required: without another backslash the way back ends at the first character, which stays.
    return std::string(
        separator == std::string_view::npos ? modUtf8::Left(path, 1)
                                            : path.substr(0, separator + 1));
}

std::string FilenameFromFullPathName(std::string_view path) {
    const std::string_view name = path.substr(path.rfind('\\') + 1);
    return name.find('.') == std::string_view::npos ? std::string() : std::string(name);
}

std::string PathFromFilename(std::string_view path) {
    return std::string(path.substr(0, path.rfind('\\') + 1));
}

std::string TrimAtNull(std::string_view text) {
    const std::string_view before = text.substr(0, text.find('\0'));
    const bool cut = before.size() < text.size();
    if (cut && modUtf8::Length(before) >= std::numeric_limits<std::int16_t>::max()) {
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    return std::string(before);
}

std::string AddBackslash(std::string_view path) {
    std::string folder(path);
    if (!folder.ends_with('\\')) {
        folder += '\\';
    }
    return folder;
}

std::string RemoveBackslash(std::string_view path) {
    if (path.ends_with('\\')) {
        path.remove_suffix(1);
    }
    return std::string(path);
}

DateTime KyDBDateToDate(std::string_view text) {
    using namespace std::chrono;
    const std::size_t length = modUtf8::Length(text);
    const year_month month = year(NumberAt(text, 1, 4)) / 1 + months(NumberAt(text, 5, 2) - 1);
    const sys_days day = sys_days(month / 1) + days(NumberAt(text, 7, 2) - 1);
    const sys_seconds time = day + hours(NumberAt(text, 10, 2)) + minutes(NumberAt(text, 12, 2)) +
                             seconds(NumberAt(text, length > 2 ? length - 1 : 1, 2));
    const auto midnight = floor<days>(time);
    const year_month_day date(midnight);
    const hh_mm_ss clock(time - midnight);
    return {
        static_cast<int>(date.year()),
        static_cast<int>(static_cast<unsigned>(date.month())),
        static_cast<int>(static_cast<unsigned>(date.day())),
        static_cast<int>(clock.hours().count()),
        static_cast<int>(clock.minutes().count()),
        static_cast<int>(clock.seconds().count())};
}

std::string PadRight(std::string_view text, std::int16_t width) {
    std::string padded(text);
    const std::size_t wanted = static_cast<std::size_t>(std::max<std::int16_t>(width, 0));
    const std::size_t length = modUtf8::Length(text);
    if (length < wanted) {
        padded.append(wanted - length, ' ');
    }
    return padded;
}

double StringToDouble(std::string_view text) {
    double number = 0;
    Trap({"modUtilFunctions", "StringToDouble"}, [&] {
        std::string pointed(text);
        std::replace(pointed.begin(), pointed.end(), ',', '.');
        number = modText::LeadingNumber(pointed);
    });
    return number;
}

void SelectAllText(ITextBox& textBox) {
    textBox.SetSelection(0, static_cast<std::int32_t>(modUtf8::Length(textBox.Text())));
}

std::int16_t CheckNumericKey(std::int16_t keyCode) {
    const bool accepted = (keyCode >= '0' && keyCode <= '9') || keyCode == kBackspace;
    return accepted ? keyCode : std::int16_t{0};
}

}  // namespace dorvik::modUtilFunctions
