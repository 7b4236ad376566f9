#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class CompiledPattern;

/// The numbers of the dialect's own errors for a malformed pattern. The description names the pattern,
/// what is wrong, and the character (counted from 1) where it is.
inline constexpr std::int32_t kRegularExpressionSyntax = 5017;
inline constexpr std::int32_t kRegularExpressionQuantifier =
    5018;                                                        // nothing to be repeated before it
inline constexpr std::int32_t kRegularExpressionBracket = 5019;  // expected ']'
inline constexpr std::int32_t kRegularExpressionParenthesis = 5020;  // expected ')'
/// "Expression too complex": the search was abandoned, because it took more steps or memory than a sane
/// pattern ever needs. This says nothing about whether the text matches.
inline constexpr std::int32_t kRegularExpressionTooComplex = 16;

/// The text that a group in parentheses took.
struct SubMatch {
    std::string Value;      // empty for a group that took no part
    bool TookPart = false;  // distinguishes an empty text from a group that took no part

    friend bool operator==(const SubMatch&, const SubMatch&) = default;
};

/// One place where a pattern matches.
struct Match {
    std::size_t Index = 0;  // characters before the match
    std::string Value;
    std::vector<SubMatch> SubMatches;  // one for each capturing group, in the order of their "("

    friend bool operator==(const Match&, const Match&) = default;
};

/// Searches text for a pattern in the dialect of VBScript, which is that of ECMAScript's third edition:
/// alternation, groups, classes, greedy and lazy repetition, anchors, `\b`, lookahead, back references.
/// What that edition forbids or leaves open is read as VBScript documents it: an escaped letter without
/// a meaning is that letter, a brace that begins no count is a brace, `\12` without twelve groups is the
/// first group and a "2", and without any an octal number. Anything of other dialects ("(?i)",
/// "(?<name>", "a++") is rejected.
///
/// Characters are Unicode characters, also those that that edition would see as two halves. `\w`, `\d` and
/// `\b` know ASCII only, `\s` knows all spaces and line ends, "." is any character but a line end (line
/// feed, carriage return, U+2028, U+2029).
///
/// Setting a pattern is cheap: it is compiled at its first use and kept for the whole process, so an
/// object may serve many patterns in turn. A caller that tests the same pattern over and over keeps an
/// object for it, which saves the lookup as well; one that tests many patterns on each text, a `PatternSet`.
/// A malformed pattern raises one of 5017 to 5020 at every use, not when it is set. Any bytes may be in the
/// text; those that are not UTF-8 match nothing.
///
/// One object serves one thread; copies share the compiled pattern.
class RegularExpression {
public:
    RegularExpression() = default;
    explicit RegularExpression(std::string_view pattern) : m_pattern(pattern) {}

    const std::string& Pattern() const { return m_pattern; }
    void SetPattern(std::string_view pattern);
    bool IgnoreCase() const { return m_ignoreCase; }
    void SetIgnoreCase(bool ignoreCase);
    bool Multiline() const { return m_multiline; }
    /// Whether "^" and "$" match at the ends of each line, too, or only at those of the text.
    void SetMultiline(bool multiline);
    bool Global() const { return m_global; }
    /// Whether `Execute` and `Replace` deal with all matches or only with the first.
    void SetGlobal(bool global) { m_global = global; }

    /// True if every use raises one of 5017 to 5020: the pattern is none of this dialect.
    bool IsMalformed();

    /// True if the pattern matches anywhere in the text. Each operation raises one of 5017 to 5020 for
    /// a malformed pattern and `kRegularExpressionTooComplex` for a search that was abandoned.
    bool Test(std::string_view text);

    /// Called after each step of a long search with the number of bytes its result takes so far; it may
    /// end the search by raising an error.
    using Progress = std::function<void(std::size_t bytes)>;

    /// The matches from left to right, none overlapping; at most one unless `Global`.
    std::vector<Match> Execute(std::string_view text, const Progress& progress = {});

    /// The text with the first match, or with all of them if `Global`, replaced. In the replacement, "$&" is
    /// the match, "$`" what is before it, "$'" what follows it, "$1" to "$99" a group (empty
    /// if it took no part), and "$$" a "$". Any other "$" stands for itself.
    std::string
    Replace(std::string_view text, std::string_view replacement, const Progress& progress = {});

    /// The longest match at the first place where the pattern matches, whereas `Execute` takes the
    /// alternative that is first: "a|ab" on "ab" gives "ab". A pattern with a back reference
    /// gives what `Execute` gives. The sub-matches are not returned.
    std::optional<Match> LongestMatch(std::string_view text);

private:
    const CompiledPattern& FromStore();
    const CompiledPattern& Compiled();
    template <typename Visit>
    void ForEachMatch(std::string_view text, Visit&& visit);

    std::string m_pattern;
    bool m_ignoreCase = false;
    bool m_multiline = false;
    bool m_global = false;
    std::shared_ptr<const CompiledPattern> m_compiled;  // null until the first use
};

}  // namespace dorvik
