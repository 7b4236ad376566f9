#include "platform/PatternNeeds.h"

#include "base/modUtf8.h"

namespace dorvik {

namespace {

void KeepLonger(std::string& literal, const std::string& other) {
    if (other.size() > literal.size()) {
        literal = other;
    }
}

/// The needs of a sequence while it is walked from left to right.
class SequenceNeeds {
public:
    void Add(const PatternNode& node);
    PatternNeeds Finish();

private:
    void AddCharacter(char32_t character);
    void AddInner(const PatternNode& node);
    void EndRun();

    PatternNeeds m_needs;
    std::string m_run;  // literal characters that follow each other directly
};

PatternNeeds NeedsOf(const PatternNode& node) {
    SequenceNeeds sequence;
    sequence.Add(node);
    return sequence.Finish();
}

/// What several branches need is what each of them needs.
PatternNeeds NeedsOfAlternatives(const PatternNode& node) {
    PatternNeeds needs = NeedsOf(node.Child());
    for (std::size_t i = 1; i < node.Children.size(); ++i) {
        const PatternNeeds branch = NeedsOf(node.Children[i]);
        needs.Bytes.KeepOnly(branch.Bytes);
        if (needs.Literal != branch.Literal) {
            needs.Literal.clear();
        }
    }
    return needs;
}

void SequenceNeeds::EndRun() {
    KeepLonger(m_needs.Literal, m_run);
    m_run.clear();
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

/// A piece of its own, of which it is not known what stands next to its literal text.
void SequenceNeeds::AddInner(const PatternNode& node) {
    EndRun();
    const PatternNeeds inner =
        node.Kind == PatternKind::Alternatives ? NeedsOfAlternatives(node) : NeedsOf(node);
    m_needs.Bytes.AddAll(inner.Bytes);
    KeepLonger(m_needs.Literal, inner.Literal);
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
        case PatternKind::Group: AddInner(node.Child()); break;
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
        case PatternKind::Lookahead:
        case PatternKind::NegativeLookahead: EndRun(); break;
    }
}

}  // namespace

PatternNeeds NeedsOfPattern(const PatternTree& tree) {
    return NeedsOf(tree.Root);
}

}  // namespace dorvik
