#include "modPatternCase.h"

#include "base/CaseTable.h"

#include <algorithm>
#include <array>
#include <vector>

namespace dorvik::modPatternCase {

namespace {

/// A character and its capital letter.
struct Pair {
    char32_t Character;
    char32_t Capital;
};

/// Greek letters with a subscript iota have a simple capital; the full one is two characters.
constexpr std::array<CharacterSet::Range, 6> kSeveralCapitals{{
    {0x1F80, 0x1F87},
    {0x1F90, 0x1F97},
    {0x1FA0, 0x1FA7},
    {0x1FB3, 0x1FB3},
    {0x1FC3, 0x1FC3},
    {0x1FF3, 0x1FF3},
}};

bool HasSeveralCapitals(char32_t character) {
    return std::ranges::any_of(kSeveralCapitals, [character](const CharacterSet::Range& range) {
        return range.First <= character && character <= range.Last;
    });
}

std::vector<Pair> AllPairs() {
    std::vector<Pair> pairs;
    for (char32_t letter = 'a'; letter <= 'z'; ++letter) {
        pairs.push_back({letter, letter - 'a' + 'A'});
    }
    for (const CaseRun& run : UpperRuns()) {
        for (std::uint32_t each = run.First; each <= run.Last; each += run.Step) {
            const auto capital =
                static_cast<char32_t>(static_cast<std::int64_t>(each) + run.Distance);
            if (each <= 0xFFFF && capital >= 0x80 && !HasSeveralCapitals(each)) {
                pairs.push_back({each, capital});
            }
        }
    }
    std::ranges::sort(pairs, {}, &Pair::Character);
    return pairs;
}

const std::vector<Pair>& Pairs() {
    static const std::vector<Pair> pairs = AllPairs();
    return pairs;
}

}  // namespace

char32_t Canonical(char32_t character) {
    if (character < 0x80) {
        return character >= 'a' && character <= 'z' ? character - 'a' + 'A' : character;
    }
    const auto found = std::ranges::lower_bound(Pairs(), character, {}, &Pair::Character);
    const bool isFound = found != Pairs().end() && found->Character == character;
    return isFound ? found->Capital : character;
}

CharacterSet WithAllCases(const CharacterSet& set) {
    CharacterSet withCapitals = set;
    for (const Pair& pair : Pairs()) {
        if (set.Contains(pair.Character)) {
            withCapitals.Add(pair.Capital);
        }
    }
    CharacterSet result = withCapitals;
    for (const Pair& pair : Pairs()) {
        if (withCapitals.Contains(pair.Capital)) {
            result.Add(pair.Character);
        }
    }
    return result;
}

}  // namespace dorvik::modPatternCase
