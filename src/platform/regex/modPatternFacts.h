#pragma once

#include "PatternTree.h"

/// Facts about a pattern that decide whether the library or `PatternMachine` searches for it.
namespace dorvik::modPatternFacts {

/// True if the node may match without taking a character.
bool MayBeEmpty(const PatternNode& node);

/// True if something that may match the empty text is repeated. The dialect never takes such a round
/// (it tries the next alternative instead), most other engines do and end the repetition there.
bool RepeatsEmptyText(const PatternNode& node);

/// True if a round of a repetition may leave a group, or a reference to it, with what an earlier round
/// took. The dialect forgets the groups of a repetition at the start of each round.
bool MayKeepStaleGroups(const PatternNode& node);

/// True if the first match that is found is the longest at its position: all its parts have a fixed length,
/// except for one greedy repetition.
bool TakesLongestFirst(const PatternNode& node);

}  // namespace dorvik::modPatternFacts
