#include "StatementParser.h"

#include <array>
#include <utility>

namespace dorvik::basic {

namespace {

/// The word after `End` that ends a procedure.
struct EndRow {
    Keyword Word;
    std::string_view Text;
    std::int32_t Number;
};
constexpr EndRow kEndOfSub = {Keyword::Sub, "Sub", parseerror::kExpectedSub};
constexpr EndRow kEndOfFunction = {Keyword::Function, "Function", parseerror::kExpectedFunction};
constexpr EndRow kEndOfProperty = {Keyword::Property, "Property", parseerror::kExpectedProperty};

const EndRow& EndOf(ProcedureKind kind) {
    if (kind == ProcedureKind::Sub) {
        return kEndOfSub;
    }
    return kind == ProcedureKind::Function ? kEndOfFunction : kEndOfProperty;
}

}  // namespace

struct StatementParser::HandlerRow {
    Keyword Word;
    Handler Parse;
};

/// The statements that begin with a reserved word.
const StatementParser::HandlerRow StatementParser::kHandlers[] = {
    {Keyword::Call, &Run<&StatementParser::m_calls, &CallParser::ParseCall>},
    {Keyword::Case, &Run<&StatementParser::m_blocks, &BlockParser::ParseCase>},
    {Keyword::Const, &Run<&StatementParser::m_simple, &SimpleStatementParser::ParseConst>},
    {Keyword::Declare, &Run<&StatementParser::m_simple, &SimpleStatementParser::RejectModuleLevel>},
    {Keyword::DefaultType,
     &Run<&StatementParser::m_simple, &SimpleStatementParser::RejectModuleLevel>},
    {Keyword::Dim, &Run<&StatementParser::m_simple, &SimpleStatementParser::ParseDim>},
    {Keyword::Do, &Run<&StatementParser::m_loops, &LoopParser::ParseDo>},
    {Keyword::Else, &Run<&StatementParser::m_blocks, &BlockParser::ParseElse>},
    {Keyword::ElseIf, &Run<&StatementParser::m_blocks, &BlockParser::ParseElseIf>},
    {Keyword::End, &Run<&StatementParser::m_blocks, &BlockParser::ParseEnd>},
    {Keyword::EndIf, &Run<&StatementParser::m_blocks, &BlockParser::ParseEndIf>},
    {Keyword::Enum, &Run<&StatementParser::m_simple, &SimpleStatementParser::RejectModuleLevel>},
    {Keyword::Erase, &Run<&StatementParser::m_simple, &SimpleStatementParser::ParseErase>},
    {Keyword::Exit, &Run<&StatementParser::m_jumps, &JumpParser::ParseExit>},
    {Keyword::For, &Run<&StatementParser::m_loops, &LoopParser::ParseFor>},
    {Keyword::Friend, &Run<&StatementParser::m_simple, &SimpleStatementParser::RejectModuleLevel>},
    {Keyword::Global, &Run<&StatementParser::m_simple, &SimpleStatementParser::RejectModuleLevel>},
    {Keyword::GoSub, &Run<&StatementParser::m_jumps, &JumpParser::ParseGoSub>},
    {Keyword::GoTo, &Run<&StatementParser::m_jumps, &JumpParser::ParseGoTo>},
    {Keyword::If, &Run<&StatementParser::m_blocks, &BlockParser::ParseIf>},
    {Keyword::Let, &Run<&StatementParser::m_assignments, &AssignmentParser::ParseLet>},
    {Keyword::Loop, &Run<&StatementParser::m_loops, &LoopParser::ParseLoop>},
    {Keyword::LSet, &Run<&StatementParser::m_assignments, &AssignmentParser::ParseLSet>},
    {Keyword::Next, &Run<&StatementParser::m_loops, &LoopParser::ParseNext>},
    {Keyword::On, &Run<&StatementParser::m_jumps, &JumpParser::ParseOn>},
    {Keyword::Option, &Run<&StatementParser::m_simple, &SimpleStatementParser::RejectOption>},
    {Keyword::Private, &Run<&StatementParser::m_simple, &SimpleStatementParser::RejectModuleLevel>},
    {Keyword::Public, &Run<&StatementParser::m_simple, &SimpleStatementParser::RejectModuleLevel>},
    {Keyword::ReDim, &Run<&StatementParser::m_simple, &SimpleStatementParser::ParseReDim>},
    {Keyword::Resume, &Run<&StatementParser::m_jumps, &JumpParser::ParseResume>},
    {Keyword::Return, &Run<&StatementParser::m_jumps, &JumpParser::ParseReturn>},
    {Keyword::RSet, &Run<&StatementParser::m_assignments, &AssignmentParser::ParseRSet>},
    {Keyword::Select, &Run<&StatementParser::m_blocks, &BlockParser::ParseSelect>},
    {Keyword::Set, &Run<&StatementParser::m_assignments, &AssignmentParser::ParseSet>},
    {Keyword::Static, &Run<&StatementParser::m_simple, &SimpleStatementParser::ParseStatic>},
    {Keyword::Stop, &Run<&StatementParser::m_simple, &SimpleStatementParser::ParseStop>},
    {Keyword::Wend, &Run<&StatementParser::m_loops, &LoopParser::ParseWend>},
    {Keyword::While, &Run<&StatementParser::m_loops, &LoopParser::ParseWhile>},
    {Keyword::With, &Run<&StatementParser::m_blocks, &BlockParser::ParseWith>},
};

StatementParser::Handler StatementParser::HandlerOf(Keyword word) {
    static const auto byWord = [] {
        std::array<Handler, kKeywords> handlers{};
        for (const HandlerRow& row : kHandlers) {
            handlers[static_cast<std::size_t>(row.Word)] = row.Parse;
        }
        return handlers;
    }();
    return byWord[static_cast<std::size_t>(word)];
}

StatementParser::StatementParser(
    TokenCursor& cursor,
    ITokenSource& source,
    ExpressionParser& expressions,
    DeclarationParser& declarations)
    : m_context(cursor, source, expressions, declarations),
      m_simple(m_context),
      m_assignments(m_context),
      m_calls(m_context),
      m_named(m_context, m_assignments, m_calls),
      m_blocks(m_context),
      m_loops(m_context),
      m_jumps(m_context) {}

void StatementParser::NoteModuleName(std::string_view name) {
    m_context.ModuleNames.Note(name);
}

bool StatementParser::ParseBody(ProcedureNode& procedure) {
    m_context.Body = {};
    m_context.Body.Procedure = &procedure;
    m_context.Blocks.Begin(procedure.Body);
    m_context.Labels.Begin();
    m_context.Body.Names.Note(procedure.Name);
    for (const ParameterNode& parameter : procedure.Parameters) {
        m_context.Body.Names.Note(parameter.Name);
    }
    m_context.UpdateWith();
    while (!m_context.Body.IsOver) {
        if (m_context.Cursor.AtEndOfLine()) {
            BeginLine();
        } else if (!m_context.Cursor.TakeIf(TokenKind::Colon)) {
            ParseStatement();
        }
    }
    m_context.UpdateWith();
    m_context.Labels.Check();
    return m_context.Body.IsWhole;
}

void StatementParser::BeginLine() {
    m_context.Blocks.EndLine();
    m_context.UpdateWith();
    if (!m_context.Cursor.NextLine(m_context.Source)) {
        EndUnfinished("", {});
        return;
    }
    m_context.Body.StatementsOnLine = 0;
    ParseLabel();
}

bool StatementParser::AtNamedLabel() const {
    const Token& token = m_context.Cursor.Peek();
    return token.Kind == TokenKind::Name && token.Suffix == 0 &&
           m_context.Cursor.Peek(1).Kind == TokenKind::Colon;
}

void StatementParser::ParseLabel() {
    const Token token = m_context.Cursor.Peek();
    const bool isNumber = token.Kind == TokenKind::Number &&
                          token.Text.find_first_not_of("0123456789") == std::string_view::npos;
    if (!isNumber && !AtNamedLabel()) {
        return;
    }
    m_context.RequireCase();
    std::string label = m_context.ParseLabelName();
    m_context.Cursor.TakeIf(TokenKind::Colon);
    m_context.Labels.Define(label, token.Place);
    m_context.Add(token.Place, LabelStatement{std::move(label)});
    if (m_context.Cursor.HasFailed()) {
        m_context.Cursor.SkipStatement();
    }
}

bool StatementParser::ParseProcedureEnd() {
    if (!m_context.Cursor.At(TokenKind::Keyword) || !m_context.Cursor.At(Keyword::End)) {
        return false;
    }
    const Keyword found = m_context.Cursor.Peek(1).Word;
    if (found != Keyword::Sub && found != Keyword::Function && found != Keyword::Property) {
        return false;
    }
    const EndRow& expected = EndOf(m_context.Body.Procedure->Kind);
    const SourcePlace place = m_context.Cursor.Take().Place;
    const std::string text = "End " + std::string(m_context.Cursor.Take().Text);
    if (found != expected.Word) {
        m_context.Cursor.Errors().AddText(
            expected.Number,
            place,
            "Expected 'End " + std::string(expected.Text) + "', found '" + text + "'");
    } else if (m_context.Blocks.Contains(BlockKind::LineIf)) {
        m_context.Cursor.FailText(place, "'" + text + "' cannot follow a single-line 'If'");
    }
    m_context.Blocks.EndProcedure(text, place);
    m_context.Body.Procedure->EndPlace = place;
    m_context.Body.IsOver = true;
    return true;
}

void StatementParser::EndUnfinished(std::string_view found, SourcePlace place) {
    std::string text =
        "Expected 'End " + std::string(EndOf(m_context.Body.Procedure->Kind).Text) + "': ";
    text += found.empty() ? "the text ends"
                          : "'" + std::string(found) + "' in line " + std::to_string(place.Line) +
                                " comes before it";
    m_context.Cursor.Errors().AddText(
        parseerror::kExpectedEnd, m_context.Body.Procedure->Place, std::move(text));
    m_context.Blocks.EndProcedure(found, place);
    m_context.Body.Procedure->EndPlace = place;
    m_context.Body.IsOver = true;
    m_context.Body.IsWhole = false;
}

void StatementParser::ParseStatement() {
    if (ParseProcedureEnd()) {
        return;
    }
    if (m_context.AtProcedureHead()) {
        EndUnfinished(m_context.Cursor.Peek().Text, m_context.Cursor.Place());
        return;
    }
    const Token& token = m_context.Cursor.Peek();
    const Handler handler = token.Kind == TokenKind::Keyword ? HandlerOf(token.Word) : nullptr;
    const bool belongsToSelect = token.Kind == TokenKind::Keyword &&
                                 (token.Word == Keyword::Case || token.Word == Keyword::End);
    if (!belongsToSelect) {
        m_context.RequireCase();
    }
    if (handler) {
        handler(*this);
    } else if (
        token.Kind == TokenKind::Name || token.Kind == TokenKind::Dot ||
        token.Kind == TokenKind::Bang || token.Word == Keyword::Me) {
        m_named.ParseNamed();
    } else {
        m_context.Cursor.Fail(parseerror::kExpectedStatement);
    }
    ++m_context.Body.StatementsOnLine;
    FinishStatement();
}

void StatementParser::FinishStatement() {
    const bool needsNoSeparator = std::exchange(m_context.Body.NeedsNoSeparator, false);
    if (!m_context.Cursor.HasFailed() && !needsNoSeparator && !m_context.Cursor.AtEnd()) {
        m_context.Cursor.Fail(parseerror::kExpectedEndOfStatement);
    }
    if (m_context.Cursor.HasFailed()) {
        m_context.Cursor.SkipStatement();
    }
}

}  // namespace dorvik::basic
