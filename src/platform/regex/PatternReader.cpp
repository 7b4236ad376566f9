#include "PatternReader.h"

#include "base/modUtf8.h"
#include "platform/regex/RegularExpression.h"

#include <algorithm>

namespace dorvik {

namespace {

/// Deeper nesting would exhaust the stack of any code that traverses the tree.
constexpr std::size_t kDeepestGroup = 250;

/// The groups that capture: the "(" that are neither escaped nor in a class nor followed by "?".
std::uint32_t CountGroups(std::u32string_view pattern) {
    std::uint32_t count = 0;
    bool isInClass = false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        switch (pattern[i]) {
            case '\\': ++i; break;
            case '[': isInClass = true; break;
            case ']': isInClass = false; break;
            case '(':
                count += !isInClass && !pattern.substr(i + 1).starts_with(U'?') ? 1U : 0U;
                break;
            default: break;
        }
    }
    return count;
}

bool IsAssertion(PatternKind kind) {
    return kind == PatternKind::Start || kind == PatternKind::End ||
           kind == PatternKind::WordBoundary || kind == PatternKind::NoWordBoundary;
}

}  // namespace

PatternReader::PatternReader(std::string_view pattern, PatternFlags flags) : m_flags(flags) {
    m_pattern.reserve(pattern.size());
    for (std::size_t at = 0; at < pattern.size();) {
        const modUtf8::Character character = modUtf8::Decode(pattern, at);
        m_pattern += character.CodePoint;
        if (!character.Valid) {
            Fail(kRegularExpressionSyntax, m_pattern.size() - 1, "a byte that is not UTF-8");
        }
        at += character.Size;
    }
    m_groupCount = CountGroups(m_pattern);
}

bool PatternReader::Read(PatternTree& tree) {
    if (m_fault.Number != 0 || !ReadAlternatives(tree.Root)) {
        return false;
    }
    if (!AtEnd()) {
        return Fail(kRegularExpressionSyntax, m_position, "an unmatched ')'");
    }
    tree.Flags = m_flags;
    tree.GroupCount = m_groupCount;
    tree.HasBackReference = m_hasBackReference;
    return true;
}

bool PatternReader::Accept(std::u32string_view text) {
    if (!std::u32string_view(m_pattern).substr(m_position).starts_with(text)) {
        return false;
    }
    m_position += text.size();
    return true;
}

/// The first fault is the one that is reported.
bool PatternReader::Fail(std::int32_t number, std::size_t at, std::string detail) {
    if (m_fault.Number == 0) {
        m_fault = {number, at + 1, std::move(detail)};
    }
    return false;
}

bool PatternReader::ReadAlternatives(PatternNode& node) {
    node.FirstGroup = m_nextGroup;
    PatternNode branch;
    if (!ReadSequence(branch)) {
        return false;
    }
    if (!Sees('|')) {
        node = std::move(branch);
        return true;
    }
    node.Kind = PatternKind::Alternatives;
    node.Children.push_back(std::move(branch));
    while (Accept(U"|")) {
        if (!ReadSequence(node.Children.emplace_back())) {
            return false;
        }
    }
    node.EndGroup = m_nextGroup;
    return true;
}

bool PatternReader::ReadSequence(PatternNode& node) {
    node.Kind = PatternKind::Sequence;
    node.FirstGroup = m_nextGroup;
    while (!AtEnd() && !Sees('|') && !Sees(')')) {
        if (!ReadTerm(node.Children.emplace_back())) {
            return false;
        }
    }
    node.EndGroup = m_nextGroup;
    if (node.Children.empty()) {
        node.Kind = PatternKind::Empty;
    } else if (node.Children.size() == 1) {
        PatternNode only = std::move(node.Children.front());
        node = std::move(only);
    }
    return true;
}

bool PatternReader::ReadTerm(PatternNode& node) {
    if (SeesRepetition()) {
        return Fail(kRegularExpressionQuantifier, m_position);
    }
    const bool isGroup = Sees('(');  // a group that holds nothing but "^" may be repeated
    node.FirstGroup = m_nextGroup;
    if (!ReadAtom(node)) {
        return false;
    }
    node.EndGroup = m_nextGroup;
    if (!SeesRepetition()) {
        return true;
    }
    return !isGroup && IsAssertion(node.Kind) ? Fail(kRegularExpressionQuantifier, m_position)
                                              : ReadRepetition(node);
}

bool PatternReader::ReadAtom(PatternNode& node) {
    const char32_t character = m_pattern[m_position++];
    switch (character) {
        case '^': node.Kind = PatternKind::Start; return true;
        case '$': node.Kind = PatternKind::End; return true;
        case '.': MakeSet(node, CharacterSet::LineEnds(), true); return true;
        case '(': return ReadGroup(node);
        case '[': return ReadClass(node);
        case '\\': return ReadEscape(node);
        default: MakeCharacter(node, character); return true;
    }
}

bool PatternReader::ReadGroup(PatternNode& node) {
    if (++m_depth > kDeepestGroup) {
        return Fail(kRegularExpressionSyntax, m_position - 1, "groups nested too deeply");
    }
    PatternNode outer;
    outer.FirstGroup = m_nextGroup;
    const bool isPlain = Accept(U"?:");
    if (Accept(U"?=")) {
        outer.Kind = PatternKind::Lookahead;
    } else if (Accept(U"?!")) {
        outer.Kind = PatternKind::NegativeLookahead;
    } else if (!isPlain && !Sees('?')) {
        outer.Kind = PatternKind::Group;
        outer.Number = m_nextGroup++;
    }
    // Any other "?" is a quantifier that has nothing before it, and is reported as one.
    PatternNode inner;
    if (!ReadAlternatives(inner)) {
        return false;
    }
    if (!Accept(U")")) {
        return Fail(kRegularExpressionParenthesis, m_position);
    }
    --m_depth;
    if (isPlain) {
        node = std::move(inner);
        return true;
    }
    outer.EndGroup = m_nextGroup;
    outer.Children.push_back(std::move(inner));
    node = std::move(outer);
    return true;
}

// ---- Repetitions ----

bool PatternReader::SeesRepetition() const {
    if (AtEnd()) {
        return false;
    }
    switch (m_pattern[m_position]) {
        case '*':
        case '+':
        case '?': return true;
        case '{': break;
        default: return false;
    }
    // A brace that begins no count is a brace.
    std::size_t at = m_position + 1;
    const auto skipDigits = [this, &at] {
        const std::size_t first = at;
        while (at < m_pattern.size() && IsDigit(m_pattern[at])) {
            ++at;
        }
        return at > first;
    };
    if (!skipDigits()) {
        return false;
    }
    if (at < m_pattern.size() && m_pattern[at] == ',') {
        ++at;
        skipDigits();
    }
    return at < m_pattern.size() && m_pattern[at] == '}';
}

/// A number too large to be counted to stays at the greatest that is.
std::uint32_t PatternReader::ReadDecimal() {
    constexpr std::uint32_t kGreatest = PatternNode::kUnbounded - 1;
    std::uint64_t number = 0;
    for (; !AtEnd() && IsDigit(m_pattern[m_position]); ++m_position) {
        number = std::min<std::uint64_t>(number * 10 + (m_pattern[m_position] - U'0'), kGreatest);
    }
    return static_cast<std::uint32_t>(number);
}

/// REQUIRES: SeesRepetition().
bool PatternReader::ReadRepetition(PatternNode& node) {
    const std::size_t first = m_position;
    PatternNode outer;
    outer.Kind = PatternKind::Repetition;
    outer.FirstGroup = node.FirstGroup;
    outer.EndGroup = node.EndGroup;
    outer.Most = PatternNode::kUnbounded;
    switch (m_pattern[m_position++]) {
        case '*': break;
        case '+': outer.Least = 1; break;
        case '?': outer.Most = 1; break;
        default:
            outer.Least = ReadDecimal();
            outer.Most = outer.Least;
            if (Accept(U",")) {
                outer.Most = Sees('}') ? PatternNode::kUnbounded : ReadDecimal();
            }
            ++m_position;  // "}"
            break;
    }
    if (outer.Least > outer.Most) {
        return Fail(kRegularExpressionSyntax, first, "a repeat range in descending order");
    }
    outer.IsLazy = Accept(U"?");
    outer.Children.push_back(std::move(node));
    node = std::move(outer);
    return true;
}

}  // namespace dorvik
