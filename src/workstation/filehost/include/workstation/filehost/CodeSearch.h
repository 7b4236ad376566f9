#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/FileCodeModule.h"
#include "workstation/host/ICodeModule.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Looks for a text in a module, and replaces it. Each place is within one line.
class CodeSearch {
public:
    /// A place, and how it was come by.
    struct Hit {
        CodeRange Range;
        std::size_t Number = 0;  // among all, from 1
        bool HasWrapped = false;

        friend bool operator==(const Hit&, const Hit&) = default;
    };

    /// REQUIRES: the module outlives the search.
    explicit CodeSearch(FileCodeModule& module);
    CodeSearch(const CodeSearch&) = delete;
    CodeSearch& operator=(const CodeSearch&) = delete;

    const std::string& Text() const { return m_text; }
    const FindOptions& Options() const { return m_options; }
    void SetText(std::string text);
    void SetOptions(const FindOptions& options);
    /// Looks in a part of the module only, which moves with its lines.
    void SetScope(std::optional<CodeRange> scope);
    const std::optional<CodeRange>& Scope() const { return m_scope; }
    /// Whether it continues at the other end; true at first.
    void SetWraps(bool wraps) { m_wraps = wraps; }

    /// All places, from the first line on. They are looked for when they are needed first after a change.
    const std::vector<CodeRange>& Hits() const;
    /// The first one that begins at or after a place, or at or after its end where it is a hit itself; after the last one the first.
    std::optional<Hit> Next(const CodeRange& from) const;
    std::optional<Hit> Previous(const CodeRange& from) const;
    /// From 1; 0 for a range that is no hit.
    std::size_t NumberOf(const CodeRange& range) const;

    /// Replaces a hit. Nothing happens where `range` is none. True where it was replaced.
    bool Replace(const CodeRange& range, std::string_view replacement);
    /// As one step to be undone. How many there were.
    std::size_t ReplaceAll(std::string_view replacement);

    /// Hits may be others.
    Event<> Changed;

private:
    void Forget();
    void Follow(const LinesChange& change);
    bool IsInScope(const CodeRange& hit) const;
    void FindIn(std::int32_t line, std::vector<CodeRange>& hits) const;
    std::string Replaced(std::int32_t line, std::size_t& hit, std::string_view replacement) const;

    FileCodeModule& m_module;
    std::string m_text;
    FindOptions m_options;
    std::optional<CodeRange> m_scope;
    bool m_wraps = true;
    mutable std::optional<std::vector<CodeRange>> m_hits;
    Subscription m_changes;
};

}  // namespace dorvik
