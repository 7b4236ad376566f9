#include "NumberSection.h"

#include "FormatPattern.h"

#include <algorithm>

namespace dorvik::basic {

using namespace modFormatPattern;

NumberSection::NumberSection(std::string_view section) {
    Read(section);
}

void NumberSection::AddLiteral(std::string_view text) {
    if (m_parts.empty() || m_parts.back().Kind != PartKind::Literal) {
        m_parts.push_back({PartKind::Literal, {}});
    }
    m_parts.back().Text += text;
}

void NumberSection::AddDigit(bool isRequired) {
    m_parts.push_back({PartKind::Digit, {}, isRequired});
    if (!m_hasPoint) {
        ++m_integerPlaces;
        return;
    }
    ++m_fractionPlaces;
    if (isRequired) {
        m_requiredFraction = m_fractionPlaces;
    }
}

/// Between digits a comma requests groups; right before the point or the end each divides by 1000.
void NumberSection::ReadComma(std::string_view section, std::size_t position) {
    if (m_hasPoint || m_integerPlaces == 0) {
        return;
    }
    const std::size_t next = section.find_first_not_of(',', position);
    const char follower = next == std::string_view::npos ? '\0' : section[next];
    if (follower == '0' || follower == '#') {
        m_hasGroups = true;
    } else {
        m_powerOfTen -= 3;
    }
}

std::size_t NumberSection::ReadExponent(std::string_view section, std::size_t position) {
    Part exponent{PartKind::Exponent, std::string(section.substr(position, 2))};
    position += 2;
    while (position < section.size() && (section[position] == '0' || section[position] == '#')) {
        ++exponent.Places;
        ++position;
    }
    m_hasExponent = true;
    m_parts.push_back(std::move(exponent));
    return position;
}

void NumberSection::Read(std::string_view section) {
    for (std::size_t position = 0; position < section.size();) {
        std::string literal;
        if (TakeLiteral(section, position, literal)) {
            AddLiteral(literal);
            continue;
        }
        const char character = section[position];
        const char next = position + 1 < section.size() ? section[position + 1] : '\0';
        if (Lower(character) == 'e' && (next == '+' || next == '-') && !m_hasExponent) {
            position = ReadExponent(section, position);
            continue;
        }
        if (character == '0' || character == '#') {
            AddDigit(character == '0');
        } else if (character == '.' && !m_hasPoint) {
            m_hasPoint = true;
            m_parts.push_back({PartKind::Point, {}});
        } else if (character == ',') {
            ReadComma(section, position);
        } else {
            m_powerOfTen += character == '%' ? 2 : 0;
            AddLiteral(section.substr(position, 1));
        }
        ++position;
    }
}

/// Writes the digits of one number to their places.
class NumberSection::Writer {
public:
    Writer(const NumberSection& section, const DecimalDigits& number, int exponent)
        : m_section(section),
          m_number(number),
          m_exponent(exponent),
          m_placesLeft(section.m_integerPlaces),
          m_lastFraction(std::max(section.m_requiredFraction, number.FractionDigits())) {}

    std::string Write() {
        for (const Part& part : m_section.m_parts) {
            switch (part.Kind) {
                case PartKind::Literal: m_text += part.Text; break;
                case PartKind::Digit: WriteDigit(part.IsRequired); break;
                case PartKind::Point: WritePoint(); break;
                case PartKind::Exponent: WriteExponent(part); break;
            }
        }
        return std::move(m_text);
    }

private:
    /// The first place takes all digits for which there is no place.
    void WriteOverflow() {
        for (int power = m_number.IntegerDigits() - 1; power >= m_placesLeft; --power) {
            AppendInteger(power);
        }
    }

    void WriteDigit(bool isRequired) {
        if (m_isBehindPoint) {
            if (++m_fraction <= m_lastFraction) {
                m_text += m_number.DigitAt(-m_fraction);
            }
            return;
        }
        if (m_placesLeft == m_section.m_integerPlaces) {
            WriteOverflow();
        }
        --m_placesLeft;
        if (isRequired || m_hasBegun || m_placesLeft < m_number.IntegerDigits()) {
            AppendInteger(m_placesLeft);
        }
    }

    void WritePoint() {
        if (m_section.m_integerPlaces == 0) {
            WriteOverflow();
        }
        m_text += '.';
        m_isBehindPoint = true;
    }

    void WriteExponent(const Part& part) {
        m_text += part.Text[0];
        if (m_exponent < 0) {
            m_text += '-';
        } else if (part.Text[1] == '+') {
            m_text += '+';
        }
        const std::string digits = std::to_string(std::abs(m_exponent));
        const auto places = static_cast<std::size_t>(part.Places);
        m_text.append(places - std::min(places, digits.size()), '0');
        m_text += digits;
    }

    void AppendInteger(int power) {
        m_hasBegun = true;
        m_text += m_number.DigitAt(power);
        if (m_section.m_hasGroups && power > 0 && power % 3 == 0) {
            m_text += ',';
        }
    }

    const NumberSection& m_section;
    const DecimalDigits& m_number;
    int m_exponent;
    int m_placesLeft;  // before the point
    int m_lastFraction;
    int m_fraction = 0;
    bool m_isBehindPoint = false;
    bool m_hasBegun = false;
    std::string m_text;
};

std::string NumberSection::Write(DecimalDigits number) const {
    number.MultiplyByPowerOfTen(m_powerOfTen);
    int exponent = 0;
    if (m_hasExponent && !number.IsZero()) {
        exponent = number.Magnitude() - m_integerPlaces;
        number.MultiplyByPowerOfTen(-exponent);
    }
    number.Round(m_fractionPlaces, HalfRounding::AwayFromZero);
    if (m_hasExponent && number.IntegerDigits() > m_integerPlaces) {
        ++exponent;  // 9.99 became 10.0
        number.MultiplyByPowerOfTen(-1);
    }
    return Writer(*this, number, exponent).Write();
}

}  // namespace dorvik::basic
