#include "platform/regex/PatternNeeds.h"

#include "base/modUtf8.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace dorvik {

namespace {

void KeepLonger(std::string& literal, const std::string& other) {
    if (other.size() > literal.size()) {
        literal = other;
    }
}

/// The needs of a sequence while it is traversed from left to right.
class SequenceNeeds {
public:
    void Add(const PatternNode& node);
    PatternNeeds Finish();

private:
    void AddCharacter(char32_t character);
    void AddInner(const PatternNode& node);
    void EndRun();

    void KeepOneOfEach(std::vector<PatternPieces> lists);

    PatternNeeds m_needs;
    std::string m_run;  // literal characters that follow each other directly
};

PatternNeeds NeedsOf(const PatternNode& node) {
    SequenceNeeds sequence;
    sequence.Add(node);
    return sequence.Finish();
}

/// The pieces of several branches: one of each. None if a branch has none, or if they are too many to look for.
class PiecesOfBranches {
public:
    void Add(const PatternNeeds& branch) {
        m_isComplete = m_isComplete && !(branch.Literal.empty() && branch.OneOfEach.empty());
        if (!m_isComplete) {
            return;
        }
        if (!branch.Literal.empty()) {
            m_pieces.push_back(branch.Literal);
        } else {
            const std::vector<std::string>& pieces = branch.OneOfEach[0].Texts;
            m_pieces.insert(m_pieces.end(), pieces.begin(), pieces.end());
        }
    }
    std::vector<PatternPieces> Take() {
        constexpr std::size_t kMost = 8;
        std::vector<PatternPieces> lists;
        if (m_isComplete && m_pieces.size() <= kMost) {
            lists.push_back({std::move(m_pieces), {}});
        }
        return lists;
    }

private:
    std::vector<std::string> m_pieces;
    bool m_isComplete = true;
};

/// What several branches need is what each of them needs.
PatternNeeds NeedsOfAlternatives(const PatternNode& node) {
    PatternNeeds needs = NeedsOf(node.Child());
    PiecesOfBranches pieces;
    pieces.Add(needs);
    for (std::size_t i = 1; i < node.Children.size(); ++i) {
        const PatternNeeds branch = NeedsOf(node.Children[i]);
        pieces.Add(branch);
        needs.Bytes.KeepOnly(branch.Bytes);
        if (needs.Literal != branch.Literal) {
            needs.Literal.clear();
        }
    }
    needs.OneOfEach = pieces.Take();
    return needs;
}

void SequenceNeeds::EndRun() {
    KeepLonger(m_needs.Literal, m_run);
    m_run.clear();
}

/// The longer the shortest of the pieces, the rarer is a text with one of them.
void SequenceNeeds::KeepOneOfEach(std::vector<PatternPieces> lists) {
    constexpr std::size_t kMost = 3;
    const auto shortest = [](const PatternPieces& pieces) {
        return std::ranges::min(pieces.Texts, {}, &std::string::size).size();
    };
    std::vector<PatternPieces>& kept = m_needs.OneOfEach;
    kept.insert(
        kept.end(), std::make_move_iterator(lists.begin()), std::make_move_iterator(lists.end()));
    std::ranges::stable_sort(kept, std::greater(), shortest);
    kept.resize(std::min(kept.size(), kMost));
}

PatternNeeds SequenceNeeds::Finish() {
    EndRun();
    return std::move(m_needs);
}

void SequenceNeeds::AddCharacter(char32_t character) {
    std::string bytes;
    modUtf8::Append(bytes, character);
    m_run += bytes;
    m_needs.Bytes.AddAll(ByteSet(bytes));
}

/// A piece of its own, of which it is not known what is next to its literal text.
void SequenceNeeds::AddInner(const PatternNode& node) {
    EndRun();
    PatternNeeds inner =
        node.Kind == PatternKind::Alternatives ? NeedsOfAlternatives(node) : NeedsOf(node);
    m_needs.Bytes.AddAll(inner.Bytes);
    KeepLonger(m_needs.Literal, inner.Literal);
    KeepOneOfEach(std::move(inner.OneOfEach));
}

void SequenceNeeds::Add(const PatternNode& node) {
    switch (node.Kind) {
        case PatternKind::Character:
            if (node.IsAnyCase) {
                EndRun();
            } else {
                AddCharacter(node.Character);
            }
            break;
        case PatternKind::Sequence:
            for (const PatternNode& child : node.Children) {
                Add(child);
            }
            break;
        case PatternKind::Alternatives: AddInner(node); break;
        case PatternKind::Group:
        case PatternKind::Lookahead: AddInner(node.Child()); break;
        case PatternKind::Repetition:
            if (node.Least > 0 && node.Child().Kind == PatternKind::Character) {
                Add(node.Child());
            } else if (node.Least > 0) {
                AddInner(node.Child());
            }
            EndRun();
            break;
        case PatternKind::Empty:
        case PatternKind::Set:
        case PatternKind::Start:
        case PatternKind::End:
        case PatternKind::WordBoundary:
        case PatternKind::NoWordBoundary:
        case PatternKind::BackReference:
        case PatternKind::NegativeLookahead: EndRun(); break;
    }
}

/// Whether every match of the piece begins at the start of the text.
bool IsAnchored(const PatternNode& node) {
    if (node.Kind == PatternKind::Group || node.Kind == PatternKind::Sequence) {
        return !node.Children.empty() && IsAnchored(node.Children.front());
    }
    if (node.Kind == PatternKind::Alternatives) {
        return std::all_of(node.Children.begin(), node.Children.end(), IsAnchored);
    }
    return node.Kind == PatternKind::Start;
}

/// With what the text that a piece takes can begin.
struct FirstBytes {
    ByteSet Bytes;
    bool IsKnown = true;
    bool MayBeEmpty = false;  // the piece may take nothing, and what follows it begins
};

FirstBytes FirstOf(const PatternNode& node);

FirstBytes FirstOfSequence(const PatternNode& node) {
    FirstBytes first{{}, true, true};
    for (const PatternNode& child : node.Children) {
        const FirstBytes next = FirstOf(child);
        first.Bytes.AddAll(next.Bytes);
        first.IsKnown = first.IsKnown && next.IsKnown;
        if (!next.MayBeEmpty) {
            first.MayBeEmpty = false;
            break;
        }
    }
    return first;
}

FirstBytes FirstOfAlternatives(const PatternNode& node) {
    FirstBytes first;
    for (const PatternNode& child : node.Children) {
        const FirstBytes branch = FirstOf(child);
        first.Bytes.AddAll(branch.Bytes);
        first.IsKnown = first.IsKnown && branch.IsKnown;
        first.MayBeEmpty = first.MayBeEmpty || branch.MayBeEmpty;
    }
    return first;
}

FirstBytes FirstOfCharacter(const PatternNode& node) {
    FirstBytes first{{}, !node.IsAnyCase, false};
    std::string bytes;
    modUtf8::Append(bytes, node.Character);
    first.Bytes.Add(static_cast<unsigned char>(bytes[0]));
    return first;
}

FirstBytes FirstOf(const PatternNode& node) {
    switch (node.Kind) {
        case PatternKind::Character: return FirstOfCharacter(node);
        case PatternKind::Sequence: return FirstOfSequence(node);
        case PatternKind::Alternatives: return FirstOfAlternatives(node);
        case PatternKind::Group: return FirstOf(node.Child());
        case PatternKind::Repetition: {
            FirstBytes first = FirstOf(node.Child());
            first.MayBeEmpty = first.MayBeEmpty || node.Least == 0;
            return first;
        }
        case PatternKind::Set:
        case PatternKind::BackReference: return {{}, false, false};
        case PatternKind::Empty:
        case PatternKind::Start:
        case PatternKind::End:
        case PatternKind::WordBoundary:
        case PatternKind::NoWordBoundary:
        case PatternKind::Lookahead:
        case PatternKind::NegativeLookahead: break;
    }
    return {{}, true, true};
}

}  // namespace

bool PatternNeeds::HasPieces(std::string_view text) const {
    const auto isThere = [&](const std::string& piece) {
        return text.find(piece) != std::string_view::npos;
    };
    return isThere(Literal) && std::ranges::all_of(OneOfEach, [&](const PatternPieces& pieces) {
               return std::ranges::any_of(pieces.Texts, isThere);
           });
}

bool PatternNeeds::MayHaveOneOfEach(const TextTraits& traits) const {
    return std::ranges::all_of(OneOfEach, [&](const PatternPieces& pieces) {
        return std::ranges::any_of(
            pieces.Pairs, [&](const PairSet& pairs) { return traits.Pairs.ContainsAll(pairs); });
    });
}

PatternNeeds NeedsOfPattern(const PatternTree& tree) {
    PatternNeeds needs = NeedsOf(tree.Root);
    if (!tree.Flags.Multiline && IsAnchored(tree.Root)) {
        const FirstBytes first = FirstOf(tree.Root);
        if (first.IsKnown && !first.MayBeEmpty) {
            needs.First = first.Bytes;
        }
    }
    needs.Pairs = PairSet(needs.Literal);
    for (PatternPieces& pieces : needs.OneOfEach) {
        std::ranges::transform(
            pieces.Texts, std::back_inserter(pieces.Pairs), [](const std::string& text) {
                return PairSet(text);
            });
    }
    return needs;
}

}  // namespace dorvik
