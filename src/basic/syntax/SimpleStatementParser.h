#pragma once

#include "StatementPart.h"

namespace dorvik::basic {

/// Declarations, ReDim, Erase and Stop, and what can only be outside procedures.
class SimpleStatementParser : private StatementPart {
public:
    explicit SimpleStatementParser(StatementContext& context) : StatementPart(context) {}

    void ParseDim();
    void ParseStatic();
    void ParseConst();
    void ParseReDim();
    void ParseErase();
    void ParseStop();
    void RejectModuleLevel();
    void RejectOption();
};

}  // namespace dorvik::basic
