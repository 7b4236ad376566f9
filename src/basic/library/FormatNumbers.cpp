#include "FormatNumbers.h"

#include "FormatPattern.h"
#include "NumberSection.h"
#include "base/modTextCase.h"

namespace dorvik::basic::modFormatNumbers {

namespace {

struct NamedFormat {
    std::string_view Name;
    std::string_view Pattern;
};

constexpr NamedFormat kNamedFormats[] = {
    {"Currency", "$#,##0.00;($#,##0.00)"},
    {"Fixed", "0.00"},
    {"Standard", "#,##0.00"},
    {"Percent", "0.00%"},
    {"Scientific", "0.00E+00"},
    {"Yes/No", "\"Yes\";\"Yes\";\"No\""},
    {"True/False", "\"True\";\"True\";\"False\""},
    {"On/Off", "\"On\";\"On\";\"Off\""},
};

}  // namespace

std::string ByPattern(std::string_view pattern, DecimalDigits number) {
    const std::vector<std::string_view> sections = modFormatPattern::Sections(pattern);
    const auto isUsable = [&](std::size_t index) {
        return index < sections.size() && !sections[index].empty();
    };
    if (number.IsZero() && isUsable(2)) {
        return NumberSection(sections[2]).Write(number);
    }
    if (number.IsNegative() && isUsable(1)) {
        return NumberSection(sections[1]).Write(number);
    }
    const std::string text = NumberSection(sections[0]).Write(number);
    return number.IsNegative() ? "-" + text : text;
}

std::string NullByPattern(std::string_view pattern) {
    const std::vector<std::string_view> sections = modFormatPattern::Sections(pattern);
    return sections.size() > 3 ? NumberSection(sections[3]).Write({}) : std::string();
}

std::optional<std::string_view> NamedPattern(std::string_view name) {
    for (const NamedFormat& format : kNamedFormats) {
        if (modTextCase::Equal(format.Name, name)) {
            return format.Pattern;
        }
    }
    return std::nullopt;
}

std::string BySettings(const Settings& settings, DecimalDigits number) {
    std::string pattern = settings.HasGroups ? "#,##" : "#";
    pattern += settings.HasLeadingZero ? "0" : "#";
    if (settings.Places > 0) {
        pattern += "." + std::string(static_cast<std::size_t>(settings.Places), '0');
    }
    number.Round(settings.Places, HalfRounding::AwayFromZero);
    const std::string digits = NumberSection(pattern).Write(number);
    const std::string text = std::string(settings.Before) + digits + std::string(settings.Behind);
    if (!number.IsNegative() || number.IsZero()) {
        return text;
    }
    return settings.HasParentheses ? "(" + text + ")" : "-" + text;
}

}  // namespace dorvik::basic::modFormatNumbers
