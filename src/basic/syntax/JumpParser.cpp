#include "JumpParser.h"

#include <utility>

namespace dorvik::basic {

void JumpParser::ParseGoTo() {
    const SourcePlace place = m_cursor.Take().Place;
    std::string label = m_context.ParseLabelReference();
    m_context.Add(place, GoToStatement{std::move(label)});
}

void JumpParser::ParseGoSub() {
    const SourcePlace place = m_cursor.Take().Place;
    std::string label = m_context.ParseLabelReference();
    m_context.Add(place, GoSubStatement{std::move(label)});
}

void JumpParser::ParseReturn() {
    const SourcePlace place = m_cursor.Take().Place;
    if (!m_cursor.AtEnd()) {
        m_cursor.Fail(
            parseerror::kExpectedEndOfStatement,
            "'Return' gives no value; assign it to the name of the function");
    }
    m_context.Add(place, ReturnStatement{});
}

void JumpParser::ParseOn() {
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
        statement.Labels.push_back(m_context.ParseLabelReference());
    } while (m_cursor.TakeIf(TokenKind::Comma));
    m_context.Add(place, std::move(statement));
}

void JumpParser::ParseOnError(SourcePlace place) {
    if (m_cursor.TakeIf(Keyword::Resume)) {
        m_cursor.Expect(Keyword::Next, parseerror::kExpectedNext);
        m_context.Add(place, OnErrorStatement{ErrorPolicy::ResumeNext, {}});
        return;
    }
    m_cursor.Take();
    if (m_cursor.At(TokenKind::Minus) && m_cursor.Peek(1).Text == "1") {
        m_cursor.Take();
        m_cursor.Take();
        m_context.Add(place, OnErrorStatement{ErrorPolicy::EndHandler, {}});
        return;
    }
    const Token token = m_cursor.Peek();
    std::string label = m_context.ParseLabelName();
    if (token.Kind == TokenKind::Number && label == "0") {
        m_context.Add(place, OnErrorStatement{ErrorPolicy::Off, {}});
        return;
    }
    if (!m_cursor.HasFailed()) {
        m_context.Labels.Refer(label, token.Place);
    }
    m_context.Add(place, OnErrorStatement{ErrorPolicy::GoToLabel, std::move(label)});
}

void JumpParser::ParseResume() {
    const SourcePlace place = m_cursor.Take().Place;
    if (m_cursor.AtEnd()) {
        m_context.Add(place, ResumeStatement{ResumeKind::Same, {}});
        return;
    }
    if (m_cursor.At(TokenKind::Keyword) && m_cursor.TakeIf(Keyword::Next)) {
        m_context.Add(place, ResumeStatement{ResumeKind::Next, {}});
        return;
    }
    const Token token = m_cursor.Peek();
    std::string label = m_context.ParseLabelName();
    if (token.Kind == TokenKind::Number && label == "0") {
        m_context.Add(place, ResumeStatement{ResumeKind::Same, {}});
        return;
    }
    if (!m_cursor.HasFailed()) {
        m_context.Labels.Refer(label, token.Place);
    }
    m_context.Add(place, ResumeStatement{ResumeKind::Label, std::move(label)});
}

void JumpParser::ParseExit() {
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
    const ProcedureKind kind = m_context.Body.Procedure->Kind;
    const bool isProperty = kind != ProcedureKind::Sub && kind != ProcedureKind::Function;
    for (const Row& row : kRows) {
        if (!m_cursor.At(row.Word)) {
            continue;
        }
        const bool fits =
            (row.Kind == ExitKind::Sub && kind == ProcedureKind::Sub) ||
            (row.Kind == ExitKind::Function && kind == ProcedureKind::Function) ||
            (row.Kind == ExitKind::Property && isProperty) ||
            (row.Kind == ExitKind::Do && m_context.Blocks.Contains(BlockKind::Do)) ||
            (row.Kind == ExitKind::For && (m_context.Blocks.Contains(BlockKind::For) ||
                                           m_context.Blocks.Contains(BlockKind::ForEach)));
        const Token word = m_cursor.Take();
        if (!fits) {
            m_cursor.FailAt(
                place,
                parseerror::kInvalidExit,
                "'Exit " + std::string(word.Text) + "' is not in anything that it could leave");
        }
        m_context.Add(place, ExitStatement{row.Kind});
        return;
    }
    m_cursor.Fail(
        parseerror::kInvalidExit, "expected 'Sub', 'Function', 'Property', 'Do' or 'For'");
}

}  // namespace dorvik::basic
