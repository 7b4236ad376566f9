#pragma once

#include "CharacterSet.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace dorvik {

enum class PatternKind {
    Empty,           // matches the empty text
    Character,       // `Character`
    Set,             // one character of `Set`
    Start,           // "^"
    End,             // "$"
    WordBoundary,    // "\b"
    NoWordBoundary,  // "\B"
    BackReference,   // what the group `Number` took
    Group,           // a capturing group: its content is the only child
    Lookahead,       // the child matches here, too
    NegativeLookahead,
    Sequence,      // the children, one after the other
    Alternatives,  // one of the children, tried in this order
    Repetition,    // the child, `Least` to `Most` times
};

/// A piece of a pattern. Groups that capture nothing leave no node of their own.
struct PatternNode {
    static constexpr std::uint32_t kUnbounded = std::numeric_limits<std::uint32_t>::max();

    PatternKind Kind = PatternKind::Empty;
    char32_t Character = 0;
    bool IsAnyCase = false;  // of a `Character`: an ASCII letter, the case of which does not count
    CharacterSet Set;
    std::uint32_t Number = 0;  // of a group, from 1
    std::uint32_t Least = 0;
    std::uint32_t Most = 0;  // or `kUnbounded`
    bool IsLazy = false;     // as few repetitions as possible, instead of as many
    std::vector<PatternNode> Children;

    // The capturing groups inside the node are those from `FirstGroup` to `EndGroup` - 1.
    std::uint32_t FirstGroup = 0;
    std::uint32_t EndGroup = 0;

    const PatternNode& Child() const { return Children.front(); }
};

struct PatternFlags {
    bool IgnoreCase = false;
    bool Multiline = false;

    friend bool operator==(const PatternFlags&, const PatternFlags&) = default;
};

/// A pattern, understood.
struct PatternTree {
    PatternNode Root;
    PatternFlags Flags;
    std::uint32_t GroupCount = 0;
    bool HasBackReference = false;
};

}  // namespace dorvik
