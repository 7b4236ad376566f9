#include "Prefilter.h"

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

/// Builds the prefilter of a sequence while it is traversed from left to right.
class SequencePrefilter {
public:
    void Add(const PatternNode& node);
    Prefilter Finish();

private:
    void AddCharacter(char32_t character);
    void AddInner(const PatternNode& node);
    void EndRun();

    void KeepOneOfEach(std::vector<LiteralChoice> lists);

    Prefilter m_prefilter;
    std::string m_run;  // literal characters that follow each other directly
};

Prefilter PrefilterOfNode(const PatternNode& node) {
    SequencePrefilter sequence;
    sequence.Add(node);
    return sequence.Finish();
}

/// The literals of several branches, one of each. None if a branch has none, or if they are too many to test.
class ChoiceOfBranches {
public:
    void Add(const Prefilter& branch) {
        m_isComplete = m_isComplete && !(branch.Literal.empty() && branch.OneOfEach.empty());
        if (!m_isComplete) {
            return;
        }
        if (!branch.Literal.empty()) {
            m_texts.push_back(branch.Literal);
        } else {
            const std::vector<std::string>& texts = branch.OneOfEach[0].Texts;
            m_texts.insert(m_texts.end(), texts.begin(), texts.end());
        }
    }
    std::vector<LiteralChoice> Take() {
        constexpr std::size_t kMost = 8;
        std::vector<LiteralChoice> lists;
        if (m_isComplete && m_texts.size() <= kMost) {
            lists.push_back({std::move(m_texts), {}});
        }
        return lists;
    }

private:
    std::vector<std::string> m_texts;
    bool m_isComplete = true;
};

/// A match of several branches contains what all of them require.
Prefilter PrefilterOfAlternatives(const PatternNode& node) {
    Prefilter common = PrefilterOfNode(node.Child());
    ChoiceOfBranches choice;
    choice.Add(common);
    for (std::size_t i = 1; i < node.Children.size(); ++i) {
        const Prefilter branch = PrefilterOfNode(node.Children[i]);
        choice.Add(branch);
        common.Bytes.KeepOnly(branch.Bytes);
        if (common.Literal != branch.Literal) {
            common.Literal.clear();
        }
    }
    common.OneOfEach = choice.Take();
    return common;
}

void SequencePrefilter::EndRun() {
    KeepLonger(m_prefilter.Literal, m_run);
    m_run.clear();
}

/// The longer the shortest of the literals, the fewer texts contain one of them.
void SequencePrefilter::KeepOneOfEach(std::vector<LiteralChoice> lists) {
    constexpr std::size_t kMost = 3;
    const auto shortest = [](const LiteralChoice& choice) {
        return std::ranges::min(choice.Texts, {}, &std::string::size).size();
    };
    std::vector<LiteralChoice>& kept = m_prefilter.OneOfEach;
    kept.insert(
        kept.end(), std::make_move_iterator(lists.begin()), std::make_move_iterator(lists.end()));
    std::ranges::stable_sort(kept, std::greater(), shortest);
    kept.resize(std::min(kept.size(), kMost));
}

Prefilter SequencePrefilter::Finish() {
    EndRun();
    return std::move(m_prefilter);
}

void SequencePrefilter::AddCharacter(char32_t character) {
    std::string bytes;
    modUtf8::Append(bytes, character);
    m_run += bytes;
    m_prefilter.Bytes.AddAll(ByteSet(bytes));
}

/// A node whose literal may not be adjacent to those around it.
void SequencePrefilter::AddInner(const PatternNode& node) {
    EndRun();
    Prefilter inner = node.Kind == PatternKind::Alternatives ? PrefilterOfAlternatives(node)
                                                             : PrefilterOfNode(node);
    m_prefilter.Bytes.AddAll(inner.Bytes);
    KeepLonger(m_prefilter.Literal, inner.Literal);
    KeepOneOfEach(std::move(inner.OneOfEach));
}

void SequencePrefilter::Add(const PatternNode& node) {
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

/// Whether every match of the node begins at the start of the text.
bool IsAnchored(const PatternNode& node) {
    if (node.Kind == PatternKind::Group || node.Kind == PatternKind::Sequence) {
        return !node.Children.empty() && IsAnchored(node.Children.front());
    }
    if (node.Kind == PatternKind::Alternatives) {
        return std::all_of(node.Children.begin(), node.Children.end(), IsAnchored);
    }
    return node.Kind == PatternKind::Start;
}

/// The bytes with which a match of a node can begin.
struct FirstBytes {
    ByteSet Bytes;
    bool IsKnown = true;
    bool MayBeEmpty = false;  // the match may be empty, so that what follows it begins
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

bool Prefilter::HasLiterals(std::string_view text) const {
    const auto contains = [&](const std::string& literal) {
        return text.find(literal) != std::string_view::npos;
    };
    return contains(Literal) && std::ranges::all_of(OneOfEach, [&](const LiteralChoice& choice) {
               return std::ranges::any_of(choice.Texts, contains);
           });
}

bool Prefilter::MayHaveOneOfEach(const TextSignature& signature) const {
    return std::ranges::all_of(OneOfEach, [&](const LiteralChoice& choice) {
        return std::ranges::any_of(choice.Bigrams, [&](const BigramSet& bigrams) {
            return signature.Bigrams.ContainsAll(bigrams);
        });
    });
}

Prefilter PrefilterOf(const PatternTree& tree) {
    Prefilter prefilter = PrefilterOfNode(tree.Root);
    if (!tree.Flags.Multiline && IsAnchored(tree.Root)) {
        const FirstBytes first = FirstOf(tree.Root);
        if (first.IsKnown && !first.MayBeEmpty) {
            prefilter.First = first.Bytes;
        }
    }
    prefilter.Bigrams = BigramSet(prefilter.Literal);
    for (LiteralChoice& choice : prefilter.OneOfEach) {
        std::ranges::transform(
            choice.Texts, std::back_inserter(choice.Bigrams), [](const std::string& text) {
                return BigramSet(text);
            });
    }
    return prefilter;
}

}  // namespace dorvik
