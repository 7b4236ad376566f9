#pragma once

#include "basic/values/DecimalDigits.h"

#include <string>
#include <string_view>
#include <vector>

namespace dorvik::basic {

/// One section of a numeric pattern, taken apart.
class NumberSection {
public:
    explicit NumberSection(std::string_view section);

    /// The number without its sign.
    std::string Write(DecimalDigits number) const;

private:
    enum class PartKind : std::uint8_t { Literal, Digit, Point, Exponent };
    struct Part {
        PartKind Kind;
        std::string Text;         // of a literal; "E+", "e-" of an exponent
        bool IsRequired = false;  // "0", not "#"
        int Places = 0;           // of an exponent
    };
    class Writer;

    void Read(std::string_view section);
    void ReadComma(std::string_view section, std::size_t position);
    std::size_t ReadExponent(std::string_view section, std::size_t position);
    void AddLiteral(std::string_view text);
    void AddDigit(bool isRequired);

    std::vector<Part> m_parts;
    int m_integerPlaces = 0;
    int m_fractionPlaces = 0;
    int m_requiredFraction = 0;  // places up to the last "0"
    int m_powerOfTen = 0;        // from percent signs and trailing commas
    bool m_hasPoint = false;
    bool m_hasGroups = false;
    bool m_hasExponent = false;
};

}  // namespace dorvik::basic
