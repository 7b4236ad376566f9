#include "PatternProgram.h"

namespace dorvik {

PatternProgram::PatternProgram(const PatternTree& tree)
    : m_flags(tree.Flags), m_groupCount(tree.GroupCount), m_registerCount(2 * tree.GroupCount + 2) {
    Emit(Op::Save, 0);
    Add(tree.Root);
    Emit(Op::Save, 1);
    Emit(Op::Match);
}

std::uint32_t PatternProgram::Emit(Op code, std::uint32_t a, std::uint32_t b) {
    m_instructions.push_back({code, a, b});
    return Here() - 1;
}

std::uint32_t PatternProgram::NewRegisters(std::uint32_t count) {
    const std::uint32_t first = m_registerCount;
    m_registerCount += count;
    return first;
}

void PatternProgram::Add(const PatternNode& node) {
    switch (node.Kind) {
        case PatternKind::Empty: break;
        case PatternKind::Character: AddCharacter(node); break;
        case PatternKind::Set: AddSet(node.Set); break;
        case PatternKind::Start: Emit(m_flags.Multiline ? Op::LineStart : Op::TextStart); break;
        case PatternKind::End: Emit(m_flags.Multiline ? Op::LineEnd : Op::TextEnd); break;
        case PatternKind::WordBoundary: Emit(Op::WordBoundary); break;
        case PatternKind::NoWordBoundary: Emit(Op::NoWordBoundary); break;
        case PatternKind::BackReference: Emit(Op::BackReference, node.Number); break;
        case PatternKind::Group: AddGroup(node); break;
        case PatternKind::Lookahead:
        case PatternKind::NegativeLookahead: AddLookahead(node); break;
        case PatternKind::Sequence:
            for (const PatternNode& child : node.Children) {
                Add(child);
            }
            break;
        case PatternKind::Alternatives: AddAlternatives(node); break;
        case PatternKind::Repetition: AddRepetition(node); break;
    }
}

void PatternProgram::AddCharacter(const PatternNode& node) {
    if (!node.IsAnyCase) {
        Emit(Op::Character, node.Character);
        return;
    }
    CharacterSet both = CharacterSet::Of(node.Character);
    both.Add(node.Character ^ 0x20U);
    AddSet(both);
}

void PatternProgram::AddSet(const CharacterSet& set) {
    Emit(Op::Set, static_cast<std::uint32_t>(m_sets.size()));
    m_sets.push_back(set);
}

/// A group has its text only from its end on: until then, a reference to it finds what it had before.
void PatternProgram::AddGroup(const PatternNode& node) {
    const std::uint32_t start = NewRegisters(1);
    Emit(Op::Save, start);
    Add(node.Child());
    Emit(Op::SaveGroup, node.Number, start);
}

void PatternProgram::AddAlternatives(const PatternNode& node) {
    std::vector<std::uint32_t> jumps;
    for (const PatternNode& child : node.Children) {
        if (&child == &node.Children.back()) {
            Add(child);
            break;
        }
        const std::uint32_t split = Emit(Op::Split, Here() + 1);
        Add(child);
        jumps.push_back(Emit(Op::Jump));
        m_instructions[split].B = Here();
    }
    for (const std::uint32_t jump : jumps) {
        m_instructions[jump].A = Here();
    }
}

void PatternProgram::AddRepetition(const PatternNode& node) {
    const auto index = static_cast<std::uint32_t>(m_loops.size());
    m_loops.push_back({
        NewRegisters(2),
        node.Least,
        node.Most,
        node.IsLazy,
        node.FirstGroup,
        node.EndGroup,
        0,
    });
    Emit(Op::LoopEnter, index);
    const std::uint32_t test = Emit(Op::LoopTest, index);
    Emit(Op::RoundBegin, index);
    Add(node.Child());
    Emit(Op::LoopNext, index, test);
    m_loops[index].Exit = Here();
}

void PatternProgram::AddLookahead(const PatternNode& node) {
    const bool isNegative = node.Kind == PatternKind::NegativeLookahead;
    const std::uint32_t registers = NewRegisters(2);
    const std::uint32_t enter = Emit(isNegative ? Op::NegativeLookEnter : Op::LookEnter, registers);
    Add(node.Child());
    Emit(isNegative ? Op::NegativeLookLeave : Op::LookLeave, registers);
    m_instructions[enter].B = Here();
}

}  // namespace dorvik
