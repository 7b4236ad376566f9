#include "StatementParser.h"

#include "base/modTextCase.h"

#include <array>
#include <utility>

namespace dorvik::basic {

namespace {

/// The word behind `End` that ends a procedure.
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
    {Keyword::Call, &StatementParser::ParseCall},
    {Keyword::Case, &StatementParser::ParseCase},
    {Keyword::Const, &StatementParser::ParseConst},
    {Keyword::Declare, &StatementParser::RejectModuleLevel},
    {Keyword::DefaultType, &StatementParser::RejectModuleLevel},
    {Keyword::Dim, &StatementParser::ParseDim},
    {Keyword::Do, &StatementParser::ParseDo},
    {Keyword::Else, &StatementParser::ParseElse},
    {Keyword::ElseIf, &StatementParser::ParseElseIf},
    {Keyword::End, &StatementParser::ParseEnd},
    {Keyword::EndIf, &StatementParser::ParseEndIf},
    {Keyword::Enum, &StatementParser::RejectModuleLevel},
    {Keyword::Erase, &StatementParser::ParseErase},
    {Keyword::Exit, &StatementParser::ParseExit},
    {Keyword::For, &StatementParser::ParseFor},
    {Keyword::Friend, &StatementParser::RejectModuleLevel},
    {Keyword::Global, &StatementParser::RejectModuleLevel},
    {Keyword::GoSub, &StatementParser::ParseGoSub},
    {Keyword::GoTo, &StatementParser::ParseGoTo},
    {Keyword::If, &StatementParser::ParseIf},
    {Keyword::Let, &StatementParser::ParseLet},
    {Keyword::Loop, &StatementParser::ParseLoop},
    {Keyword::LSet, &StatementParser::ParseLSet},
    {Keyword::Next, &StatementParser::ParseNext},
    {Keyword::On, &StatementParser::ParseOn},
    {Keyword::Option, &StatementParser::RejectOption},
    {Keyword::Private, &StatementParser::RejectModuleLevel},
    {Keyword::Public, &StatementParser::RejectModuleLevel},
    {Keyword::ReDim, &StatementParser::ParseReDim},
    {Keyword::Resume, &StatementParser::ParseResume},
    {Keyword::Return, &StatementParser::ParseReturn},
    {Keyword::RSet, &StatementParser::ParseRSet},
    {Keyword::Select, &StatementParser::ParseSelect},
    {Keyword::Set, &StatementParser::ParseSet},
    {Keyword::Static, &StatementParser::ParseStatic},
    {Keyword::Stop, &StatementParser::ParseStop},
    {Keyword::Wend, &StatementParser::ParseWend},
    {Keyword::While, &StatementParser::ParseWhile},
    {Keyword::With, &StatementParser::ParseWith},
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
    : m_cursor(cursor),
      m_source(source),
      m_expressions(expressions),
      m_declarations(declarations),
      m_blocks(cursor.Errors()),
      m_labels(cursor.Errors()) {}

void StatementParser::ClockNames::Note(std::string_view name) {
    const Keyword word = FindKeyword(name);
    Date = Date || word == Keyword::Date;
    Time = Time || word == Keyword::Time;
}

void StatementParser::NoteModuleName(std::string_view name) {
    m_moduleNames.Note(name);
}

bool StatementParser::ParseBody(ProcedureNode& procedure) {
    m_body = {};
    m_body.Procedure = &procedure;
    m_blocks.Begin(procedure.Body);
    m_labels.Begin();
    m_body.Names.Note(procedure.Name);
    for (const ParameterNode& parameter : procedure.Parameters) {
        m_body.Names.Note(parameter.Name);
    }
    UpdateWith();
    while (!m_body.IsOver) {
        if (m_cursor.AtEndOfLine()) {
            BeginLine();
        } else if (!m_cursor.TakeIf(TokenKind::Colon)) {
            ParseStatement();
        }
    }
    UpdateWith();
    m_labels.Check();
    return m_body.IsWhole;
}

void StatementParser::BeginLine() {
    m_blocks.EndLine();
    UpdateWith();
    if (!m_cursor.NextLine(m_source)) {
        EndUnfinished("", {});
        return;
    }
    m_body.StatementsOnLine = 0;
    ParseLabel();
}

bool StatementParser::AtNamedLabel() const {
    const Token& token = m_cursor.Peek();
    return token.Kind == TokenKind::Name && token.Suffix == 0 &&
           m_cursor.Peek(1).Kind == TokenKind::Colon;
}

void StatementParser::ParseLabel() {
    const Token token = m_cursor.Peek();
    const bool isNumber = token.Kind == TokenKind::Number &&
                          token.Text.find_first_not_of("0123456789") == std::string_view::npos;
    if (!isNumber && !AtNamedLabel()) {
        return;
    }
    RequireCase();
    std::string label = ParseLabelName();
    m_cursor.TakeIf(TokenKind::Colon);
    m_labels.Define(label, token.Place);
    Add(token.Place, LabelStatement{std::move(label)});
    if (m_cursor.HasFailed()) {
        m_cursor.SkipStatement();
    }
}

bool StatementParser::ParseProcedureEnd() {
    if (!m_cursor.At(TokenKind::Keyword) || !m_cursor.At(Keyword::End)) {
        return false;
    }
    const Keyword found = m_cursor.Peek(1).Word;
    if (found != Keyword::Sub && found != Keyword::Function && found != Keyword::Property) {
        return false;
    }
    const EndRow& expected = EndOf(m_body.Procedure->Kind);
    const SourcePlace place = m_cursor.Take().Place;
    const std::string text = "End " + std::string(m_cursor.Take().Text);
    if (found != expected.Word) {
        m_cursor.Errors().AddText(
            expected.Number,
            place,
            "Expected 'End " + std::string(expected.Text) + "', found '" + text + "'");
    } else if (m_blocks.Contains(BlockKind::LineIf)) {
        m_cursor.FailText(place, "'" + text + "' cannot stand behind a single-line 'If'");
    }
    m_blocks.EndProcedure(text, place);
    m_body.Procedure->EndPlace = place;
    m_body.IsOver = true;
    return true;
}

/// At the head of another procedure.
bool StatementParser::AtProcedureHead() const {
    std::size_t ahead = 0;
    while (m_cursor.Peek(ahead).Kind == TokenKind::Keyword &&
           (m_cursor.Peek(ahead).Word == Keyword::Public ||
            m_cursor.Peek(ahead).Word == Keyword::Private ||
            m_cursor.Peek(ahead).Word == Keyword::Friend ||
            m_cursor.Peek(ahead).Word == Keyword::Static)) {
        ++ahead;
    }
    const Token& token = m_cursor.Peek(ahead);
    if (token.Kind == TokenKind::Keyword) {
        return token.Word == Keyword::Sub || token.Word == Keyword::Function;
    }
    const Keyword next = m_cursor.Peek(ahead + 1).Word;
    const bool isKind = next == Keyword::Get || next == Keyword::Let || next == Keyword::Set;
    return token.Word == Keyword::Property && isKind &&
           m_cursor.Peek(ahead + 2).Kind == TokenKind::Name;
}

void StatementParser::EndUnfinished(std::string_view found, SourcePlace place) {
    std::string text = "Expected 'End " + std::string(EndOf(m_body.Procedure->Kind).Text) + "': ";
    text += found.empty() ? "the text ends"
                          : "'" + std::string(found) + "' in line " + std::to_string(place.Line) +
                                " comes before it";
    m_cursor.Errors().AddText(parseerror::kExpectedEnd, m_body.Procedure->Place, std::move(text));
    m_blocks.EndProcedure(found, place);
    m_body.Procedure->EndPlace = place;
    m_body.IsOver = true;
    m_body.IsWhole = false;
}

void StatementParser::ParseStatement() {
    if (ParseProcedureEnd()) {
        return;
    }
    if (AtProcedureHead()) {
        EndUnfinished(m_cursor.Peek().Text, m_cursor.Place());
        return;
    }
    const Token& token = m_cursor.Peek();
    const Handler handler = token.Kind == TokenKind::Keyword ? HandlerOf(token.Word) : nullptr;
    const bool belongsToSelect = token.Kind == TokenKind::Keyword &&
                                 (token.Word == Keyword::Case || token.Word == Keyword::End);
    if (!belongsToSelect) {
        RequireCase();
    }
    if (handler) {
        (this->*handler)();
    } else if (
        token.Kind == TokenKind::Name || token.Kind == TokenKind::Dot ||
        token.Kind == TokenKind::Bang || token.Word == Keyword::Me) {
        ParseNamed();
    } else {
        m_cursor.Fail(parseerror::kExpectedStatement);
    }
    ++m_body.StatementsOnLine;
    FinishStatement();
}

void StatementParser::FinishStatement() {
    const bool needsNoSeparator = std::exchange(m_body.NeedsNoSeparator, false);
    if (!m_cursor.HasFailed() && !needsNoSeparator && !m_cursor.AtEnd()) {
        m_cursor.Fail(parseerror::kExpectedEndOfStatement);
    }
    if (m_cursor.HasFailed()) {
        m_cursor.SkipStatement();
    }
}

void StatementParser::Add(SourcePlace place, decltype(Statement::Node) node) {
    if (!m_cursor.HasFailed()) {
        m_blocks.Append({place, std::move(node)});
    }
}

void StatementParser::ParseDim() {
    const SourcePlace place = m_cursor.Take().Place;
    DeclareStatement statement{LocalScope::Dim, m_declarations.ParseVariables()};
    for (const VariableNode& variable : statement.Variables) {
        m_body.Names.Note(variable.Name);
    }
    Add(place, std::move(statement));
}

void StatementParser::ParseStatic() {
    const SourcePlace place = m_cursor.Take().Place;
    DeclareStatement statement{LocalScope::Static, m_declarations.ParseVariables()};
    for (const VariableNode& variable : statement.Variables) {
        m_body.Names.Note(variable.Name);
    }
    Add(place, std::move(statement));
}

void StatementParser::ParseConst() {
    const SourcePlace place = m_cursor.Take().Place;
    ConstStatement statement{m_declarations.ParseConstants()};
    Add(place, std::move(statement));
}

void StatementParser::ParseReDim() {
    const SourcePlace place = m_cursor.Take().Place;
    RedimStatement statement = m_declarations.ParseRedim();
    Add(place, std::move(statement));
}

void StatementParser::ParseErase() {
    const SourcePlace place = m_cursor.Take().Place;
    EraseStatement statement;
    do {
        statement.Targets.push_back(m_expressions.ParseTarget());
    } while (m_cursor.TakeIf(TokenKind::Comma));
    Add(place, std::move(statement));
}

void StatementParser::ParseStop() {
    const SourcePlace place = m_cursor.Take().Place;
    Add(place, StopStatement{});
}

void StatementParser::RejectModuleLevel() {
    const Token word = m_cursor.Peek();
    std::string text = "'" + std::string(word.Text) + "' can stand outside procedures only";
    if (word.Word == Keyword::Enum || m_cursor.Peek(1).Word == Keyword::Enum) {
        SkipLinesTo(word, Keyword::Enum, std::move(text));
    } else if (m_cursor.Peek(1).Word == Keyword::Type && m_cursor.Peek(2).Kind == TokenKind::Name) {
        SkipLinesTo(word, Keyword::Type, std::move(text));
    } else {
        m_cursor.FailText(word.Place, std::move(text));
    }
}

void StatementParser::RejectOption() {
    m_cursor.FailText(m_cursor.Place(), "An 'Option' must stand before the first procedure");
}

}  // namespace dorvik::basic
