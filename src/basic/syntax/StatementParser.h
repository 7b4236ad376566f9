#pragma once

#include "AssignmentParser.h"
#include "BlockParser.h"
#include "CallParser.h"
#include "JumpParser.h"
#include "LoopParser.h"
#include "NamedStatementParser.h"
#include "SimpleStatementParser.h"
#include "StatementContext.h"

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

    /// Reads from after the header to after the `End Sub`. False if the head of another procedure, on
    /// which the cursor stays, or the end of the text came first.
    bool ParseBody(ProcedureNode& procedure);
    /// A variable or procedure of the module. One named Date or Time takes `Date = x` for itself.
    void NoteModuleName(std::string_view name);

private:
    using Handler = void (*)(StatementParser&);
    struct HandlerRow;
    static const HandlerRow kHandlers[];
    static Handler HandlerOf(Keyword word);
    /// Lets a part parse the statement.
    template <auto Part, auto Parse>
    static void Run(StatementParser& parser) {
        ((parser.*Part).*Parse)();
    }

    void BeginLine();
    void ParseLabel();
    bool AtNamedLabel() const;
    bool ParseProcedureEnd();
    void EndUnfinished(std::string_view found, SourcePlace place);
    void ParseStatement();
    void FinishStatement();

    StatementContext m_context;
    SimpleStatementParser m_simple;
    AssignmentParser m_assignments;
    CallParser m_calls;
    NamedStatementParser m_named;
    BlockParser m_blocks;
    LoopParser m_loops;
    JumpParser m_jumps;
};

}  // namespace dorvik::basic
