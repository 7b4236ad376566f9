#include "platform/PatternNeeds.h"

#include <cstddef>

namespace dorvik {

namespace {

/// Deeper nesting is not looked into; the compiler of patterns has a limit of its own.
constexpr int kDeepestGroup = 50;

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool IsAscii(char character) {
    return static_cast<unsigned char>(character) < 0x80;
}

/// The escapes of one letter that stand for a place or for any character of a kind.
bool IsKnownEscape(char letter) {
    return std::string_view("bBdDfnrsStwW").find(letter) != std::string_view::npos;
}

/// One character, class, group or place of a pattern.
struct Piece {
    PatternNeeds Needs;
    bool IsLiteral = false;
};

struct Repetition {
    bool MayBeLeftOut = false;
    bool IsRepeated = false;
};

void KeepLonger(std::string& literal, const std::string& other) {
    if (other.size() > literal.size()) {
        literal = other;
    }
}

/// Walks a pattern from left to right, as its compiler does. An operation says false when it meets
/// something that it does not understand; the whole walk is given up then.
class NeedsReader {
public:
    NeedsReader(std::string_view pattern, bool ignoreCase)
        : m_pattern(pattern), m_ignoreCase(ignoreCase) {}

    bool ReadAll(PatternNeeds& needs) { return ReadBranches(needs, 0) && AtEnd(); }

private:
    bool AtEnd() const { return m_position == m_pattern.size(); }
    bool SeesOneOf(std::string_view characters) const {
        return !AtEnd() && characters.find(m_pattern[m_position]) != std::string_view::npos;
    }
    bool Accept(std::string_view text);

    bool ReadBranches(PatternNeeds& needs, int depth);
    bool ReadBranch(PatternNeeds& needs, int depth);
    bool ReadPiece(Piece& piece, int depth);
    bool ReadGroup(Piece& piece, int depth);
    bool ReadClass(Piece& piece);
    bool SkipClassEscape();
    bool ReadEscape(Piece& piece);
    bool ReadRepetitions(Repetition& repetition);
    bool ReadCount(bool& mayBeZero);
    void MakeLiteral(char character, Piece& piece) const;

    std::string_view m_pattern;
    bool m_ignoreCase;
    std::size_t m_position = 0;
};

bool NeedsReader::Accept(std::string_view text) {
    if (!m_pattern.substr(m_position).starts_with(text)) {
        return false;
    }
    m_position += text.size();
    return true;
}

/// What several branches need is what each of them needs.
bool NeedsReader::ReadBranches(PatternNeeds& needs, int depth) {
    if (depth > kDeepestGroup || !ReadBranch(needs, depth)) {
        return false;
    }
    while (Accept("|")) {
        PatternNeeds branch;
        if (!ReadBranch(branch, depth)) {
            return false;
        }
        needs.Bytes.KeepOnly(branch.Bytes);
        if (needs.Literal != branch.Literal) {
            needs.Literal.clear();
        }
    }
    return true;
}

bool NeedsReader::ReadBranch(PatternNeeds& needs, int depth) {
    std::string run;  // literal characters that follow each other directly
    const auto endRun = [&needs, &run] {
        KeepLonger(needs.Literal, run);
        run.clear();
    };
    while (!AtEnd() && !SeesOneOf("|)")) {
        Piece piece;
        Repetition repetition;
        if (!ReadPiece(piece, depth) || !ReadRepetitions(repetition)) {
            return false;
        }
        if (!piece.IsLiteral || repetition.MayBeLeftOut) {
            endRun();
        }
        if (repetition.MayBeLeftOut) {
            continue;
        }
        needs.Bytes.AddAll(piece.Needs.Bytes);
        if (piece.IsLiteral) {
            run += piece.Needs.Literal;
        } else {
            KeepLonger(needs.Literal, piece.Needs.Literal);
        }
        if (repetition.IsRepeated) {
            endRun();
        }
    }
    endRun();
    return true;
}

bool NeedsReader::ReadPiece(Piece& piece, int depth) {
    const char character = m_pattern[m_position++];
    switch (character) {
        case '(': return ReadGroup(piece, depth);
        case '[': return ReadClass(piece);
        case '\\': return ReadEscape(piece);
        case '^':
        case '$':
        case '.': return true;
        case '*':
        case '+':
        case '?':
        case '{': return false;  // nothing in front of it that could be repeated
        default: MakeLiteral(character, piece); return true;
    }
}

bool NeedsReader::ReadGroup(Piece& piece, int depth) {
    const bool isLookahead = Accept("?=") || Accept("?!");
    if (!isLookahead && !Accept("?:") && SeesOneOf("?*")) {
        return false;  // options, names, conditions, verbs
    }
    PatternNeeds inner;
    if (!ReadBranches(inner, depth + 1) || !Accept(")")) {
        return false;
    }
    if (!isLookahead) {
        piece.Needs = inner;
    }
    return true;
}

bool NeedsReader::ReadClass(Piece& piece) {
    const std::size_t first = m_position;
    Accept("^");
    while (!AtEnd()) {
        const char character = m_pattern[m_position++];
        if (character == ']') {
            const bool isOneCharacter = m_position == first + 2;
            if (isOneCharacter && m_pattern[first] != '^') {
                MakeLiteral(m_pattern[first], piece);
            }
            return true;
        }
        if (character == '[' && SeesOneOf(":.=")) {
            return false;
        }
        if (character == '\\' && !SkipClassEscape()) {
            return false;
        }
    }
    return false;
}

bool NeedsReader::SkipClassEscape() {
    if (AtEnd()) {
        return false;
    }
    const char character = m_pattern[m_position++];
    return IsLetter(character) ? IsKnownEscape(character) : IsAscii(character);
}

bool NeedsReader::ReadEscape(Piece& piece) {
    if (AtEnd()) {
        return false;
    }
    const char character = m_pattern[m_position++];
    if (IsLetter(character)) {
        return IsKnownEscape(character);
    }
    if (IsDigit(character) || !IsAscii(character)) {
        return false;
    }
    MakeLiteral(character, piece);
    return true;
}

/// A repetition may be repeated in turn: "a{2}{0}" matches the empty text.
bool NeedsReader::ReadRepetitions(Repetition& repetition) {
    while (SeesOneOf("?*+{")) {
        const char character = m_pattern[m_position++];
        bool mayBeZero = character == '?' || character == '*';
        if (character == '{' && !ReadCount(mayBeZero)) {
            return false;
        }
        if (SeesOneOf("?+")) {
            ++m_position;  // lazy or possessive
        }
        repetition.IsRepeated = true;
        repetition.MayBeLeftOut = repetition.MayBeLeftOut || mayBeZero;
    }
    return true;
}

/// Behind "{": a count such as "2}", "2,}" or "2,5}". Anything else makes the brace a literal one.
bool NeedsReader::ReadCount(bool& mayBeZero) {
    const std::size_t first = m_position;
    while (SeesOneOf("0123456789")) {
        ++m_position;
    }
    if (m_position == first) {
        return false;
    }
    const std::string_view least = m_pattern.substr(first, m_position - first);
    mayBeZero = least.find_first_not_of('0') == std::string_view::npos;
    if (Accept(",")) {
        while (SeesOneOf("0123456789")) {
            ++m_position;
        }
    }
    return Accept("}");
}

void NeedsReader::MakeLiteral(char character, Piece& piece) const {
    if (!IsAscii(character) || (m_ignoreCase && IsLetter(character))) {
        return;
    }
    piece.IsLiteral = true;
    piece.Needs.Literal = character;
    piece.Needs.Bytes.Add(static_cast<unsigned char>(character));
}

}  // namespace

PatternNeeds NeedsOfPattern(std::string_view pattern, bool ignoreCase) {
    PatternNeeds needs;
    return NeedsReader(pattern, ignoreCase).ReadAll(needs) ? needs : PatternNeeds{};
}

}  // namespace dorvik
