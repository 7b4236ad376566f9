#pragma once

#include "IndexedObject.h"
#include "basic/library/ContainerMemory.h"
#include "platform/regex/RegularExpression.h"

#include <vector>

namespace dorvik::basic {

/// What `RegExp.Execute` gives: the matches in their order, from 0.
class MatchesObject final : public IndexedObject {
public:
    /// Raises 7 when the matches pass the memory limit.
    explicit MatchesObject(std::vector<Match> matches);

    std::string_view ClassName() const override { return "IMatchCollection2"; }
    std::size_t Count() const override { return m_matches.size(); }
    /// A new `Match` object.
    Value At(std::size_t index) override;

    const std::vector<Match>& All() const { return m_matches; }

private:
    std::vector<Match> m_matches;
    ContainerMemory m_memory;
};

}  // namespace dorvik::basic
