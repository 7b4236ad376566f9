#pragma once

#include "TokenCursor.h"
#include "basic/syntax/Ast.h"

namespace dorvik::basic {

/// Parses expressions and argument lists by precedence climbing over a table of the operators. After a
/// failure of the cursor the results are null or incomplete, and are not used.
/// REQUIRES: the cursor outlives it.
class ExpressionParser {
public:
    explicit ExpressionParser(TokenCursor& cursor) : m_cursor(cursor) {}

    ExpressionPointer ParseExpression();
    /// What can be on the left of `=` or be called: a name, or a member of the With, followed by
    /// `.name`, `!name` and `(...)`. A blank before `.` or `!` ends it: `Foo .x` calls Foo with `.x`.
    ExpressionPointer ParseTarget();
    /// The same, but no further than the token at `position`.
    ExpressionPointer ParseTargetBefore(std::size_t position);
    /// A number, a string, a name or something in parentheses, without operators.
    ExpressionPointer ParsePrimary();
    /// The arguments after the `(`, which is taken already, with the `)`.
    void ParseArguments(std::vector<Argument>& arguments);
    /// The arguments of a call without parentheses, to the end of the statement.
    void ParseBareArguments(std::vector<Argument>& arguments);
    ExpressionPointer MakeParenthesis(ExpressionPointer inner);
    /// `=`, `<`, `>=` ... as written in `Case Is`; false if there is none here.
    bool TakeComparison(BinaryOperator& comparison);
    /// A class or type name, perhaps with a library before it: `Scripting.Dictionary`.
    std::string ParseTypeName();

    /// Whether `.x` and `!x` have a With to refer to.
    void SetInWith(bool isInWith) { m_isInWith = isInWith; }

private:
    class NestingGuard;

    ExpressionPointer ParseBinary(int leastLevel);
    ExpressionPointer ParseUnary();
    ExpressionPointer ParsePostfix(ExpressionPointer left, bool stopsAtBlank);
    bool ContinuesTarget(bool stopsAtBlank) const;
    ExpressionPointer ParseOperand();
    ExpressionPointer ParseLiteral();
    ExpressionPointer ParseWord();
    ExpressionPointer ParseMember(ExpressionPointer target);
    ExpressionPointer ParseIndex(ExpressionPointer target);
    ExpressionPointer ParseTypeOf();
    Argument ParseArgument();
    void ParseArgumentList(std::vector<Argument>& arguments);
    void RejectForeignOperator();
    bool EnterNesting();
    ExpressionPointer
    Make(SourcePlace place, std::int32_t heightBelow, decltype(Expression::Node) node);

    TokenCursor& m_cursor;
    int m_nesting = 0;
    std::size_t m_targetEnd = static_cast<std::size_t>(-1);
    bool m_isInWith = false;
};

}  // namespace dorvik::basic
