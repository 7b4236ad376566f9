#pragma once

#include "ProcedurePart.h"

namespace dorvik::basic {

/// On Error, Resume and Error.
class ErrorFlowCompiler : private ProcedurePart {
public:
    explicit ErrorFlowCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    void Compile(const OnErrorStatement& node, SourcePlace place);
    void Compile(const ResumeStatement& node, SourcePlace place);
    void Compile(const ErrorStatement& node, SourcePlace place);
};

}  // namespace dorvik::basic
