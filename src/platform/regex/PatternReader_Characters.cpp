#include "PatternReader.h"
#include "modPatternCase.h"
#include "platform/regex/RegularExpression.h"

namespace dorvik {

namespace {

bool IsLetter(char32_t character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

}  // namespace

// ---- Escapes ----

bool PatternReader::ReadEscape(PatternNode& node) {
    if (AtEnd()) {
        return Fail(kRegularExpressionSyntax, m_position - 1, "nothing after the '\\'");
    }
    switch (const char32_t letter = m_pattern[m_position]) {
        case 'b':
        case 'B':
            node.Kind = letter == 'b' ? PatternKind::WordBoundary : PatternKind::NoWordBoundary;
            break;
        case 'd':
        case 'D': MakeSet(node, CharacterSet::Digits(), letter == 'D'); break;
        case 's':
        case 'S': MakeSet(node, CharacterSet::Spaces(), letter == 'S'); break;
        case 'w':
        case 'W': MakeSet(node, CharacterSet::WordCharacters(), letter == 'W'); break;
        default:
            if (letter >= '1' && letter <= '9') {
                return ReadNumberEscape(node);
            }
            MakeCharacter(node, ReadEscapedCharacter());
            return true;
    }
    ++m_position;
    return true;
}

/// As VBScript documents it: as many digits as name a group that there is, or else an octal number.
bool PatternReader::ReadNumberEscape(PatternNode& node) {
    std::uint64_t number = 0;
    std::size_t end = m_position;
    for (std::size_t at = m_position; at < m_pattern.size() && IsDigit(m_pattern[at]); ++at) {
        const std::uint64_t longer = number * 10 + (m_pattern[at] - U'0');
        if (longer > m_groupCount) {
            break;
        }
        number = longer;
        end = at + 1;
    }
    if (number == 0) {
        MakeCharacter(node, ReadEscapedCharacter());
        return true;
    }
    m_position = end;
    m_hasBackReference = true;
    node.Kind = PatternKind::BackReference;
    node.Number = static_cast<std::uint32_t>(number);
    return true;
}

/// After "\": an escape that stands for one character. REQUIRES: not AtEnd().
char32_t PatternReader::ReadEscapedCharacter() {
    const char32_t character = m_pattern[m_position];
    if (character >= '0' && character <= '7') {
        return ReadOctal();
    }
    ++m_position;
    switch (character) {
        case 'f': return '\f';
        case 'n': return '\n';
        case 'r': return '\r';
        case 't': return '\t';
        case 'v': return '\v';
        case 'x': return ReadHexadecimal(character, 2);
        case 'u': return ReadHexadecimal(character, 4);
        case 'c':
            return !AtEnd() && IsLetter(m_pattern[m_position]) ? m_pattern[m_position++] % 32
                                                               : character;
        default: return character;
    }
}

/// The letter itself, where the digits are missing. Two halves of a character make one.
char32_t PatternReader::ReadHexadecimal(char32_t letter, std::size_t digits) {
    const auto read = [this, digits](std::size_t at, char32_t& value) {
        value = 0;
        for (std::size_t i = at; i < at + digits; ++i) {
            const char32_t digit = i < m_pattern.size() ? m_pattern[i] : U'?';
            const char32_t lower = digit | 0x20U;
            if (!IsDigit(digit) && (lower < 'a' || lower > 'f')) {
                return false;
            }
            value = value * 16 + (IsDigit(digit) ? digit - U'0' : lower - U'a' + 10);
        }
        return true;
    };
    char32_t value = 0;
    if (!read(m_position, value)) {
        return letter;
    }
    m_position += digits;
    char32_t second = 0;
    const bool isFirstHalf = value >= 0xD800 && value <= 0xDBFF;
    if (isFirstHalf && std::u32string_view(m_pattern).substr(m_position).starts_with(U"\\u") &&
        read(m_position + 2, second) && second >= 0xDC00 && second <= 0xDFFF) {
        m_position += 2 + digits;
        value = 0x10000 + ((value - 0xD800) << 10U) + (second - 0xDC00);
    }
    return value;
}

/// One to three octal digits, as far as they make a character up to 255.
char32_t PatternReader::ReadOctal() {
    char32_t value = 0;
    for (int count = 0; count < 3 && !AtEnd(); ++count) {
        const char32_t digit = m_pattern[m_position];
        if (digit < '0' || digit > '7' || value * 8 + (digit - U'0') > 0xFF) {
            break;
        }
        value = value * 8 + (digit - U'0');
        ++m_position;
    }
    return value;
}

// ---- Classes ----

/// One side of a range, or what stands alone in a class.
struct PatternReader::ClassPart {
    CharacterSet Set;
    char32_t Character = 0;
    bool IsCharacter = true;
};

bool PatternReader::ReadClass(PatternNode& node) {
    const bool isNegated = Accept(U"^");
    CharacterSet set;
    while (!Sees(']')) {
        const std::size_t first = m_position;
        ClassPart part;
        if (!ReadClassPart(part)) {
            return false;
        }
        set.AddAll(part.Set);
        const bool isRange =
            Sees('-') && m_position + 1 < m_pattern.size() && m_pattern[m_position + 1] != ']';
        if (!isRange) {
            continue;
        }
        ++m_position;
        ClassPart last;
        if (!ReadClassPart(last)) {
            return false;
        }
        set.AddAll(last.Set);
        if (!part.IsCharacter || !last.IsCharacter) {
            set.Add('-');  // "\d-x": no range can begin or end with a set
        } else if (part.Character > last.Character) {
            return Fail(kRegularExpressionSyntax, first, "a range in descending order");
        } else {
            set.Add({part.Character, last.Character});
        }
    }
    ++m_position;
    MakeSet(node, set, isNegated);
    return true;
}

bool PatternReader::ReadClassPart(ClassPart& part) {
    if (AtEnd()) {
        return Fail(kRegularExpressionBracket, m_position);
    }
    char32_t character = m_pattern[m_position++];
    if (character == '\\') {
        if (AtEnd()) {
            return Fail(kRegularExpressionSyntax, m_position - 1, "nothing after the '\\'");
        }
        part.IsCharacter = false;
        const char32_t letter = m_pattern[m_position];
        const auto takeSet = [&](const CharacterSet& set, char32_t negated) {
            ++m_position;
            part.Set = letter == negated ? set.Complement() : set;
            return true;
        };
        switch (letter) {
            case 'd':
            case 'D': return takeSet(CharacterSet::Digits(), 'D');
            case 's':
            case 'S': return takeSet(CharacterSet::Spaces(), 'S');
            case 'w':
            case 'W': return takeSet(CharacterSet::WordCharacters(), 'W');
            case 'b':
                ++m_position;
                character = '\b';
                break;
            default: character = ReadEscapedCharacter(); break;
        }
        part.IsCharacter = true;
    }
    part.Character = character;
    part.Set = CharacterSet::Of(character);
    return true;
}

// ---- Nodes ----

void PatternReader::MakeCharacter(PatternNode& node, char32_t character) const {
    const bool isHalf = character >= 0xD800 && character <= 0xDFFF;
    const bool isCased = m_flags.IgnoreCase && character >= 0x80;
    if (isHalf || isCased) {
        MakeSet(node, CharacterSet::Of(character), false);
        return;
    }
    node.Kind = PatternKind::Character;
    node.Character = character;
    node.IsAnyCase = m_flags.IgnoreCase && IsLetter(character);
}

void PatternReader::MakeSet(PatternNode& node, const CharacterSet& set, bool isNegated) const {
    CharacterSet result = m_flags.IgnoreCase ? modPatternCase::WithAllCases(set) : set;
    result = isNegated ? result.Complement() : std::move(result);
    const char32_t first = result.IsEmpty() ? 0 : result.Ranges().front().First;
    if (result.HoldsOneCharacter() && (first < 0xD800 || first > 0xDFFF)) {
        node.Kind = PatternKind::Character;
        node.Character = first;
        return;
    }
    node.Kind = PatternKind::Set;
    node.Set = std::move(result);
}

}  // namespace dorvik
