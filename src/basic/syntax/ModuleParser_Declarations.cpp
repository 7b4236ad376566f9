#include "ModuleParser.h"

#include <utility>

// Declarations outside procedures, and the heads of procedures.
namespace dorvik::basic {

/// Everything that may begin with `Public`, `Private`, `Friend` or `Static`, and with none of them.
void ModuleParser::ParseScoped() {
    const SourcePlace place = m_cursor.Place();
    bool isPrivate = false;
    bool isStatic = false;
    bool isFriend = false;
    bool hasScope = false;
    while (m_cursor.At(TokenKind::Keyword)) {
        const Keyword word = m_cursor.Peek().Word;
        if (word == Keyword::Static && !isStatic) {
            isStatic = true;
        } else if (
            !hasScope && (word == Keyword::Public || word == Keyword::Private ||
                          word == Keyword::Global || word == Keyword::Friend)) {
            hasScope = true;
        } else {
            break;
        }
        isPrivate = isPrivate || word == Keyword::Private;
        isFriend = isFriend || word == Keyword::Friend;
        m_cursor.Take();
    }
    const Token& token = m_cursor.Peek();
    const Token& next = m_cursor.Peek(1);
    const bool nameFollows = next.Kind == TokenKind::Name || next.Kind == TokenKind::Keyword;
    const bool isProperty =
        token.Word == Keyword::Property && nameFollows && next.Word != Keyword::As;
    if (token.Word == Keyword::Sub || token.Word == Keyword::Function || isProperty) {
        ParseProcedure(isPrivate, isStatic);
    } else if (isStatic || isFriend) {
        m_cursor.FailText(place, "'Static' and 'Friend' are allowed before procedures only");
    } else if (token.Word == Keyword::Const) {
        m_cursor.Take();
        ParseConstants();
    } else if (token.Word == Keyword::Enum) {
        ParseEnum();
    } else if (token.Word == Keyword::Declare) {
        ParseDeclare();
    } else if (token.Word == Keyword::Type && nameFollows && next.Word != Keyword::As) {
        ParseRecord();
    } else if (
        (token.Word == Keyword::Event || token.Word == Keyword::WithEvents) &&
        next.Kind == TokenKind::Name) {
        m_cursor.FailText(
            token.Place, "'" + std::string(token.Text) + "' is not available in a module");
    } else {
        ParseVariables();
    }
}

void ModuleParser::ParseVariables() {
    ModuleVariablesNode node{m_declarations.ParseVariables()};
    for (const VariableNode& variable : node.Variables) {
        m_statements.NoteModuleName(variable.Name);
    }
    m_reportedStray = false;
    if (!m_cursor.HasFailed()) {
        m_module.Items.emplace_back(std::move(node));
    }
}

void ModuleParser::ParseConstants() {
    ModuleConstantsNode node{m_declarations.ParseConstants()};
    m_reportedStray = false;
    if (!m_cursor.HasFailed()) {
        m_module.Items.emplace_back(std::move(node));
    }
}

/// At something that begins another declaration: the block before it has no end.
bool ModuleParser::AtDeclarationHead() const {
    const Token& token = m_cursor.Peek();
    if (token.Kind != TokenKind::Keyword) {
        return false;
    }
    // A member may be called so, followed by a type or a value.
    const Token& next = m_cursor.Peek(1);
    if (next.Word == Keyword::As || next.Kind == TokenKind::Equal ||
        next.Kind == TokenKind::LeftParenthesis) {
        return false;
    }
    return token.Word == Keyword::Sub || token.Word == Keyword::Function ||
           token.Word == Keyword::Public || token.Word == Keyword::Private ||
           token.Word == Keyword::Declare || token.Word == Keyword::Dim ||
           token.Word == Keyword::Const || token.Word == Keyword::Enum;
}

/// Reads the lines of a Type or Enum to its end. The cursor is after the name.
template <class ParseMember>
void ModuleParser::ParseMembers(
    Keyword closing, std::string_view what, SourcePlace place, ParseMember parseMember) {
    const auto expectedEnd = [&](std::string detail) {
        m_cursor.Errors().AddText(
            parseerror::kExpectedEnd,
            place,
            "Expected 'End " + std::string(what) + "': " + std::move(detail));
    };
    while (true) {
        FinishItem();
        while (m_cursor.TakeIf(TokenKind::Colon)) {
        }
        if (m_cursor.AtEndOfLine()) {
            if (m_cursor.NextLine(m_source)) {
                if (m_cursor.AtEndOfLine() || m_cursor.At(TokenKind::Colon)) {
                    continue;
                }
            } else {
                expectedEnd("the text ends");
                return;
            }
        }
        if (m_cursor.At(Keyword::End) && m_cursor.Peek(1).Word != Keyword::As) {
            m_cursor.Take();
            if (m_cursor.At(closing)) {
                m_cursor.Take();
            } else {
                m_cursor.Fail(
                    parseerror::kExpectedEnd,
                    "the block ends with 'End " + std::string(what) + "'");
            }
            return;
        }
        if (AtDeclarationHead()) {
            expectedEnd(
                "'" + std::string(m_cursor.Peek().Text) + "' in line " +
                std::to_string(m_cursor.Place().Line) + " comes before it");
            m_headFollows = true;
            return;
        }
        parseMember();
    }
}

void ModuleParser::ParseRecord() {
    m_cursor.Take();
    RecordNode node;
    const Token name = m_cursor.ExpectName();
    node.Place = name.Place;
    node.Name = std::string(name.Text);
    m_reportedStray = false;
    const SourcePlace place = name.Text.empty() ? m_cursor.TokenAt(0).Place : name.Place;
    ParseMembers(Keyword::Type, "Type", place, [&] {
        node.Members.push_back(m_declarations.ParseRecordMember());
    });
    if (node.Members.empty()) {
        m_cursor.Errors().AddText(parseerror::kSyntax, place, "A 'Type' needs a member");
    }
    m_module.Items.emplace_back(std::move(node));
}

void ModuleParser::ParseEnum() {
    m_cursor.Take();
    EnumNode node;
    const Token name = m_cursor.ExpectName();
    node.Place = name.Place;
    node.Name = std::string(name.Text);
    m_reportedStray = false;
    const SourcePlace place = name.Text.empty() ? m_cursor.TokenAt(0).Place : name.Place;
    ParseMembers(Keyword::Enum, "Enum", place, [&] {
        EnumMemberNode member;
        const Token memberName = m_cursor.ExpectName();
        member.Place = memberName.Place;
        member.Name = std::string(memberName.Text);
        if (m_cursor.TakeIf(TokenKind::Equal)) {
            member.Value = m_expressions.ParseExpression();
        }
        node.Members.push_back(std::move(member));
    });
    if (node.Members.empty()) {
        m_cursor.Errors().AddText(parseerror::kSyntax, place, "An 'Enum' needs a member");
    }
    m_module.Items.emplace_back(std::move(node));
}

/// `Declare [PtrSafe] Sub|Function name Lib "file" [Alias "name"] [(parameters)] [As T]`.
void ModuleParser::ParseDeclare() {
    m_cursor.Take();
    ExternalNode node;
    if (m_cursor.At(Keyword::PtrSafe)) {
        m_cursor.Take();
    }
    node.IsFunction = m_cursor.At(Keyword::Function);
    if (node.IsFunction) {
        m_cursor.Take();
    } else {
        m_cursor.Expect(Keyword::Sub, parseerror::kExpectedSub);
    }
    const Token name = m_cursor.ExpectName();
    node.Place = name.Place;
    node.Name = std::string(name.Text);
    if (!m_cursor.TakeIf(Keyword::Lib)) {
        m_cursor.FailText(m_cursor.Place(), "Expected 'Lib'");
    }
    m_cursor.Expect(TokenKind::String, parseerror::kExpectedLiteral);
    if (m_cursor.TakeIf(Keyword::Alias)) {
        m_cursor.Expect(TokenKind::String, parseerror::kExpectedLiteral);
    }
    node.Parameters = m_declarations.ParseParameters();
    if (node.IsFunction) {
        m_declarations.ParseResultType(name.Suffix);
    }
    m_reportedStray = false;
    if (!m_cursor.HasFailed()) {
        m_module.Items.emplace_back(std::move(node));
    }
}

void ModuleParser::ParseProcedureKind(ProcedureNode& procedure) {
    const Token kind = m_cursor.Take();
    if (kind.Word == Keyword::Sub) {
        procedure.Kind = ProcedureKind::Sub;
    } else if (kind.Word == Keyword::Function) {
        procedure.Kind = ProcedureKind::Function;
    } else if (m_cursor.TakeIf(Keyword::Get)) {
        procedure.Kind = ProcedureKind::PropertyGet;
    } else if (m_cursor.TakeIf(Keyword::Let)) {
        procedure.Kind = ProcedureKind::PropertyLet;
    } else if (m_cursor.TakeIf(Keyword::Set)) {
        procedure.Kind = ProcedureKind::PropertySet;
    } else {
        m_cursor.Fail(parseerror::kExpectedLetSetGet);
    }
}

/// The body is read whatever is wrong with the head, so that its `End Sub` finds its place.
void ModuleParser::ParseProcedure(bool isPrivate, bool isStatic) {
    ProcedureNode procedure{};
    procedure.IsPrivate = isPrivate;
    procedure.IsStatic = isStatic;
    procedure.Place = m_cursor.Place();
    procedure.Kind =
        m_cursor.At(Keyword::Property) ? ProcedureKind::PropertyGet : ProcedureKind::Sub;
    ParseProcedureKind(procedure);
    const Token name = m_cursor.ExpectName();
    if (!m_cursor.HasFailed()) {
        procedure.Place = name.Place;
    }
    procedure.Name = std::string(name.Text);
    procedure.Suffix = name.Suffix;
    m_statements.NoteModuleName(procedure.Name);
    procedure.Parameters = m_declarations.ParseParameters();
    const bool hasResult =
        procedure.Kind == ProcedureKind::Function || procedure.Kind == ProcedureKind::PropertyGet;
    if (hasResult) {
        procedure.Result = m_declarations.ParseResultType(procedure.Suffix);
    } else if (procedure.Suffix != 0) {
        m_cursor.FailText(procedure.Place, "Only a function has a type suffix");
    } else {
        CheckProperty(procedure);
    }
    if (m_cursor.At(TokenKind::Keyword) && m_cursor.TakeIf(Keyword::Static)) {
        procedure.IsStatic = true;
    }
    FinishItem();
    m_sawProcedure = true;
    m_reportedStray = false;
    m_headFollows = !m_statements.ParseBody(procedure);
    m_module.Items.emplace_back(std::move(procedure));
}

void ModuleParser::CheckProperty(const ProcedureNode& procedure) {
    if (procedure.Kind != ProcedureKind::Sub && procedure.Parameters.empty()) {
        m_cursor.FailAt(procedure.Place, parseerror::kPropertyNeedsArgument);
    }
}

}  // namespace dorvik::basic
