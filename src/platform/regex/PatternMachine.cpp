#include "PatternMachine.h"

#include "base/modUtf8.h"
#include "modPatternCase.h"

#include <algorithm>

namespace dorvik {

namespace {

constexpr std::size_t kNone = PatternSpan::kNone;

}  // namespace

PatternMachine::PatternMachine(const PatternProgram& program, std::string_view text)
    : m_program(program), m_text(text) {}

PatternMachine::Outcome PatternMachine::Search(std::size_t from) {
    while (true) {
        const Outcome outcome = MatchAt(from, Wanted::First);
        if (outcome != Outcome::NoMatch || from >= m_text.size()) {
            return outcome;
        }
        from += modUtf8::CharacterSize(m_text, from);
    }
}

PatternMachine::Outcome PatternMachine::MatchAt(std::size_t start, Wanted wanted) {
    m_registers.assign(m_program.RegisterCount(), kNone);
    m_stack.clear();
    m_groups.clear();
    m_position = start;
    m_next = 0;
    do {
        bool isOpen = true;
        while (isOpen && m_program.Instructions()[m_next].Code != Op::Match) {
            if (++m_steps > kMostSteps) {
                return Outcome::TooManySteps;
            }
            if (m_stack.size() > kMostEntries) {
                return Outcome::TooMuchMemory;
            }
            isOpen = Step();
        }
        if (isOpen && (m_groups.empty() || m_position > m_groups[0].End)) {
            KeepGroups();
        }
        if (isOpen && wanted == Wanted::First) {
            return Outcome::Match;
        }
    } while (Backtrack());
    return m_groups.empty() ? Outcome::NoMatch : Outcome::Match;
}

bool PatternMachine::Step() {
    const PatternProgram::Instruction& instruction = m_program.Instructions()[m_next++];
    switch (instruction.Code) {
        case Op::Character:
        case Op::Set: return TakeCharacter(instruction);
        case Op::TextStart:
        case Op::TextEnd:
        case Op::LineStart:
        case Op::LineEnd:
        case Op::WordBoundary:
        case Op::NoWordBoundary: return TestPlace(instruction.Code);
        case Op::BackReference: return TakeBackReference(instruction.A);
        case Op::Save: Set(instruction.A, m_position); return true;
        case Op::SaveGroup:
            Set(2 * instruction.A, m_registers[instruction.B]);
            Set(2 * instruction.A + 1, m_position);
            return true;
        case Op::Split:
            PushChoice(instruction.B);
            m_next = instruction.A;
            return true;
        case Op::Jump: m_next = instruction.A; return true;
        case Op::LoopEnter: Set(m_program.Loops()[instruction.A].Counter, 0); return true;
        case Op::LoopTest: TestLoop(m_program.Loops()[instruction.A]); return true;
        case Op::RoundBegin: BeginRound(m_program.Loops()[instruction.A]); return true;
        case Op::LoopNext: return EndRound(m_program.Loops()[instruction.A], instruction.B);
        case Op::LookEnter:
        case Op::NegativeLookEnter: EnterLookahead(instruction); return true;
        case Op::LookLeave: LeaveLookahead(instruction.A); return true;
        case Op::NegativeLookLeave: UnwindTo(m_registers[instruction.A]); return false;
        case Op::Match: return true;
    }
    return false;
}

bool PatternMachine::TakeCharacter(const PatternProgram::Instruction& instruction) {
    if (m_position >= m_text.size()) {
        return false;
    }
    const modUtf8::Character character = modUtf8::Decode(m_text, m_position);
    const bool isTaken = instruction.Code == Op::Character
                             ? character.CodePoint == instruction.A
                             : m_program.Sets()[instruction.A].Contains(character.CodePoint);
    m_position += character.Size;
    return character.Valid && isTaken;
}

/// A group that has no text matches the empty one.
bool PatternMachine::TakeBackReference(std::uint32_t group) {
    const std::size_t start = m_registers[2 * group];
    if (start == kNone) {
        return true;
    }
    const std::string_view taken = m_text.substr(start, m_registers[2 * group + 1] - start);
    if (!m_program.IgnoresCase()) {
        const bool isTaken = m_text.substr(m_position).starts_with(taken);
        m_position += isTaken ? taken.size() : 0;
        return isTaken;
    }
    for (std::size_t at = 0; at < taken.size();) {
        if (m_position >= m_text.size()) {
            return false;
        }
        const modUtf8::Character left = modUtf8::Decode(taken, at);
        const modUtf8::Character right = modUtf8::Decode(m_text, m_position);
        if (!right.Valid || modPatternCase::Canonical(left.CodePoint) !=
                                modPatternCase::Canonical(right.CodePoint)) {
            return false;
        }
        at += left.Size;
        m_position += right.Size;
    }
    return true;
}

// ---- Places ----

bool PatternMachine::IsWordAt(std::size_t position) const {
    return position < m_text.size() &&
           CharacterSet::WordCharacters().Contains(static_cast<unsigned char>(m_text[position]));
}

bool PatternMachine::IsLineEndBefore() const {
    const std::string_view before = m_text.substr(0, m_position);
    return before.ends_with('\n') || before.ends_with('\r') || before.ends_with("\xE2\x80\xA8") ||
           before.ends_with("\xE2\x80\xA9");
}

bool PatternMachine::IsLineEndHere() const {
    return CharacterSet::LineEnds().Contains(modUtf8::CodePoint(m_text, m_position));
}

bool PatternMachine::TestPlace(Op code) const {
    const bool isStart = m_position == 0;
    const bool isEnd = m_position == m_text.size();
    switch (code) {
        case Op::TextStart: return isStart;
        case Op::TextEnd: return isEnd;
        case Op::LineStart: return isStart || IsLineEndBefore();
        case Op::LineEnd: return isEnd || IsLineEndHere();
        case Op::WordBoundary:
        case Op::NoWordBoundary: {
            const bool isBoundary = (!isStart && IsWordAt(m_position - 1)) != IsWordAt(m_position);
            return isBoundary == (code == Op::WordBoundary);
        }
        case Op::Character:
        case Op::Set:
        case Op::BackReference:
        case Op::Save:
        case Op::SaveGroup:
        case Op::Split:
        case Op::Jump:
        case Op::LoopEnter:
        case Op::LoopTest:
        case Op::RoundBegin:
        case Op::LoopNext:
        case Op::LookEnter:
        case Op::LookLeave:
        case Op::NegativeLookEnter:
        case Op::NegativeLookLeave:
        case Op::Match: return false;
    }
    return false;
}

// ---- Repetitions ----

/// Continues to the round that follows the test, or out.
void PatternMachine::TestLoop(const PatternProgram::Loop& loop) {
    const std::size_t rounds = m_registers[loop.Counter];
    const bool mayGoOn = loop.Most == PatternNode::kUnbounded || rounds < loop.Most;
    if (!mayGoOn) {
        m_next = loop.Exit;
    } else if (rounds >= loop.Least) {
        PushChoice(loop.IsLazy ? m_next : loop.Exit);
        m_next = loop.IsLazy ? loop.Exit : m_next;
    }
}

void PatternMachine::BeginRound(const PatternProgram::Loop& loop) {
    Set(loop.Counter + 1, m_position);
    for (std::uint32_t group = loop.FirstGroup; group < loop.EndGroup; ++group) {
        if (m_registers[2 * group] != kNone) {
            Set(2 * group, kNone);
        }
    }
}

/// A round beyond the least number that took nothing is not a round.
bool PatternMachine::EndRound(const PatternProgram::Loop& loop, std::uint32_t test) {
    const std::size_t rounds = m_registers[loop.Counter];
    if (rounds >= loop.Least && m_position == m_registers[loop.Counter + 1]) {
        return false;
    }
    Set(loop.Counter, rounds + 1);
    m_next = test;
    return true;
}

// ---- Lookaheads ----

void PatternMachine::EnterLookahead(const PatternProgram::Instruction& instruction) {
    if (instruction.Code == Op::NegativeLookEnter) {
        const std::size_t height = m_stack.size();
        PushChoice(instruction.B);
        Set(instruction.A, height);
    } else {
        Set(instruction.A, m_stack.size());
    }
    Set(instruction.A + 1, m_position);
}

/// The paths inside are closed for good; what was noted inside is forgotten only with what is before.
void PatternMachine::LeaveLookahead(std::uint32_t registers) {
    const auto first = m_stack.begin() + static_cast<std::ptrdiff_t>(m_registers[registers]);
    m_stack.erase(
        std::remove_if(first, m_stack.end(), [](const Entry& entry) { return entry.IsChoice; }),
        m_stack.end());
    m_position = m_registers[registers + 1];
}

// ---- The stack ----

void PatternMachine::Set(std::uint32_t index, std::size_t value) {
    m_stack.push_back({false, index, m_registers[index]});
    m_registers[index] = value;
}

void PatternMachine::PushChoice(std::uint32_t instruction) {
    m_stack.push_back({true, instruction, m_position});
}

bool PatternMachine::Backtrack() {
    while (!m_stack.empty()) {
        const Entry entry = m_stack.back();
        m_stack.pop_back();
        if (entry.IsChoice) {
            m_next = entry.Index;
            m_position = entry.Value;
            return true;
        }
        m_registers[entry.Index] = entry.Value;
    }
    return false;
}

void PatternMachine::UnwindTo(std::size_t height) {
    while (m_stack.size() > height) {
        const Entry entry = m_stack.back();
        m_stack.pop_back();
        if (!entry.IsChoice) {
            m_registers[entry.Index] = entry.Value;
        }
    }
}

void PatternMachine::KeepGroups() {
    m_groups.clear();
    for (std::uint32_t group = 0; group <= m_program.GroupCount(); ++group) {
        const bool isSet = m_registers[2 * group] != kNone;
        m_groups.push_back(
            isSet ? PatternSpan{m_registers[2 * group], m_registers[2 * group + 1]}
                  : PatternSpan{});
    }
}

}  // namespace dorvik
