#pragma once

#include "PatternProgram.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace dorvik {

/// Bytes of a text, the end not among them.
struct PatternSpan {
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::size_t Start = kNone;  // `kNone`: a group that took no part
    std::size_t End = kNone;

    bool IsSet() const { return Start != kNone; }
};

/// Runs a `PatternProgram` by backtracking, in the exact order of the dialect. Slower than the library by
/// far, but right where the library is not: it serves the few patterns that `modPatternFacts` finds, and
/// counts its steps, so that none runs for long. One object makes one search in one text.
class PatternMachine {
public:
    enum class Outcome { NoMatch, Match, TooManySteps, TooMuchMemory };
    enum class Wanted { First, Longest };

    static constexpr std::size_t kMostSteps = 5'000'000;  // in about a tenth of a second
    static constexpr std::size_t kMostEntries = 2'000'000;

    /// REQUIRES: program and text outlive this.
    PatternMachine(const PatternProgram& program, std::string_view text);

    /// A match that begins at a byte. `Longest` tries all paths and keeps the longest.
    Outcome MatchAt(std::size_t start, Wanted wanted);
    /// The first match that begins at a byte or after it.
    Outcome Search(std::size_t from);

    /// Of the last match: the whole, then the groups.
    const std::vector<PatternSpan>& Groups() const { return m_groups; }

private:
    using Op = PatternProgram::Op;

    /// What is done when a path fails: another is taken, or a register gets its old value back.
    struct Entry {
        bool IsChoice;
        std::uint32_t Index;  // instruction or register
        std::size_t Value;    // position or value
    };

    bool Step();  // false if the path fails
    bool TakeCharacter(const PatternProgram::Instruction& instruction);
    bool TakeBackReference(std::uint32_t group);
    bool TestPlace(Op code) const;
    void TestLoop(const PatternProgram::Loop& loop);
    void BeginRound(const PatternProgram::Loop& loop);
    bool EndRound(const PatternProgram::Loop& loop, std::uint32_t test);
    void EnterLookahead(const PatternProgram::Instruction& instruction);
    void LeaveLookahead(std::uint32_t registers);
    bool Backtrack();  // false if no path is left
    void UnwindTo(std::size_t height);
    void Set(std::uint32_t index, std::size_t value);
    void PushChoice(std::uint32_t instruction);
    void KeepGroups();
    bool IsWordAt(std::size_t position) const;
    bool IsLineEndBefore() const;
    bool IsLineEndHere() const;

    const PatternProgram& m_program;
    std::string_view m_text;
    std::vector<std::size_t> m_registers;
    std::vector<Entry> m_stack;
    std::vector<PatternSpan> m_groups;
    std::size_t m_position = 0;
    std::uint32_t m_next = 0;  // instruction
    std::size_t m_steps = 0;
};

}  // namespace dorvik
