#include "platform/regex/PatternSet.h"

#include "CompiledPattern.h"
#include "Prefilter.h"
#include "TextSignature.h"

#include <memory>

namespace dorvik {

struct PatternSet::Entry {
    Prefilter Filter;  // a copy, next to those of the other patterns in memory
    std::shared_ptr<const CompiledPattern> Compiled;
};

PatternSet::PatternSet() = default;
PatternSet::~PatternSet() = default;
PatternSet::PatternSet(PatternSet&& other) noexcept = default;
PatternSet& PatternSet::operator=(PatternSet&& other) noexcept = default;

std::size_t PatternSet::Add(std::string_view pattern) {
    std::shared_ptr<const CompiledPattern> compiled = CompiledPattern::Of(pattern, {});
    m_required.push_back(compiled->RequiredOfTexts().Bigrams.Bits());
    m_entries.push_back({compiled->RequiredOfTexts(), std::move(compiled)});
    return m_entries.size() - 1;
}

bool PatternSet::IsMalformed(std::size_t pattern) const {
    return !m_entries[pattern].Compiled->IsValid();
}

void PatternSet::SetText(std::string_view text) {
    m_text = text;
    if (m_signature == nullptr) {
        m_signature = std::make_unique<TextSignature>();
    }
    *m_signature = TextSignature(text);
    m_present = m_signature->Bigrams.Bits();
}

bool PatternSet::Search(std::size_t pattern) const {
    if (m_signature == nullptr) {
        return false;
    }
    const Entry& entry = m_entries[pattern];
    entry.Compiled->RequireValid();
    return entry.Filter.MayMatch(m_text, *m_signature) && entry.Filter.HasLiterals(m_text) &&
           entry.Compiled->IsIn(m_text);
}

}  // namespace dorvik
