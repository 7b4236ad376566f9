#define PCRE2_CODE_UNIT_WIDTH 8
#include "platform/CompiledPattern.h"

#include "base/BasicError.h"
#include "platform/RegularExpression.h"

#include <array>
#include <cstdint>
#include <mutex>
#include <pcre2.h>
#include <unordered_map>

namespace dorvik {

namespace {

/// As near to ECMAScript as the library comes; the header of `RegularExpression` tells the rest.
constexpr std::uint32_t kOptions = PCRE2_UTF | PCRE2_MATCH_INVALID_UTF | PCRE2_ALT_BSUX |
                                   PCRE2_MATCH_UNSET_BACKREF | PCRE2_ALLOW_EMPTY_CLASS |
                                   PCRE2_DOLLAR_ENDONLY | PCRE2_NEVER_BACKSLASH_C;

/// Far above what a sane pattern needs on a line of source, and reached in well under a second.
constexpr std::uint32_t kMatchLimit = 1'000'000;
constexpr std::uint32_t kHeapLimit = 64 * 1024;  // KiB
constexpr std::size_t kLeastJitStack = 32 * 1024;
constexpr std::size_t kGreatestJitStack = 1024 * 1024;

/// Rulebases hold some hundred patterns. The bound is there for a process that reviews for days.
constexpr std::size_t kMostPatterns = 4096;

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
    MatchData Data{pcre2_match_data_create(1, nullptr)};

    Workspace() {
        pcre2_set_match_limit(Context.get(), kMatchLimit);
        pcre2_set_depth_limit(Context.get(), kMatchLimit);
        pcre2_set_heap_limit(Context.get(), kHeapLimit);
        pcre2_jit_stack_assign(Context.get(), nullptr, Stack.get());
    }
};

Workspace& ThreadWorkspace() {
    static thread_local Workspace workspace;
    return workspace;
}

std::string LibraryMessage(int number) {
    std::array<PCRE2_UCHAR, 256> buffer{};
    pcre2_get_error_message(number, buffer.data(), buffer.size());
    return reinterpret_cast<const char*>(buffer.data());
}

PCRE2_SPTR Bytes(std::string_view text) {
    return reinterpret_cast<PCRE2_SPTR>(text.empty() ? "" : text.data());
}

}  // namespace

struct CompiledPattern::Code {
    std::unique_ptr<pcre2_code, Release<pcre2_code_free>> Handle;
};

CompiledPattern::CompiledPattern(std::string_view pattern, bool ignoreCase) : m_pattern(pattern) {
    const CompileContext context(pcre2_compile_context_create(nullptr));
    pcre2_set_newline(context.get(), PCRE2_NEWLINE_LF);  // what "." does not match
    int fault = 0;
    std::size_t offset = 0;
    m_code = std::make_unique<Code>();
    m_code->Handle.reset(pcre2_compile(
        Bytes(pattern),
        pattern.size(),
        kOptions | (ignoreCase ? PCRE2_CASELESS : 0),
        &fault,
        &offset,
        context.get()));
    if (!m_code->Handle) {
        m_code.reset();
        m_fault = LibraryMessage(fault) + " at offset " + std::to_string(offset);
        return;
    }
    // Without the just-in-time compiler, the library's interpreter gives the same answers.
    pcre2_jit_compile(m_code->Handle.get(), PCRE2_JIT_COMPLETE);
    m_needs = NeedsOfPattern(pattern, ignoreCase);
}

CompiledPattern::~CompiledPattern() = default;

std::shared_ptr<const CompiledPattern>
CompiledPattern::Of(std::string_view pattern, bool ignoreCase) {
    static std::mutex mutex;
    static std::unordered_map<std::string, std::shared_ptr<const CompiledPattern>> store;

    std::string key(1, ignoreCase ? 'i' : 'c');
    key += pattern;
    const std::lock_guard guard(mutex);
    if (const auto found = store.find(key); found != store.end()) {
        return found->second;
    }
    if (store.size() >= kMostPatterns) {
        store.clear();
    }
    auto compiled = std::make_shared<const CompiledPattern>(pattern, ignoreCase);
    store.emplace(std::move(key), compiled);
    return compiled;
}

void CompiledPattern::RaiseFault() const {
    throw BasicError(
        kRegularExpressionSyntax, "Malformed regular expression '" + m_pattern + "': " + m_fault);
}

int CompiledPattern::Run(std::string_view text, std::size_t from) const {
    const Workspace& workspace = ThreadWorkspace();
    const auto run = [&](std::uint32_t options) {
        return pcre2_match(
            m_code->Handle.get(),
            Bytes(text),
            text.size(),
            from,
            options,
            workspace.Data.get(),
            workspace.Context.get());
    };
    const int result = run(0);
    // The interpreter keeps its stack on the heap, where there is more room.
    return result == PCRE2_ERROR_JIT_STACKLIMIT ? run(PCRE2_NO_JIT) : result;
}

std::optional<CompiledPattern::Span>
CompiledPattern::Find(std::string_view text, std::size_t from) const {
    const int result = Run(text, from);
    if (result == PCRE2_ERROR_NOMATCH) {
        return std::nullopt;
    }
    if (result < 0) {
        throw BasicError(
            kRegularExpressionTooComplex,
            "Regular expression '" + m_pattern + "' was given up: " + LibraryMessage(result));
    }
    const std::size_t* bounds = pcre2_get_ovector_pointer(ThreadWorkspace().Data.get());
    return Span{bounds[0], bounds[1]};
}

}  // namespace dorvik
