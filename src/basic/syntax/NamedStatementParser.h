#pragma once

#include "AssignmentParser.h"
#include "CallParser.h"
#include "DebugParser.h"
#include "StatementPart.h"

namespace dorvik::basic {

/// Statements that begin with a name: assignments, calls, and statements whose words may be names.
class NamedStatementParser : private StatementPart {
public:
    /// REQUIRES: the two parsers outlive it.
    NamedStatementParser(
        StatementContext& context, AssignmentParser& assignments, CallParser& calls)
        : StatementPart(context), m_assignments(assignments), m_calls(calls), m_debug(context) {}

    void ParseNamed();

private:
    bool StatementContains(Keyword word) const;
    bool AtUnsupported(const Token& first) const;
    bool AtClockStatement(const Token& first) const;
    bool ParseSpecial();
    bool ParseForeign(const Token& first);
    void ParseTargetStatement();
    void RejectForeignAssignment();

    AssignmentParser& m_assignments;
    CallParser& m_calls;
    DebugParser m_debug;
};

}  // namespace dorvik::basic
