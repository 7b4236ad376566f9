#pragma once

#include <cstddef>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik {

/// A second regular expression engine, for comparison only: small, slow, and a transcript of chapter 15.10.2
/// of the third edition of the ECMAScript standard, with matchers that call continuations. It has no parser:
/// patterns are made as trees, from which the text for the other engine is written.
struct TinyNode {
    enum class Kind {
        Empty,
        Character,
        Class,
        Start,
        End,
        Boundary,
        NoBoundary,
        Reference,
        Group,
        Plain,
        Ahead,
        NotAhead,
        Sequence,
        Choice,
        Repeat
    };
    static constexpr int kEndless = -1;

    Kind Type = Kind::Empty;
    std::string Text;  // of a character, class or place: as it stands in the pattern
    std::vector<std::pair<char32_t, char32_t>> Ranges;  // of a character or class
    bool IsNegated = false;
    std::size_t Number = 0;  // of a group or reference
    int Least = 0;
    int Most = 0;
    bool IsLazy = false;
    std::vector<TinyNode> Children;
    std::size_t FirstGroup = 0;  // the groups inside, as a half-open range
    std::size_t EndGroup = 0;
};

struct TinyPattern {
    TinyNode Root;
    std::size_t GroupCount = 0;
    bool HasReference = false;
    bool IgnoreCase = false;
    bool Multiline = false;

    std::string Text() const;
};

/// Makes random patterns over a few characters.
class TinyPatternMaker {
public:
    explicit TinyPatternMaker(std::mt19937& random) : m_random(random) {}
    TinyPattern Make();

private:
    TinyNode Disjunction(int depth);
    TinyNode Alternative(int depth);
    TinyNode Term(int depth);
    TinyNode Atom(int depth);
    TinyNode Parenthesis(int depth);
    TinyNode Repeated(TinyNode atom);
    void NumberReferences(TinyNode& node);
    bool Chance(unsigned of) { return m_random() % of == 0; }

    std::mt19937& m_random;
    TinyPattern m_pattern;
};

/// Searches one text.
class TinyMatcher {
public:
    /// End and groups of a match; `npos` is "undefined".
    struct State {
        std::size_t End = 0;
        std::vector<std::pair<std::size_t, std::size_t>> Groups;
    };

    TinyMatcher(const TinyPattern& pattern, std::u32string_view text)
        : m_pattern(pattern), m_text(text) {}

    bool MatchAt(std::size_t start, State& result);
    /// The end of the longest match of all those that there are from `start` on.
    bool LongestAt(std::size_t start, std::size_t& end);
    /// True if it took too long; no answer counts then.
    bool IsGivenUp() const { return m_steps > kMostSteps; }

private:
    static constexpr std::size_t kMostSteps = 20000;
    using Continuation = std::function<bool(const State&)>;

    bool Run(const TinyNode& node, const State& x, const Continuation& c);
    bool RunCharacter(const TinyNode& node, const State& x, const Continuation& c);
    bool RunReference(const TinyNode& node, const State& x, const Continuation& c);
    bool RunSequence(const TinyNode& node, std::size_t i, const State& x, const Continuation& c);
    bool RunRepeat(const TinyNode& node, int min, int max, const State& x, const Continuation& c);
    bool RunAhead(const TinyNode& node, const State& x, const Continuation& c);
    bool IsWordAt(std::size_t position) const;
    char32_t Canonical(char32_t character) const;
    State StateAt(std::size_t start) const;

    const TinyPattern& m_pattern;
    std::u32string_view m_text;
    std::size_t m_steps = 0;
};

}  // namespace dorvik
