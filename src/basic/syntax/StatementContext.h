#pragma once

#include "BlockStack.h"
#include "DeclarationParser.h"
#include "LabelTable.h"

#include <string>
#include <string_view>

namespace dorvik::basic {

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

/// What the parsers of statements share, and what they do with it.
/// REQUIRES: everything passed outlives it.
class StatementContext {
public:
    StatementContext(
        TokenCursor& cursor,
        ITokenSource& source,
        ExpressionParser& expressions,
        DeclarationParser& declarations);

    /// Appends a statement to the innermost block, unless it has failed.
    void Add(SourcePlace place, decltype(Statement::Node) node);
    /// Begins a block.
    void Open(BlockKind kind, SourcePlace place, decltype(Statement::Node) node);
    /// Ends the innermost block of that kind; an error if none is open.
    void CloseSimple(
        BlockKind kind, std::string_view closing, std::string_view opening, SourcePlace place);
    /// Lets the expression parser know whether there is a With around. To be called when blocks have begun or ended.
    void UpdateWith();
    /// Between `Select Case` and the first `Case` no statement is allowed.
    void RequireCase();
    /// At the head of another procedure.
    bool AtProcedureHead() const;
    /// Reports the first line of a block that cannot be here and skips all of it, but not the end of the procedure.
    void SkipLinesTo(const Token& first, Keyword word, std::string text);
    /// A name, or a number from 0 to 2147483647 without its leading zeros.
    std::string ParseLabelName();
    /// The same where a jump names it; the procedure must have the label.
    std::string ParseLabelReference();
    bool IsFirstOnLine() const { return Body.StatementsOnLine == 0; }

    TokenCursor& Cursor;
    ITokenSource& Source;
    ExpressionParser& Expressions;
    DeclarationParser& Declarations;
    BlockStack Blocks;
    LabelTable Labels;
    ClockNames ModuleNames;
    BodyState Body;
};

}  // namespace dorvik::basic
