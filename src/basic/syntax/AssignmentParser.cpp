#include "AssignmentParser.h"

#include "base/modTextCase.h"

#include <utility>

namespace dorvik::basic {

void AssignmentParser::ParseAssignment(SourcePlace place, ExpressionPointer target) {
    m_cursor.Expect(TokenKind::Equal, parseerror::kExpectedEqual);
    ExpressionPointer value = m_expressions.ParseExpression();
    m_context.Add(place, AssignStatement{false, std::move(target), std::move(value)});
}

void AssignmentParser::ParseLet() {
    const SourcePlace place = m_cursor.Take().Place;
    ExpressionPointer target = m_expressions.ParseTarget();
    ParseAssignment(place, std::move(target));
}

void AssignmentParser::ParseSet() {
    const SourcePlace place = m_cursor.Take().Place;
    ExpressionPointer target = m_expressions.ParseTarget();
    m_cursor.Expect(TokenKind::Equal, parseerror::kExpectedEqual);
    ExpressionPointer value = m_expressions.ParseExpression();
    m_context.Add(place, AssignStatement{true, std::move(target), std::move(value)});
}

void AssignmentParser::ParseLSet() {
    ParseAligned(TextAssignment::LSet);
}

void AssignmentParser::ParseRSet() {
    ParseAligned(TextAssignment::RSet);
}

void AssignmentParser::ParseAligned(TextAssignment kind) {
    const SourcePlace place = m_cursor.Take().Place;
    ExpressionPointer target = m_expressions.ParseTarget();
    m_cursor.Expect(TokenKind::Equal, parseerror::kExpectedEqual);
    ExpressionPointer value = m_expressions.ParseExpression();
    m_context.Add(
        place, TextAssignStatement{kind, std::move(target), nullptr, nullptr, std::move(value)});
}

/// `Mid(v, start[, length]) = s`; with another number of arguments Mid is an array.
bool AssignmentParser::TakeMidAssignment(SourcePlace place, ExpressionPointer& target) {
    auto* index = std::get_if<IndexNode>(&target->Node);
    const auto* name = index ? std::get_if<NameNode>(&index->Target->Node) : nullptr;
    if (!name || !modTextCase::Equal(name->Name, "Mid") ||
        (name->Suffix != 0 && name->Suffix != '$')) {
        return false;
    }
    auto& arguments = index->Arguments;
    if (arguments.size() < 2 || arguments.size() > 3) {
        return false;
    }
    for (const Argument& argument : arguments) {
        if (!argument.Value || !argument.Name.empty()) {
            return false;
        }
    }
    m_cursor.Take();
    TextAssignStatement statement{TextAssignment::Mid, nullptr, nullptr, nullptr, nullptr};
    statement.Target = std::move(arguments[0].Value);
    statement.Start = std::move(arguments[1].Value);
    if (arguments.size() == 3) {
        statement.Length = std::move(arguments[2].Value);
    }
    statement.Value = m_expressions.ParseExpression();
    m_context.Add(place, std::move(statement));
    return true;
}

}  // namespace dorvik::basic
