#pragma once

#include "PatternTree.h"

#include <cstdint>
#include <vector>

namespace dorvik {

/// A pattern as steps for `PatternMachine`. Registers 2n and 2n + 1 hold where the group n begins and
/// ends (group 0 is the whole match); after these come those of the loops and lookaheads.
class PatternProgram {
public:
    enum class Op {
        Character,  // A: code point
        Set,        // A: index into the sets
        TextStart,
        TextEnd,
        LineStart,
        LineEnd,
        WordBoundary,
        NoWordBoundary,
        BackReference,      // A: group
        Save,               // A: register that gets the position
        SaveGroup,          // A: group that ends here, B: register of the position where it began
        Split,              // goes to A; if that fails, to B
        Jump,               // to A
        LoopEnter,          // A: index into the loops; no round yet
        LoopTest,           // A: index into the loops; another round, or out
        RoundBegin,         // A: index into the loops; always after LoopTest
        LoopNext,           // A: index into the loops; the end of a round, B: of its LoopTest
        LookEnter,          // A: register of the height of the stack, A + 1: of the position
        LookLeave,          // the same: it matched, go on where it began
        NegativeLookEnter,  // the same, B: where to go on if it does not match
        NegativeLookLeave,  // the same: it matched, so this path fails
        Match,
    };

    struct Instruction {
        Op Code;
        std::uint32_t A = 0;
        std::uint32_t B = 0;
    };

    struct Loop {
        std::uint32_t Counter = 0;  // register: rounds so far; the next one: where the round began
        std::uint32_t Least = 0;
        std::uint32_t Most = 0;
        bool IsLazy = false;
        std::uint32_t FirstGroup = 0;  // the groups that each round forgets
        std::uint32_t EndGroup = 0;
        std::uint32_t Exit = 0;
    };

    explicit PatternProgram(const PatternTree& tree);

    const std::vector<Instruction>& Instructions() const { return m_instructions; }
    const std::vector<CharacterSet>& Sets() const { return m_sets; }
    const std::vector<Loop>& Loops() const { return m_loops; }
    std::uint32_t RegisterCount() const { return m_registerCount; }
    std::uint32_t GroupCount() const { return m_groupCount; }
    bool IgnoresCase() const { return m_flags.IgnoreCase; }

private:
    void Add(const PatternNode& node);
    void AddGroup(const PatternNode& node);
    void AddAlternatives(const PatternNode& node);
    void AddRepetition(const PatternNode& node);
    void AddLookahead(const PatternNode& node);
    void AddCharacter(const PatternNode& node);
    void AddSet(const CharacterSet& set);
    std::uint32_t NewRegisters(std::uint32_t count);
    std::uint32_t Emit(Op code, std::uint32_t a = 0, std::uint32_t b = 0);
    std::uint32_t Here() const { return static_cast<std::uint32_t>(m_instructions.size()); }

    PatternFlags m_flags;
    std::uint32_t m_groupCount;
    std::uint32_t m_registerCount;
    std::vector<Instruction> m_instructions;
    std::vector<CharacterSet> m_sets;
    std::vector<Loop> m_loops;
};

}  // namespace dorvik
