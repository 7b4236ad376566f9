#include "CallParser.h"

#include "FileStatements.h"
#include "OperatorTable.h"

#include <utility>

namespace dorvik::basic {

void CallParser::ParseCall() {
    const SourcePlace place = m_cursor.Take().Place;
    ExpressionPointer target = m_expressions.ParseTarget();
    if (m_cursor.HasFailed()) {
        return;
    }
    if (!m_cursor.AtEnd()) {
        m_cursor.Fail(
            parseerror::kExpectedEndOfStatement, "the arguments of 'Call' must be in parentheses");
    }
    CallStatement call;
    call.IsCallForm = true;
    if (auto* index = std::get_if<IndexNode>(&target->Node)) {
        call.Arguments = std::move(index->Arguments);
        call.Callee = std::move(index->Target);
    } else {
        call.Callee = std::move(target);
    }
    AddCall(place, std::move(call));
}

void CallParser::ParseCallStatement(SourcePlace place, ExpressionPointer target) {
    if (auto* index = std::get_if<IndexNode>(&target->Node)) {
        ParseCallWithIndex(place, *index);
        return;
    }
    CallStatement call;
    call.Callee = std::move(target);
    m_expressions.ParseBareArguments(call.Arguments);
    AddCall(place, std::move(call));
}

/// `Foo (a)`, `Foo (a), b`, `Foo (a) + 1, 2`: what looks like an index is a first argument by value.
void CallParser::ParseCallWithIndex(SourcePlace place, IndexNode& index) {
    CallStatement call;
    call.Callee = std::move(index.Target);
    auto& arguments = index.Arguments;
    const bool goesOn =
        m_cursor.At(TokenKind::Comma) || BinaryOperatorOf(m_cursor.Peek()).Level > 0;
    if (goesOn) {
        m_cursor.Rewind(LastParenthesis());
        m_expressions.ParseBareArguments(call.Arguments);
    } else if (!m_cursor.AtEnd()) {
        m_cursor.Fail(parseerror::kExpectedEndOfStatement);
    } else if (
        arguments.size() == 1 && arguments[0].Value && arguments[0].Name.empty() &&
        !arguments[0].IsByVal) {
        call.Arguments.emplace_back();
        call.Arguments[0].Value = m_expressions.MakeParenthesis(std::move(arguments[0].Value));
    } else if (!arguments.empty()) {
        m_cursor.FailAt(m_cursor.TokenAt(LastParenthesis()).Place, parseerror::kParenthesesInCall);
    }
    AddCall(place, std::move(call));
}

/// Where the parentheses begin that end just before the cursor.
std::size_t CallParser::LastParenthesis() const {
    std::size_t position = m_cursor.Position();
    int depth = 0;
    do {
        --position;
        const TokenKind kind = m_cursor.TokenAt(position).Kind;
        if (kind == TokenKind::RightParenthesis) {
            ++depth;
        } else if (kind == TokenKind::LeftParenthesis) {
            --depth;
        }
    } while (depth > 0);
    return position;
}

void CallParser::AddCall(SourcePlace place, CallStatement call) {
    if (m_cursor.HasFailed()) {
        return;
    }
    const auto* name = std::get_if<NameNode>(&call.Callee->Node);
    const Keyword word = name && name->Suffix == 0 ? FindKeyword(name->Name) : Keyword::None;
    if (word == Keyword::Error && !call.IsCallForm && call.Arguments.size() == 1 &&
        call.Arguments[0].Value && call.Arguments[0].Name.empty()) {
        m_context.Add(place, ErrorStatement{std::move(call.Arguments[0].Value)});
    } else if (IsFileStatementCall(word)) {
        std::string text = name->Name;
        m_context.Add(
            place,
            UnsupportedStatement{
                std::move(text), std::make_unique<CallStatement>(std::move(call))});
    } else {
        m_context.Add(place, std::move(call));
    }
}

}  // namespace dorvik::basic
