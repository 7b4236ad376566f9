#include "NamedStatementParser.h"

#include "FileStatements.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

void NamedStatementParser::ParseNamed() {
    const Token& first = m_cursor.Peek();
    if (first.Kind != TokenKind::Name || first.Word == Keyword::None || !ParseSpecial()) {
        ParseTargetStatement();
    }
}

bool NamedStatementParser::StatementContains(Keyword word) const {
    for (std::size_t ahead = 1;; ++ahead) {
        const Token& token = m_cursor.Peek(ahead);
        if (token.Kind == TokenKind::EndOfLine || token.Kind == TokenKind::Colon) {
            return false;
        }
        if (token.Kind == TokenKind::Keyword && token.Word == word) {
            return true;
        }
    }
}

bool NamedStatementParser::AtUnsupported(const Token& first) const {
    const Token& next = m_cursor.Peek(1);
    if (next.Kind == TokenKind::Equal || next.Kind == TokenKind::Dot) {
        return false;
    }
    if (first.Word == Keyword::Line) {
        return next.Word == Keyword::Input;
    }
    const bool hasFile = next.Kind == TokenKind::Hash || first.Suffix == '#';
    return std::ranges::any_of(FileStatements(), [&](const FileStatementRow& row) {
        return row.Word == first.Word &&
               ((row.TakesFile && hasFile) ||
                (row.Mark != Keyword::None && StatementContains(row.Mark)));
    });
}

/// `Date = x` and `Time = x` set the clock, where neither is a name of the script's own.
bool NamedStatementParser::AtClockStatement(const Token& first) const {
    if (m_cursor.Peek(1).Kind != TokenKind::Equal || (first.Suffix != 0 && first.Suffix != '$')) {
        return false;
    }
    if (first.Word == Keyword::Date) {
        return !m_context.ModuleNames.Date && !m_context.Body.Names.Date;
    }
    return first.Word == Keyword::Time && !m_context.ModuleNames.Time && !m_context.Body.Names.Time;
}

bool NamedStatementParser::ParseSpecial() {
    const Token first = m_cursor.Peek();
    const Token& next = m_cursor.Peek(1);
    if (first.Word == Keyword::Debug && next.Kind == TokenKind::Dot) {
        const Keyword member = m_cursor.Peek(2).Word;
        if (member == Keyword::Print) {
            m_debug.ParseDebugPrint();
        } else if (member == Keyword::Assert) {
            m_debug.ParseDebugAssert();
        } else {
            return false;
        }
        return true;
    }
    if (AtUnsupported(first)) {
        m_cursor.TakeToEnd();
        std::string name(first.Text);
        if (first.Word == Keyword::Line) {
            name += " Input";
        }
        m_context.Add(first.Place, UnsupportedStatement{std::move(name), nullptr});
        return true;
    }
    if (AtClockStatement(first)) {
        m_cursor.Take();
        m_cursor.Take();
        m_expressions.ParseExpression();
        m_context.Add(first.Place, UnsupportedStatement{std::string(first.Text), nullptr});
        return true;
    }
    if (first.Word == Keyword::Attribute && next.Kind == TokenKind::Name) {
        m_cursor.TakeToEnd();
        return true;
    }
    return ParseForeign(first);
}

/// What other dialects have and this one has not.
bool NamedStatementParser::ParseForeign(const Token& first) {
    const Token& next = m_cursor.Peek(1);
    const TokenKind behindNext = m_cursor.Peek(2).Kind;
    const bool standsAlone = next.Kind == TokenKind::EndOfLine || next.Kind == TokenKind::Colon;
    if (first.Word == Keyword::Begin && next.Word == Keyword::Dialog) {
        m_context.SkipLinesTo(first, Keyword::Dialog, "Dialogs ('Begin Dialog') are not available");
    } else if (
        first.Word == Keyword::Type && next.Kind == TokenKind::Name &&
        behindNext == TokenKind::EndOfLine) {
        m_context.SkipLinesTo(first, Keyword::Type, "'Type' is allowed outside procedures only");
    } else if (first.Word == Keyword::Try && standsAlone) {
        m_context.Body.SawTry = true;
        m_cursor.FailText(first.Place, "'Try' is not part of this language; use 'On Error'");
    } else if (
        m_context.Body.SawTry && (first.Word == Keyword::Catch || first.Word == Keyword::Finally)) {
        m_cursor.TakeToEnd();
    } else {
        return false;
    }
    return true;
}

void NamedStatementParser::ParseTargetStatement() {
    const SourcePlace place = m_cursor.Place();
    ExpressionPointer target = m_expressions.ParseTarget();
    if (m_cursor.HasFailed()) {
        return;
    }
    if (m_cursor.At(TokenKind::Equal)) {
        if (!m_assignments.TakeMidAssignment(place, target)) {
            m_assignments.ParseAssignment(place, std::move(target));
        }
        return;
    }
    RejectForeignAssignment();
    if (!m_cursor.HasFailed()) {
        m_calls.ParseCallStatement(place, std::move(target));
    }
}

void NamedStatementParser::RejectForeignAssignment() {
    const Token& sign = m_cursor.Peek();
    const Token& next = m_cursor.Peek(1);
    const bool isSign = sign.Kind >= TokenKind::Plus && sign.Kind <= TokenKind::Ampersand;
    if (isSign && next.Kind == TokenKind::Equal && !next.BlankBefore) {
        m_cursor.FailText(
            sign.Place,
            "'" + std::string(sign.Text) + "=' is not an operator of this language; write 'x = x " +
                std::string(sign.Text) + " ...'");
    }
}

}  // namespace dorvik::basic
