#include "modPatternFacts.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace dorvik::modPatternFacts {

namespace {

/// What is known of the groups after a piece has matched: true for those that it has surely set.
using SetGroups = std::vector<bool>;

/// Traverses one round of a repetition in the order of matching.
class RoundWalk {
public:
    explicit RoundWalk(const PatternNode& body) : m_first(body.FirstGroup), m_end(body.EndGroup) {}

    /// False if the round reads a group of its own that it may not have set yet.
    bool Visit(const PatternNode& node, SetGroups& groups) const {
        switch (node.Kind) {
            case PatternKind::BackReference:
                return node.Number < m_first || node.Number >= m_end ||
                       groups.at(node.Number - m_first);
            case PatternKind::Group:
                if (!Visit(node.Child(), groups)) {
                    return false;
                }
                groups.at(node.Number - m_first) = true;
                return true;
            case PatternKind::Alternatives: return VisitAlternatives(node, groups);
            case PatternKind::NegativeLookahead: return VisitAside(node.Child(), groups);
            case PatternKind::Repetition:
                return node.Least == 0 ? VisitAside(node.Child(), groups)
                                       : Visit(node.Child(), groups);
            case PatternKind::Sequence:
            case PatternKind::Lookahead:
                return std::ranges::all_of(
                    node.Children, [&](const PatternNode& child) { return Visit(child, groups); });
            case PatternKind::Empty:
            case PatternKind::Character:
            case PatternKind::Set:
            case PatternKind::Start:
            case PatternKind::End:
            case PatternKind::WordBoundary:
            case PatternKind::NoWordBoundary: return true;
        }
        return true;
    }

private:
    bool VisitAside(const PatternNode& node, const SetGroups& groups) const {
        SetGroups copy = groups;
        return Visit(node, copy);
    }

    bool VisitAlternatives(const PatternNode& node, SetGroups& groups) const {
        const SetGroups before = groups;
        groups.assign(groups.size(), true);
        for (const PatternNode& child : node.Children) {
            SetGroups after = before;
            if (!Visit(child, after)) {
                return false;
            }
            std::transform(
                groups.begin(), groups.end(), after.begin(), groups.begin(), std::logical_and<>());
        }
        return true;
    }

    std::uint32_t m_first;
    std::uint32_t m_end;
};

bool RoundMayKeepStaleGroups(const PatternNode& body) {
    SetGroups groups(body.EndGroup - body.FirstGroup);
    return !RoundWalk(body).Visit(body, groups) || std::ranges::find(groups, false) != groups.end();
}

/// Counts the greedy repetitions of one character; false for a piece whose lengths are not in that order.
bool CountRepetitions(const PatternNode& node, int& count) {
    switch (node.Kind) {
        case PatternKind::Alternatives: return false;
        case PatternKind::Repetition: {
            const PatternKind kind = node.Child().Kind;
            count += node.Least == node.Most ? 0 : 1;
            return !node.IsLazy && (kind == PatternKind::Character || kind == PatternKind::Set);
        }
        case PatternKind::Group:
        case PatternKind::Sequence:
            return std::ranges::all_of(node.Children, [&count](const PatternNode& child) {
                return CountRepetitions(child, count);
            });
        case PatternKind::BackReference:
        case PatternKind::Lookahead:
        case PatternKind::NegativeLookahead:
        case PatternKind::Empty:
        case PatternKind::Character:
        case PatternKind::Set:
        case PatternKind::Start:
        case PatternKind::End:
        case PatternKind::WordBoundary:
        case PatternKind::NoWordBoundary: return true;
    }
    return true;
}

}  // namespace

bool MayBeEmpty(const PatternNode& node) {
    switch (node.Kind) {
        case PatternKind::Character:
        case PatternKind::Set: return false;
        case PatternKind::Group: return MayBeEmpty(node.Child());
        case PatternKind::Sequence: return std::ranges::all_of(node.Children, MayBeEmpty);
        case PatternKind::Alternatives: return std::ranges::any_of(node.Children, MayBeEmpty);
        case PatternKind::Repetition: return node.Least == 0 || MayBeEmpty(node.Child());
        case PatternKind::Empty:
        case PatternKind::Start:
        case PatternKind::End:
        case PatternKind::WordBoundary:
        case PatternKind::NoWordBoundary:
        case PatternKind::BackReference:
        case PatternKind::Lookahead:
        case PatternKind::NegativeLookahead: return true;
    }
    return true;
}

bool RepeatsEmptyText(const PatternNode& node) {
    const bool isRepetition = node.Kind == PatternKind::Repetition && node.Least != node.Most;
    return (isRepetition && MayBeEmpty(node.Child())) ||
           std::ranges::any_of(node.Children, RepeatsEmptyText);
}

bool MayKeepStaleGroups(const PatternNode& node) {
    const bool isLoop = node.Kind == PatternKind::Repetition && node.Most > 1;
    return (isLoop && RoundMayKeepStaleGroups(node.Child())) ||
           std::ranges::any_of(node.Children, MayKeepStaleGroups);
}

bool TakesLongestFirst(const PatternNode& node) {
    int count = 0;
    return CountRepetitions(node, count) && count <= 1;
}

}  // namespace dorvik::modPatternFacts
