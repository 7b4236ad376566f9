#pragma once

#include "ProcedurePart.h"

namespace dorvik::basic {

/// ReDim and Erase.
class ArrayStatementCompiler : private ProcedurePart {
public:
    explicit ArrayStatementCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    void Compile(const RedimStatement& node, SourcePlace place);
    void Compile(const EraseStatement& node, SourcePlace place);

private:
    void Redimension(const RedimTarget& target, bool preserve, SourcePlace place);
};

}  // namespace dorvik::basic
