#include "reports/format/modReportFormat.h"

#include "base/BasicError.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace dorvik::modReportFormat {

namespace {

/// By status code from 1.
constexpr std::array<std::string_view, 4> kStatusDescriptions{
    "Unexpected Error",
    "Unknown Source File Name",
    "Unknown Source File Type",
    "Failed To Open Source File"};

constexpr std::string_view kZero = "-";
constexpr char kGroupSeparator = ',';
constexpr char kDecimalPoint = '.';
constexpr std::size_t kGroup = 3;
constexpr std::int32_t kPercentDecimals = 2;
constexpr int kSignificantDigits = 15;  // as many decimal digits as a double can hold

/// The digits of a value, and how many of them are before the decimal point (below 0: the number of zeros between the
/// point and the first digit, negated).
struct Digits {
    std::string Text;
    std::int32_t BeforePoint;
};

/// Fifteen digits, so that a decimal fraction is rounded as it is written: 2.675 is not a little less.
Digits DigitsOf(double value) {
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.*e", kSignificantDigits - 1, std::fabs(value));
    const std::string_view text = buffer.data();
    const std::size_t exponent = text.find('e');
    Digits digits{std::string(text.substr(0, exponent)), 0};
    digits.Text.erase(1, 1);  // the point, which may be another character in the host's locale
    digits.BeforePoint = std::atoi(text.data() + exponent + 1) + 1;
    return digits;
}

/// Adds one to a decimal number, which may gain a digit.
void Increment(std::string& digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return;
        }
        *digit = '0';
    }
    digits.insert(digits.begin(), '1');
}

/// The digits without the point, which comes before the last `decimals` of them; halves are rounded away from zero.
std::string Rounded(double value, std::int32_t decimals) {
    const Digits digits = DigitsOf(value);
    const std::int32_t kept = digits.BeforePoint + decimals;
    if (kept < 0) {
        return "0";
    }
    const auto size = static_cast<std::size_t>(kept);
    std::string result = digits.Text.substr(0, size);
    result.resize(size, '0');
    if (size < digits.Text.size() && digits.Text[size] >= '5') {
        Increment(result);
    }
    return result;
}

std::string WithGroups(std::string_view digits) {
    std::string result;
    for (std::size_t index = 0; index < digits.size(); ++index) {
        if (index > 0 && (digits.size() - index) % kGroup == 0) {
            result += kGroupSeparator;
        }
        result += digits[index];
    }
    return result;
}

std::string Number(double value, std::int32_t decimals) {
    if (!std::isfinite(value)) {
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    const auto afterPoint = static_cast<std::size_t>(std::max(decimals, 0));
    std::string digits = Rounded(value, std::max(decimals, 0));
    if (digits.size() <= afterPoint) {
        digits.insert(0, afterPoint + 1 - digits.size(), '0');
    }
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;
    const std::size_t beforePoint = digits.size() - afterPoint;
    std::string result = value < 0 && !isZero ? "-" : "";
    result += WithGroups(std::string_view(digits).substr(0, beforePoint));
    if (afterPoint > 0) {
        result += kDecimalPoint;
        result += digits.substr(beforePoint);
    }
    return result;
}

std::chrono::seconds SecondsOf(const DateTime& date) {
    namespace chrono = std::chrono;
    const chrono::sys_days day = chrono::year(date.Year) /
                                 chrono::month(static_cast<unsigned>(date.Month)) /
                                 chrono::day(static_cast<unsigned>(date.Day));
    return day.time_since_epoch() + chrono::hours(date.Hour) + chrono::minutes(date.Minute) +
           chrono::seconds(date.Second);
}

}  // namespace

std::string FormatNumber(double value, std::int32_t decimals, bool showZero) {
    if (value == 0 && !showZero) {
        return std::string(kZero);
    }
    return Number(value, decimals);
}

std::string FormatPercent(double ratio) {
    return Number(ratio * 100, kPercentDecimals) + "%";
}

std::string FormatLongDate(const DateTime& date) {
    return modDateText::LongDate(date);
}

std::string FormatGeneralDate(const DateTime& date) {
    if (date.IsZero()) {
        return {};
    }
    std::array<char, 40> day{};
    std::snprintf(day.data(), day.size(), "%02d/%02d/%04d ", date.Day, date.Month, date.Year);
    return day.data() + modDateText::LongTime(date);
}

std::string FormatDuration(const DateTime& start, const DateTime& end) {
    if (start.IsZero() || end.IsZero()) {
        return modDateText::LongTime({});
    }
    const std::chrono::hh_mm_ss time(
        std::chrono::abs(SecondsOf(end) - SecondsOf(start)) % std::chrono::days(1));
    DateTime shown;
    shown.Hour = static_cast<int>(time.hours().count());
    shown.Minute = static_cast<int>(time.minutes().count());
    shown.Second = static_cast<int>(time.seconds().count());
    return modDateText::LongTime(shown);
}

std::string_view GetReviewStatusDescription(std::int32_t status) {
    const bool isKnown =
        status >= 1 && static_cast<std::size_t>(status) <= kStatusDescriptions.size();
    return isKnown ? kStatusDescriptions[static_cast<std::size_t>(status) - 1]
                   : "Unknown Review Status Code";
}

}  // namespace dorvik::modReportFormat
