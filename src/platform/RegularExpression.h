#pragma once

#include "platform/ByteSet.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class CompiledPattern;

/// The pattern is malformed. The description names the pattern, what is wrong, and where (in bytes).
inline constexpr std::int32_t kRegularExpressionSyntax = 5017;
/// The search was given up, because it took more steps or memory than a sane pattern ever needs.
inline constexpr std::int32_t kRegularExpressionTooComplex = 5018;

/// One place where a pattern matches.
struct Match {
    std::size_t Index = 0;  // characters before the match
    std::string Value;

    friend bool operator==(const Match&, const Match&) = default;
};

/// Searches text for a pattern. The grammar is that of ECMAScript (alternation, groups, classes,
/// greedy and lazy repetition, anchors, `\b`, lookahead, back references), characters are Unicode,
/// `\w`, `\d`, `\s` and `\b` know ASCII only, "." is any character but a line feed, and "^" and "$"
/// are the ends of the text.
///
/// Setting a pattern is cheap: it is compiled at its first use and kept for the whole process, so an
/// object may serve many patterns in turn. Whoever tests the same patterns over and over keeps an
/// object for each, which spares the look-up as well. A malformed pattern raises `kRegularExpressionSyntax` at
/// every `Test` and `Execute`, not when it is set. Any bytes may stand in the text; those that are not
/// UTF-8 match nothing.
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
    bool Global() const { return m_global; }
    /// Whether `Execute` gives all matches or only the first.
    void SetGlobal(bool global) { m_global = global; }

    /// True if the pattern matches anywhere in the text.
    bool Test(std::string_view text);

    /// The same for a caller that tests many patterns on one text and has made the set of its bytes
    /// once: a text without a byte that every match needs is turned down at once. Such a text never
    /// raises `kRegularExpressionTooComplex`. REQUIRES: present == ByteSet(text).
    bool Test(std::string_view text, const ByteSet& present);

    /// The matches from left to right, none overlapping; at most one unless `Global`.
    std::vector<Match> Execute(std::string_view text);

private:
    const CompiledPattern& Compiled();

    std::string m_pattern;
    bool m_ignoreCase = false;
    bool m_global = false;
    std::shared_ptr<const CompiledPattern> m_compiled;  // null until the first use
};

}  // namespace dorvik
