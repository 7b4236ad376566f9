#pragma once

#include <vector>

namespace dorvik {

/// A set of characters, by code point, as the classes of patterns name them. Half characters
/// (surrogates) may be in it; they are in no text.
class CharacterSet {
public:
    struct Range {
        char32_t First;
        char32_t Last;  // itself in the range

        friend bool operator==(const Range&, const Range&) = default;
    };

    static constexpr char32_t kGreatest = 0x10FFFF;

    CharacterSet() = default;
    static CharacterSet Of(char32_t character) { return CharacterSet({{character, character}}); }
    static const CharacterSet& Digits();
    static const CharacterSet& WordCharacters();  // letters and digits of ASCII, and the underscore
    static const CharacterSet& Spaces();          // all blanks of Unicode, tabs, line ends
    static const CharacterSet& LineEnds();

    void Add(char32_t character) { Add(Range{character, character}); }
    /// REQUIRES: range.First <= range.Last.
    void Add(Range range);
    void AddAll(const CharacterSet& other);
    /// All characters that are not in this set.
    CharacterSet Complement() const;

    bool IsEmpty() const { return m_ranges.empty(); }
    bool Contains(char32_t character) const;
    bool HoldsOneCharacter() const {
        return m_ranges.size() == 1 && m_ranges[0].First == m_ranges[0].Last;
    }
    /// Rising, with a gap between any two.
    const std::vector<Range>& Ranges() const { return m_ranges; }

    friend bool operator==(const CharacterSet&, const CharacterSet&) = default;

private:
    explicit CharacterSet(std::vector<Range> ranges) : m_ranges(std::move(ranges)) {}

    std::vector<Range> m_ranges;
};

}  // namespace dorvik
