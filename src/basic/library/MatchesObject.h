#pragma once

#include "basic/library/ContainerMemory.h"
#include "basic/values/ScriptObject.h"
#include "platform/regex/RegularExpression.h"

#include <vector>

namespace dorvik::basic {

/// What `RegExp.Execute` gives: the matches in their order, from 0.
class MatchesObject final : public ScriptObject {
public:
    /// Raises 7 when the matches pass the memory limit.
    explicit MatchesObject(std::vector<Match> matches);

    std::string_view ClassName() const override { return "IMatchCollection2"; }
    int FindMember(std::string_view name) const override;
    int FindParameter(int member, std::string_view name) const override;
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;
    std::unique_ptr<ScriptIterator> Iterate() override;

    const std::vector<Match>& All() const { return m_matches; }
    /// A new `Match` object. REQUIRES: index < All().size().
    Value MatchAt(std::size_t index);

private:
    std::vector<Match> m_matches;
    ContainerMemory m_memory;
};

}  // namespace dorvik::basic
