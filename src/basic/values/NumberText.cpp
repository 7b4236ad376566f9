#include "basic/values/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace dorvik::basic {

namespace {

constexpr int kCurrencyPlaces = 4;
constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

/// Writes characters one after the other into a buffer that is large enough.
class BufferWriter {
public:
    explicit BufferWriter(NumberBuffer& buffer) : m_begin(buffer.data()), m_end(buffer.data()) {}

    void Put(char character) { *m_end++ = character; }
    void Put(std::string_view text) {
        std::memcpy(m_end, text.data(), text.size());
        m_end += text.size();
    }
    void PutZeros(int count) {
        for (; count > 0; --count) {
            Put('0');
        }
    }
    std::string_view Written() const {
        return {m_begin, static_cast<std::size_t>(m_end - m_begin)};
    }

private:
    char* m_begin;
    char* m_end;
};

/// Significant digits without zeros at the end, and the power of ten of the first.
struct Significant {
    std::array<char, 24> Digits{};
    int Count = 0;
    int Exponent = 0;

    std::string_view View() const { return {Digits.data(), static_cast<std::size_t>(Count)}; }
};

/// The parts of "d.ddde+dd".
Significant PartsOf(const char* position, const char* end) {
    Significant result;
    for (; position != end && *position != 'e'; ++position) {
        if (*position != '.') {
            result.Digits[static_cast<std::size_t>(result.Count++)] = *position;
        }
    }
    position += position[1] == '+' ? 2 : 1;
    std::from_chars(position, end, result.Exponent);
    while (result.Count > 1 && result.Digits[static_cast<std::size_t>(result.Count - 1)] == '0') {
        --result.Count;
    }
    return result;
}

Significant SignificantOf(double magnitude, int precision) {
    std::array<char, 40> text{};
    char* const begin = text.data();
    char* const end = begin + text.size();
    if (precision == kDoubleDigits && std::isnormal(magnitude)) {
        // The shortest text that reads back as the number is found much faster, and where it has
        // 15 digits at most there is no other one of 15.
        const auto shortest = std::to_chars(begin, end, magnitude, std::chars_format::scientific);
        const Significant result = PartsOf(begin, shortest.ptr);
        if (result.Count <= precision) {
            return result;
        }
    }
    const auto written =
        std::to_chars(begin, end, magnitude, std::chars_format::scientific, precision - 1);
    return PartsOf(begin, written.ptr);
}

void PutScientific(const Significant& number, BufferWriter& writer) {
    writer.Put(number.Digits[0]);
    if (number.Count > 1) {
        writer.Put('.');
        writer.Put(number.View().substr(1));
    }
    writer.Put('E');
    writer.Put(number.Exponent < 0 ? '-' : '+');
    NumberBuffer buffer;
    const std::string_view exponent = TextOfWhole(std::abs(number.Exponent), buffer);
    writer.PutZeros(2 - static_cast<int>(exponent.size()));
    writer.Put(exponent);
}

/// Digits with a point after the first `whole` of them, which may be none or more than there are.
void PutPlain(std::string_view digits, int whole, BufferWriter& writer) {
    const auto count = static_cast<int>(digits.size());
    if (whole <= 0) {
        writer.Put("0.");
        writer.PutZeros(-whole);
        writer.Put(digits);
    } else if (whole >= count) {
        writer.Put(digits);
        writer.PutZeros(whole - count);
    } else {
        writer.Put(digits.substr(0, static_cast<std::size_t>(whole)));
        writer.Put('.');
        writer.Put(digits.substr(static_cast<std::size_t>(whole)));
    }
}

/// Below 1E-4 the plain form is used only while it has no more places than the type has digits.
bool NeedsScientific(const Significant& number, int precision) {
    const int places = number.Count - 1 - number.Exponent;
    return number.Exponent >= precision || (number.Exponent < -4 && places > precision);
}

std::string_view TextOfFloat(double number, int precision, NumberBuffer& buffer) {
    BufferWriter writer(buffer);
    if (number == 0) {
        writer.Put('0');  // -0 too
        return writer.Written();
    }
    if (number < 0) {
        writer.Put('-');
    }
    const Significant significant = SignificantOf(std::fabs(number), precision);
    if (NeedsScientific(significant, precision)) {
        PutScientific(significant, writer);
    } else {
        PutPlain(significant.View(), significant.Exponent + 1, writer);
    }
    return writer.Written();
}

/// Decimal digits of a magnitude, without leading zeros, at the end of the array.
std::string_view DigitsOf(UnsignedWide magnitude, std::array<char, 40>& digits) {
    std::size_t begin = digits.size();
    do {
        digits[--begin] = static_cast<char>('0' + static_cast<int>(magnitude % 10));
        magnitude /= 10;
    } while (magnitude != 0);
    return {digits.data() + begin, digits.size() - begin};
}

/// A number with a power of ten below it, zeros after the point cut.
std::string_view
TextOfScaled(UnsignedWide magnitude, int scale, bool isNegative, NumberBuffer& buffer) {
    while (scale > 0 && magnitude % 10 == 0) {
        magnitude /= 10;
        --scale;
    }
    std::array<char, 40> digits{};
    const std::string_view text = DigitsOf(magnitude, digits);
    BufferWriter writer(buffer);
    if (isNegative) {
        writer.Put('-');
    }
    PutPlain(text, static_cast<int>(text.size()) - scale, writer);
    return writer.Written();
}

}  // namespace

std::string_view TextOfWhole(std::int64_t number, NumberBuffer& buffer) {
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data())};
}

std::string_view TextOfSingle(float number, NumberBuffer& buffer) {
    return TextOfFloat(static_cast<double>(number), kSingleDigits, buffer);
}

std::string_view TextOfDouble(double number, NumberBuffer& buffer) {
    constexpr double kAllDigits = 1e15;
    // Whole numbers, the most frequent ones, need no search for digits.
    if (std::fabs(number) < kAllDigits) {
        const auto whole = static_cast<std::int64_t>(number);
        if (static_cast<double>(whole) == number) {
            return TextOfWhole(whole, buffer);
        }
    }
    return TextOfFloat(number, kDoubleDigits, buffer);
}

std::string_view TextOfCurrency(std::int64_t tenThousandths, NumberBuffer& buffer) {
    const DecimalNumber number = modDecimal::FromWhole(tenThousandths);
    return TextOfScaled(number.Magnitude, kCurrencyPlaces, number.IsNegative, buffer);
}

std::string_view TextOfDecimal(const DecimalNumber& number, NumberBuffer& buffer) {
    return TextOfScaled(number.Magnitude, number.Scale, number.IsNegative, buffer);
}

}  // namespace dorvik::basic
