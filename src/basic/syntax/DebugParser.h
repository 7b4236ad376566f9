#pragma once

#include "StatementPart.h"

namespace dorvik::basic {

/// Debug.Print and Debug.Assert.
class DebugParser : private StatementPart {
public:
    explicit DebugParser(StatementContext& context) : StatementPart(context) {}

    void ParseDebugPrint();
    void ParseDebugAssert();

private:
    PrintPart ParsePrintPart();
};

}  // namespace dorvik::basic
