#include "CharacterSet.h"

#include <algorithm>

namespace dorvik {

const CharacterSet& CharacterSet::Digits() {
    static const CharacterSet set({{'0', '9'}});
    return set;
}

const CharacterSet& CharacterSet::WordCharacters() {
    static const CharacterSet set({{'0', '9'}, {'A', 'Z'}, {'_', '_'}, {'a', 'z'}});
    return set;
}

const CharacterSet& CharacterSet::Spaces() {
    static const CharacterSet set({
        {'\t', '\r'},
        {' ', ' '},
        {0xA0, 0xA0},
        {0x1680, 0x1680},
        {0x2000, 0x200A},
        {0x2028, 0x2029},
        {0x202F, 0x202F},
        {0x205F, 0x205F},
        {0x3000, 0x3000},
    });
    return set;
}

const CharacterSet& CharacterSet::LineEnds() {
    static const CharacterSet set({{'\n', '\n'}, {'\r', '\r'}, {0x2028, 0x2029}});
    return set;
}

void CharacterSet::Add(Range range) {
    // The first range that touches or follows the new one, and the first that is wholly after it.
    const auto first = std::lower_bound(
        m_ranges.begin(), m_ranges.end(), range.First, [](const Range& each, char32_t begin) {
            return each.Last + 1 < begin;
        });
    auto last = first;
    for (; last != m_ranges.end() && last->First <= range.Last + 1; ++last) {
        range.First = std::min(range.First, last->First);
        range.Last = std::max(range.Last, last->Last);
    }
    m_ranges.insert(m_ranges.erase(first, last), range);
}

void CharacterSet::AddAll(const CharacterSet& other) {
    for (const Range& range : other.m_ranges) {
        Add(range);
    }
}

CharacterSet CharacterSet::Complement() const {
    CharacterSet result;
    char32_t next = 0;
    for (const Range& range : m_ranges) {
        if (range.First > next) {
            result.m_ranges.push_back({next, range.First - 1});
        }
        next = range.Last + 1;
    }
    if (next <= kGreatest) {
        result.m_ranges.push_back({next, kGreatest});
    }
    return result;
}

bool CharacterSet::Contains(char32_t character) const {
    const auto found = std::lower_bound(
        m_ranges.begin(), m_ranges.end(), character, [](const Range& each, char32_t sought) {
            return each.Last < sought;
        });
    return found != m_ranges.end() && found->First <= character;
}

}  // namespace dorvik
