#include "MatchesObject.h"

#include "MatchObject.h"

namespace dorvik::basic {

namespace {

std::size_t BytesOf(const Match& match) {
    std::size_t bytes = sizeof(Match) + match.Value.capacity();
    for (const SubMatch& group : match.SubMatches) {
        bytes += sizeof(SubMatch) + group.Value.capacity();
    }
    return bytes;
}

}  // namespace

MatchesObject::MatchesObject(std::vector<Match> matches)
    : IndexedObject(ObjectClass::Matches), m_matches(std::move(matches)) {
    std::size_t bytes = 0;
    for (const Match& match : m_matches) {
        bytes += BytesOf(match);
    }
    m_memory.SetBytes(bytes);
}

Value MatchesObject::At(std::size_t index) {
    return Value::Object(MakeRef<MatchObject>(Ref<MatchesObject>(this), index));
}

}  // namespace dorvik::basic
