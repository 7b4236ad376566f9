#include "TinyMatcher.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace dorvik {

namespace {

constexpr std::size_t kUndefined = std::u32string_view::npos;
using Kind = TinyNode::Kind;

struct Piece {
    const char* Text;
    Kind Type;
    bool IsNegated;
    std::vector<std::pair<char32_t, char32_t>> Ranges;
};

const std::vector<Piece>& Pieces() {
    static const std::vector<Piece> pieces{
        {"a", Kind::Character, false, {{'a', 'a'}}},
        {"b", Kind::Character, false, {{'b', 'b'}}},
        {"a", Kind::Character, false, {{'a', 'a'}}},
        {"b", Kind::Character, false, {{'b', 'b'}}},
        {"s", Kind::Character, false, {{'s', 's'}}},
        {"B", Kind::Character, false, {{'B', 'B'}}},
        {"\xC3\xA9", Kind::Character, false, {{0xE9, 0xE9}}},
        {"\\u017f", Kind::Character, false, {{0x17F, 0x17F}}},
        {".", Kind::Class, true, {{'\n', '\n'}, {'\r', '\r'}, {0x2028, 0x2029}}},
        {".", Kind::Class, true, {{'\n', '\n'}, {'\r', '\r'}, {0x2028, 0x2029}}},
        {"[ab]", Kind::Class, false, {{'a', 'b'}}},
        {"[^a]", Kind::Class, true, {{'a', 'a'}}},
        {"[a-s]", Kind::Class, false, {{'a', 's'}}},
        {"[^\\xe0-\\xffB]", Kind::Class, true, {{0xE0, 0xFF}, {'B', 'B'}}},
        {"[]", Kind::Class, false, {}},
        {"[^]", Kind::Class, true, {}},
        {"\\d", Kind::Class, false, {{'0', '9'}}},
        {"\\D", Kind::Class, true, {{'0', '9'}}},
        {"\\w", Kind::Class, false, {{'0', '9'}, {'A', 'Z'}, {'_', '_'}, {'a', 'z'}}},
        {"\\W", Kind::Class, true, {{'0', '9'}, {'A', 'Z'}, {'_', '_'}, {'a', 'z'}}},
        {"[\\d-s]", Kind::Class, false, {{'0', '9'}, {'-', '-'}, {'s', 's'}}},
        {"\\s", Kind::Class, false, {{'\t', '\r'}, {' ', ' '}, {0x2028, 0x2029}}},
        {"^", Kind::Start, false, {}},
        {"$", Kind::End, false, {}},
        {"\\b", Kind::Boundary, false, {}},
        {"\\B", Kind::NoBoundary, false, {}},
    };
    return pieces;
}

bool IsPlace(Kind kind) {
    return kind == Kind::Start || kind == Kind::End || kind == Kind::Boundary ||
           kind == Kind::NoBoundary;
}

bool IsLineEnd(char32_t character) {
    return character == '\n' || character == '\r' || character == 0x2028 || character == 0x2029;
}

std::string CountText(const TinyNode& node) {
    std::string text;
    if (node.Most == TinyNode::kEndless && node.Least <= 1) {
        text = node.Least == 0 ? "*" : "+";
    } else if (node.Least == 0 && node.Most == 1) {
        text = "?";
    } else if (node.Least == node.Most) {
        text = "{" + std::to_string(node.Least) + "}";
    } else {
        text = "{" + std::to_string(node.Least) + "," +
               (node.Most == TinyNode::kEndless ? "" : std::to_string(node.Most)) + "}";
    }
    return text + (node.IsLazy ? "?" : "");
}

std::string NodeText(const TinyNode& node) {
    std::string inner;
    for (const TinyNode& child : node.Children) {
        const bool isFirst = &child == &node.Children.front();
        inner += (node.Type == Kind::Choice && !isFirst ? "|" : "") + NodeText(child);
    }
    switch (node.Type) {
        case Kind::Empty: return "";
        case Kind::Character:
        case Kind::Class:
        case Kind::Start:
        case Kind::End:
        case Kind::Boundary:
        case Kind::NoBoundary: return node.Text;
        case Kind::Reference: return "\\" + std::to_string(node.Number);
        case Kind::Group: return "(" + inner + ")";
        case Kind::Plain: return "(?:" + inner + ")";
        case Kind::Ahead: return "(?=" + inner + ")";
        case Kind::NotAhead: return "(?!" + inner + ")";
        case Kind::Sequence:
        case Kind::Choice: return inner;
        case Kind::Repeat: return inner + CountText(node);
    }
    return "";
}

}  // namespace

std::string TinyPattern::Text() const {
    return NodeText(Root);
}

// ---- Making patterns ----

TinyPattern TinyPatternMaker::Make() {
    m_pattern = {};
    m_pattern.IgnoreCase = Chance(3);
    m_pattern.Multiline = Chance(4);
    m_pattern.Root = Disjunction(0);
    NumberReferences(m_pattern.Root);
    return m_pattern;
}

TinyNode TinyPatternMaker::Disjunction(int depth) {
    TinyNode node;
    node.Type = Kind::Choice;
    do {
        node.Children.push_back(Alternative(depth));
    } while (Chance(3));
    return node;
}

TinyNode TinyPatternMaker::Alternative(int depth) {
    TinyNode node;
    node.Type = Kind::Sequence;
    for (std::size_t count = m_random() % 4; count > 0; --count) {
        node.Children.push_back(Term(depth));
    }
    return node;
}

TinyNode TinyPatternMaker::Term(int depth) {
    const std::size_t first = m_pattern.GroupCount;
    TinyNode atom = Atom(depth);
    atom.FirstGroup = first;
    atom.EndGroup = m_pattern.GroupCount;
    return !IsPlace(atom.Type) && Chance(2) ? Repeated(std::move(atom)) : atom;
}

TinyNode TinyPatternMaker::Atom(int depth) {
    if (depth < 3 && Chance(2)) {
        return Parenthesis(depth);
    }
    TinyNode node;
    if (Chance(8)) {
        node.Type = Kind::Reference;
        return node;
    }
    const std::size_t among = Chance(2) ? 6 : Pieces().size();
    const Piece& piece = Pieces()[m_random() % among];
    node.Type = piece.Type;
    node.Text = piece.Text;
    node.Ranges = piece.Ranges;
    node.IsNegated = piece.IsNegated;
    return node;
}

TinyNode TinyPatternMaker::Parenthesis(int depth) {
    static constexpr std::array kKinds{
        Kind::Group,
        Kind::Group,
        Kind::Group,
        Kind::Plain,
        Kind::Plain,
        Kind::Ahead,
        Kind::NotAhead};
    TinyNode node;
    node.Type = kKinds.at(m_random() % kKinds.size());
    if (node.Type == Kind::Group) {
        node.Number = ++m_pattern.GroupCount;
    }
    node.Children.push_back(Disjunction(depth + 1));
    return node;
}

TinyNode TinyPatternMaker::Repeated(TinyNode atom) {
    static constexpr int kEndless = TinyNode::kEndless;
    static constexpr std::array<std::pair<int, int>, 11> kCounts{
        {{0, kEndless},
         {0, kEndless},
         {1, kEndless},
         {1, kEndless},
         {0, 1},
         {0, 1},
         {2, 2},
         {0, 2},
         {1, 3},
         {2, kEndless},
         {0, 0}}};
    TinyNode node;
    node.Type = Kind::Repeat;
    std::tie(node.Least, node.Most) = kCounts.at(m_random() % kCounts.size());
    node.IsLazy = Chance(3);
    node.FirstGroup = atom.FirstGroup;
    node.EndGroup = atom.EndGroup;
    node.Children.push_back(std::move(atom));
    return node;
}

void TinyPatternMaker::NumberReferences(TinyNode& node) {
    if (node.Type == Kind::Reference && m_pattern.GroupCount == 0) {
        node.Type = Kind::Character;
        node.Text = "a";
        node.Ranges = {{'a', 'a'}};
    } else if (node.Type == Kind::Reference) {
        node.Number = 1 + m_random() % m_pattern.GroupCount;
        m_pattern.HasReference = true;
    }
    for (TinyNode& child : node.Children) {
        NumberReferences(child);
    }
}

// ---- Matching ----

TinyMatcher::State TinyMatcher::StateAt(std::size_t start) const {
    return {start, {m_pattern.GroupCount + 1, {kUndefined, kUndefined}}};
}

bool TinyMatcher::MatchAt(std::size_t start, State& result) {
    return Run(m_pattern.Root, StateAt(start), [&](const State& y) {
        result = y;
        result.Groups[0] = {start, y.End};
        return true;
    });
}

bool TinyMatcher::LongestAt(std::size_t start, std::size_t& end) {
    bool isFound = false;
    Run(m_pattern.Root, StateAt(start), [&](const State& y) {
        end = isFound ? std::max(end, y.End) : y.End;
        isFound = true;
        return false;
    });
    return isFound;
}

bool TinyMatcher::Run(const TinyNode& node, const State& x, const Continuation& c) {
    if (++m_steps > kMostSteps) {
        return false;
    }
    const bool isStart = x.End == 0;
    const bool isEnd = x.End == m_text.size();
    const bool isBoundary = (!isStart && IsWordAt(x.End - 1)) != IsWordAt(x.End);
    switch (node.Type) {
        case Kind::Empty: return c(x);
        case Kind::Character:
        case Kind::Class: return RunCharacter(node, x, c);
        case Kind::Start:
            return (isStart || (m_pattern.Multiline && IsLineEnd(m_text[x.End - 1]))) && c(x);
        case Kind::End: return (isEnd || (m_pattern.Multiline && IsLineEnd(m_text[x.End]))) && c(x);
        case Kind::Boundary: return isBoundary && c(x);
        case Kind::NoBoundary: return !isBoundary && c(x);
        case Kind::Reference: return RunReference(node, x, c);
        case Kind::Group:
            return Run(node.Children[0], x, [&](const State& y) {
                State z = y;
                z.Groups[node.Number] = {x.End, y.End};
                return c(z);
            });
        case Kind::Plain: return Run(node.Children[0], x, c);
        case Kind::Ahead:
        case Kind::NotAhead: return RunAhead(node, x, c);
        case Kind::Sequence: return RunSequence(node, 0, x, c);
        case Kind::Choice:
            return std::any_of(
                node.Children.begin(), node.Children.end(), [&](const TinyNode& each) {
                    return Run(each, x, c);
                });
        case Kind::Repeat: return RunRepeat(node, node.Least, node.Most, x, c);
    }
    return false;
}

bool TinyMatcher::RunCharacter(const TinyNode& node, const State& x, const Continuation& c) {
    if (x.End == m_text.size()) {
        return false;
    }
    const char32_t wanted = Canonical(m_text[x.End]);
    bool isThere = false;
    for (const auto& [first, last] : node.Ranges) {
        for (char32_t member = first; member <= last; ++member) {
            isThere = isThere || Canonical(member) == wanted;
        }
    }
    if (isThere == node.IsNegated) {
        return false;
    }
    State y = x;
    ++y.End;
    return c(y);
}

bool TinyMatcher::RunReference(const TinyNode& node, const State& x, const Continuation& c) {
    const auto [start, end] = x.Groups[node.Number];
    if (start == kUndefined) {
        return c(x);
    }
    const std::size_t size = end - start;
    if (x.End + size > m_text.size()) {
        return false;
    }
    for (std::size_t i = 0; i < size; ++i) {
        if (Canonical(m_text[start + i]) != Canonical(m_text[x.End + i])) {
            return false;
        }
    }
    State y = x;
    y.End += size;
    return c(y);
}

bool TinyMatcher::RunSequence(
    const TinyNode& node, std::size_t i, const State& x, const Continuation& c) {
    if (i == node.Children.size()) {
        return c(x);
    }
    return Run(node.Children[i], x, [&](const State& y) { return RunSequence(node, i + 1, y, c); });
}

bool TinyMatcher::RunRepeat(
    const TinyNode& node, int min, int max, const State& x, const Continuation& c) {
    if (max == 0) {
        return c(x);
    }
    const Continuation d = [&](const State& y) {
        if (min == 0 && y.End == x.End) {
            return false;
        }
        const int max2 = max == TinyNode::kEndless ? max : max - 1;
        return RunRepeat(node, min == 0 ? 0 : min - 1, max2, y, c);
    };
    State xr = x;
    for (std::size_t group = node.FirstGroup + 1; group <= node.EndGroup; ++group) {
        xr.Groups[group] = {kUndefined, kUndefined};
    }
    if (min != 0) {
        return Run(node.Children[0], xr, d);
    }
    if (node.IsLazy) {
        return c(x) || Run(node.Children[0], xr, d);
    }
    return Run(node.Children[0], xr, d) || c(x);
}

bool TinyMatcher::RunAhead(const TinyNode& node, const State& x, const Continuation& c) {
    State inside;
    const bool isThere = Run(node.Children[0], x, [&](const State& y) {
        inside = y;
        return true;
    });
    if (node.Type == Kind::NotAhead) {
        return !isThere && c(x);
    }
    inside.End = x.End;
    return isThere && c(inside);
}

bool TinyMatcher::IsWordAt(std::size_t position) const {
    if (position >= m_text.size()) {
        return false;
    }
    const char32_t character = m_text[position];
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
           (character >= 'A' && character <= 'Z') || character == '_';
}

/// Knows the characters that `Pieces` and the texts of the test use, and no others.
char32_t TinyMatcher::Canonical(char32_t character) const {
    if (!m_pattern.IgnoreCase) {
        return character;
    }
    const bool isSmall = (character >= 'a' && character <= 'z') ||
                         (character >= 0xE0 && character <= 0xFE && character != 0xF7);
    return isSmall ? character - 32 : character == 0xFF ? char32_t{0x178} : character;
}

}  // namespace dorvik
