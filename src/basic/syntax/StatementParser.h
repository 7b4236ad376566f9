#pragma once

#include "BlockStack.h"
#include "DeclarationParser.h"
#include "LabelTable.h"

#include <optional>

namespace dorvik::basic {

/// Parses the body of one procedure after the other: statements, blocks, labels. Blocks are kept on a
/// stack of their own and not on that of C++, so no text is too deep for it.
/// REQUIRES: everything passed outlives it.
class StatementParser {
public:
    StatementParser(
        TokenCursor& cursor,
        ITokenSource& source,
        ExpressionParser& expressions,
        DeclarationParser& declarations);

    /// Reads from behind the header to behind the `End Sub`. False if the head of another procedure, on
    /// which the cursor stays, or the end of the text came first.
    bool ParseBody(ProcedureNode& procedure);
    /// A variable or procedure of the module. One named Date or Time takes `Date = x` for itself.
    void NoteModuleName(std::string_view name);

private:
    using Handler = void (StatementParser::*)();
    struct HandlerRow;
    /// Which of the two words a declaration has made a name.
    struct ClockNames {
        bool Date = false;
        bool Time = false;
        void Note(std::string_view name);
    };
    /// What is known of the procedure whose body is being read.
    struct BodyState {
        ProcedureNode* Procedure = nullptr;
        ClockNames Names;
        int StatementsOnLine = 1;
        bool NeedsNoSeparator = false;  // after Then and Else a statement may follow at once
        bool IsOver = false;
        bool IsWhole = true;  // its end was found
        bool SawTry = false;
        std::string CrossedVariable;  // of the For that the last `Next` closed under another name
    };
    static const HandlerRow kHandlers[];
    static Handler HandlerOf(Keyword word);

    // The loop
    void BeginLine();
    void ParseLabel();
    bool AtNamedLabel() const;
    bool ParseProcedureEnd();
    bool AtProcedureHead() const;
    void EndUnfinished(std::string_view found, SourcePlace place);
    void ParseStatement();
    void FinishStatement();
    void Add(SourcePlace place, decltype(Statement::Node) node);

    // Simple statements
    void ParseDim();
    void ParseStatic();
    void ParseConst();
    void ParseReDim();
    void ParseErase();
    void ParseLet();
    void ParseSet();
    void ParseLSet();
    void ParseRSet();
    void ParseAligned(TextAssignment kind);
    void ParseCall();
    void ParseStop();
    void RejectModuleLevel();
    void RejectOption();

    // Names: assignments, calls, and statements whose words may be names
    void ParseNamed();
    bool ParseSpecial();
    bool ParseForeign(const Token& first);
    void SkipLinesTo(const Token& first, Keyword word, std::string text);
    bool AtUnsupported(const Token& first) const;
    bool AtClockStatement(const Token& first) const;
    bool StatementContains(Keyword word) const;
    void ParseTargetStatement();
    void ParseAssignment(SourcePlace place, ExpressionPointer target);
    bool TakeMidAssignment(SourcePlace place, ExpressionPointer& target);
    void ParseCallStatement(SourcePlace place, ExpressionPointer target);
    void ParseCallWithIndex(SourcePlace place, IndexNode& index);
    void AddCall(SourcePlace place, CallStatement call);
    void RejectForeignAssignment();
    std::size_t LastParenthesis() const;
    void ParseDebugPrint();
    void ParseDebugAssert();
    PrintPart ParsePrintPart();

    // Blocks
    void ParseIf();
    void ParseElse();
    void ParseElseIf();
    void ParseEndIf();
    void CloseIf(SourcePlace place);
    void TakeLineJump();
    void RecoverIf(SourcePlace place);
    void RequireCase();
    void ParseSelect();
    void ParseCase();
    CaseTest ParseCaseTest();
    void ParseFor();
    void ParseForEach(SourcePlace place);
    ExpressionPointer ParseLoopVariable(std::string& name);
    void ParseNext();
    bool CloseLoopOf(const Token& next, const ExpressionPointer& variable);
    void ParseDo();
    void ParseLoop();
    LoopTest TakeLoopTest();
    void ParseWhile();
    void ParseWend();
    void ParseWith();
    void ParseEnd();
    void CloseSimple(
        BlockKind kind, std::string_view closing, std::string_view opening, SourcePlace place);
    void Open(BlockKind kind, SourcePlace place, decltype(Statement::Node) node);
    void UpdateWith();
    bool IsFirstOnLine() const { return m_body.StatementsOnLine == 0; }

    // Jumps
    void ParseGoTo();
    void ParseGoSub();
    void ParseReturn();
    void ParseOn();
    void ParseOnError(SourcePlace place);
    void ParseResume();
    void ParseExit();
    std::string ParseLabelName();

    TokenCursor& m_cursor;
    ITokenSource& m_source;
    ExpressionParser& m_expressions;
    DeclarationParser& m_declarations;
    BlockStack m_blocks;
    LabelTable m_labels;
    ClockNames m_moduleNames;
    BodyState m_body;
};

}  // namespace dorvik::basic
