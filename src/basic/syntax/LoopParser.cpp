#include "LoopParser.h"

#include "base/modTextCase.h"

#include <utility>

namespace dorvik::basic {

/// A variable, or a member of one; `name` is that of a plain variable in lower case.
ExpressionPointer LoopParser::ParseLoopVariable(std::string& name) {
    const SourcePlace place = m_cursor.Place();
    ExpressionPointer variable = m_expressions.ParseTarget();
    if (!variable) {
        return variable;
    }
    if (const auto* plain = std::get_if<NameNode>(&variable->Node)) {
        name = modTextCase::ToLower(plain->Name);
    } else if (!std::holds_alternative<MemberNode>(variable->Node)) {
        m_cursor.FailAt(place, parseerror::kInvalidForVariable);
    }
    if (name.empty()) {
        return variable;
    }
    if (const OpenBlock* outer = m_context.Blocks.FindVariable(name)) {
        m_cursor.FailAt(
            place,
            parseerror::kInvalidForVariable,
            "the 'For' in line " + std::to_string(outer->Place.Line) + " has the same");
    }
    return variable;
}

void LoopParser::ParseFor() {
    const SourcePlace place = m_cursor.Take().Place;
    if (m_cursor.TakeIf(Keyword::Each)) {
        ParseForEach(place);
        return;
    }
    ForStatement statement;
    std::string name;
    statement.Variable = ParseLoopVariable(name);
    m_cursor.Expect(TokenKind::Equal, parseerror::kExpectedEqual);
    statement.From = m_expressions.ParseExpression();
    m_cursor.Expect(Keyword::To, parseerror::kExpectedTo);
    statement.To = m_expressions.ParseExpression();
    if (m_cursor.At(TokenKind::Name) && m_cursor.TakeIf(Keyword::Step)) {
        statement.Step = m_expressions.ParseExpression();
    }
    m_context.Open(BlockKind::For, place, std::move(statement));
    m_context.Blocks.Top().Variable = std::move(name);
}

void LoopParser::ParseForEach(SourcePlace place) {
    ForEachStatement statement;
    std::string name;
    statement.Variable = ParseLoopVariable(name);
    m_cursor.Expect(Keyword::In, parseerror::kExpectedIn);
    statement.Collection = m_expressions.ParseExpression();
    m_context.Open(BlockKind::ForEach, place, std::move(statement));
    m_context.Blocks.Top().Variable = std::move(name);
}

void LoopParser::ParseNext() {
    const Token next = m_cursor.Take();
    if (m_cursor.AtEnd()) {
        CloseLoopOf(next, nullptr);
        return;
    }
    do {
        const ExpressionPointer variable = m_expressions.ParseTarget();
        if (!CloseLoopOf(next, variable)) {
            return;
        }
    } while (m_cursor.TakeIf(TokenKind::Comma));
}

bool LoopParser::CloseLoopOf(const Token& next, const ExpressionPointer& variable) {
    if (!m_context.Blocks.Expose(BlockKind::For, BlockKind::ForEach, "Next", next.Place)) {
        if (!m_context.Blocks.TakeOrphan(BlockKind::For) &&
            !m_context.Blocks.TakeOrphan(BlockKind::ForEach)) {
            m_cursor.FailAt(next.Place, parseerror::kUnexpectedNext);
        }
        return !m_cursor.HasFailed();
    }
    OpenBlock& top = m_context.Blocks.Top();
    const auto* plain = variable ? std::get_if<NameNode>(&variable->Node) : nullptr;
    const std::string name = plain ? modTextCase::ToLower(plain->Name) : std::string();
    if (plain && !top.Variable.empty() && name != top.Variable) {
        // Two loops that end in the wrong order are reported once.
        if (name != m_context.Body.CrossedVariable) {
            m_cursor.FailAt(
                variable->Place,
                parseerror::kInvalidForVariable,
                "'Next " + plain->Name + "' does not belong to the 'For' in line " +
                    std::to_string(top.Place.Line));
        }
        m_context.Body.CrossedVariable = top.Variable;
    }
    if (auto* loop = std::get_if<ForStatement>(&top.Node.Node)) {
        loop->NextPlace = next.Place;
    } else {
        std::get<ForEachStatement>(top.Node.Node).NextPlace = next.Place;
    }
    m_context.Blocks.Pop();
    m_context.UpdateWith();
    return true;
}

LoopTest LoopParser::TakeLoopTest() {
    if (m_cursor.TakeIf(Keyword::While)) {
        return LoopTest::While;
    }
    if (m_cursor.TakeIf(Keyword::Until)) {
        return LoopTest::Until;
    }
    if (!m_cursor.AtEnd()) {
        m_cursor.Fail(parseerror::kExpectedWhileUntilOrEnd);
    }
    return LoopTest::None;
}

void LoopParser::ParseDo() {
    const SourcePlace place = m_cursor.Take().Place;
    LoopStatement statement;
    statement.TestBefore = TakeLoopTest();
    if (statement.TestBefore != LoopTest::None) {
        statement.Condition = m_expressions.ParseExpression();
    }
    m_context.Open(BlockKind::Do, place, std::move(statement));
}

void LoopParser::ParseLoop() {
    const SourcePlace place = m_cursor.Take().Place;
    if (!m_context.Blocks.Expose(BlockKind::Do, BlockKind::Do, "Loop", place)) {
        if (!m_context.Blocks.TakeOrphan(BlockKind::Do)) {
            m_cursor.FailAt(place, parseerror::kLoopWithoutDo);
        }
        m_cursor.TakeToEnd();
        return;
    }
    m_context.UpdateWith();
    auto& statement = std::get<LoopStatement>(m_context.Blocks.Top().Node.Node);
    statement.LoopPlace = place;
    const SourcePlace testPlace = m_cursor.Place();
    const LoopTest test = TakeLoopTest();
    if (test != LoopTest::None && statement.TestBefore != LoopTest::None) {
        m_cursor.FailAt(
            testPlace, parseerror::kExpectedEndOfStatement, "the 'Do' has a condition already");
    } else if (test != LoopTest::None) {
        statement.TestAfter = test;
        statement.Condition = m_expressions.ParseExpression();
    }
    m_context.Blocks.Pop();
    m_context.UpdateWith();
}

void LoopParser::ParseWhile() {
    const SourcePlace place = m_cursor.Take().Place;
    LoopStatement statement;
    statement.IsWhileWend = true;
    statement.TestBefore = LoopTest::While;
    statement.Condition = m_expressions.ParseExpression();
    m_context.Open(BlockKind::While, place, std::move(statement));
}

void LoopParser::ParseWend() {
    const SourcePlace place = m_cursor.Take().Place;
    if (m_context.Blocks.Expose(BlockKind::While, BlockKind::While, "Wend", place)) {
        std::get<LoopStatement>(m_context.Blocks.Top().Node.Node).LoopPlace = place;
    }
    m_context.CloseSimple(BlockKind::While, "Wend", "While", place);
}

}  // namespace dorvik::basic
