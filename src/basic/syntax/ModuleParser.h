#pragma once

#include "StatementParser.h"

namespace dorvik::basic {

/// Parses what is outside procedures, and the heads of procedures; the bodies are the statement
/// parser's.
/// REQUIRES: everything passed outlives it.
class ModuleParser {
public:
    ModuleParser(TokenCursor& cursor, ITokenSource& source, ModuleNode& module);

    void Parse();

private:
    static constexpr std::size_t kOptions = 4;

    void ParseItem();
    bool ParseNamedItem(const Token& first);
    void FinishItem();
    void ReportStray();

    void ParseOption();
    bool NoteOption(std::size_t option, SourcePlace place);
    void ParseAttribute();
    void ParseDefaultTypes();
    void SetDefault(char first, char last, DeclaredKind kind, SourcePlace place);
    void ParseScoped();
    void ParseVariables();
    void ParseConstants();
    void ParseRecord();
    void ParseEnum();
    template <class ParseMember>
    void ParseMembers(
        Keyword closing, std::string_view what, SourcePlace place, ParseMember parseMember);
    bool AtDeclarationHead() const;
    void ParseDeclare();
    void ParseProcedure(bool isPrivate, bool isStatic);
    void ParseProcedureKind(ProcedureNode& procedure);
    void CheckProperty(const ProcedureNode& procedure);

    TokenCursor& m_cursor;
    ITokenSource& m_source;
    ModuleNode& m_module;
    ExpressionParser m_expressions;
    DeclarationParser m_declarations;
    StatementParser m_statements;
    bool m_sawProcedure = false;
    bool m_headFollows = false;  // the item had no end; the cursor is at the next one
    bool m_sawClass = false;
    bool m_reportedStray = false;  // once for statements that follow each other
    SourcePlace m_optionPlaces[kOptions];
    SourcePlace m_defaultPlaces[26];  // of the letters, 'a' first
};

}  // namespace dorvik::basic
