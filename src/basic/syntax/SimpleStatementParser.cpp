#include "SimpleStatementParser.h"

#include <utility>

namespace dorvik::basic {

void SimpleStatementParser::ParseDim() {
    const SourcePlace place = m_cursor.Take().Place;
    DeclareStatement statement{LocalScope::Dim, m_context.Declarations.ParseVariables()};
    for (const VariableNode& variable : statement.Variables) {
        m_context.Body.Names.Note(variable.Name);
    }
    m_context.Add(place, std::move(statement));
}

void SimpleStatementParser::ParseStatic() {
    const SourcePlace place = m_cursor.Take().Place;
    DeclareStatement statement{LocalScope::Static, m_context.Declarations.ParseVariables()};
    for (const VariableNode& variable : statement.Variables) {
        m_context.Body.Names.Note(variable.Name);
    }
    m_context.Add(place, std::move(statement));
}

void SimpleStatementParser::ParseConst() {
    const SourcePlace place = m_cursor.Take().Place;
    ConstStatement statement{m_context.Declarations.ParseConstants()};
    m_context.Add(place, std::move(statement));
}

void SimpleStatementParser::ParseReDim() {
    const SourcePlace place = m_cursor.Take().Place;
    RedimStatement statement = m_context.Declarations.ParseRedim();
    m_context.Add(place, std::move(statement));
}

void SimpleStatementParser::ParseErase() {
    const SourcePlace place = m_cursor.Take().Place;
    EraseStatement statement;
    do {
        statement.Targets.push_back(m_expressions.ParseTarget());
    } while (m_cursor.TakeIf(TokenKind::Comma));
    m_context.Add(place, std::move(statement));
}

void SimpleStatementParser::ParseStop() {
    const SourcePlace place = m_cursor.Take().Place;
    m_context.Add(place, StopStatement{});
}

void SimpleStatementParser::RejectModuleLevel() {
    const Token word = m_cursor.Peek();
    std::string text = "'" + std::string(word.Text) + "' is allowed outside procedures only";
    if (word.Word == Keyword::Enum || m_cursor.Peek(1).Word == Keyword::Enum) {
        m_context.SkipLinesTo(word, Keyword::Enum, std::move(text));
    } else if (m_cursor.Peek(1).Word == Keyword::Type && m_cursor.Peek(2).Kind == TokenKind::Name) {
        m_context.SkipLinesTo(word, Keyword::Type, std::move(text));
    } else {
        m_cursor.FailText(word.Place, std::move(text));
    }
}

void SimpleStatementParser::RejectOption() {
    m_cursor.FailText(m_cursor.Place(), "An 'Option' must come before the first procedure");
}

}  // namespace dorvik::basic
