#include "workstation/filehost/modCodeFind.h"

#include "base/modTextCase.h"
#include "base/modUtf8.h"

#include <cstddef>
#include <string>
#include <vector>

namespace dorvik::modCodeFind {

namespace {

using Characters = std::u32string;

Characters CharactersOf(std::string_view text, bool matchCase) {
    const std::string folded = matchCase ? std::string() : modTextCase::ToLower(text);
    const std::string_view source = matchCase ? text : std::string_view(folded);
    Characters characters;
    characters.reserve(source.size());
    for (std::size_t position = 0; position < source.size();) {
        const modUtf8::Character character = modUtf8::Decode(source, position);
        characters += character.CodePoint;
        position += character.Size;
    }
    return characters;
}

bool IsDigit(char32_t character) {
    return character >= U'0' && character <= U'9';
}

bool IsWordCharacter(char32_t character) {
    return character >= 0x80 || character == U'_' || IsDigit(character) ||
           (character >= U'a' && character <= U'z') || (character >= U'A' && character <= U'Z');
}

/// One character of a pattern.
struct Element {
    enum class Kind { Exact, Any, Digit, Set } Is = Kind::Exact;
    char32_t Exact = 0;
    bool Negated = false;
    Characters Set;  // pairs of a first and a last character

    bool Matches(char32_t character) const {
        switch (Is) {
            case Kind::Exact: return character == Exact;
            case Kind::Any: return true;
            case Kind::Digit: return IsDigit(character);
            case Kind::Set: return InSet(character) != Negated;
        }
        return false;
    }

private:
    bool InSet(char32_t character) const {
        for (std::size_t pair = 0; pair + 1 < Set.size(); pair += 2) {
            if (Set[pair] <= character && character <= Set[pair + 1]) {
                return true;
            }
        }
        return false;
    }
};

/// The elements between two asterisks.
using Segment = std::vector<Element>;

/// The inside of a pair of square brackets.
Element SetElement(std::u32string_view inside) {
    Element element;
    element.Is = Element::Kind::Set;
    element.Negated = inside.starts_with(U'!');
    if (element.Negated) {
        inside.remove_prefix(1);
    }
    for (std::size_t position = 0; position < inside.size();) {
        const bool isRange = position + 2 < inside.size() && inside[position + 1] == U'-';
        element.Set += inside[position];
        element.Set += inside[isRange ? position + 2 : position];
        position += isRange ? 3 : 1;
    }
    return element;
}

Element ExactElement(char32_t character) {
    Element element;
    element.Exact = character;
    return element;
}

Element SpecialElement(Element::Kind kind) {
    Element element;
    element.Is = kind;
    return element;
}

std::vector<Segment> PatternSegments(std::u32string_view pattern) {
    std::vector<Segment> segments(1);
    for (std::size_t position = 0; position < pattern.size(); ++position) {
        const char32_t character = pattern[position];
        const std::size_t close =
            character == U'[' ? pattern.find(U']', position + 1) : std::u32string_view::npos;
        if (character == U'*') {
            segments.emplace_back();
        } else if (character == U'?') {
            segments.back().push_back(SpecialElement(Element::Kind::Any));
        } else if (character == U'#') {
            segments.back().push_back(SpecialElement(Element::Kind::Digit));
        } else if (close != std::u32string_view::npos) {
            segments.back().push_back(
                SetElement(pattern.substr(position + 1, close - position - 1)));
            position = close;
        } else {
            segments.back().push_back(ExactElement(character));
        }
    }
    return segments;
}

std::vector<Segment> PlainSegments(std::u32string_view text) {
    std::vector<Segment> segments(1);
    for (const char32_t character : text) {
        segments.back().push_back(ExactElement(character));
    }
    return segments;
}

/// A search for segments one after the other, each at its first place: a later place of an earlier one never helps
/// those that follow it.
class SegmentSearch {
public:
    SegmentSearch(std::u32string_view line, bool wholeWord)
        : m_line(line), m_wholeWord(wholeWord) {}

    std::optional<LineMatch> Run(const std::vector<Segment>& segments, std::size_t from) const {
        std::size_t start = from;
        std::size_t end = from;
        for (std::size_t index = 0; index < segments.size(); ++index) {
            const bool isFirst = index == 0;
            const std::optional<std::size_t> place =
                Place(segments[index], end, isFirst, index + 1 == segments.size());
            if (!place) {
                return std::nullopt;
            }
            if (isFirst) {
                start = *place;
            }
            end = *place + segments[index].size();
        }
        return LineMatch{static_cast<std::int32_t>(start) + 1, static_cast<std::int32_t>(end) + 1};
    }

private:
    std::optional<std::size_t>
    Place(const Segment& segment, std::size_t from, bool isFirst, bool isLast) const {
        for (std::size_t start = from; start + segment.size() <= m_line.size(); ++start) {
            const std::size_t end = start + segment.size();
            if (MatchesAt(segment, start) && (!isFirst || IsSide(start)) &&
                (!isLast || IsSide(end))) {
                return start;
            }
        }
        return std::nullopt;
    }

    bool MatchesAt(const Segment& segment, std::size_t start) const {
        for (std::size_t index = 0; index < segment.size(); ++index) {
            if (!segment[index].Matches(m_line[start + index])) {
                return false;
            }
        }
        return true;
    }

    /// Whether a match may begin or end there.
    bool IsSide(std::size_t position) const {
        return !m_wholeWord || position == 0 || position == m_line.size() ||
               !IsWordCharacter(m_line[position - 1]) || !IsWordCharacter(m_line[position]);
    }

    std::u32string_view m_line;
    bool m_wholeWord;
};

}  // namespace

std::optional<LineMatch> InLine(
    std::string_view line,
    std::string_view sought,
    const FindOptions& options,
    std::int32_t fromColumn) {
    if (sought.empty() || fromColumn < 1) {
        return std::nullopt;
    }
    // Most lines do not have the text at all; that is seen without decoding them.
    if (!options.MatchCase && !options.PatternSearch &&
        modTextCase::Find(line, sought) == std::string_view::npos) {
        return std::nullopt;
    }
    const Characters characters = CharactersOf(line, options.MatchCase);
    const Characters text = CharactersOf(sought, options.MatchCase);
    const std::vector<Segment> segments =
        options.PatternSearch ? PatternSegments(text) : PlainSegments(text);
    return SegmentSearch(characters, options.WholeWord)
        .Run(segments, static_cast<std::size_t>(fromColumn) - 1);
}

}  // namespace dorvik::modCodeFind
