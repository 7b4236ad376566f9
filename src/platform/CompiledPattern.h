#pragma once

#include "platform/PatternNeeds.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

/// A pattern made ready for searching, or the reason why it cannot be. Never changes, so that one
/// may serve every `RegularExpression` with this pattern. Only `RegularExpression` uses it.
class CompiledPattern {
public:
    /// Bytes of the text, the end not among them.
    struct Span {
        std::size_t Start;
        std::size_t End;
    };

    CompiledPattern(std::string_view pattern, bool ignoreCase);
    ~CompiledPattern();
    CompiledPattern(const CompiledPattern&) = delete;
    CompiledPattern& operator=(const CompiledPattern&) = delete;

    /// The compiled form of a pattern, from the store of the process.
    static std::shared_ptr<const CompiledPattern> Of(std::string_view pattern, bool ignoreCase);

    /// Raises `kRegularExpressionSyntax` if the pattern is malformed.
    void RequireValid() const {
        if (!m_code) {
            RaiseFault();
        }
    }

    /// The first match that begins at or behind `from`. REQUIRES: the pattern is valid, from is at
    /// most the size of the text. Raises `kRegularExpressionTooComplex`.
    std::optional<Span> Find(std::string_view text, std::size_t from) const;

    const PatternNeeds& Needs() const { return m_needs; }

private:
    struct Code;

    [[noreturn]] void RaiseFault() const;
    int Run(std::string_view text, std::size_t from) const;

    std::string m_pattern;
    std::unique_ptr<Code> m_code;  // null for a malformed pattern
    std::string m_fault;           // what is wrong with a malformed pattern
    PatternNeeds m_needs;
};

}  // namespace dorvik
