#include "ExpressionParser.h"
#include "OperatorTable.h"

#include <utility>

namespace dorvik::basic {

void ExpressionParser::ParseArguments(std::vector<Argument>& arguments) {
    if (m_cursor.TakeIf(TokenKind::RightParenthesis)) {
        return;
    }
    ParseArgumentList(arguments);
    m_cursor.Expect(TokenKind::RightParenthesis, parseerror::kExpectedRightParenthesis);
}

void ExpressionParser::ParseBareArguments(std::vector<Argument>& arguments) {
    if (!m_cursor.AtEnd()) {
        ParseArgumentList(arguments);
    }
}

void ExpressionParser::ParseArgumentList(std::vector<Argument>& arguments) {
    bool sawName = !arguments.empty() && !arguments.back().Name.empty();
    while (!m_cursor.HasFailed()) {
        const SourcePlace place = m_cursor.Place();
        const bool isLeftOut = m_cursor.At(TokenKind::Comma) ||
                               m_cursor.At(TokenKind::RightParenthesis) || m_cursor.AtEnd();
        if (isLeftOut && !m_cursor.At(TokenKind::Comma)) {
            m_cursor.Fail(parseerror::kExpectedExpression);
        }
        arguments.push_back(isLeftOut ? Argument{} : ParseArgument());
        const bool isNamed = !arguments.back().Name.empty();
        if (sawName && !isNamed) {
            m_cursor.FailText(place, "An argument without a name follows a named one");
        }
        sawName = isNamed;
        if (!m_cursor.TakeIf(TokenKind::Comma)) {
            return;
        }
    }
}

Argument ExpressionParser::ParseArgument() {
    Argument argument;
    const Token& first = m_cursor.Peek();
    const bool isWord = first.Kind == TokenKind::Name || first.Kind == TokenKind::Keyword;
    if (isWord && m_cursor.Peek(1).Kind == TokenKind::ColonEqual) {
        argument.Name = std::string(m_cursor.Take().Text);
        m_cursor.Take();
    } else if (first.Kind == TokenKind::Hash && m_cursor.Peek(1).Kind != TokenKind::EndOfLine) {
        m_cursor.Take();  // the file number of `Input(n, #1)`
    }
    if (m_cursor.At(TokenKind::Keyword) && m_cursor.TakeIf(Keyword::ByVal)) {
        argument.IsByVal = true;
    }
    argument.Value = ParseExpression();
    return argument;
}

bool ExpressionParser::TakeComparison(BinaryOperator& comparison) {
    const Token& token = m_cursor.Peek();
    const OperatorRow row = BinaryOperatorOf(token);
    if (token.Kind == TokenKind::Keyword || row.Level != precedence::kComparison) {
        return false;
    }
    comparison = row.Operator;
    m_cursor.Take();
    return true;
}

}  // namespace dorvik::basic
