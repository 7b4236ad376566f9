#include "CompiledPattern.h"

#include "LibraryPattern.h"
#include "PatternRewriter.h"
#include "base/BasicError.h"
#include "base/modUtf8.h"
#include "modPatternFacts.h"
#include "platform/regex/RegularExpression.h"

#include <unordered_map>

namespace dorvik {

namespace {

/// Rulebases hold some hundred patterns. The bound is there for a process that reviews for days.
constexpr std::size_t kMostPatterns = 4096;
/// Of all their texts together; compiled they take some thirty times as much.
constexpr std::size_t kMostPatternBytes = std::size_t{4} << 20;

const char* FaultText(std::int32_t number) {
    switch (number) {
        case kRegularExpressionQuantifier: return "Unexpected quantifier in regular expression";
        case kRegularExpressionBracket: return "Expected ']' in regular expression";
        case kRegularExpressionParenthesis: return "Expected ')' in regular expression";
        default: return "Syntax error in regular expression";
    }
}

}  // namespace

CompiledPattern::CompiledPattern(std::string_view pattern, PatternFlags flags)
    : m_pattern(pattern) {
    PatternReader reader(pattern, flags);
    if (reader.Read(m_tree)) {
        MakeReady();
    } else {
        m_fault = reader.Fault();
    }
}

CompiledPattern::~CompiledPattern() = default;

void CompiledPattern::MakeReady() {
    m_prefilter = PrefilterOf(m_tree);
    m_program = std::make_unique<PatternProgram>(m_tree);
    m_hasOtherSpans = modPatternFacts::RepeatsEmptyText(m_tree.Root);
    m_hasOtherGroups = m_hasOtherSpans || modPatternFacts::MayKeepStaleGroups(m_tree.Root);
    m_takesLongestFirst =
        m_tree.HasBackReference || modPatternFacts::TakesLongestFirst(m_tree.Root);
    // A text that a group has taken would be compared by the library's own rules for case.
    const bool comparesCase = m_tree.HasBackReference && m_tree.Flags.IgnoreCase;
    const bool comparesGroups = m_tree.HasBackReference && m_hasOtherGroups;
    PatternRewriter rewriter;
    if (comparesCase || comparesGroups || !rewriter.Rewrite(m_tree)) {
        return;
    }
    m_rewritten = rewriter.Text();
    m_library = std::make_unique<LibraryPattern>(m_rewritten, LibraryPattern::Use::Search);
    if (!m_library->IsUsable()) {
        m_library.reset();
    }
}

std::shared_ptr<const CompiledPattern>
CompiledPattern::Of(std::string_view pattern, PatternFlags flags) {
    static std::mutex mutex;
    static std::unordered_map<std::string, std::shared_ptr<const CompiledPattern>> store;
    static std::size_t bytes = 0;

    std::string key(1, flags.IgnoreCase ? 'i' : 'c');
    key += flags.Multiline ? 'm' : 's';
    key += pattern;
    const std::lock_guard guard(mutex);
    if (const auto found = store.find(key); found != store.end()) {
        return found->second;
    }
    auto compiled = std::make_shared<const CompiledPattern>(pattern, flags);
    if (store.size() >= kMostPatterns || bytes + key.size() > kMostPatternBytes) {
        store.clear();
        bytes = 0;
    }
    bytes += key.size();
    store.emplace(std::move(key), compiled);
    return compiled;
}

void CompiledPattern::RaiseFault() const {
    std::string description = std::string(FaultText(m_fault.Number)) + " '" + m_pattern +
                              "' at position " + std::to_string(m_fault.Position);
    if (!m_fault.Detail.empty()) {
        description += ": " + m_fault.Detail;
    }
    throw BasicError(m_fault.Number, description);
}

void CompiledPattern::RaiseTooComplex(const std::string& limit) const {
    throw BasicError(
        kRegularExpressionTooComplex,
        "Expression too complex: the search for regular expression '" + m_pattern +
            "' was aborted, " + limit);
}

bool CompiledPattern::Require(PatternMachine::Outcome outcome) const {
    switch (outcome) {
        case PatternMachine::Outcome::NoMatch: return false;
        case PatternMachine::Outcome::Match: return true;
        case PatternMachine::Outcome::TooManySteps: RaiseTooComplex("match limit exceeded");
        case PatternMachine::Outcome::TooMuchMemory: RaiseTooComplex("heap limit exceeded");
    }
    return false;
}

/// Repetitions of empty text can keep the library busy where the dialect has an answer at once.
std::optional<PatternSpan>
CompiledPattern::FindInLibrary(std::string_view text, std::size_t from) const {
    PatternSpan span;
    switch (m_library->Find(text, from, span)) {
        case LibraryPattern::Outcome::NoMatch: return std::nullopt;
        case LibraryPattern::Outcome::Match: return span;
        case LibraryPattern::Outcome::GivenUp: break;
    }
    if (!m_hasOtherSpans) {
        RaiseTooComplex(LibraryPattern::Limit());
    }
    PatternMachine machine(*m_program, text);
    return Require(machine.Search(from)) ? std::optional(machine.Groups()[0]) : std::nullopt;
}

bool CompiledPattern::IsIn(std::string_view text) const {
    if (m_library) {
        return FindInLibrary(text, 0).has_value();
    }
    PatternMachine machine(*m_program, text);
    return Require(machine.Search(0));
}

bool CompiledPattern::Find(
    std::string_view text, std::size_t from, std::vector<PatternSpan>& groups) const {
    if (!m_library || m_hasOtherGroups) {
        return FindByMachine(text, from, groups);
    }
    switch (m_library->Find(text, from, m_tree.GroupCount, groups)) {
        case LibraryPattern::Outcome::NoMatch: return false;
        case LibraryPattern::Outcome::Match: return true;
        case LibraryPattern::Outcome::GivenUp: RaiseTooComplex(LibraryPattern::Limit());
    }
    return false;
}

/// The library finds the position faster, even where it would take another text there.
bool CompiledPattern::FindByMachine(
    std::string_view text, std::size_t from, std::vector<PatternSpan>& groups) const {
    PatternMachine machine(*m_program, text);
    if (m_library) {
        const std::optional<PatternSpan> span = FindInLibrary(text, from);
        if (!span) {
            return false;
        }
        from = span->Start;
    }
    const bool isFound = Require(machine.Search(from));
    groups = machine.Groups();
    return isFound;
}

// ---- The longest match ----

std::optional<PatternSpan> CompiledPattern::FindLongest(std::string_view text) const {
    const bool isPlain = m_library && m_takesLongestFirst && !m_hasOtherSpans;
    if (isPlain) {
        return FindInLibrary(text, 0);
    }
    if (m_tree.HasBackReference || !m_library) {
        std::vector<PatternSpan> groups;
        if (!Find(text, 0, groups)) {
            return std::nullopt;
        }
        return m_tree.HasBackReference ? groups[0] : LongestByMachine(text, groups[0].Start);
    }
    std::optional<PatternSpan> span = FindInLibrary(text, 0);
    if (!span) {
        return std::nullopt;
    }
    const LibraryPattern& longest = ValidTextPattern();
    if (!longest.IsUsable() || !modUtf8::IsValid(text)) {
        return LongestByMachine(text, span->Start);
    }
    if (longest.FindLongest(text, span->Start, *span) == LibraryPattern::Outcome::GivenUp) {
        RaiseTooComplex(LibraryPattern::Limit());
    }
    return span;
}

PatternSpan CompiledPattern::LongestByMachine(std::string_view text, std::size_t start) const {
    PatternMachine machine(*m_program, text);
    Require(machine.MatchAt(start, PatternMachine::Wanted::Longest));
    return machine.Groups().at(0);
}

const LibraryPattern& CompiledPattern::ValidTextPattern() const {
    std::call_once(m_longestMade, [this] {
        m_longest = std::make_unique<LibraryPattern>(m_rewritten, LibraryPattern::Use::Longest);
    });
    return *m_longest;
}

}  // namespace dorvik
