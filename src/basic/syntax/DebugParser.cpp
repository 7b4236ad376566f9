#include "DebugParser.h"

#include <utility>

namespace dorvik::basic {

void DebugParser::ParseDebugPrint() {
    const SourcePlace place = m_cursor.Take().Place;
    m_cursor.Take();
    m_cursor.Take();
    DebugPrintStatement statement;
    while (!m_cursor.AtEnd() && !m_cursor.HasFailed()) {
        statement.Parts.push_back(ParsePrintPart());
    }
    m_context.Add(place, std::move(statement));
}

PrintPart DebugParser::ParsePrintPart() {
    PrintPart part;
    const bool isSpaces = m_cursor.At(Keyword::Spc);
    const bool isTab = m_cursor.At(Keyword::Tab);
    const bool hasArgument = m_cursor.Peek(1).Kind == TokenKind::LeftParenthesis;
    if ((isSpaces && hasArgument) || isTab) {
        part.Kind = isSpaces ? PrintPartKind::Spaces : PrintPartKind::Tab;
        m_cursor.Take();
        if (hasArgument) {
            m_cursor.Take();
            part.Value = m_expressions.ParseExpression();
            m_cursor.Expect(TokenKind::RightParenthesis, parseerror::kExpectedRightParenthesis);
        }
    } else if (!m_cursor.At(TokenKind::Semicolon) && !m_cursor.At(TokenKind::Comma)) {
        part.Value = m_expressions.ParseExpression();
    }
    if (m_cursor.TakeIf(TokenKind::Semicolon)) {
        part.Separator = PrintSeparator::Join;
    } else if (m_cursor.TakeIf(TokenKind::Comma)) {
        part.Separator = PrintSeparator::Zone;
    } else if (!m_cursor.AtEnd()) {
        part.Separator = PrintSeparator::Join;  // `Debug.Print "a" b` joins as well
    }
    return part;
}

void DebugParser::ParseDebugAssert() {
    const SourcePlace place = m_cursor.Take().Place;
    m_cursor.Take();
    m_cursor.Take();
    ExpressionPointer condition = m_expressions.ParseExpression();
    m_context.Add(place, DebugAssertStatement{std::move(condition)});
}

}  // namespace dorvik::basic
