#include "base/Variant.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"

#include <array>
#include <charconv>
#include <optional>
#include <system_error>

namespace dorvik {

namespace {

/// The reviewed language writes a double with 15 significant digits and a capital "E".
constexpr int kSignificantDigits = 15;

std::string DoubleText(double number) {
    std::array<char, 32> buffer{};
    const auto result = std::to_chars(
        buffer.data(),
        buffer.data() + buffer.size(),
        number == 0 ? 0.0 : number,  // no "-0"
        std::chars_format::general,
        kSignificantDigits);
    std::string text(buffer.data(), result.ptr);
    if (const std::size_t exponent = text.find('e'); exponent != std::string::npos) {
        text[exponent] = 'E';
    }
    return text;
}

bool BeginsLikeNumber(std::string_view text) {
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    return text.size() > first &&
           (text[first] == '.' || (text[first] >= '0' && text[first] <= '9'));
}

/// The whole text as a number, blanks around it allowed.
std::optional<double> NumberOf(std::string_view text) {
    text = modText::Trim(text);
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    double number = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    // The library would also read "inf" and "nan".
    if (!BeginsLikeNumber(text) || result.ptr != end || result.ec == std::errc::invalid_argument) {
        return std::nullopt;
    }
    if (result.ec == std::errc::result_out_of_range) {
        return modText::LeadingNumber(text);  // 0 or an overflow
    }
    return number;
}

double NumberOrRaise(std::string_view text) {
    const std::optional<double> number = NumberOf(text);
    if (!number) {
        RaiseRuntimeError(runtimeerror::kTypeMismatch);
    }
    return *number;
}

}  // namespace

std::string Variant::AsText() const {
    if (IsText()) {
        return Text();
    }
    if (IsLong()) {
        return std::to_string(std::get<std::int32_t>(m_value));
    }
    if (IsDouble()) {
        return DoubleText(Double());
    }
    if (IsBoolean()) {
        return std::get<bool>(m_value) ? "True" : "False";
    }
    if (IsHeld()) {
        return Held().AsText();
    }
    return {};
}

std::optional<const void*> Variant::ObjectIdentity() const {
    return IsHeld() ? Held().ObjectIdentity() : std::nullopt;
}

std::int32_t Variant::AsLong() const {
    if (IsLong()) {
        return std::get<std::int32_t>(m_value);
    }
    if (IsBoolean()) {
        return std::get<bool>(m_value) ? -1 : 0;
    }
    if (IsEmpty()) {
        return 0;
    }
    return modText::RoundToLong(IsDouble() ? Double() : NumberOrRaise(AsText()));
}

bool Variant::AsBoolean() const {
    if (IsBoolean()) {
        return std::get<bool>(m_value);
    }
    if (IsText() || IsHeld()) {
        const std::string text = AsText();
        if (modTextCase::Equal(text, "True")) {
            return true;
        }
        return !modTextCase::Equal(text, "False") && NumberOrRaise(text) != 0;
    }
    if (IsDouble()) {
        return Double() != 0;
    }
    return AsLong() != 0;
}

}  // namespace dorvik
