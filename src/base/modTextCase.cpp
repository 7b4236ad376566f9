#include "base/modTextCase.h"

#include "base/CaseTable.h"
#include "base/modByteSearch.h"
#include "base/modUtf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>

// Every operation reads ASCII text byte by byte (or eight bytes at a time) and takes the way through
// decoded characters only from the first byte outside ASCII on. A character outside ASCII may have an
// ASCII letter as its lower-case form (the Kelvin sign is one), and the two forms of a letter may
// differ in length, so byte lengths alone decide nothing there.
namespace dorvik::modTextCase {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::uint64_t kHighBits = 0x8080808080808080ULL;

/// Stray bytes count as characters of their own after the last one of Unicode, each different.
constexpr char32_t kFirstStrayByte = 0x110000;

constexpr std::array<unsigned char, 256> MakeLowerTable() {
    std::array<unsigned char, 256> table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        table[i] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i + 32 : i);
    }
    return table;
}

constexpr std::array<unsigned char, 256> kLowerBytes = MakeLowerTable();

unsigned char ByteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

std::uint64_t EightBytes(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

constexpr std::uint64_t EightTimes(unsigned char byte) {
    return 0x0101010101010101ULL * byte;
}

/// Eight bytes with the capitals of ASCII lowered, all other bytes as they are.
std::uint64_t LowerEight(std::uint64_t word) {
    const std::uint64_t low = word & ~kHighBits;  // so that adding to a byte carries nowhere
    const std::uint64_t fromA = low + EightTimes(0x80 - 'A');
    const std::uint64_t behindZ = low + EightTimes(0x80 - 'Z' - 1);
    return word | (((fromA ^ behindZ) & ~word & kHighBits) >> 2);
}

/// The high bit of each byte that is the same in both words.
std::uint64_t SameBytes(std::uint64_t left, std::uint64_t right) {
    const std::uint64_t difference = left ^ right;
    return ~(((difference & ~kHighBits) + ~kHighBits) | difference) & kHighBits;
}

char32_t Mapped(std::span<const CaseRun> runs, char32_t codePoint) {
    const auto behind = std::upper_bound(
        runs.begin(), runs.end(), codePoint, [](char32_t sought, const CaseRun& run) {
            return sought < run.First;
        });
    if (behind == runs.begin()) {
        return codePoint;
    }
    const CaseRun& run = *(behind - 1);
    if (codePoint > run.Last || (codePoint - run.First) % run.Step != 0) {
        return codePoint;
    }
    return static_cast<char32_t>(static_cast<std::int32_t>(codePoint) + run.Distance);
}

/// The lower-case form of the character at `position`, which moves after it.
char32_t NextLower(std::string_view text, std::size_t& position) {
    const unsigned char byte = ByteAt(text, position);
    if (byte < 0x80) {
        ++position;
        return kLowerBytes[byte];
    }
    const modUtf8::Character character = modUtf8::Decode(text, position);
    position += character.Size;
    return character.Valid ? Mapped(LowerRuns(), character.CodePoint) : kFirstStrayByte + byte;
}

/// How far two texts agree.
struct Agreement {
    std::size_t Left = 0;   // bytes
    std::size_t Right = 0;  // bytes
    int Order = 0;          // of the first two characters that differ, 0 if one text ended first
};

/// The bytes at the front that are ASCII in both texts and the same letter.
std::size_t CommonAscii(std::string_view left, std::string_view right) {
    const std::size_t shorter = std::min(left.size(), right.size());
    std::size_t position = 0;
    while (position < shorter) {
        const unsigned char leftByte = ByteAt(left, position);
        const unsigned char rightByte = ByteAt(right, position);
        if ((leftByte | rightByte) >= 0x80 || kLowerBytes[leftByte] != kLowerBytes[rightByte]) {
            break;
        }
        ++position;
    }
    return position;
}

/// Steps over one character that is in the same form in both texts.
bool StepOverSame(std::string_view left, std::string_view right, Agreement& found) {
    const modUtf8::Character character = modUtf8::Decode(left, found.Left);
    const std::string_view bytes = left.substr(found.Left, character.Size);
    if (!character.Valid || !right.substr(found.Right).starts_with(bytes)) {
        return false;
    }
    found.Left += character.Size;
    found.Right += character.Size;
    return true;
}

Agreement Agree(std::string_view left, std::string_view right) {
    Agreement found;
    for (;;) {
        const std::size_t common = CommonAscii(left.substr(found.Left), right.substr(found.Right));
        found.Left += common;
        found.Right += common;
        if (found.Left == left.size() || found.Right == right.size()) {
            return found;
        }
        if (StepOverSame(left, right, found)) {
            continue;
        }
        std::size_t leftNext = found.Left;
        std::size_t rightNext = found.Right;
        const char32_t leftLower = NextLower(left, leftNext);
        const char32_t rightLower = NextLower(right, rightNext);
        if (leftLower != rightLower) {
            found.Order = leftLower < rightLower ? -1 : 1;
            return found;
        }
        found.Left = leftNext;
        found.Right = rightNext;
    }
}

enum class Answer { No, Yes, Open };

/// Whether one text begins with the other, as far as ASCII can tell: open if a byte outside ASCII
/// comes before the first difference.
Answer SameAscii(std::string_view left, std::string_view right) {
    const std::size_t shorter = std::min(left.size(), right.size());
    for (std::size_t position = 0; position < shorter; ++position) {
        const unsigned char leftByte = ByteAt(left, position);
        const unsigned char rightByte = ByteAt(right, position);
        if (kLowerBytes[leftByte] != kLowerBytes[rightByte]) {
            return (leftByte | rightByte) < 0x80 ? Answer::No : Answer::Open;
        }
        if (leftByte >= 0x80) {
            return Answer::Open;
        }
    }
    return Answer::Yes;
}

/// The bytes of `text` that `prefix` stands for, none if the text begins otherwise.
std::size_t PrefixSize(std::string_view text, std::string_view prefix) {
    const Agreement found = Agree(text, prefix);
    return found.Right == prefix.size() ? found.Left : kNone;
}

struct TextMatch {
    std::size_t Start = kNone;
    std::size_t Size = 0;
};

/// Finds the places where a text may begin that begins with an ASCII character, by its first two
/// bytes and eight places at a time.
class Candidates {
public:
    explicit Candidates(std::string_view sought)
        : m_first(kLowerBytes[ByteAt(sought, 0)]), m_foreignFirst(ForeignForms(m_first)) {
        if (sought.size() > 1 && ByteAt(sought, 1) < 0x80) {
            m_second = kLowerBytes[ByteAt(sought, 1)];
            m_foreignSecond = ForeignForms(m_second);
            m_anySecond = 0;
        }
    }

    /// Whether one of the eight places that begin at `bytes` may be one; reads nine bytes.
    bool AmongEight(const char* bytes) const {
        const std::uint64_t first = EightBytes(bytes);
        const std::uint64_t second = EightBytes(bytes + 1);
        const std::uint64_t firsts = SameBytes(LowerEight(first), EightTimes(m_first));
        const std::uint64_t seconds = SameBytes(LowerEight(second), EightTimes(m_second)) |
                                      (second & m_foreignSecond) | m_anySecond;
        return ((firsts & seconds) | (first & m_foreignFirst)) != 0;
    }

    bool IsOne(unsigned char byte) const {
        return kLowerBytes[byte] == m_first || (byte >= 0x80 && m_foreignFirst != 0);
    }

private:
    /// Two ASCII letters are also the lower-case form of a character outside ASCII.
    static std::uint64_t ForeignForms(unsigned char lower) {
        return lower == 'i' || lower == 'k' ? kHighBits : 0;
    }

    unsigned char m_first;
    unsigned char m_second = 0;
    std::uint64_t m_foreignFirst;
    std::uint64_t m_foreignSecond = 0;
    std::uint64_t m_anySecond = kHighBits;
};

/// Searches ASCII for ASCII, by the byte of the sought text that is rarest in both of its forms.
class AsciiSearch {
public:
    /// REQUIRES: sought is not empty.
    explicit AsciiSearch(std::string_view sought) : m_sought(sought) {
        for (std::size_t place = 1; place < sought.size(); ++place) {
            if (CommonnessOf(sought[place]) < CommonnessOf(sought[m_rarest])) {
                m_rarest = place;
            }
        }
        m_lower = LowerOf(sought[m_rarest]);
        m_upper = UpperOf(sought[m_rarest]);
    }

    /// REQUIRES: the sought text and this one are ASCII.
    std::size_t FindIn(std::string_view text) const {
        if (m_sought.size() > text.size()) {
            return kNone;
        }
        const std::size_t end = text.size() - (m_sought.size() - 1 - m_rarest);
        const std::string_view searched = text.substr(0, end);
        std::size_t lower = searched.find(m_lower, m_rarest);
        std::size_t upper = m_upper == m_lower ? kNone : searched.find(m_upper, m_rarest);
        for (;;) {
            std::size_t& nearest = lower < upper ? lower : upper;
            if (nearest == kNone) {
                return kNone;
            }
            const std::size_t start = nearest - m_rarest;
            if (SameAscii(text.substr(start, m_sought.size()), m_sought) == Answer::Yes) {
                return start;
            }
            nearest = searched.find(text[nearest], nearest + 1);
        }
    }

private:
    static char LowerOf(char byte) {
        return static_cast<char>(kLowerBytes[static_cast<unsigned char>(byte)]);
    }
    static char UpperOf(char byte) {
        const char lower = LowerOf(byte);
        return static_cast<char>(lower >= 'a' && lower <= 'z' ? lower - 32 : lower);
    }
    static std::uint8_t CommonnessOf(char byte) {
        return std::max(
            modByteSearch::Commonness(LowerOf(byte)), modByteSearch::Commonness(UpperOf(byte)));
    }

    std::string_view m_sought;
    std::size_t m_rarest = 0;
    char m_lower = 0;
    char m_upper = 0;
};

/// Finds a place that begins before `end`.
TextMatch FindAmongAll(
    std::string_view text,
    std::string_view sought,
    const Candidates& candidates,
    std::size_t from,
    std::size_t end) {
    while (from < end) {
        const bool hasNine = text.size() - from >= 9;
        if (hasNine && !candidates.AmongEight(text.data() + from)) {
            from += 8;
            continue;
        }
        const std::size_t behind = hasNine ? from + 8 : text.size();
        for (; from < behind; ++from) {
            if (!candidates.IsOne(ByteAt(text, from))) {
                continue;
            }
            if (const std::size_t size = PrefixSize(text.substr(from), sought); size != kNone) {
                return {from, size};
            }
        }
    }
    return {};
}

/// A piece of the text at a time: what is ASCII is searched faster.
TextMatch FindFromAscii(std::string_view text, std::string_view sought, std::size_t from) {
    constexpr std::size_t kPiece = 4096;
    const Candidates candidates(sought);
    const bool isAscii = modUtf8::IsAscii(sought);
    const AsciiSearch search(sought);
    for (; from < text.size(); from += kPiece) {
        const std::string_view piece = text.substr(from, kPiece + sought.size() - 1);
        if (!isAscii || !modUtf8::IsAscii(piece)) {
            const std::size_t end = std::min(text.size(), from + kPiece);
            const TextMatch match = FindAmongAll(text, sought, candidates, from, end);
            if (match.Start != kNone) {
                return match;
            }
        } else if (const std::size_t start = search.FindIn(piece); start != kNone) {
            return {from + start, sought.size()};
        }
    }
    return {};
}

TextMatch FindByCharacters(std::string_view text, std::string_view sought, std::size_t from) {
    while (from < text.size()) {
        if (const std::size_t size = PrefixSize(text.substr(from), sought); size != kNone) {
            return {from, size};
        }
        from += modUtf8::CharacterSize(text, from);
    }
    return {};
}

/// REQUIRES: sought is not empty.
TextMatch FindMatch(std::string_view text, std::string_view sought, std::size_t from) {
    if (from >= text.size()) {
        return {};
    }
    const unsigned char first = ByteAt(sought, 0);
    const bool isAscii = first < 0x80;
    if (sought.size() == 1 && isAscii && (kLowerBytes[first] < 'a' || kLowerBytes[first] > 'z')) {
        return {text.find(sought[0], from), 1};
    }
    return isAscii ? FindFromAscii(text, sought, from) : FindByCharacters(text, sought, from);
}

/// All letters moved by the runs, those of ASCII from the range that begins at `first`.
std::string Converted(std::string_view text, char first, std::span<const CaseRun> runs) {
    std::string converted(text);
    if (modUtf8::IsAscii(text)) {
        for (char& character : converted) {
            const bool isMoved = static_cast<unsigned char>(character - first) < 26;
            character = static_cast<char>(character ^ (isMoved ? 0x20 : 0));
        }
        return converted;
    }
    converted.clear();
    for (std::size_t position = 0; position < text.size();) {
        const modUtf8::Character character = modUtf8::Decode(text, position);
        if (!character.Valid) {
            converted += text[position];
        } else if (character.CodePoint < 0x80) {
            const char byte = text[position];
            const bool isMoved = static_cast<unsigned char>(byte - first) < 26;
            converted += static_cast<char>(byte ^ (isMoved ? 0x20 : 0));
        } else {
            modUtf8::Append(converted, Mapped(runs, character.CodePoint));
        }
        position += character.Size;
    }
    return converted;
}

}  // namespace

bool Equal(std::string_view left, std::string_view right) {
    const Answer answer = SameAscii(left, right);
    if (answer != Answer::Open) {
        return answer == Answer::Yes && left.size() == right.size();
    }
    const Agreement found = Agree(left, right);
    return found.Left == left.size() && found.Right == right.size();
}

int Compare(std::string_view left, std::string_view right) {
    const Agreement found = Agree(left, right);
    if (found.Order != 0) {
        return found.Order;
    }
    return static_cast<int>(found.Left < left.size()) -
           static_cast<int>(found.Right < right.size());
}

bool StartsWith(std::string_view text, std::string_view prefix) {
    const Answer answer = SameAscii(text, prefix);
    if (answer != Answer::Open) {
        return answer == Answer::Yes && prefix.size() <= text.size();
    }
    return PrefixSize(text, prefix) != kNone;
}

bool EndsWith(std::string_view text, std::string_view suffix) {
    std::size_t checked = 0;  // from the end, where both texts are still aligned
    for (const std::size_t shorter = std::min(text.size(), suffix.size()); checked < shorter;
         ++checked) {
        const unsigned char textByte = ByteAt(text, text.size() - checked - 1);
        const unsigned char suffixByte = ByteAt(suffix, suffix.size() - checked - 1);
        if ((textByte | suffixByte) >= 0x80) {
            break;
        }
        if (kLowerBytes[textByte] != kLowerBytes[suffixByte]) {
            return false;
        }
    }
    if (checked == suffix.size() || checked == text.size()) {
        return checked == suffix.size();
    }
    const std::size_t textLength = modUtf8::Length(text);
    const std::size_t suffixLength = modUtf8::Length(suffix);
    return suffixLength <= textLength &&
           Equal(modUtf8::Mid(text, textLength - suffixLength + 1), suffix);
}

std::size_t Find(std::string_view text, std::string_view sought, std::size_t from) {
    if (sought.empty()) {
        return from <= text.size() ? from : kNone;
    }
    return FindMatch(text, sought, from).Start;
}

std::string
ReplaceAll(std::string_view text, std::string_view sought, std::string_view replacement) {
    std::string replaced;
    std::size_t from = 0;
    while (!sought.empty()) {
        const TextMatch match = FindMatch(text, sought, from);
        if (match.Start == kNone) {
            break;
        }
        replaced += text.substr(from, match.Start - from);
        replaced += replacement;
        from = match.Start + match.Size;
    }
    replaced += text.substr(from);
    return replaced;
}

std::string ToLower(std::string_view text) {
    return Converted(text, 'A', LowerRuns());
}

std::string ToUpper(std::string_view text) {
    return Converted(text, 'a', UpperRuns());
}

std::size_t Hash(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325ULL;  // FNV-1a over the characters
    for (std::size_t position = 0; position < text.size();) {
        hash = (hash ^ NextLower(text, position)) * 0x100000001B3ULL;
    }
    return static_cast<std::size_t>(hash ^ (hash >> 32));
}

}  // namespace dorvik::modTextCase
