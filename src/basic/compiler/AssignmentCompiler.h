#pragma once

#include "LValue.h"
#include "Operand.h"
#include "ProcedurePart.h"

namespace dorvik::basic {

/// Let and Set.
class AssignmentCompiler : private ProcedurePart {
public:
    explicit AssignmentCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    void Compile(const AssignStatement& node, SourcePlace place);

private:
    void Assign(const Expression& written, const Expression& value, bool isSet, SourcePlace place);
    void AssignVariable(
        const Variable& variable, const Expression& target, const Expression& value, bool isSet);
    bool TryAppend(const Variable& variable, const Expression& value);
    void AssignWhole(const Expression& target, const LValue& lvalue, const Operand& value);
};

}  // namespace dorvik::basic
