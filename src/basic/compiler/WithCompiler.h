#pragma once

#include "ProcedurePart.h"

namespace dorvik::basic {

/// With.
class WithCompiler : private ProcedurePart {
public:
    explicit WithCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    void Compile(const WithStatement& node, SourcePlace place);

private:
    void HoldArraysOf(const Expression& target, const WithStatement& node);
};

}  // namespace dorvik::basic
