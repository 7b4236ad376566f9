#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace dorvik {

struct TextSignature;

/// Patterns that are all tested on each of many texts, as the keywords of a rulebase are on each statement: the
/// same results as one `RegularExpression` for each pattern, with case, at a fraction of the time.
///
///     PatternSet patterns;
///     const std::size_t goTo = patterns.Add("\\bGoTo\\b");
///     patterns.SetText(statement);
///     if (patterns.Matches(goTo)) ...
///
/// One object serves one thread.
class PatternSet {
public:
    PatternSet();
    ~PatternSet();
    PatternSet(PatternSet&& other) noexcept;
    PatternSet& operator=(PatternSet&& other) noexcept;

    /// Returns the number of the pattern; the first one has 0. A malformed pattern raises its error when it is
    /// tested.
    std::size_t Add(std::string_view pattern);
    /// True if each test of the pattern raises one of 5017 to 5020.
    bool IsMalformed(std::size_t pattern) const;

    /// The text of all tests that follow. REQUIRES: it stays alive during them; no pattern is added before the
    /// next text is set.
    void SetText(std::string_view text);
    /// True if the pattern matches anywhere in the text. Raises one of 5017 to 5020 for a malformed pattern, and
    /// `kRegularExpressionTooComplex` for a search that was abandoned.
    bool Matches(std::size_t pattern) const {
        return (m_required[pattern] & ~m_present) == 0 && Search(pattern);
    }

private:
    struct Entry;

    bool Search(std::size_t pattern) const;

    std::vector<Entry> m_entries;
    std::unique_ptr<TextSignature> m_signature;  // null before the first text
    // A text that lacks a bigram which every match contains is rejected here, in the caller's loop.
    std::vector<std::uint64_t> m_required;  // by pattern
    std::uint64_t m_present = 0;            // in the text
    std::string_view m_text;
};

}  // namespace dorvik
