#include "PatternRewriter.h"

#include "base/modUtf8.h"

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

/// The library counts no further.
constexpr std::uint32_t kGreatestCount = 65535;

constexpr const char* kLineStart = "(?:^|(?<=[\\n\\r\\x{2028}\\x{2029}]))";
constexpr const char* kLineEnd = "(?=[\\n\\r\\x{2028}\\x{2029}]|$)";

/// Sets for which the library has a name. Its spaces are those of ASCII only, and compiled just in time for
/// any bytes, its "\D" and "\W" miss all characters outside ASCII.
struct NamedSet {
    CharacterSet Set;
    const char* Name;
};

const std::array<NamedSet, 4>& NamedSets() {
    static const std::array<NamedSet, 4> sets{{
        {CharacterSet::Digits(), "\\d"},
        {CharacterSet::WordCharacters(), "\\w"},
        {CharacterSet().Complement(), "."},
        {CharacterSet(), "(?!)"},
    }};
    return sets;
}

bool IsLetter(char32_t character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// The library's short cuts may miss matches of two kinds of patterns: where a repetition follows
/// alternatives of several lengths (positions are skipped where it has failed on another path), and where a
/// lookahead is first (its character is looked for again after the first one). They do not reach
/// after a lookahead without text, so one in front keeps the library from taking them.
constexpr const char* kBarrier = "(?=)";

bool NeedsBarrier(const PatternNode& node) {
    return node.Kind == PatternKind::Alternatives || node.Kind == PatternKind::Lookahead ||
           std::ranges::any_of(node.Children, NeedsBarrier);
}

/// The library tries such a pattern at one place only, without short cuts.
bool BeginsAtStart(const PatternNode& node) {
    switch (node.Kind) {
        case PatternKind::Start: return true;
        case PatternKind::Group:
        case PatternKind::Sequence: return BeginsAtStart(node.Child());
        case PatternKind::Alternatives: return std::ranges::all_of(node.Children, BeginsAtStart);
        case PatternKind::Empty:
        case PatternKind::Character:
        case PatternKind::Set:
        case PatternKind::End:
        case PatternKind::WordBoundary:
        case PatternKind::NoWordBoundary:
        case PatternKind::BackReference:
        case PatternKind::Lookahead:
        case PatternKind::NegativeLookahead:
        case PatternKind::Repetition: return false;
    }
    return false;
}

/// Without the halves of characters, which the library rejects; no text has any.
CharacterSet WithoutHalves(const CharacterSet& set) {
    CharacterSet outside = set.Complement();
    outside.Add({0xD800, 0xDFFF});
    return outside.Complement();
}

}  // namespace

bool PatternRewriter::Rewrite(const PatternTree& tree) {
    m_flags = tree.Flags;
    m_text.clear();
    m_isAnyCase = false;
    const bool isAnchored = !m_flags.Multiline && BeginsAtStart(tree.Root);
    if (isAnchored || !NeedsBarrier(tree.Root)) {
        return Write(tree.Root);
    }
    m_text = kBarrier;
    return WriteUnit(tree.Root);
}

bool PatternRewriter::Write(const PatternNode& node) {
    switch (node.Kind) {
        case PatternKind::Empty: return true;
        case PatternKind::Character: WriteLetter(node.Character, node.IsAnyCase); return true;
        case PatternKind::Set: WriteSet(node.Set); return true;
        case PatternKind::Start: WritePlain(m_flags.Multiline ? kLineStart : "^"); return true;
        case PatternKind::End: WritePlain(m_flags.Multiline ? kLineEnd : "$"); return true;
        case PatternKind::WordBoundary: WritePlain("\\b"); return true;
        case PatternKind::NoWordBoundary: WritePlain("\\B"); return true;
        case PatternKind::BackReference:
            SetAnyCase(m_flags.IgnoreCase);
            m_text += "\\g{" + std::to_string(node.Number) + "}";
            return true;
        case PatternKind::Group: return WriteGrouped("(", node.Child());
        case PatternKind::Lookahead: return WriteGrouped("(?=", node.Child());
        case PatternKind::NegativeLookahead: return WriteGrouped("(?!", node.Child());
        case PatternKind::Sequence:
            return std::ranges::all_of(node.Children, [this](const PatternNode& child) {
                return child.Kind == PatternKind::Alternatives ? WriteUnit(child) : Write(child);
            });
        case PatternKind::Alternatives:
            for (const PatternNode& child : node.Children) {
                WritePlain(&child == &node.Children.front() ? "" : "|");
                if (!Write(child)) {
                    return false;
                }
            }
            return true;
        case PatternKind::Repetition: return WriteRepetition(node);
    }
    return true;
}

bool PatternRewriter::WriteRepetition(const PatternNode& node) {
    const bool isBounded = node.Most != PatternNode::kUnbounded;
    if (node.Least > kGreatestCount || (isBounded && node.Most > kGreatestCount)) {
        return false;
    }
    if (!WriteUnit(node.Child())) {
        return false;
    }
    if (!isBounded && node.Least <= 1) {
        m_text += node.Least == 0 ? '*' : '+';
    } else if (node.Least == 0 && node.Most == 1) {
        m_text += '?';
    } else {
        m_text += '{' + std::to_string(node.Least);
        if (node.Least != node.Most) {
            m_text += ',' + (isBounded ? std::to_string(node.Most) : std::string());
        }
        m_text += '}';
    }
    m_text += node.IsLazy ? "?" : "";
    return true;
}

/// A back reference gets a group of its own: compiled just in time, one that is counted directly does not
/// match when its group is not set.
bool PatternRewriter::WriteUnit(const PatternNode& node) {
    switch (node.Kind) {
        case PatternKind::Character:
        case PatternKind::Set:
        case PatternKind::Group: return Write(node);
        case PatternKind::BackReference:
        case PatternKind::Empty:
        case PatternKind::Start:
        case PatternKind::End:
        case PatternKind::WordBoundary:
        case PatternKind::NoWordBoundary:
        case PatternKind::Lookahead:
        case PatternKind::NegativeLookahead:
        case PatternKind::Sequence:
        case PatternKind::Alternatives:
        case PatternKind::Repetition: return WriteGrouped("(?:", node);
    }
    return true;
}

bool PatternRewriter::WriteGrouped(const char* opener, const PatternNode& node) {
    WritePlain(opener);
    if (!Write(node)) {
        return false;
    }
    WritePlain(")");
    return true;
}

/// Case is disabled only around ASCII letters. Of these, "k" and "s" have a third form for the library
/// (the Kelvin sign and the long s), which the dialect does not know.
void PatternRewriter::WriteLetter(char32_t character, bool isAnyCase) {
    if (isAnyCase && (character | 0x20U) != 'k' && (character | 0x20U) != 's') {
        SetAnyCase(true);
    } else if (isAnyCase) {
        CharacterSet both = CharacterSet::Of(character);
        both.Add(character ^ 0x20U);
        WriteSet(both);
        return;
    } else if (IsLetter(character) || character >= 0x80) {
        SetAnyCase(false);
    }
    WriteCharacter(character);
}

void PatternRewriter::WriteSet(const CharacterSet& set) {
    SetAnyCase(false);
    const auto named = std::ranges::find(NamedSets(), set, &NamedSet::Set);
    if (named != NamedSets().end()) {
        m_text += named->Name;
        return;
    }
    CharacterSet written = WithoutHalves(set);
    if (written.IsEmpty()) {
        m_text += "(?!)";
        return;
    }
    m_text += '[';
    if (written.Ranges().back().Last == CharacterSet::kGreatest) {
        m_text += '^';
        written = WithoutHalves(set.Complement());
    }
    for (const CharacterSet::Range& range : written.Ranges()) {
        WriteCharacter(range.First);
        if (range.First != range.Last) {
            m_text += '-';
            WriteCharacter(range.Last);
        }
    }
    m_text += ']';
}

void PatternRewriter::WriteCharacter(char32_t character) {
    const bool isWord = CharacterSet::WordCharacters().Contains(character);
    if (character >= ' ' && character < 0x7F) {
        m_text += isWord ? "" : "\\";
        m_text += static_cast<char>(character);
    } else if (character < 0xA0) {
        constexpr std::string_view kDigits = "0123456789abcdef";
        m_text += "\\x";
        m_text += kDigits[character >> 4U];
        m_text += kDigits[character & 15U];
    } else {
        modUtf8::Append(m_text, character);
    }
}

void PatternRewriter::WritePlain(const char* text) {
    SetAnyCase(false);
    m_text += text;
}

void PatternRewriter::SetAnyCase(bool isAnyCase) {
    if (isAnyCase != m_isAnyCase) {
        m_isAnyCase = isAnyCase;
        m_text += isAnyCase ? "(?i)" : "(?-i)";
    }
}

}  // namespace dorvik
