#pragma once

#include "MatchesObject.h"

namespace dorvik::basic {

/// What the groups of a match took, from 0. A group that took no part gives Empty.
class SubMatchesObject final : public ScriptObject {
public:
    SubMatchesObject(Ref<MatchesObject> matches, std::size_t index)
        : ScriptObject(ObjectClass::SubMatches), m_matches(std::move(matches)), m_index(index) {}

    std::string_view ClassName() const override { return "ISubMatches"; }
    int FindMember(std::string_view name) const override;
    int FindParameter(int member, std::string_view name) const override;
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;
    std::unique_ptr<ScriptIterator> Iterate() override;

    std::size_t Count() const { return m_matches->All()[m_index].SubMatches.size(); }
    Value GroupAt(std::size_t group) const;

private:
    Ref<MatchesObject> m_matches;
    std::size_t m_index;
};

}  // namespace dorvik::basic
