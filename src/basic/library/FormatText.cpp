#include "FormatText.h"

#include "FormatPattern.h"
#include "base/modTextCase.h"
#include "basic/values/Characters.h"

#include <vector>

namespace dorvik::basic {

namespace {

enum class PartKind : std::uint8_t { Literal, Blank, Nothing };  // what "@" and "&" leave

struct PatternPart {
    PartKind Kind;
    std::string Text;  // of a literal
};

/// One section of a text pattern, taken apart.
struct TextPattern {
    std::vector<PatternPart> Parts;
    std::size_t Characters = 0;  // "@" and "&"
    bool FillsFromLeft = false;
    bool IsLower = false;
    bool IsUpper = false;
};

TextPattern Read(std::string_view section) {
    TextPattern pattern;
    for (std::size_t position = 0; position < section.size();) {
        std::string literal;
        if (modFormatPattern::TakeLiteral(section, position, literal)) {
            pattern.Parts.push_back({PartKind::Literal, literal});
            continue;
        }
        const char character = section[position++];
        switch (character) {
            case '@': pattern.Parts.push_back({PartKind::Blank, {}}); break;
            case '&': pattern.Parts.push_back({PartKind::Nothing, {}}); break;
            case '<': pattern.IsLower = true; break;
            case '>': pattern.IsUpper = true; break;
            case '!': pattern.FillsFromLeft = true; break;
            default: pattern.Parts.push_back({PartKind::Literal, std::string(1, character)});
        }
        pattern.Characters += character == '@' || character == '&' ? 1 : 0;
    }
    return pattern;
}

/// Fills the places. The text may have fewer characters than there are places, or more: the first
/// place from the right, or the last one from the left, takes what is over.
std::string Fill(const TextPattern& pattern, std::string_view text) {
    const std::size_t length = modCharacters::Count(text);
    const std::size_t unfilled = pattern.Characters > length ? pattern.Characters - length : 0;
    const std::size_t over = length > pattern.Characters ? length - pattern.Characters : 0;
    std::string result;
    std::size_t taken = 0;
    std::size_t place = 0;
    const auto take = [&](std::size_t characters) {
        const std::size_t end = modCharacters::Skip(text, characters, taken);
        result += text.substr(taken, end - taken);
        taken = end;
    };
    for (const PatternPart& next : pattern.Parts) {
        if (next.Kind == PartKind::Literal) {
            result += next.Text;
            continue;
        }
        const bool isUnfilled = pattern.FillsFromLeft ? place >= length : place < unfilled;
        if (isUnfilled) {
            result += next.Kind == PartKind::Blank ? " " : "";
        } else {
            take(!pattern.FillsFromLeft && place == 0 ? over + 1 : 1);
        }
        ++place;
    }
    result += text.substr(taken);
    return result;
}

}  // namespace

std::string FormatTextByPattern(std::string_view pattern, std::string_view text) {
    const std::vector<std::string_view> sections = modFormatPattern::Sections(pattern);
    const bool takesSecond = text.empty() && sections.size() > 1;
    const TextPattern places = Read(sections[takesSecond ? 1 : 0]);
    if (places.IsUpper) {
        return Fill(places, modTextCase::ToUpper(text));
    }
    return Fill(places, places.IsLower ? modTextCase::ToLower(text) : std::string(text));
}

}  // namespace dorvik::basic
