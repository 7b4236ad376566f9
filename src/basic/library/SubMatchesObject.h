#pragma once

#include "MatchesObject.h"

namespace dorvik::basic {

/// What the groups of a match took, from 0. A group that took no part gives Empty.
class SubMatchesObject final : public IndexedObject {
public:
    SubMatchesObject(Ref<MatchesObject> matches, std::size_t index)
        : IndexedObject(ObjectClass::SubMatches), m_matches(std::move(matches)), m_index(index) {}

    std::string_view ClassName() const override { return "ISubMatches"; }
    std::size_t Count() const override { return m_matches->All()[m_index].SubMatches.size(); }
    Value At(std::size_t group) override;

private:
    Ref<MatchesObject> m_matches;
    std::size_t m_index;
};

}  // namespace dorvik::basic
