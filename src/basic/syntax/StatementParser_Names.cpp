#include "OperatorTable.h"
#include "StatementParser.h"
#include "base/modTextCase.h"

#include <algorithm>
#include <utility>

// Statements that begin with a name: assignments, calls, and those whose words are ordinary names
// wherever the rest does not fit.
namespace dorvik::basic {

namespace {

/// Statements on files. `NeedsFile`: refused where `#` follows; else `FirstMark` or `SecondMark` must
/// occur. Those with `IsCall` are refused too where they look like a call.
struct UnsupportedRow {
    Keyword Word;
    bool TakesFile;
    bool IsCall;
    Keyword Mark;  // a word that the statement has and a call cannot have
};
constexpr UnsupportedRow kUnsupported[] = {
    {Keyword::Open, false, false, Keyword::As},
    {Keyword::Open, false, false, Keyword::For},
    {Keyword::Name, false, false, Keyword::As},
    {Keyword::Close, true, true, Keyword::None},
    {Keyword::Get, true, true, Keyword::None},
    {Keyword::Input, true, false, Keyword::None},
    {Keyword::Lock, true, true, Keyword::To},
    {Keyword::Print, true, false, Keyword::None},
    {Keyword::Put, true, true, Keyword::None},
    {Keyword::Reset, false, true, Keyword::None},
    {Keyword::Seek, true, true, Keyword::None},
    {Keyword::Unlock, true, true, Keyword::To},
    {Keyword::Width, true, true, Keyword::None},
    {Keyword::Write, true, false, Keyword::None},
};

bool IsUnsupportedCall(Keyword word) {
    return std::any_of(
        std::begin(kUnsupported), std::end(kUnsupported), [word](const UnsupportedRow& row) {
            return row.Word == word && row.IsCall;
        });
}

}  // namespace

void StatementParser::ParseNamed() {
    const Token& first = m_cursor.Peek();
    if (first.Kind != TokenKind::Name || first.Word == Keyword::None || !ParseSpecial()) {
        ParseTargetStatement();
    }
}

bool StatementParser::StatementContains(Keyword word) const {
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

bool StatementParser::AtUnsupported(const Token& first) const {
    const Token& next = m_cursor.Peek(1);
    if (next.Kind == TokenKind::Equal || next.Kind == TokenKind::Dot) {
        return false;
    }
    if (first.Word == Keyword::Line) {
        return next.Word == Keyword::Input;
    }
    const bool hasFile = next.Kind == TokenKind::Hash || first.Suffix == '#';
    return std::any_of(
        std::begin(kUnsupported), std::end(kUnsupported), [&](const UnsupportedRow& row) {
            return row.Word == first.Word &&
                   ((row.TakesFile && hasFile) ||
                    (row.Mark != Keyword::None && StatementContains(row.Mark)));
        });
}

/// `Date = x` and `Time = x` set the clock, where neither is a name of the script's own.
bool StatementParser::AtClockStatement(const Token& first) const {
    if (m_cursor.Peek(1).Kind != TokenKind::Equal || (first.Suffix != 0 && first.Suffix != '$')) {
        return false;
    }
    if (first.Word == Keyword::Date) {
        return !m_moduleNames.Date && !m_body.Names.Date;
    }
    return first.Word == Keyword::Time && !m_moduleNames.Time && !m_body.Names.Time;
}

bool StatementParser::ParseSpecial() {
    const Token first = m_cursor.Peek();
    const Token& next = m_cursor.Peek(1);
    if (first.Word == Keyword::Debug && next.Kind == TokenKind::Dot) {
        const Keyword member = m_cursor.Peek(2).Word;
        if (member == Keyword::Print) {
            ParseDebugPrint();
        } else if (member == Keyword::Assert) {
            ParseDebugAssert();
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
        Add(first.Place, UnsupportedStatement{std::move(name), nullptr});
        return true;
    }
    if (AtClockStatement(first)) {
        m_cursor.Take();
        m_cursor.Take();
        m_expressions.ParseExpression();
        Add(first.Place, UnsupportedStatement{std::string(first.Text), nullptr});
        return true;
    }
    if (first.Word == Keyword::Attribute && next.Kind == TokenKind::Name) {
        m_cursor.TakeToEnd();
        return true;
    }
    return ParseForeign(first);
}

/// What other dialects have and this one has not.
bool StatementParser::ParseForeign(const Token& first) {
    const Token& next = m_cursor.Peek(1);
    const TokenKind behindNext = m_cursor.Peek(2).Kind;
    const bool standsAlone = next.Kind == TokenKind::EndOfLine || next.Kind == TokenKind::Colon;
    if (first.Word == Keyword::Begin && next.Word == Keyword::Dialog) {
        SkipLinesTo(first, Keyword::Dialog, "Dialogs ('Begin Dialog') are not available");
    } else if (
        first.Word == Keyword::Type && next.Kind == TokenKind::Name &&
        behindNext == TokenKind::EndOfLine) {
        SkipLinesTo(first, Keyword::Type, "'Type' can stand outside procedures only");
    } else if (first.Word == Keyword::Try && standsAlone) {
        m_body.SawTry = true;
        m_cursor.FailText(first.Place, "'Try' is not part of this language; use 'On Error'");
    } else if (m_body.SawTry && (first.Word == Keyword::Catch || first.Word == Keyword::Finally)) {
        m_cursor.TakeToEnd();
    } else {
        return false;
    }
    return true;
}

/// Reports the first line of a block that cannot stand here and passes over all of it, but not over
/// the end of the procedure.
void StatementParser::SkipLinesTo(const Token& first, Keyword word, std::string text) {
    m_cursor.FailText(first.Place, std::move(text));
    while (m_cursor.NextLine(m_source)) {
        if (m_cursor.At(Keyword::End) && m_cursor.Peek(1).Word == word) {
            m_cursor.SkipLine();
            return;
        }
        const Keyword ended = m_cursor.At(Keyword::End) ? m_cursor.Peek(1).Word : Keyword::None;
        const bool isProcedureEnd =
            ended == Keyword::Sub || ended == Keyword::Function || ended == Keyword::Property;
        if (isProcedureEnd || AtProcedureHead()) {
            m_body.NeedsNoSeparator = true;
            return;
        }
    }
}

void StatementParser::ParseTargetStatement() {
    const SourcePlace place = m_cursor.Place();
    ExpressionPointer target = m_expressions.ParseTarget();
    if (m_cursor.HasFailed()) {
        return;
    }
    if (m_cursor.At(TokenKind::Equal)) {
        if (!TakeMidAssignment(place, target)) {
            ParseAssignment(place, std::move(target));
        }
        return;
    }
    RejectForeignAssignment();
    if (!m_cursor.HasFailed()) {
        ParseCallStatement(place, std::move(target));
    }
}

void StatementParser::RejectForeignAssignment() {
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

void StatementParser::ParseAssignment(SourcePlace place, ExpressionPointer target) {
    m_cursor.Expect(TokenKind::Equal, parseerror::kExpectedEqual);
    ExpressionPointer value = m_expressions.ParseExpression();
    Add(place, AssignStatement{false, std::move(target), std::move(value)});
}

void StatementParser::ParseLet() {
    const SourcePlace place = m_cursor.Take().Place;
    ExpressionPointer target = m_expressions.ParseTarget();
    ParseAssignment(place, std::move(target));
}

void StatementParser::ParseSet() {
    const SourcePlace place = m_cursor.Take().Place;
    ExpressionPointer target = m_expressions.ParseTarget();
    m_cursor.Expect(TokenKind::Equal, parseerror::kExpectedEqual);
    ExpressionPointer value = m_expressions.ParseExpression();
    Add(place, AssignStatement{true, std::move(target), std::move(value)});
}

void StatementParser::ParseLSet() {
    ParseAligned(TextAssignment::LSet);
}

void StatementParser::ParseRSet() {
    ParseAligned(TextAssignment::RSet);
}

void StatementParser::ParseAligned(TextAssignment kind) {
    const SourcePlace place = m_cursor.Take().Place;
    ExpressionPointer target = m_expressions.ParseTarget();
    m_cursor.Expect(TokenKind::Equal, parseerror::kExpectedEqual);
    ExpressionPointer value = m_expressions.ParseExpression();
    Add(place, TextAssignStatement{kind, std::move(target), nullptr, nullptr, std::move(value)});
}

/// `Mid(v, start[, length]) = s`; with another number of arguments Mid is an array.
bool StatementParser::TakeMidAssignment(SourcePlace place, ExpressionPointer& target) {
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
    Add(place, std::move(statement));
    return true;
}

void StatementParser::ParseCall() {
    const SourcePlace place = m_cursor.Take().Place;
    ExpressionPointer target = m_expressions.ParseTarget();
    if (m_cursor.HasFailed()) {
        return;
    }
    if (!m_cursor.AtEnd()) {
        m_cursor.Fail(
            parseerror::kExpectedEndOfStatement, "the arguments of 'Call' stand in parentheses");
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

void StatementParser::ParseCallStatement(SourcePlace place, ExpressionPointer target) {
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
void StatementParser::ParseCallWithIndex(SourcePlace place, IndexNode& index) {
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
std::size_t StatementParser::LastParenthesis() const {
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

void StatementParser::AddCall(SourcePlace place, CallStatement call) {
    if (m_cursor.HasFailed()) {
        return;
    }
    const auto* name = std::get_if<NameNode>(&call.Callee->Node);
    const Keyword word = name && name->Suffix == 0 ? FindKeyword(name->Name) : Keyword::None;
    if (word == Keyword::Error && !call.IsCallForm && call.Arguments.size() == 1 &&
        call.Arguments[0].Value && call.Arguments[0].Name.empty()) {
        Add(place, ErrorStatement{std::move(call.Arguments[0].Value)});
    } else if (IsUnsupportedCall(word)) {
        std::string text = name->Name;
        Add(place,
            UnsupportedStatement{
                std::move(text), std::make_unique<CallStatement>(std::move(call))});
    } else {
        Add(place, std::move(call));
    }
}

}  // namespace dorvik::basic
