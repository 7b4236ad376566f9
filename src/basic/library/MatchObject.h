#pragma once

#include "MatchesObject.h"

namespace dorvik::basic {

/// One match: its text, where it begins (from 0) and what its groups took.
class MatchObject final : public ScriptObject {
public:
    MatchObject(Ref<MatchesObject> matches, std::size_t index)
        : ScriptObject(ObjectClass::Match), m_matches(std::move(matches)), m_index(index) {}

    std::string_view ClassName() const override { return "IMatch2"; }
    int FindMember(std::string_view name) const override;
    int FindParameter(int member, std::string_view name) const override;
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;

private:
    Ref<MatchesObject> m_matches;
    std::size_t m_index;
};

}  // namespace dorvik::basic
