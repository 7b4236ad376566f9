#include "SubMatchesObject.h"

#include "Arguments.h"

namespace dorvik::basic {

Value SubMatchesObject::At(std::size_t group) {
    const SubMatch& taken = m_matches->All()[m_index].SubMatches[group];
    return taken.TookPart ? TextResult(std::string_view(taken.Value)) : Value();
}

}  // namespace dorvik::basic
