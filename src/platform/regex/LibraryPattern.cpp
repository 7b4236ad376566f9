#define PCRE2_CODE_UNIT_WIDTH 8
#include "LibraryPattern.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <pcre2.h>

namespace dorvik {

namespace {

constexpr std::uint32_t kOptions = PCRE2_UTF | PCRE2_MATCH_UNSET_BACKREF | PCRE2_DOTALL |
                                   PCRE2_DOLLAR_ENDONLY | PCRE2_NEVER_BACKSLASH_C;

constexpr std::uint32_t kMatchLimit = 1'000'000;
constexpr std::uint32_t kHeapLimit = 64 * 1024;  // KiB
constexpr std::size_t kLeastJitStack = 32 * 1024;
constexpr std::size_t kGreatestJitStack = 1024 * 1024;

/// Room for the paths that a search for the longest match follows at the same time.
constexpr std::size_t kLeastRoads = 1024;
constexpr std::size_t kMostRoads = 4 * 1024 * 1024;

template <auto Free>
struct Release {
    template <typename Pointer>
    void operator()(Pointer* pointer) const {
        Free(pointer);
    }
};

using CompileContext = std::unique_ptr<pcre2_compile_context, Release<pcre2_compile_context_free>>;
using MatchContext = std::unique_ptr<pcre2_match_context, Release<pcre2_match_context_free>>;
using MatchData = std::unique_ptr<pcre2_match_data, Release<pcre2_match_data_free>>;
using JitStack = std::unique_ptr<pcre2_jit_stack, Release<pcre2_jit_stack_free>>;

/// What a search writes to; one a thread.
struct Workspace {
    JitStack Stack{pcre2_jit_stack_create(kLeastJitStack, kGreatestJitStack, nullptr)};
    MatchContext Context{pcre2_match_context_create(nullptr)};
    MatchData Whole{pcre2_match_data_create(1, nullptr)};
    MatchData Groups;  // for `GroupPairs` pairs of bounds
    std::size_t GroupPairs = 0;
    std::vector<int> Roads = std::vector<int>(kLeastRoads);
    std::string Limit;

    Workspace() {
        pcre2_set_match_limit(Context.get(), kMatchLimit);
        pcre2_set_depth_limit(Context.get(), kMatchLimit);
        pcre2_set_heap_limit(Context.get(), kHeapLimit);
        pcre2_jit_stack_assign(Context.get(), nullptr, Stack.get());
    }

    pcre2_match_data* DataFor(std::size_t pairs) {
        if (pairs > GroupPairs) {
            GroupPairs = pairs;
            Groups.reset(pcre2_match_data_create(static_cast<std::uint32_t>(pairs), nullptr));
        }
        return Groups.get();
    }
};

Workspace& ThreadWorkspace() {
    static thread_local Workspace workspace;
    return workspace;
}

PCRE2_SPTR Bytes(std::string_view text) {
    return reinterpret_cast<PCRE2_SPTR>(text.empty() ? "" : text.data());
}

LibraryPattern::Outcome OutcomeOf(int result) {
    if (result >= 0) {
        return LibraryPattern::Outcome::Match;
    }
    if (result == PCRE2_ERROR_NOMATCH) {
        return LibraryPattern::Outcome::NoMatch;
    }
    std::array<PCRE2_UCHAR, 256> buffer{};
    pcre2_get_error_message(result, buffer.data(), buffer.size());
    ThreadWorkspace().Limit = reinterpret_cast<const char*>(buffer.data());
    return LibraryPattern::Outcome::GivenUp;
}

PatternSpan FirstSpan(pcre2_match_data* data) {
    const std::size_t* bounds = pcre2_get_ovector_pointer(data);
    return {bounds[0], bounds[1]};
}

int Run(
    const pcre2_code* code,
    std::string_view text,
    std::size_t from,
    pcre2_match_data* data,
    pcre2_match_context* context) {
    const auto run = [&](std::uint32_t options) {
        return pcre2_match(code, Bytes(text), text.size(), from, options, data, context);
    };
    const int result = run(0);
    // The interpreter keeps its stack on the heap, where there is more room.
    return result == PCRE2_ERROR_JIT_STACKLIMIT ? run(PCRE2_NO_JIT) : result;
}

}  // namespace

struct LibraryPattern::Code {
    std::unique_ptr<pcre2_code, Release<pcre2_code_free>> Handle;
};

LibraryPattern::LibraryPattern(const std::string& rewritten, Use use) {
    const CompileContext context(pcre2_compile_context_create(nullptr));
    pcre2_set_newline(context.get(), PCRE2_NEWLINE_LF);
    int fault = 0;
    std::size_t offset = 0;
    pcre2_code* code = pcre2_compile(
        Bytes(rewritten),
        rewritten.size(),
        kOptions | (use == Use::Search ? PCRE2_MATCH_INVALID_UTF : 0U),
        &fault,
        &offset,
        context.get());
    if (code == nullptr) {
        return;
    }
    m_code = std::make_unique<Code>();
    m_code->Handle.reset(code);
    if (use == Use::Search) {
        // Without the just-in-time compiler, the library's interpreter gives the same answers.
        pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
    }
}

LibraryPattern::~LibraryPattern() = default;

LibraryPattern::Outcome
LibraryPattern::Find(std::string_view text, std::size_t from, PatternSpan& span) const {
    const Workspace& workspace = ThreadWorkspace();
    pcre2_match_data* data = workspace.Whole.get();
    const int result = Run(m_code->Handle.get(), text, from, data, workspace.Context.get());
    if (result == PCRE2_ERROR_NOMATCH) {
        return Outcome::NoMatch;
    }
    if (result >= 0) {
        span = FirstSpan(data);
    }
    return OutcomeOf(result);
}

LibraryPattern::Outcome LibraryPattern::Find(
    std::string_view text,
    std::size_t from,
    std::size_t groupCount,
    std::vector<PatternSpan>& spans) const {
    Workspace& workspace = ThreadWorkspace();
    pcre2_match_data* data = workspace.DataFor(groupCount + 1);
    const int result = Run(m_code->Handle.get(), text, from, data, workspace.Context.get());
    const Outcome outcome = OutcomeOf(result);
    if (outcome != Outcome::Match) {
        return outcome;
    }
    const std::size_t* bounds = pcre2_get_ovector_pointer(data);
    const auto known =
        static_cast<std::size_t>(result);  // groups after the last one that is set are not
    spans.assign(groupCount + 1, PatternSpan{});
    for (std::size_t group = 0; group < std::min(known, spans.size()); ++group) {
        if (bounds[2 * group] != PCRE2_UNSET) {
            spans[group] = {bounds[2 * group], bounds[2 * group + 1]};
        }
    }
    return outcome;
}

LibraryPattern::Outcome
LibraryPattern::FindLongest(std::string_view text, std::size_t start, PatternSpan& span) const {
    Workspace& workspace = ThreadWorkspace();
    int result = PCRE2_ERROR_DFA_WSSIZE;
    while (true) {
        result = pcre2_dfa_match(
            m_code->Handle.get(),
            Bytes(text),
            text.size(),
            start,
            PCRE2_ANCHORED | PCRE2_NO_UTF_CHECK,
            workspace.Whole.get(),
            workspace.Context.get(),
            workspace.Roads.data(),
            workspace.Roads.size());
        if (result != PCRE2_ERROR_DFA_WSSIZE || workspace.Roads.size() >= kMostRoads) {
            break;
        }
        workspace.Roads.resize(workspace.Roads.size() * 4);
    }
    const Outcome outcome = OutcomeOf(result);
    if (outcome == Outcome::Match) {
        span = FirstSpan(workspace.Whole.get());  // the longest is reported first
    }
    return outcome;
}

const std::string& LibraryPattern::Limit() {
    return ThreadWorkspace().Limit;
}

}  // namespace dorvik
