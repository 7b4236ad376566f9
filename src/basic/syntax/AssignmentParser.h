#pragma once

#include "StatementPart.h"

namespace dorvik::basic {

/// Let, Set, LSet, RSet and Mid.
class AssignmentParser : private StatementPart {
public:
    explicit AssignmentParser(StatementContext& context) : StatementPart(context) {}

    void ParseAssignment(SourcePlace place, ExpressionPointer target);
    void ParseLet();
    void ParseSet();
    void ParseLSet();
    void ParseRSet();
    bool TakeMidAssignment(SourcePlace place, ExpressionPointer& target);

private:
    void ParseAligned(TextAssignment kind);
};

}  // namespace dorvik::basic
