#include "workstation/filehost/CodeSearch.h"

#include "base/modUtf8.h"
#include "workstation/filehost/modCodeFind.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace dorvik {

namespace {

auto StartOf(const CodeRange& range) {
    return std::tuple(range.StartLine, range.StartColumn);
}

auto EndOf(const CodeRange& range) {
    return std::tuple(range.EndLine, range.EndColumn);
}

bool IsBefore(const CodeRange& left, const CodeRange& right) {
    return StartOf(left) < StartOf(right);
}

}  // namespace

CodeSearch::CodeSearch(FileCodeModule& module)
    : m_module(module),
      m_changes(module.Changed.Subscribe([this](const LinesChange& change) { Follow(change); })) {}

void CodeSearch::Forget() {
    m_hits.reset();
    Changed.Raise();
}

void CodeSearch::SetText(std::string text) {
    if (m_text != text) {
        m_text = std::move(text);
        Forget();
    }
}

void CodeSearch::SetOptions(const FindOptions& options) {
    m_options = options;
    Forget();
}

void CodeSearch::SetScope(std::optional<CodeRange> scope) {
    m_scope = scope;
    Forget();
}

void CodeSearch::Follow(const LinesChange& change) {
    if (m_scope) {
        const std::int32_t grown = change.Inserted - change.Removed;
        if (m_scope->StartLine >= change.Start + change.Removed) {
            m_scope->StartLine += grown;
        }
        if (m_scope->EndLine >= change.Start + change.Removed) {
            m_scope->EndLine += grown;
        } else if (m_scope->EndLine >= change.Start) {
            m_scope->EndLine = std::max(m_scope->EndLine + grown, m_scope->StartLine);
        }
    }
    Forget();
}

bool CodeSearch::IsInScope(const CodeRange& hit) const {
    return !m_scope || (StartOf(hit) >= StartOf(*m_scope) && EndOf(hit) <= EndOf(*m_scope));
}

void CodeSearch::FindIn(std::int32_t line, std::vector<CodeRange>& hits) const {
    const std::string& text = m_module.Texts()[static_cast<std::size_t>(line) - 1];
    std::int32_t column = 1;
    while (const auto match = modCodeFind::InLine(text, m_text, m_options, column)) {
        const CodeRange hit{line, match->StartColumn, line, match->EndColumn};
        if (IsInScope(hit)) {
            hits.push_back(hit);
        }
        column = std::max(match->EndColumn, match->StartColumn + 1);
    }
}

const std::vector<CodeRange>& CodeSearch::Hits() const {
    if (!m_hits) {
        std::vector<CodeRange> hits;
        const std::int32_t first = m_scope ? std::max(m_scope->StartLine, 1) : 1;
        const std::int32_t last =
            m_scope ? std::min(m_scope->EndLine, m_module.CountOfLines()) : m_module.CountOfLines();
        for (std::int32_t line = first; line <= last && !m_text.empty(); ++line) {
            FindIn(line, hits);
        }
        m_hits = std::move(hits);
    }
    return *m_hits;
}

std::size_t CodeSearch::NumberOf(const CodeRange& range) const {
    const std::vector<CodeRange>& hits = Hits();
    const auto found = std::ranges::lower_bound(hits, range, IsBefore);
    return found != hits.end() && *found == range
               ? static_cast<std::size_t>(found - hits.begin()) + 1
               : 0;
}

std::optional<CodeSearch::Hit> CodeSearch::Next(const CodeRange& from) const {
    const std::vector<CodeRange>& hits = Hits();
    if (hits.empty()) {
        return std::nullopt;
    }
    const auto start = NumberOf(from) > 0 ? EndOf(from) : StartOf(from);
    const auto found =
        std::ranges::find_if(hits, [&](const CodeRange& hit) { return StartOf(hit) >= start; });
    const bool isLast = found == hits.end();
    if (isLast && !m_wraps) {
        return std::nullopt;
    }
    const auto place = isLast ? hits.begin() : found;
    return Hit{*place, static_cast<std::size_t>(place - hits.begin()) + 1, isLast};
}

std::optional<CodeSearch::Hit> CodeSearch::Previous(const CodeRange& from) const {
    const std::vector<CodeRange>& hits = Hits();
    if (hits.empty()) {
        return std::nullopt;
    }
    const auto found = std::ranges::lower_bound(hits, from, IsBefore);
    const bool isFirst = found == hits.begin();
    if (isFirst && !m_wraps) {
        return std::nullopt;
    }
    const auto place = (isFirst ? hits.end() : found) - 1;
    return Hit{*place, static_cast<std::size_t>(place - hits.begin()) + 1, isFirst};
}

/// The line with all hits from the number `hit` on that are in it replaced; `hit` is the one after them then.
std::string
CodeSearch::Replaced(std::int32_t line, std::size_t& hit, std::string_view replacement) const {
    const std::vector<CodeRange>& hits = Hits();
    const std::string& text = m_module.Texts()[static_cast<std::size_t>(line) - 1];
    std::string result;
    std::size_t done = 1;  // the first column that was not taken yet
    for (; hit < hits.size() && hits[hit].StartLine == line; ++hit) {
        const auto start = static_cast<std::size_t>(hits[hit].StartColumn);
        result += modUtf8::Mid(text, done, start - done);
        result += replacement;
        done = static_cast<std::size_t>(hits[hit].EndColumn);
    }
    return result.append(modUtf8::Mid(text, done));
}

bool CodeSearch::Replace(const CodeRange& range, std::string_view replacement) {
    if (NumberOf(range) == 0) {
        return false;
    }
    const std::string text = m_module.Texts()[static_cast<std::size_t>(range.StartLine) - 1];
    std::string result(modUtf8::Left(text, static_cast<std::size_t>(range.StartColumn) - 1));
    result += replacement;
    result += modUtf8::Mid(text, static_cast<std::size_t>(range.EndColumn));
    if (m_scope && m_scope->EndLine == range.EndLine) {
        m_scope->EndColumn += static_cast<std::int32_t>(modUtf8::Length(replacement)) -
                              (range.EndColumn - range.StartColumn);
    }
    m_module.ReplaceLine(range.StartLine, result);
    return true;
}

std::size_t CodeSearch::ReplaceAll(std::string_view replacement) {
    const std::vector<CodeRange> hits = Hits();
    if (hits.empty()) {
        return 0;
    }
    const std::int32_t first = hits.front().StartLine;
    const std::int32_t last = hits.back().StartLine;
    std::size_t hit = 0;
    std::string text;
    for (std::int32_t line = first; line <= last; ++line) {
        text += (line > first ? "\r\n" : "") + Replaced(line, hit, replacement);
    }
    if (m_scope && m_scope->EndLine == last) {
        for (const CodeRange& range : hits) {
            if (range.StartLine == last) {
                m_scope->EndColumn += static_cast<std::int32_t>(modUtf8::Length(replacement)) -
                                      (range.EndColumn - range.StartColumn);
            }
        }
    }
    m_module.ReplaceLines(first, last - first + 1, text);
    return hits.size();
}

}  // namespace dorvik
