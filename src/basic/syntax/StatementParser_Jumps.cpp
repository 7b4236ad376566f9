#include "StatementParser.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

/// A name, or a number from 0 to 2147483647 without its leading zeros.
std::string StatementParser::ParseLabelName() {
    constexpr std::string_view kLargest = "2147483647";
    const Token token = m_cursor.Peek();
    if (token.Kind == TokenKind::Name && token.Suffix == 0) {
        return std::string(m_cursor.Take().Text);
    }
    const bool isWhole = token.Kind == TokenKind::Number &&
                         token.Text.find_first_not_of("0123456789") == std::string_view::npos;
    if (!isWhole) {
        m_cursor.Fail(parseerror::kExpectedIdentifier, "the name or number of a label");
        return {};
    }
    const std::size_t zeros = std::min(token.Text.find_first_not_of('0'), token.Text.size() - 1);
    const std::string_view digits = token.Text.substr(zeros);
    if (digits.size() > kLargest.size() ||
        (digits.size() == kLargest.size() && digits > kLargest)) {
        m_cursor.Fail(parseerror::kInvalidNumber, "a line number is at most 2147483647");
        return {};
    }
    m_cursor.Take();
    return std::string(digits);
}

void StatementParser::ParseGoTo() {
    const SourcePlace place = m_cursor.Take().Place;
    const SourcePlace labelPlace = m_cursor.Place();
    std::string label = ParseLabelName();
    if (!m_cursor.HasFailed()) {
        m_labels.Refer(label, labelPlace);
    }
    Add(place, GoToStatement{std::move(label)});
}

void StatementParser::ParseGoSub() {
    const SourcePlace place = m_cursor.Take().Place;
    const SourcePlace labelPlace = m_cursor.Place();
    std::string label = ParseLabelName();
    if (!m_cursor.HasFailed()) {
        m_labels.Refer(label, labelPlace);
    }
    Add(place, GoSubStatement{std::move(label)});
}

void StatementParser::ParseReturn() {
    const SourcePlace place = m_cursor.Take().Place;
    if (!m_cursor.AtEnd()) {
        m_cursor.Fail(
            parseerror::kExpectedEndOfStatement,
            "'Return' gives no value; assign it to the name of the function");
    }
    Add(place, ReturnStatement{});
}

void StatementParser::ParseOn() {
    const SourcePlace place = m_cursor.Take().Place;
    const std::size_t local = m_cursor.At(Keyword::Local) ? 1 : 0;
    const Keyword behind = m_cursor.Peek(local + 1).Word;
    if (m_cursor.Peek(local).Word == Keyword::Error &&
        (behind == Keyword::GoTo || behind == Keyword::Resume)) {
        for (std::size_t i = 0; i <= local; ++i) {
            m_cursor.Take();
        }
        ParseOnError(place);
        return;
    }
    OnJumpStatement statement;
    statement.Selector = m_expressions.ParseExpression();
    if (m_cursor.At(Keyword::GoTo) || m_cursor.At(Keyword::GoSub)) {
        statement.IsGoSub = m_cursor.Take().Word == Keyword::GoSub;
    } else {
        m_cursor.Fail(parseerror::kSyntax, "expected 'GoTo' or 'GoSub'");
    }
    do {
        const SourcePlace labelPlace = m_cursor.Place();
        statement.Labels.push_back(ParseLabelName());
        if (!m_cursor.HasFailed()) {
            m_labels.Refer(statement.Labels.back(), labelPlace);
        }
    } while (m_cursor.TakeIf(TokenKind::Comma));
    Add(place, std::move(statement));
}

void StatementParser::ParseOnError(SourcePlace place) {
    if (m_cursor.TakeIf(Keyword::Resume)) {
        m_cursor.Expect(Keyword::Next, parseerror::kExpectedNext);
        Add(place, OnErrorStatement{ErrorPolicy::ResumeNext, {}});
        return;
    }
    m_cursor.Take();
    if (m_cursor.At(TokenKind::Minus) && m_cursor.Peek(1).Text == "1") {
        m_cursor.Take();
        m_cursor.Take();
        Add(place, OnErrorStatement{ErrorPolicy::EndHandler, {}});
        return;
    }
    const Token token = m_cursor.Peek();
    std::string label = ParseLabelName();
    if (token.Kind == TokenKind::Number && label == "0") {
        Add(place, OnErrorStatement{ErrorPolicy::Off, {}});
        return;
    }
    if (!m_cursor.HasFailed()) {
        m_labels.Refer(label, token.Place);
    }
    Add(place, OnErrorStatement{ErrorPolicy::GoToLabel, std::move(label)});
}

void StatementParser::ParseResume() {
    const SourcePlace place = m_cursor.Take().Place;
    if (m_cursor.AtEnd()) {
        Add(place, ResumeStatement{ResumeKind::Same, {}});
        return;
    }
    if (m_cursor.At(TokenKind::Keyword) && m_cursor.TakeIf(Keyword::Next)) {
        Add(place, ResumeStatement{ResumeKind::Next, {}});
        return;
    }
    const Token token = m_cursor.Peek();
    std::string label = ParseLabelName();
    if (token.Kind == TokenKind::Number && label == "0") {
        Add(place, ResumeStatement{ResumeKind::Same, {}});
        return;
    }
    if (!m_cursor.HasFailed()) {
        m_labels.Refer(label, token.Place);
    }
    Add(place, ResumeStatement{ResumeKind::Label, std::move(label)});
}

void StatementParser::ParseExit() {
    struct Row {
        Keyword Word;
        ExitKind Kind;
    };
    static constexpr Row kRows[] = {
        {Keyword::Sub, ExitKind::Sub},
        {Keyword::Function, ExitKind::Function},
        {Keyword::Property, ExitKind::Property},
        {Keyword::Do, ExitKind::Do},
        {Keyword::For, ExitKind::For},
    };
    const SourcePlace place = m_cursor.Take().Place;
    const ProcedureKind kind = m_body.Procedure->Kind;
    const bool isProperty = kind != ProcedureKind::Sub && kind != ProcedureKind::Function;
    for (const Row& row : kRows) {
        if (!m_cursor.At(row.Word)) {
            continue;
        }
        const bool fits = (row.Kind == ExitKind::Sub && kind == ProcedureKind::Sub) ||
                          (row.Kind == ExitKind::Function && kind == ProcedureKind::Function) ||
                          (row.Kind == ExitKind::Property && isProperty) ||
                          (row.Kind == ExitKind::Do && m_blocks.Contains(BlockKind::Do)) ||
                          (row.Kind == ExitKind::For && (m_blocks.Contains(BlockKind::For) ||
                                                         m_blocks.Contains(BlockKind::ForEach)));
        const Token word = m_cursor.Take();
        if (!fits) {
            m_cursor.FailAt(
                place,
                parseerror::kInvalidExit,
                "'Exit " + std::string(word.Text) + "' stands in nothing that it could leave");
        }
        Add(place, ExitStatement{row.Kind});
        return;
    }
    m_cursor.Fail(
        parseerror::kInvalidExit, "expected 'Sub', 'Function', 'Property', 'Do' or 'For'");
}

}  // namespace dorvik::basic
