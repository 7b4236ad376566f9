#pragma once

#include "StatementContext.h"

namespace dorvik::basic {

/// What the parsers of one kind of statements have in common. Each operation begins at the first word of a statement.
/// REQUIRES: the context outlives the part.
class StatementPart {
protected:
    explicit StatementPart(StatementContext& context)
        : m_context(context), m_cursor(context.Cursor), m_expressions(context.Expressions) {}
    ~StatementPart() = default;

    StatementContext& m_context;
    TokenCursor& m_cursor;
    ExpressionParser& m_expressions;
};

}  // namespace dorvik::basic
