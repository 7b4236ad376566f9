#pragma once

#include "PatternMachine.h"
#include "PatternReader.h"
#include "Prefilter.h"

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class LibraryPattern;

/// A pattern made ready for searching, or the reason why it cannot be. Never changes, so that one
/// may serve every `RegularExpression` and `PatternSet` with this pattern. Only these use it.
///
/// `PatternReader` reads the pattern, `PatternRewriter` writes it for the library, and `LibraryPattern` searches.
/// Whether and from where on a text matches is always decided by the library (unless it cannot hold the pattern, or
/// a back reference depends on groups that only the library keeps from earlier rounds); which text and which groups,
/// by the library or, where that would take others than the dialect, by `PatternMachine`.
class CompiledPattern {
public:
    CompiledPattern(std::string_view pattern, PatternFlags flags);
    ~CompiledPattern();
    CompiledPattern(const CompiledPattern&) = delete;
    CompiledPattern& operator=(const CompiledPattern&) = delete;

    /// The compiled form of a pattern, from the store of the process.
    static std::shared_ptr<const CompiledPattern> Of(std::string_view pattern, PatternFlags flags);

    bool IsValid() const { return m_fault.Number == 0; }
    /// Raises the error of a malformed pattern.
    void RequireValid() const {
        if (!IsValid()) {
            RaiseFault();
        }
    }

    // Of all searches: REQUIRES: the pattern is valid, `from` is at most the size of the text. Raise
    // `kRegularExpressionTooComplex`.

    bool IsIn(std::string_view text) const;
    /// The first match that begins at or after `from`, followed by its groups; false if there is none.
    bool Find(std::string_view text, std::size_t from, std::vector<PatternSpan>& groups) const;
    /// The longest match at the first place where there is one; with back references, the first.
    std::optional<PatternSpan> FindLongest(std::string_view text) const;

    /// Rejects nothing for a malformed pattern.
    const Prefilter& RequiredOfTexts() const { return m_prefilter; }
    std::size_t GroupCount() const { return m_tree.GroupCount; }

private:
    [[noreturn]] void RaiseFault() const;
    [[noreturn]] void RaiseTooComplex(const std::string& limit) const;
    void MakeReady();
    std::optional<PatternSpan> FindInLibrary(std::string_view text, std::size_t from) const;
    bool
    FindByMachine(std::string_view text, std::size_t from, std::vector<PatternSpan>& groups) const;
    PatternSpan LongestByMachine(std::string_view text, std::size_t start) const;
    bool Require(PatternMachine::Outcome outcome) const;
    const LibraryPattern& ValidTextPattern() const;

    std::string m_pattern;
    PatternFault m_fault;
    PatternTree m_tree;
    Prefilter m_prefilter;
    std::string m_rewritten;
    std::unique_ptr<LibraryPattern> m_library;  // null: the machine does all
    std::unique_ptr<PatternProgram> m_program;  // null only for a malformed pattern
    bool m_hasOtherSpans = false;               // the library's matches may differ
    bool m_hasOtherGroups = false;              // the library's groups may differ
    bool m_takesLongestFirst = false;
    mutable std::once_flag m_longestMade;
    mutable std::unique_ptr<LibraryPattern> m_longest;  // made at its first use
};

}  // namespace dorvik
